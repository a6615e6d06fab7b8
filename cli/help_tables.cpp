#include "cli/help_tables.h"

namespace helpTexts {

const helpText importTable{
    "table",
    "read a table into a property of one well or many",
    "Reads the rows of a delimited table into points or intervals. A column is a number, from 1, or "
    "the text of its header cell; a backslash makes a comma, an equals sign or a digit plain (\\,  "
    "\\=  \\3). Wells are named by name where that is unique, by OBJECT/FIELD/NAME, or with --well-key "
    "by the value of an attribute. A table of codes has them in its first column and their values in "
    "the second. Depths in one system are completed with the survey. One bad row leaves nothing "
    "written, unless --partial says otherwise; bad rows are listed with their reasons.",
    "welldb import table field.well2 tops.csv --well-column Well --template marker --prop Tops "
    "--columns depth=MD,Название=Top",
};

const helpText importWells{
    "wells",
    "make wells of the rows of a table",
    "Makes a well of each row of a delimited table. A column is a number, from 1, or the text of its "
    "header cell; a backslash makes a comma, an equals sign or a digit plain (\\,  \\=  \\3). An empty "
    "cell leaves what a new well has: altitude 0, position (0, 0), no bottom. A well that is there "
    "makes its row bad; --on-existing skips or updates it. One bad row leaves nothing written, unless "
    "--partial says otherwise.",
    "welldb import wells field.well2 wells.csv --columns name=Well,x=X,y=Y --object North",
};

const helpText exportTable{
    "table",
    "write a property of one well or all as a table",
    "Writes points, intervals, picks or a log as a delimited table: the well, the depths of both "
    "systems, the fields. Without --well it holds every well that has the property. What import "
    "table reads of it are the same records, as long as --codes is given where fields are bound to "
    "dictionaries.",
    "welldb export table field.well2 --prop Tops -o tops.csv",
};

} // namespace helpTexts
