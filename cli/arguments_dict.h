// The commands of dictionaries.
#pragma once

#include "cli/add_command.h"

void addDictCommands(CLI::App& app, command& chosen);
