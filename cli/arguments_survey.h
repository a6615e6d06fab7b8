// The commands of directional surveys.
#pragma once

#include "cli/add_command.h"

void addSurveyImport(CLI::App& import, command& chosen); // into the group "import"
void addSurveyCommand(CLI::App& app, command& chosen);
