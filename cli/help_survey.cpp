#include "cli/help_survey.h"

namespace helpTexts {

const helpText importSurvey{
    "survey",
    "replace the survey of a well",
    "Replaces the survey of a well by that of a file. Without --columns the file is a listing: text "
    "whose data lie between its second and its third line with a \"=\", with measured depth, "
    "inclination and azimuth (degrees) first on each line. With --columns md=…,inc=…,azi=… it is a "
    "delimited table, or a LAS file if its name ends in .las: columns by number or header text, "
    "curves by mnemonic. Angles are decimal degrees or degrees, minutes and seconds (45 30, "
    "45:30:15), azimuths also bearings such as N45E. The absolute depths of the well's properties "
    "follow.",
    "welldb import survey field.well2 --well 12 --columns md=1,inc=Dip,azi=3 --dip down survey.csv",
};

const helpText survey{
    "survey",
    "show the survey of a well",
    "Shows the directional survey of a well: stations with measured and absolute depth, inclination "
    "and azimuth in degrees, and x (east) and y (north), which are offsets from the well head. "
    "Below them the altitude, whether depths grow and absolute depths fall all the way (valid), and "
    "the farthest offset in each direction. --report computes the hole by minimum curvature beside "
    "the stored trajectory: positions, dog-leg severity per 30 m and per 100 ft, and by how much the "
    "stored trajectory differs. --crossing gives every measured depth at which that hole passes an "
    "absolute depth.",
    "welldb survey field.well2 --well 12 --report",
};

} // namespace helpTexts
