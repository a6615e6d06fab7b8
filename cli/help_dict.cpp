#include "cli/help_dict.h"

namespace helpTexts {

const helpText dictCommand{
    "dict",
    "list and change dictionaries, and bind fields to them",
    "A dictionary is a list of codes and what they mean. The cells of a field that is bound to one "
    "hold codes; what is shown of them are the values.",
    "welldb dict list field.well2",
};

const helpText dictList{
    "list",
    "list the dictionaries",
    "Lists the dictionaries with the number of their entries.",
    "welldb dict list field.well2 --json",
};

const helpText dictShow{
    "show",
    "show the entries of a dictionary",
    "Shows the codes and values of a dictionary in the order in which they were added.",
    "welldb dict show field.well2 Lithology",
};

const helpText dictCreate{
    "create",
    "make a dictionary",
    "Makes a dictionary without entries.",
    "welldb dict create field.well2 Lithology",
};

const helpText dictRename{
    "rename",
    "give a dictionary another name",
    "Gives a dictionary another name. What is bound to it stays bound.",
    "welldb dict rename field.well2 Lithology --to Rocks",
};

const helpText dictAdd{
    "add",
    "add an entry to a dictionary",
    "Adds a code and its value. Codes are unique within a dictionary.",
    "welldb dict add field.well2 Lithology 12 \"Песчаник\"",
};

const helpText dictImport{
    "import",
    "add the rows of a table to a dictionary",
    "Adds a code and its value from each row of a delimited table. A column is a number, from 1, or "
    "the text of its header cell. Rows whose code is there already are passed over. One row without "
    "the two cells leaves nothing written, unless --partial says otherwise. A file that dict export "
    "wrote has no header.",
    "welldb dict import field.well2 Lithology rocks.csv --code 1 --value 2 --no-header",
};

const helpText dictExport{
    "export",
    "write a dictionary into a file",
    "Writes a line \"code;value\" for each entry, in UTF-8 or another encoding. A text with a "
    "semicolon, a quote, a line end or blanks at its ends stands in quotes.",
    "welldb dict export field.well2 Lithology rocks.txt --encoding windows-1251",
};

const helpText dictLink{
    "link",
    "bind a field of a property to a dictionary",
    "Binds a field of the property of this name and group, in every well that has it or will have "
    "it, to a dictionary. The property need not be there yet.",
    "welldb dict link field.well2 Lithology GEO/Column Порода",
};

const helpText dictUnlink{
    "unlink",
    "take a field's dictionary away",
    "Takes the binding of a field away. Its cells keep their codes, which are shown as they are.",
    "welldb dict unlink field.well2 GEO/Column Порода",
};

const helpText dictLinks{
    "links",
    "list what is bound to dictionaries",
    "Lists the fields of properties and the keys of the well information that are bound to "
    "dictionaries. One whose dictionary was removed has none.",
    "welldb dict links field.well2",
};

const helpText dictSwap{
    "swap",
    "make codes of values and values of codes",
    "Exchanges the code and the value of every entry. Doing it twice leaves things as they were.",
    "welldb dict swap field.well2 Lithology",
};

const helpText dictRemove{
    "remove",
    "remove a dictionary with its entries",
    "Removes a dictionary. Fields that are bound to it stay so, and show their codes; unlink frees "
    "them for another dictionary.",
    "welldb dict remove field.well2 Lithology",
};

} // namespace helpTexts
