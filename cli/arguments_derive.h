// The commands that make data from data of a container.
#pragma once

#include "cli/add_command.h"

void addDeriveCommands(CLI::App& app, command& chosen);
