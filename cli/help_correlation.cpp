#include "cli/help_correlation.h"

namespace helpTexts {

const helpText correlationCommand{
    "correlation",
    "borders picked on many wells",
    "A correlation is a named set of borders and the depths at which they are picked on wells. A "
    "well with picks shows it as a property of the same name, in the group of GROUP/NAME.",
    "welldb correlation list field.well2",
};

const helpText correlationList{
    "list",
    "list the correlations",
    "Lists the correlations with the number of their borders and the measured depths of their picks.",
    "welldb correlation list field.well2 --json",
};

const helpText correlationCreate{
    "create",
    "make an empty correlation",
    "Makes a correlation without borders. A name that is there is refused.",
    "welldb correlation create field.well2 --name Tops",
};

const helpText correlationRename{
    "rename",
    "rename a correlation",
    "Renames the correlation and, on every well, the property that shows it. A name that a "
    "correlation or any property has is refused.",
    "welldb correlation rename field.well2 --name Tops --to \"Tops 2024\"",
};

const helpText correlationRemove{
    "remove",
    "remove a correlation with its borders and picks",
    "Removes the correlation, its borders and picks, and on every well the property that shows it.",
    "welldb correlation remove field.well2 --name Tops",
};

const helpText correlationBorder{
    "border",
    "the borders of a correlation",
    "Lists and changes the names of a correlation's borders and the groups that they are in.",
    "welldb correlation border list field.well2 --name Tops",
};

const helpText borderList{
    "list",
    "list the borders",
    "Lists the borders with their groups and the number of wells on which each is picked.",
    "welldb correlation border list field.well2 --name Tops --json",
};

const helpText borderAdd{
    "add",
    "add a border",
    "Adds a border. A name that is taken gets (2), (3) … at its end; the answer says which.",
    "welldb correlation border add field.well2 --name Tops McMurray --group Cretaceous",
};

const helpText borderRename{
    "rename",
    "rename a border",
    "Renames a border; its picks stay. A name that is taken is refused.",
    "welldb correlation border rename field.well2 --name Tops t61 --to T61",
};

const helpText borderRemove{
    "remove",
    "remove a border and its picks",
    "Removes a border with its picks on every well.",
    "welldb correlation border remove field.well2 --name Tops t61",
};

const helpText borderGroup{
    "group",
    "move a border to a group",
    "Moves a border to another group of borders, which need not be there.",
    "welldb correlation border group field.well2 --name Tops t61 Cretaceous",
};

const helpText correlationPick{
    "pick",
    "the picks of a correlation",
    "Lists and changes the depths at which borders lie on a well.",
    "welldb correlation pick list field.well2 --name Tops --well W-1",
};

const helpText pickList{
    "list",
    "list the picks of a well",
    "Lists the picks of a well from the top down, by measured or by absolute depth.",
    "welldb correlation pick list field.well2 --name Tops --well W-1 --absolute",
};

const helpText pickAdd{
    "add",
    "pick a border on a well",
    "Picks a border on a well, by its measured depth, its absolute depth or both; one is computed "
    "from the other with the survey. A border that is picked there already is refused.",
    "welldb correlation pick add field.well2 --name Tops McMurray --well W-1 --md 431.5",
};

const helpText pickMove{
    "move",
    "move a pick",
    "Moves a pick of a well to another depth.",
    "welldb correlation pick move field.well2 --name Tops McMurray --well W-1 --abs -12.25",
};

const helpText pickRemove{
    "remove",
    "remove a pick",
    "Removes a pick of a well; the border stays.",
    "welldb correlation pick remove field.well2 --name Tops McMurray --well W-1",
};

const helpText pickType{
    "type",
    "give a pick a type",
    "Gives a pick a type, a number from 0 to 255; 0 is a plain border.",
    "welldb correlation pick type field.well2 --name Tops McMurray --well W-1 --type 1",
};

const helpText correlationImport{
    "import",
    "read picks from a table",
    "Reads picks from a delimited table with a well, a border and a depth a row or, with --wide, a "
    "well a row and a column a border. The correlation and borders that are missing are made. A "
    "column is a number, from 1, or the text of its header cell. Wells are named by name where that "
    "is unique, by OBJECT/FIELD/NAME, or with --well-key by the value of an attribute. One bad row "
    "leaves nothing written, unless --partial says otherwise; bad rows are listed with their reasons.",
    "welldb correlation import field.well2 --name Tops picks.csv --well UWI --border Horizon "
    "--depth Pick --skip-without-depth",
};

const helpText correlationExport{
    "export",
    "write picks as a table of wells and borders",
    "Writes a row for each well that has picks and a column for each border, with measured depths. "
    "import --wide reads it back.",
    "welldb correlation export field.well2 --name Tops --csv tops.csv",
};

} // namespace helpTexts
