// The commands of the catalogue of log curves.
#pragma once

#include "cli/add_command.h"

void addCurveCommands(CLI::App& app, command& chosen);
