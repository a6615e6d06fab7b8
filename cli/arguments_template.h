// The commands of property templates.
#pragma once

#include "cli/add_command.h"

void addTemplateCommands(CLI::App& app, command& chosen);
