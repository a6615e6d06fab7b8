#include "cli/commands_dict.h"

#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/table_reports.h"
#include "cli/text.h"

#include <optional>

namespace {

std::wstring quote(const std::wstring& name) {
    return L"\"" + name + L"\"";
}

std::string entriesOf(std::size_t count) {
    return count == 1 ? "1 entry" : std::to_string(count) + " entries";
}

// A dictionary with its container, which it must not outlive.
struct openedDict {
    std::unique_ptr<NORLEX_wellContainer> container;
    std::unique_ptr<NORLEX_dictionary> found; // null when either was not found

    explicit operator bool() const { return found != nullptr; }
};

openedDict openDict(const std::wstring& file, const std::wstring& name) {
    openedDict out;
    out.container = openContainer(file);
    if (!out.container)
        return out;
    odbc_database* const db = out.container->getBaseLink();
    auto found = std::make_unique<NORLEX_dictionary>(db, name);
    if (found->isOK()) {
        out.found = std::move(found);
        return out;
    }
    std::vector<std::wstring> names;
    NORLEX_dictionary::getList(db, names);
    std::wstring listed;
    for (const auto& one : names)
        listed += (listed.empty() ? L"" : L", ") + one;
    output::say(L"the dictionary " + quote(name) + L" was not found; there are: "
                + (listed.empty() ? L"none" : listed));
    return out;
}

// Runs an edit of a container and says what it did.
template <typename Edit>
int edit(const std::wstring& file, const std::wstring& line, Edit change) {
    const auto container = openContainer(file);
    if (!container)
        return output::failure;
    if (!change(container->getBaseLink()))
        return output::refused();
    output::line(line);
    return 0;
}

// A field of a property, both by the names that they are stored by.
struct boundField {
    NORLEX_propDescription property;
    std::wstring field;
};

std::optional<boundField> fieldOf(const dictLinkRequest& request) {
    const auto property = names::newProperty(request.property);
    if (!property)
        return std::nullopt;
    boundField out{*property, request.field};
    for (auto* const name : {&out.property.name, &out.property.group, &out.field})
        std::erase(*name, L'\'');
    return out;
}

std::wstring shown(const boundField& bound) {
    return L"the field " + quote(bound.field) + L" of " + names::spelled(bound.property);
}

json nameOrNull(const std::wstring& dictionary) {
    return dictionary.empty() ? json(nullptr) : jsonOut::string(dictionary);
}

} // namespace

