// What --help says of the commands of property templates.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText templateCommand;
extern const helpText templateList;
extern const helpText templateShow;
extern const helpText templateCreate;
extern const helpText templateRemove;
extern const helpText templateRename;
extern const helpText templateAddField;
extern const helpText templateRenameField;
extern const helpText templateSetType;
extern const helpText templateRemoveField;

} // namespace helpTexts
