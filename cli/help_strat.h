// What --help says of the commands of the stratigraphic chart.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText stratCommand;
extern const helpText stratIdentify;
extern const helpText stratList;
extern const helpText stratContain;
extern const helpText stratLayer;

} // namespace helpTexts
