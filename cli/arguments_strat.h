// The commands of the stratigraphic chart.
#pragma once

#include "cli/add_command.h"

void addStratCommands(CLI::App& app, command& chosen);
