#include "cli/help_vdm.h"

namespace helpTexts {

const helpText vdm{
    "vdm",
    "velocity-depth models of wells",
    "Shows, makes and uses the velocity-depth model of a well: points that pair an absolute depth "
    "with a two-way time in milliseconds. Times of a model fall on the way down, so they are "
    "negative below the well head, where it begins at 0.",
    "welldb vdm show field.well2 --well 12",
};

const helpText vdmShow{
    "show",
    "show the model of a well",
    "Shows the stretches between the points of a model with their depths and times, their interval "
    "velocity, and the average velocity from the first point down, in m/s.",
    "welldb vdm show field.well2 --well 12 --json",
};

const helpText vdmConvert{
    "convert",
    "convert absolute depths and times",
    "Converts absolute depths into times (--depth) or back (--time), with times as the model has "
    "them: negative below the well head. Above the first point and below the last one a millisecond "
    "is a metre.",
    "welldb vdm convert field.well2 --well 12 --depth -1500 -1600",
};

const helpText vdmImport{
    "import",
    "replace the model by a table",
    "Replaces the model of a well by the depths and times of a table, or with --intervals by "
    "velocities of intervals. Times in the table grow downwards: two-way milliseconds unless "
    "--one-way or --seconds say otherwise. Depths are absolute unless --measured is given. A row "
    "above the well head, or whose time does not grow with depth, is bad.",
    "welldb vdm import field.well2 --well 12 --table shots.csv --columns depth=MD,time=TWT "
    "--measured",
};

const helpText vdmBuild{
    "build",
    "make a model of data, or a property of it",
    "Replaces the model of a well by one of a sonic log, integrated from a tie point down, or of "
    "markers and a field with their times; or shows the model as a property of interval or average "
    "velocities, which is made anew where it is there. Removing such a property removes the model.",
    "welldb vdm build field.well2 --well 12 --sonic LAS/DT --tie-depth -310.5 --tie-time 402",
};

const helpText vdmCopy{
    "copy",
    "copy the model to another well",
    "Copies the stored points of a model to another well, absolute depths and times as they are. A "
    "well that has a model is refused without --replace.",
    "welldb vdm copy field.well2 12 12-bis --replace",
};

const helpText vdmRemove{
    "remove",
    "remove the model of a well",
    "Removes the points of a model. Properties that show it stay as they are.",
    "welldb vdm remove field.well2 --well 12",
};

} // namespace helpTexts
