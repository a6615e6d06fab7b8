#include "cli/help_bulk.h"

namespace helpTexts {

const helpText exportWells{
    "wells",
    "write the logs of many wells, a LAS file for each",
    "Writes the logs of each chosen well that has some into a LAS file of its own, all logs of the "
    "well on a common grid or with --exact as they are: see \"export las\". Without --selection "
    "and --query all wells are taken. A file is called NAME.las, or OBJECT-FIELD-NAME.las where "
    "several of the wells have one name; one that is there is replaced. A file that cannot be "
    "written does not keep the others back; the table says why, and the exit code is 1.",
    "welldb export wells field.well2 out/ --query 'exists log' --exact",
};

const helpText props{
    "props",
    "list the properties of a well, or of many",
    "Lists the properties of a well: logs and every other kind, with their template, unit, number "
    "of records and extent in measured depth. Without --well it lists the names of the properties "
    "that the chosen wells have, each once; all wells are taken where nothing chooses them.",
    "welldb props field.well2 --well 12 --json",
};

const helpText removeProp{
    "remove-prop",
    "remove a property of a well, or of many",
    "Removes a property with everything in it, its samples and attached files included, from one "
    "well, from the wells that are chosen, or with --all from all that have it. Either all of it is "
    "done or nothing. It does not ask. For many wells NAME alone is the property of no group.",
    "welldb remove-prop field.well2 Lab/Core --query 'template = Core' --remove North/Deep/12",
};

} // namespace helpTexts
