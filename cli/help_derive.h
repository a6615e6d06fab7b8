// What --help says of the commands that make data from data.
#pragma once

#include "cli/help_texts.h"

namespace helpTexts {

extern const helpText copyProp;
extern const helpText derive;
extern const helpText deriveLog;
extern const helpText deriveFilter;
extern const helpText deriveSimplified;
extern const helpText deriveMarkers;
extern const helpText deriveJoined;
extern const helpText deriveAttribute;
extern const helpText deriveIntervals;
extern const helpText deriveOre;
extern const helpText deriveSerial;
extern const helpText deriveColumn;
extern const helpText deriveBetweenPicks;

} // namespace helpTexts
