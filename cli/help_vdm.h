// What --help says of the commands of velocity-depth models.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText vdm;
extern const helpText vdmShow;
extern const helpText vdmConvert;
extern const helpText vdmImport;
extern const helpText vdmBuild;
extern const helpText vdmCopy;
extern const helpText vdmRemove;

} // namespace helpTexts
