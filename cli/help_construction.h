// What --help says of the commands of constructions and drilling records.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText construction;
extern const helpText constructionShow;
extern const helpText constructionAdd;
extern const helpText constructionAddElement;
extern const helpText constructionLoad;
extern const helpText constructionRemove;
extern const helpText constructionClear;
extern const helpText drilling;
extern const helpText drillingShow;
extern const helpText drillingSet;
extern const helpText drillingAdd;
extern const helpText drillingRemove;
extern const helpText drillingAddPerson;
extern const helpText drillingRemovePerson;

} // namespace helpTexts
