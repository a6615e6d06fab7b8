#include "cli/commands_correlation.h"

#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_correlation.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

#include "NORLEX_correlation.h"

namespace {

using store = correlation::correlation;

std::wstring quote(const std::wstring& name) {
    return L"\"" + name + L"\"";
}

// Runs a change of a correlation that is there and says what it did.
template <typename Request, typename Edit>
int edit(const Request& request, const std::wstring& line, Edit change) {
    const auto opened = openCorrelation(request.file, request.name);
    if (!opened)
        return output::failure;
    if (!change(opened.db(), *opened.description))
        return output::refused();
    output::line(line);
    return 0;
}

// One line of the list of correlations.
void addCorrelation(odbc_database* db, const std::wstring& name, table& rows, json& document) {
    NORLEX_propDescription description(name, L"");
    std::vector<std::wstring> groups;
    store::getMirrorGroupList(db, description, groups);
    if (!groups.empty())
        description.group = groups.front();
    std::vector<std::wstring> borders;
    store::getBorderList(db, description, borders);
    NORLEX_depthRange range;
    const bool hasPicks = store::getDepthRange(db, description, range);
    using numberText::fixed;
    rows.add({text::shown(name),
              text::shown(description.group),
              std::to_string(borders.size()),
              hasPicks ? fixed(range.top, 2) : "",
              hasPicks ? fixed(range.bot, 2) : ""});
    document.push_back({{"name", jsonOut::string(name)},
                        {"group", jsonOut::string(description.group)},
                        {"borders", borders.size()},
                        {"top", hasPicks ? jsonOut::number(range.top) : json(nullptr)},
                        {"bottom", hasPicks ? jsonOut::number(range.bot) : json(nullptr)}});
}

} // namespace

namespace commands {

int listCorrelations(const fileRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    std::vector<std::wstring> all;
    store::getCorrelationList(db, all);
    using enum table::align;
    table rows({{"NAME"}, {"GROUP"}, {"BORDERS", right}, {"TOP", right}, {"BOTTOM", right}});
    json document = json::array();
    for (const auto& name : all)
        addCorrelation(db, name, rows, document);
    if (request.form == resultForm::json)
        jsonOut::print(document);
    else
        rows.print();
    return 0;
}

int createCorrelation(const correlationRequest& request) {
    const auto container = openContainer(request.file);
    const auto description =
        container ? names::newProperty(request.name) : std::optional<NORLEX_propDescription>();
    if (!description)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    if (store::isCorrelationExist(db, *description))
        return output::refused(L"there is a correlation " + quote(description->name)
                               + L" already; another name is expected");
    if (!store::createCorrelationLayer(db, *description))
        return output::refused();
    output::line(L"created the correlation " + quote(description->name));
    return 0;
}

int renameCorrelation(const correlationRequest& request) {
    return edit(request,
                L"renamed the correlation " + quote(request.name) + L" to " + quote(request.to),
                [&](auto* db, const auto& cor) { return store::rename(db, cor, request.to); });
}

int removeCorrelation(const correlationRequest& request) {
    return edit(request,
                L"removed the correlation " + quote(request.name),
                [](auto* db, const auto& cor) { return store::removeCorrelation(db, cor); });
}

int listBorders(const correlationRequest& request) {
    const auto opened = openCorrelation(request.file, request.name);
    if (!opened)
        return output::failure;
    std::vector<correlation::borderName> borders;
    store::getBorderList(opened.db(), *opened.description, borders);
    using enum table::align;
    table rows({{"BORDER"}, {"GROUP"}, {"WELLS", right}});
    json document = json::array();
    for (const auto& one : borders) {
        const auto wells =
            store::getBorderNameWellCount(opened.db(), *opened.description, one.name);
        rows.add({text::shown(one.name), text::shown(one.group), std::to_string(wells)});
        document.push_back({{"border", jsonOut::string(one.name)},
                            {"group", jsonOut::string(one.group)},
                            {"wells", wells}});
    }
    if (request.form == resultForm::json)
        jsonOut::print(document);
    else
        rows.print();
    return 0;
}

int addBorder(const borderRequest& request) {
    const auto opened = openCorrelation(request.file, request.name);
    if (!opened)
        return output::failure;
    const auto name =
        store::createBorderName(opened.db(), *opened.description, request.border, request.group);
    if (name.empty())
        return output::refused();
    output::line(L"added the border " + quote(name));
    return 0;
}

int renameBorder(const borderRequest& request) {
    return edit(request,
                L"renamed the border " + quote(request.border) + L" to " + quote(request.to),
                [&](auto* db, const auto& cor) {
                    return store::renameBorder(db, cor, request.border, request.to);
                });
}

int removeBorder(const borderRequest& request) {
    return edit(
        request,
        L"removed the border " + quote(request.border) + L" and its picks",
        [&](auto* db, const auto& cor) { return store::deleteBorder(db, cor, request.border); });
}

int groupBorder(const borderRequest& request) {
    return edit(request,
                L"moved the border " + quote(request.border) + L" to the group "
                    + quote(request.group),
                [&](auto* db, const auto& cor) {
                    return store::moveBorderElementToGroup(db, cor, request.border, request.group);
                });
}

} // namespace commands
