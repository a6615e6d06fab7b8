// The commands of the construction and of the drilling record of a well.
#pragma once

#include "cli/add_command.h"

void addConstructionCommands(CLI::App& app, command& chosen);
