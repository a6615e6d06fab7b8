#include "cli/help_strat.h"

namespace helpTexts {

const helpText stratCommand{
    "strat",
    "look up units of the stratigraphic chart",
    "The stratigraphic chart is the scale of geological time units, with their indexes and names, "
    "from acrothems down to stages.",
    "welldb strat identify D3fm-C1t",
};

const helpText stratIdentify{
    "identify",
    "say which units an index expression names",
    "Lists the units of an expression: indexes or names as the chart writes them, \"-\" between the "
    "ends of a range, \"+\" between others, and braces for what several have in common: J{1-3} is "
    "J1-J3. What is not in the chart is told, and the rest is found.",
    "welldb strat identify \"D{2-3}+C1t\" --json",
};

const helpText stratList{
    "list",
    "list the units of one level",
    "Lists the units of a level from the oldest to the youngest. Levels are akrotema, eonotema, "
    "subeonotema, eratema, system, series, subseries and stage (or otdel, podotdel, yarus), or their "
    "numbers 1 to 5 and 7 to 9.",
    "welldb strat list --level yarus",
};

const helpText stratContain{
    "contain",
    "say which unit of a level contains a unit",
    "Shows the unit of the level that contains the given one, or the unit itself where it is of that "
    "level.",
    "welldb strat contain D3fm --level system",
};

const helpText stratLayer{
    "layer",
    "make a stratigraphic column of a well",
    "Makes a column from intervals with index expressions in one of their fields: for each interval "
    "its acrothem, system, series, subseries and stage, in the fields akro, system, otdel, subotdel "
    "and yarus, as indexes or with --names as names. Its template is made where it is not there.",
    "welldb strat layer field.well2 --well 12 --prop GEO/Age --field Index --to GEO/Stratigraphy",
};

} // namespace helpTexts
