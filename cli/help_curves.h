// What --help says of the commands of the catalogue of log curves.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText curvesCommand;
extern const helpText curvesFind;
extern const helpText curvesList;
extern const helpText curvesTypes;

} // namespace helpTexts
