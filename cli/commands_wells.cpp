#include "cli/commands.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

namespace {

json wellOf(const NORLEX_wellInfo& well) {
    json out = jsonOut::well(well.description);
    out["altitude"] = jsonOut::number(well.altitude);
    out["x"] = jsonOut::number(well.x);
    out["y"] = jsonOut::number(well.y);
    out["bottom"] = jsonOut::number(well.bottom);
    out["properties"] = well.properties;
    out["stations"] = well.stations;
    return out;
}

void printWells(const std::vector<NORLEX_wellInfo>& wells) {
    using enum table::align;
    table rows({{"ID", right},
                {"OBJECT", left},
                {"FIELD", left},
                {"NAME", left},
                {"ALTITUDE", right},
                {"X", right},
                {"Y", right},
                {"BOTTOM", right},
                {"PROPERTIES", right},
                {"STATIONS", right}});
    for (const auto& well : wells)
        rows.add({std::to_string(well.description.wellId),
                  text::shown(well.description.workObject),
                  text::shown(well.description.field),
                  text::shown(well.description.name),
                  numberText::fixed(well.altitude, 2),
                  numberText::fixed(well.x, 2),
                  numberText::fixed(well.y, 2),
                  well.bottom ? numberText::fixed(*well.bottom, 2) : "",
                  std::to_string(well.properties),
                  std::to_string(well.stations)});
    rows.print();
}

// The numbers that the request gives; the library's last error says why not.
bool setNumbers(NORLEX_well& well, const wellSetRequest& request) {
    return (!request.x || well.setPosition(*request.x, *request.y))
           && (!request.altitude || well.setAltitude(*request.altitude))
           && (!request.bottom || well.setBottom(*request.bottom)) && well.updateEditTime();
}

// Everything or nothing: `change` runs inside one transaction.
template <typename Change>
int inTransaction(NORLEX_wellContainer& container, Change change) {
    if (!container.beginTransaction())
        return output::refused();
    if (!change()) {
        const std::wstring reason = output::reason();
        container.rollbackTransaction();
        return output::refused(reason);
    }
    return container.endTransaction() ? 0 : output::refused();
}

int tell(int exitCode, const std::wstring& line) {
    if (exitCode == 0)
        output::line(line);
    return exitCode;
}

} // namespace

namespace commands {

int wells(const fileRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    std::vector<NORLEX_wellInfo> wells;
    NORLEX_well::getWellInfoList(container->getBaseLink(), wells);
    if (request.form != resultForm::json) {
        printWells(wells);
        return 0;
    }
    json rows = json::array();
    for (const auto& well : wells)
        rows.push_back(wellOf(well));
    jsonOut::print(rows);
    return 0;
}

int addWell(const wellSetRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    const auto description = names::newWell(request.well, {});
    if (!description)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    const int exitCode = inTransaction(*container, [&] {
        if (!NORLEX_well::create(db, *description))
            return false;
        NORLEX_well well(db, *description);
        return well.isOK() && setNumbers(well, request);
    });
    return tell(exitCode, L"added the well " + names::spelled(*description));
}

int setWell(const wellSetRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    const int exitCode =
        inTransaction(*opened.container, [&] { return setNumbers(*opened.well, request); });
    return tell(exitCode, L"changed the well " + names::spelled(opened.well->getDescription()));
}

int renameWell(const renameRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    const NORLEX_wellDescription old = opened.well->getDescription();
    const auto description = names::newWell(request.to, old);
    if (!description)
        return output::failure;
    if (!opened.well->rename(*description))
        return output::refused();
    return tell(0,
                L"renamed the well " + names::spelled(old) + L" to "
                    + names::spelled(opened.well->getDescription()));
}

int removeWell(const wellRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    const auto description = names::findWell(db, request.well);
    if (!description)
        return output::failure;
    if (!NORLEX_well::remove(db, *description))
        return output::refused();
    return tell(0, L"removed the well " + names::spelled(*description));
}

} // namespace commands
