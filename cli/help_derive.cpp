#include "cli/help_derive.h"

namespace helpTexts {

const helpText copyProp{
    "copy-prop",
    "copy a property to another well or name",
    "Copies a property with its records, fields, attributes and samples into another well, or under "
    "another name into the same one. The depths of one system stay, those of the other are computed "
    "with the survey of the destination. A property that is there is refused without --merge; merge "
    "adds the records that it does not hold yet.",
    "welldb copy-prop field.well2 12 Tops 12-bis --merge merge",
};

const helpText derive{
    "derive",
    "make data from data of a well",
    "Makes a new property of a well from others of it. A property that is there is refused.",
    "welldb derive filter field.well2 --well 12 --prop LAS/GR --window 2 --to LAS/GR_SMOOTH",
};

const helpText deriveLog{
    "log-from-data",
    "a log of a field of points or intervals",
    "Makes a log of the numeric field of points or intervals: the interval's value inside it, "
    "between points the straight line.",
    "welldb derive log-from-data field.well2 --well 12 --prop Core --field Пористость --step 0.2 "
    "--to LAS/PHI",
};

const helpText deriveFilter{
    "filter",
    "a log smoothed by a moving window",
    "Makes a log of the mean or median of another within half a window of measured depth to each "
    "side of every sample.",
    "welldb derive filter field.well2 --well 12 --prop GR --kind median --window 2 --to LAS/GR_SMOOTH",
};

const helpText deriveSimplified{
    "simplify",
    "a log with fewer samples",
    "Makes a log of the fewest samples of another from which straight lines stay within the "
    "tolerance of all the others.",
    "welldb derive simplify field.well2 --well 12 --prop GR --tolerance 0.5 --to LAS/GR_FEW",
};

const helpText deriveMarkers{
    "markers",
    "markers where a log crosses a value",
    "Makes markers where a log crosses a cutoff, on the straight line between its samples.",
    "welldb derive markers field.well2 --well 12 --prop GR --cutoff 75 --crossing rising --to Shale",
};

const helpText deriveJoined{
    "join",
    "one log of several runs",
    "Makes one log of several runs; --overlap says whose samples stand where two cover the same "
    "depths.",
    "welldb derive join field.well2 --well 12 --prop RUN1/GR --prop RUN2/GR --to LAS/GR",
};

const helpText deriveAttribute{
    "attribute",
    "a statistic of a log within intervals, as a field of them",
    "Writes a statistic of a log within each interval of a property into a field of it, which is "
    "added where it is not there.",
    "welldb derive attribute field.well2 --well 12 --prop GR --column Core --field GR_MEAN",
};

const helpText deriveIntervals{
    "intervals",
    "intervals where values lie in a range",
    "Makes intervals where a log, or a numeric field of points or intervals, lies within a range.",
    "welldb derive intervals field.well2 --well 12 --prop GR --max 60 --min-thickness 0.4 --to Sand",
};

const helpText deriveOre{
    "ore",
    "ore intervals at a cutoff",
    "Makes intervals of ore from a log or a numeric field of intervals: values at or above the "
    "cutoff, with thin waste taken in while the whole stays at or above it.",
    "welldb derive ore field.well2 --well 12 --prop Assay --field Au --cutoff 1.5 --max-waste 2 "
    "--to Ore",
};

const helpText deriveSerial{
    "serial",
    "a data set of the samples of a log",
    "Makes a data set of a log: one record for each sample that has a value.",
    "welldb derive serial field.well2 --well 12 --prop GR --to GR_POINTS",
};

const helpText deriveColumn{
    "column",
    "a column of markers",
    "Makes a column of markers: each one's values reach down to the next one, the last one's to the "
    "bottom.",
    "welldb derive column field.well2 --well 12 --prop Tops --bottom 3120.5 --to Column",
};

const helpText deriveBetweenPicks{
    "between-picks",
    "intervals between neighbouring picks",
    "Makes intervals between neighbouring picks of a border property, named by the upper one.",
    "welldb derive between-picks field.well2 --well 12 --prop Borders --to Zones",
};

} // namespace helpTexts
