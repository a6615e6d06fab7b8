// What --help says of the commands of correlations.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText correlationCommand;
extern const helpText correlationList;
extern const helpText correlationCreate;
extern const helpText correlationRename;
extern const helpText correlationRemove;
extern const helpText correlationBorder;
extern const helpText borderList;
extern const helpText borderAdd;
extern const helpText borderRename;
extern const helpText borderRemove;
extern const helpText borderGroup;
extern const helpText correlationPick;
extern const helpText pickList;
extern const helpText pickAdd;
extern const helpText pickMove;
extern const helpText pickRemove;
extern const helpText pickType;
extern const helpText correlationImport;
extern const helpText correlationExport;

} // namespace helpTexts
