// What --help says of the commands that work on many wells at once.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText exportWells;
extern const helpText props;
extern const helpText removeProp;

} // namespace helpTexts
