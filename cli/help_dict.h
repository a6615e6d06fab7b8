// What --help says of the commands of dictionaries.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText dictCommand;
extern const helpText dictList;
extern const helpText dictShow;
extern const helpText dictCreate;
extern const helpText dictRename;
extern const helpText dictAdd;
extern const helpText dictImport;
extern const helpText dictExport;
extern const helpText dictLink;
extern const helpText dictUnlink;
extern const helpText dictLinks;
extern const helpText dictSwap;
extern const helpText dictRemove;

} // namespace helpTexts
