#include "cli/help_construction.h"

namespace helpTexts {

const helpText construction{
    "construction",
    "the drilled hole and its casing",
    "Shows and changes the construction of a well: drilled sections with their casing, and working elements. Depths are measured depths in metres, diameters in millimetres.",
    "welldb construction show field.well2 --well 12",
};

const helpText constructionShow{
    "show",
    "show sections and working elements",
    "Shows the sections of a well by the depth where they begin, and its working elements by their tops.",
    "welldb construction show field.well2 --well 12 --json",
};

const helpText constructionAdd{
    "add",
    "add a section",
    "Adds a drilled section, with the part of it that is cased.",
    "welldb construction add field.well2 --well 12 --from 0 --to 120.5 --diameter 393.7 --pipe-to 119 --pipe-diameter 324",
};

const helpText constructionAddElement{
    "add-element",
    "add a working element",
    "Adds a working element. Its type is the number that the host gives the kind of element.",
    "welldb construction add-element field.well2 --well 12 --type 1 --top 700 --bottom 710 --text packer",
};

const helpText constructionLoad{
    "load",
    "add the sections of a table",
    "Adds the sections of a delimited table with a header, all of them or none. Columns are named by number or header text; a cell that is empty is 0. --replace removes the sections that are there.",
    "welldb construction load field.well2 --well 12 --columns from=1,to=2,diameter=Bit sections.csv",
};

const helpText constructionRemove{
    "remove",
    "remove a section or an element",
    "Removes the section with the number that show gives it, or on --element the working element.",
    "welldb construction remove field.well2 --well 12 3",
};

const helpText constructionClear{
    "clear",
    "remove the whole construction",
    "Removes all sections and working elements of a well. It does not ask.",
    "welldb construction clear field.well2 --well 12",
};

const helpText drilling{
    "drilling",
    "the drilling record of a well",
    "Shows and changes the drilling record of a well: its header, the runs, the people.",
    "welldb drilling show field.well2 --well 12",
};

const helpText drillingShow{
    "show",
    "show the drilling record",
    "Shows the header, the runs by the depth where they begin, and the people.",
    "welldb drilling show field.well2 --well 12 --json",
};

const helpText drillingSet{
    "set",
    "set the header",
    "Sets those parts of the header that are given.",
    "welldb drilling set field.well2 --well 12 --type core --rig ZIF-650",
};

const helpText drillingAdd{
    "add",
    "add a run",
    "Adds a run. All but its depths is text.",
    "welldb drilling add field.well2 --well 12 --from 10 --to 25.5 --date 2024-05-02 --core 14.2",
};

const helpText drillingRemove{
    "remove",
    "remove a run",
    "Removes the run with the number that show gives it.",
    "welldb drilling remove field.well2 --well 12 3",
};

const helpText drillingAddPerson{
    "add-person",
    "add a person",
    "Adds a person to the record.",
    "welldb drilling add-person field.well2 --well 12 Ivanov driller",
};

const helpText drillingRemovePerson{
    "remove-person",
    "remove a person",
    "Removes a person, known by name and position.",
    "welldb drilling remove-person field.well2 --well 12 Ivanov driller",
};

} // namespace helpTexts
