// The command line of selections and data filters.
#pragma once

#include "cli/add_command.h"
#include "cli/commands_select.h"

void addSelectCommands(CLI::App& app, command& chosen);

// --selection, --query and what changes them, of a command on chosen wells.
void addWellChoice(CLI::App& app, wellChoice& choice);