namespace commands {

int listDicts(const fileRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    std::vector<std::wstring> names;
    NORLEX_dictionary::getList(db, names);
    using enum table::align;
    table rows({{"NAME"}, {"ENTRIES", right}});
    json document = json::array();
    for (const auto& name : names) {
        const auto entries = NORLEX_dictionary(db, name).getValueCount();
        rows.add({text::shown(name), std::to_string(entries)});
        document.push_back({{"name", jsonOut::string(name)}, {"entries", entries}});
    }
    if (request.form == resultForm::json)
        jsonOut::print(document);
    else
        rows.print();
    return 0;
}

int showDict(const dictRequest& request) {
    const auto opened = openDict(request.file, request.name);
    if (!opened)
        return output::failure;
    table rows({{"CODE"}, {"VALUE"}});
    json entries = json::array();
    for (const auto& entry : opened.found->getValueList())
        if (request.form == resultForm::json)
            entries.push_back(
                {{"code", jsonOut::string(entry.code)}, {"value", jsonOut::string(entry.value)}});
        else
            rows.add({text::shown(entry.code), text::shown(entry.value)});
    if (request.form == resultForm::json)
        jsonOut::print({{"name", jsonOut::string(request.name)}, {"entries", entries}});
    else
        rows.print();
    return 0;
}

int createDict(const dictRequest& request) {
    return edit(request.file, L"created the dictionary " + quote(request.name), [&](auto* db) {
        return NORLEX_dictionary::create(db, request.name);
    });
}

int renameDict(const dictRequest& request) {
    return edit(request.file,
                L"renamed the dictionary " + quote(request.name) + L" to " + quote(request.to),
                [&](auto* db) { return NORLEX_dictionary::rename(db, request.name, request.to); });
}

int removeDict(const dictRequest& request) {
    return edit(request.file, L"removed the dictionary " + quote(request.name), [&](auto* db) {
        return NORLEX_dictionary::deleteDict(db, request.name);
    });
}

int addToDict(const dictAddRequest& request) {
    const auto opened = openDict(request.file, request.name);
    if (!opened)
        return output::failure;
    const auto before = opened.found->getValueCount();
    if (!opened.found->addValue(request.code, request.value))
        return output::refused();
    if (opened.found->getValueCount() == before)
        return output::refused(L"the dictionary " + quote(request.name) + L" has a code "
                               + quote(request.code) + L" already: "
                               + quote(opened.found->getShownValue(request.code)));
    output::line(L"added " + quote(request.code) + L" to the dictionary " + quote(request.name));
    return 0;
}

int importDict(const dictImportRequest& request) {
    const auto opened = openDict(request.file, request.name);
    if (!opened)
        return output::failure;
    NORLEX_tableReport report;
    bool isDone = false;
    tableReports::withProgress([&] {
        isDone = opened.found->importFromText(
            request.table, request.options, request.code, request.value, report);
    });
    const std::wstring error = isDone ? std::wstring() : output::reason();
    const auto entries = opened.found->getValueCount();
    if (request.form == resultForm::json)
        jsonOut::print(tableReports::document(isDone, report, {{"entries", entries}}, error));
    else if (isDone || report.badCount > 0)
        tableReports::print(report, entriesOf(entries) + " in the dictionary");
    return isDone ? 0 : output::refused(error);
}

int exportDict(const dictExportRequest& request) {
    const auto opened = openDict(request.file, request.name);
    if (!opened)
        return output::failure;
    if (!opened.found->exportToText(request.out, request.encoding))
        return output::refused();
    output::line(entriesOf(opened.found->getValueCount()) + " written to "
                 + text::shown(request.out));
    return 0;
}

int swapDict(const dictRequest& request) {
    return edit(request.file,
                L"swapped codes and values of the dictionary " + quote(request.name),
                [&](auto* db) { return NORLEX_dictionary::swapData(db, request.name); });
}

int linkDict(const dictLinkRequest& request) {
    const auto bound = fieldOf(request);
    if (!bound)
        return output::failure;
    return edit(request.file,
                L"bound " + shown(*bound) + L" to the dictionary " + quote(request.name),
                [&](auto* db) {
                    return NORLEX_dictionary::createLink(
                        db, bound->property, bound->field, request.name);
                });
}

int unlinkDict(const dictLinkRequest& request) {
    const auto bound = fieldOf(request);
    const auto container = bound ? openContainer(request.file) : nullptr;
    if (!container)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    if (!NORLEX_dictionary::isLinkExist(db, bound->property, bound->field))
        return output::refused(shown(*bound) + L" is bound to no dictionary");
    if (!NORLEX_dictionary::deleteLink(db, bound->property, bound->field))
        return output::refused();
    output::line(shown(*bound) + L" is bound to no dictionary any more");
    return 0;
}

int listDictLinks(const fileRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    std::vector<NORLEX_dict_link> links;
    NORLEX_dictionary::getLinkList(container->getBaseLink(), links);
    std::vector<NORLEX_dict_infoLink> infoLinks;
    NORLEX_dictionary::getLinkList(container->getBaseLink(), infoLinks);
    table rows({{"GROUP"}, {"PROPERTY"}, {"FIELD"}, {"KEY"}, {"DICTIONARY"}});
    json fields = json::array();
    for (const auto& link : links) {
        rows.add({text::shown(link.property.group),
                  text::shown(link.property.name),
                  text::shown(link.field),
                  "",
                  text::shown(link.dictionary)});
        fields.push_back({{"group", jsonOut::string(link.property.group)},
                          {"property", jsonOut::string(link.property.name)},
                          {"field", jsonOut::string(link.field)},
                          {"dictionary", nameOrNull(link.dictionary)}});
    }
    json keys = json::array();
    for (const auto& link : infoLinks) {
        rows.add({"", "", "", text::shown(link.key), text::shown(link.dictionary)});
        keys.push_back(
            {{"key", jsonOut::string(link.key)}, {"dictionary", nameOrNull(link.dictionary)}});
    }
    if (request.form == resultForm::json)
        jsonOut::print({{"fields", fields}, {"keys", keys}});
    else
        rows.print();
    return 0;
}

} // namespace commands
