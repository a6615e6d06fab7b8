// The command line of work on many wells at once.
#pragma once

#include "cli/add_command.h"

void addBulkExport(CLI::App& exportGroup, command& chosen);
void addPropertyCommands(CLI::App& app, command& chosen);
