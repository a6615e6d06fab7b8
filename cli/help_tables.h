// What --help says of the commands that read and write delimited tables.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText importTable;
extern const helpText importWells;
extern const helpText exportTable;

} // namespace helpTexts
