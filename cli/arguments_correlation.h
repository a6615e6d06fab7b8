// The commands of correlations.
#pragma once

#include "cli/add_command.h"

void addCorrelationCommands(CLI::App& app, command& chosen);
