// The commands that read and write delimited tables.
#pragma once

#include "cli/add_command.h"
#include "cli/commands.h"

#include "tableReader.h"

// Into the groups "import" and "export".
void addTableCommands(CLI::App& import, CLI::App& exportGroup, command& chosen);

// Options of all imports of tables: how the table is spelled, what becomes of bad rows, and --json.
void addTableFormat(CLI::App& app,
                    tableRW::tableOptions& format,
                    bool& hasHeader,
                    bool& keepGoodRows,
                    resultForm& form);
