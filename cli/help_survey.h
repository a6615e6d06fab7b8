// What --help says of the commands of directional surveys.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText importSurvey;
extern const helpText survey;

} // namespace helpTexts
