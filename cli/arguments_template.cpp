#include "cli/arguments_template.h"

#include "cli/command_options.h"
#include "cli/commands_template.h"
#include "cli/help_template.h"
#include "cli/text.h"
#include "cli/type_names.h"

#include <algorithm>
#include <charconv>

namespace {

using namespace commandOptions;

void refuseValue(const std::string& option, const std::string& value, const std::string& known) {
    throw CLI::ValidationError(option, "\"" + value + "\" is not known; one of " + known);
}

std::optional<std::int32_t> decimalsOf(const std::string& digits) {
    std::int32_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, code] = std::from_chars(digits.data(), end, number);
    return code == std::errc() && stop == end && number >= 0 && number <= 15 ? std::optional(number)
                                                                             : std::nullopt;
}

NORLEX_fieldType fieldTypeOf(const std::string& option, const std::string& name) {
    const auto type = typeNames::fieldType(text::wide(name));
    if (!type)
        refuseValue(option, name, typeNames::fieldTypes());
    return type.value_or(NORLEX_fieldTypeUnknown);
}

// NAME:TYPE or NAME:TYPE:PREC; a name may have colons in it.
NORLEX_fieldDescr fieldOf(const std::string& given) {
    NORLEX_fieldDescr field;
    std::string rest = given;
    auto colon = rest.rfind(':');
    if (colon != std::string::npos && colon != 0)
        if (const auto decimals = decimalsOf(rest.substr(colon + 1))) {
            field.prec = *decimals;
            rest.resize(colon);
            colon = rest.rfind(':');
        }
    if (colon == std::string::npos || colon == 0)
        throw CLI::ValidationError(
            "--field", "\"" + given + "\" is not of the form NAME:TYPE or NAME:TYPE:PREC");
    field.name = text::wide(rest.substr(0, colon));
    field.type = fieldTypeOf("--field", rest.substr(colon + 1));
    return field;
}

void createOptions(CLI::App& app, templateCreateRequest& request) {
    addFile(app, request.file);
    addText(app, "NAME", "", request.name, "the name of the new template")->required();
    auto* const from = addText(app, "--from", "TEMPLATE", request.from, "a template to be like");
    app.add_option_function<std::string>(
           "--type",
           [&request](const std::string& given) {
               request.type = typeNames::dataType(text::wide(unguarded(given)));
               if (!request.type)
                   refuseValue("--type", unguarded(given), typeNames::dataTypes());
           },
           "its data type: marker, interval, column, log, …")
        ->type_name("TYPE")
        ->excludes(from);
    app.add_option_function<std::vector<std::string>>(
           "--field",
           [&request](const std::vector<std::string>& given) {
               for (const auto& one : given)
                   request.fields.push_back(fieldOf(unguarded(one)));
           },
           "a further field and its decimals; may be repeated")
        ->type_name("NAME:TYPE[:PREC]")
        ->allow_extra_args(false);
}

void checkCreate(const templateCreateRequest& request) {
    if (!request.type && request.from.empty())
        refuseUsage("a template is made either of a --type or like another one, --from");
}

void templateOptions(CLI::App& app, templateRequest& request) {
    addFile(app, request.file);
    addText(app, "TEMPLATE", "", request.name, "the template")->required();
}

void fieldOptions(CLI::App& app, templateFieldRequest& request) {
    addFile(app, request.file);
    addText(app, "TEMPLATE", "", request.name, "the template")->required();
    addText(app, "FIELD", "", request.field.name, "the field")->required();
}

void addFieldType(CLI::App& app, templateFieldRequest& request) {
    app.add_option_function<std::string>(
           "--type",
           [&request](const std::string& given) {
               request.field.type = fieldTypeOf("--type", unguarded(given));
           },
           typeNames::fieldTypes())
        ->type_name("TYPE")
        ->required();
}

void newFieldOptions(CLI::App& app, templateFieldRequest& request) {
    fieldOptions(app, request);
    addFieldType(app, request);
    app.add_option_function<std::string>(
           "--prec",
           [&request](const std::string& given) {
               const auto decimals = decimalsOf(given);
               if (!decimals)
                   throw CLI::ValidationError("--prec", "\"" + given + "\" is not one of 0 to 15");
               request.field.prec = decimals.value_or(2);
           },
           "decimals of a numeric field, 2 without it")
        ->type_name("N");
    addText(app, "--short", "S", request.field.short_name, "short name, 10 characters at most");
}

void addFieldCommands(CLI::App& group, command& chosen) {
    addCommand(
        group, chosen, helpTexts::templateAddField, commands::addTemplateField, newFieldOptions);
    addCommand(group,
               chosen,
               helpTexts::templateRenameField,
               commands::renameTemplateField,
               [](CLI::App& c, templateFieldRequest& r) {
                   fieldOptions(c, r);
                   addText(c, "--to", "F2", r.to, "the new name")->required();
               });
    addCommand(group,
               chosen,
               helpTexts::templateSetType,
               commands::setTemplateFieldType,
               [](CLI::App& c, templateFieldRequest& r) {
                   fieldOptions(c, r);
                   addFieldType(c, r);
                   c.add_flag("--force", r.force, "whatever the values are");
               });
    addCommand(group,
               chosen,
               helpTexts::templateRemoveField,
               commands::removeTemplateField,
               [](CLI::App& c, templateFieldRequest& r) {
                   fieldOptions(c, r);
                   c.add_flag("--force", r.force, "with its values");
               });
}

} // namespace

void addTemplateCommands(CLI::App& app, command& chosen) {
    CLI::App& group = addGroup(app, helpTexts::templateCommand);
    addCommand(group,
               chosen,
               helpTexts::templateList,
               commands::listTemplates,
               [](CLI::App& c, fileRequest& r) {
                   addFile(c, r.file);
                   addJson(c, r.form);
               });
    addCommand(group,
               chosen,
               helpTexts::templateShow,
               commands::showTemplate,
               [](CLI::App& c, templateRequest& r) {
                   templateOptions(c, r);
                   addJson(c, r.form);
               });
    addCommand(group,
               chosen,
               helpTexts::templateCreate,
               commands::createTemplate,
               createOptions,
               checkCreate);
    addFieldCommands(group, chosen);
    addCommand(group,
               chosen,
               helpTexts::templateRename,
               commands::renameTemplate,
               [](CLI::App& c, templateRequest& r) {
                   templateOptions(c, r);
                   addText(c, "--to", "T2", r.to, "the new name")->required();
               });
    addCommand(group, chosen, helpTexts::templateRemove, commands::removeTemplate, templateOptions);
}
