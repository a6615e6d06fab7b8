#include "cli/help_select.h"

namespace helpTexts {

const helpText select{
    "select",
    "list the wells that meet conditions",
    "Lists the wells of a saved selection or of queries, read strictly from left to right:\n"
    "  exists log                        data of a kind: coordinates, altitude, data, survey,\n"
    "                                    construction, elements, drilling, documents, passport,\n"
    "                                    velocity, log\n"
    "  type = marker, template = Core, property = GK, group = LAS    != for those without\n"
    "  Core/Plug.por > 0.2               a value; =, !=, contains, begins with, is empty …\n"
    "  meta OPERATOR = \"North\"           an attribute; passport KEY likewise\n"
    "  exists LAS/GK from -1700 to -1500 data inside absolute depths\n"
    "  created > 2024-01-31, changed of Core/Plug = today\n"
    "joined by \"and\" and \"or\". --new writes the selection instead, to be used again.",
    "welldb select field.well2 --query 'type = log and not exists survey'",
};

const helpText filter{
    "filter",
    "find the depths where data meet conditions",
    "Lists, well by well, the depths of points and the intervals whose values meet the conditions, "
    "in absolute depths. All conditions are tested on one value at a time: those on different "
    "fields are joined by \"or\". Parentheses group, and \"and\" binds before \"or\". --column adds "
    "the values of other fields at these depths; --new writes the filter to be used again.",
    "welldb filter field.well2 --query 'Core/Plug.por > 0.2' --wells 'exists log'",
};

} // namespace helpTexts
