#include "cli/commands_template.h"

#include "cli/json_out.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"
#include "cli/type_names.h"

#include "NORLEX_propTemplate.h"

namespace {

std::wstring quote(const std::wstring& name) {
    return L"\"" + name + L"\"";
}

std::wstring listed(const std::vector<std::wstring>& names) {
    std::wstring out;
    for (const auto& name : names)
        out += (out.empty() ? L"" : L", ") + name;
    return out.empty() ? L"none" : out;
}

// A template with its container, which it must not outlive.
struct openedTemplate {
    std::unique_ptr<NORLEX_wellContainer> container;
    std::optional<NORLEX_propTemplate> found; // nothing when either was not found

    explicit operator bool() const { return found.has_value(); }
};

openedTemplate openTemplate(const std::wstring& file, const std::wstring& name) {
    openedTemplate out;
    out.container = openContainer(file);
    if (!out.container)
        return out;
    odbc_database* const db = out.container->getBaseLink();
    NORLEX_propTemplate found(db, name);
    if (found.isOK())
        out.found = std::move(found);
    else
        output::say(L"the template " + quote(name) + L" was not found; there are: "
                    + listed(NORLEX_propTemplate::getTemplateList(db)));
    return out;
}

// The template of a field that it must have.
openedTemplate openField(const templateFieldRequest& request) {
    openedTemplate out = openTemplate(request.file, request.name);
    if (!out || out.found->isFieldExist(request.field.name))
        return out;
    std::vector<std::wstring> names;
    NORLEX_propTemplate::getFieldList(out.container->getBaseLink(), request.name, names);
    output::say(L"the template " + quote(request.name) + L" has no field "
                + quote(request.field.name) + L"; there are: " + listed(names));
    out.found.reset();
    return out;
}

int tell(bool done, const std::wstring& line) {
    if (!done)
        return output::refused();
    output::line(line);
    return 0;
}

std::wstring fieldOf(const templateFieldRequest& request) {
    return L"the field " + quote(request.field.name) + L" of the template " + quote(request.name);
}

json fieldsJson(const std::vector<NORLEX_fieldDescr>& fields) {
    json out = json::array();
    for (const auto& field : fields)
        out.push_back({
            {"name", jsonOut::string(field.name)},
            {"type", typeNames::of(field.type)},
            {"precision", field.type == NORLEX_fieldTypeNumeric ? json(field.prec) : json(nullptr)},
            {"short_name", jsonOut::string(field.short_name)},
        });
    return out;
}

void printFields(const std::vector<NORLEX_fieldDescr>& fields) {
    using enum table::align;
    table rows({{"FIELD"}, {"TYPE"}, {"PRECISION", right}, {"SHORT NAME"}});
    for (const auto& field : fields)
        rows.add({text::shown(field.name),
                  std::string(typeNames::of(field.type)),
                  field.type == NORLEX_fieldTypeNumeric ? std::to_string(field.prec) : "",
                  text::shown(field.short_name)});
    rows.print();
}

} // namespace

namespace commands {

int listTemplates(const fileRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    using enum table::align;
    table rows({{"NAME"}, {"TYPE"}, {"FIELDS", right}, {"PROPERTIES", right}});
    json document = json::array();
    odbc_database* const db = container->getBaseLink();
    for (const auto& name : NORLEX_propTemplate::getTemplateList(db)) {
        const NORLEX_propTemplate one(db, name);
        rows.add({text::shown(name),
                  std::string(typeNames::of(one.getType())),
                  std::to_string(one.getFieldCount()),
                  std::to_string(one.numProps())});
        document.push_back({
            {"name", jsonOut::string(name)},
            {"type", typeNames::of(one.getType())},
            {"fields", one.getFieldCount()},
            {"properties", one.numProps()},
        });
    }
    if (request.form == resultForm::json)
        jsonOut::print(document);
    else
        rows.print();
    return 0;
}

int showTemplate(const templateRequest& request) {
    const auto opened = openTemplate(request.file, request.name);
    if (!opened)
        return output::failure;
    const auto& shown = *opened.found;
    if (request.form == resultForm::json) {
        jsonOut::print({
            {"name", jsonOut::string(shown.getName())},
            {"type", typeNames::of(shown.getType())},
            {"description", jsonOut::string(shown.getDescription())},
            {"draw_type", jsonOut::string(shown.getBasicDrawType())},
            {"properties", shown.numProps()},
            {"fields", fieldsJson(shown.getFieldList())},
        });
        return 0;
    }
    printPairs({
        {"name", text::shown(shown.getName())},
        {"type", std::string(typeNames::of(shown.getType()))},
        {"description", text::shown(shown.getDescription())},
        {"draw type", text::shown(shown.getBasicDrawType())},
        {"properties", std::to_string(shown.numProps())},
    });
    output::line("");
    printFields(shown.getFieldList());
    return 0;
}

int createTemplate(const templateCreateRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    const bool done = request.type ? NORLEX_propTemplate::createFromType(
                          db, *request.type, request.name, request.fields, true)
                                   : NORLEX_propTemplate::createFromTemplate(
                                       db, request.from, request.name, request.fields, true);
    return tell(done, L"created the template " + quote(request.name));
}

int removeTemplate(const templateRequest& request) {
    const auto opened = openTemplate(request.file, request.name);
    if (!opened)
        return output::failure;
    return tell(NORLEX_propTemplate::remove(opened.container->getBaseLink(), request.name),
                L"removed the template " + quote(request.name));
}

int renameTemplate(const templateRequest& request) {
    const auto opened = openTemplate(request.file, request.name);
    if (!opened)
        return output::failure;
    return tell(
        NORLEX_propTemplate::rename(opened.container->getBaseLink(), request.name, request.to),
        L"renamed the template " + quote(request.name) + L" to " + quote(request.to));
}

int addTemplateField(const templateFieldRequest& request) {
    auto opened = openTemplate(request.file, request.name);
    if (!opened)
        return output::failure;
    return tell(opened.found->addField(request.field, true),
                L"added " + fieldOf(request) + L" and of its properties");
}

int renameTemplateField(const templateFieldRequest& request) {
    auto opened = openField(request);
    if (!opened)
        return output::failure;
    return tell(opened.found->renameField(request.field.name, request.to),
                L"renamed " + fieldOf(request) + L" to " + quote(request.to));
}

int setTemplateFieldType(const templateFieldRequest& request) {
    auto opened = openField(request);
    if (!opened)
        return output::failure;
    std::wstring message;
    if (request.field.type == NORLEX_fieldTypeNumeric && !request.force
        && !opened.found->checkNumericFldData(request.field.name, message))
        return output::refused(message + L"; --force changes the type and keeps them as they are");
    return tell(opened.found->changeFieldType(request.field.name, request.field.type),
                fieldOf(request) + L" is of the type "
                    + text::wide(typeNames::of(request.field.type)) + L" now");
}

int removeTemplateField(const templateFieldRequest& request) {
    auto opened = openField(request);
    if (!opened)
        return output::failure;
    const auto values = opened.found->numValues(request.field.name);
    if (values != 0 && !request.force)
        return output::refused(fieldOf(request) + L" has " + std::to_wstring(values)
                               + L" values; --force deletes it with them");
    return tell(opened.found->deleteField(request.field.name), L"removed " + fieldOf(request));
}

} // namespace commands
