// The commands of velocity-depth models.
#pragma once

#include "cli/add_command.h"

void addVdmCommands(CLI::App& app, command& chosen);
