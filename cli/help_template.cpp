#include "cli/help_template.h"

namespace helpTexts {

const helpText templateCommand{
    "template",
    "list and change the property templates",
    "A template says what kind of data a property is and which fields its records have. Changing a "
    "field of a template changes it in every property that was made from it.",
    "welldb template list field.well2",
};

const helpText templateList{
    "list",
    "list the templates",
    "Lists the templates with their data type, and how many fields and properties each has.",
    "welldb template list field.well2 --json",
};

const helpText templateShow{
    "show",
    "what a template is, with its fields",
    "Shows the data type of a template, the number of properties made from it, and its fields with "
    "their types, decimals and short names.",
    "welldb template show field.well2 Интервал",
};

const helpText templateCreate{
    "create",
    "make a template",
    "Makes a template of a data type, with the standard fields of that type, or like another "
    "template, with all of its fields; those given by --field follow. Types of data: marker, "
    "interval, column, log, image, series, interval-velocity, average-velocity. A container has one "
    "template of border, construction and work-construction each. Types of fields: string, "
    "bigstring, numeric, link, vsegei, boolean. A type may also be given by its stored name or by "
    "the name that people see.",
    "welldb template create field.well2 Кровля --type marker --field Мощность:numeric:1",
};

const helpText templateRemove{
    "remove",
    "remove a template that no property is made from",
    "Removes a template and its fields. While there are properties of it, it stays.",
    "welldb template remove field.well2 Кровля",
};

const helpText templateRename{
    "rename",
    "give a template another name",
    "Gives a template another name. Its properties stay what they are.",
    "welldb template rename field.well2 Кровля --to \"Кровли пластов\"",
};

const helpText templateAddField{
    "add-field",
    "add a field to a template and its properties",
    "Adds a field to a template and to every property made from it, whose records get empty values.",
    "welldb template add-field field.well2 Интервал Пористость --type numeric --prec 3",
};

const helpText templateRenameField{
    "rename-field",
    "give a field another name",
    "Gives a field of a template another name, in every property made from it, too. The values stay.",
    "welldb template rename-field field.well2 Интервал Пористость --to Кп",
};

const helpText templateSetType{
    "set-type",
    "change the type of a field",
    "Changes the type of a field, in every property made from the template, too. The values stay as "
    "they are. Where a field is to be numeric, all of them must read as numbers, with a point or a "
    "comma, or be empty; --force does not look.",
    "welldb template set-type field.well2 Интервал Пористость --type numeric",
};

const helpText templateRemoveField{
    "remove-field",
    "remove a field with its values",
    "Removes a field from a template and from every property made from it. A field that holds values "
    "stays unless --force says to delete them.",
    "welldb template remove-field field.well2 Интервал Пористость",
};

} // namespace helpTexts
