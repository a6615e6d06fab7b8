// What --help says of the commands of selections and data filters.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText select;
extern const helpText filter;

} // namespace helpTexts
