// Picks of a correlation: single ones, and tables of them.
#include "cli/commands_correlation.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_correlation.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/table_reports.h"
#include "cli/temporary_file.h"
#include "cli/text.h"

#include "NORLEX_correlation.h"

#include <map>

namespace {

using store = correlation::correlation;
using numberText::counted;

std::wstring placeOf(const pickRequest& request) {
    return L"\"" + request.border + L"\" on " + request.well;
}

// Runs a change of one pick and says what it did.
template <typename Edit>
int edit(const pickRequest& request, const std::wstring& done, Edit change) {
    const auto opened = openCorrelation(request.file, request.name);
    const auto well = opened ? names::findWell(opened.db(), request.well) : std::nullopt;
    if (!well)
        return output::failure;
    if (!change(opened.db(), *opened.description, *well))
        return output::refused();
    output::line(done);
    return 0;
}

// A pick with the depths of both directions.
struct listed {
    correlation::point pick;
    double depth = 0.0;
    double depthAbs = 0.0;
};

bool readPicks(const openedCorrelation& opened,
               const NORLEX_wellDescription& well,
               bool byAbsolute,
               std::vector<listed>& out) {
    std::vector<correlation::point> measured;
    std::vector<correlation::point> absolute;
    if (!store::loadData(
            opened.db(), *opened.description, well, NORLEX_dataDirectionMeasured, measured)
        || !store::loadData(
            opened.db(), *opened.description, well, NORLEX_dataDirectionAbsolute, absolute))
        return false;
    std::map<std::int64_t, double> other;
    for (const auto& one : byAbsolute ? measured : absolute)
        other[one.pickId] = one.depth;
    for (const auto& one : byAbsolute ? absolute : measured)
        out.push_back({one,
                       byAbsolute ? other[one.pickId] : one.depth,
                       byAbsolute ? one.depth : other[one.pickId]});
    return true;
}

} // namespace

namespace commands {

int listPicks(const pickRequest& request) {
    const auto opened = openCorrelation(request.file, request.name);
    const auto well = opened ? names::findWell(opened.db(), request.well) : std::nullopt;
    if (!well)
        return output::failure;
    std::vector<listed> picks;
    if (!readPicks(opened, *well, request.byAbsolute, picks))
        return output::refused();
    using enum table::align;
    table rows({{"BORDER"}, {"GROUP"}, {"MD", right}, {"ABS", right}, {"TYPE", right}});
    json document = json::array();
    for (const auto& one : picks) {
        rows.add({text::shown(one.pick.name),
                  text::shown(one.pick.group),
                  numberText::fixed(one.depth, 2),
                  numberText::fixed(one.depthAbs, 2),
                  std::to_string(one.pick.type)});
        document.push_back({{"border", jsonOut::string(one.pick.name)},
                            {"group", jsonOut::string(one.pick.group)},
                            {"depth", jsonOut::number(one.depth)},
                            {"depth_abs", jsonOut::number(one.depthAbs)},
                            {"type", one.pick.type}});
    }
    if (request.form == resultForm::json)
        jsonOut::print(document);
    else
        rows.print();
    return 0;
}

int addPick(const pickRequest& request) {
    return edit(
        request, L"picked " + placeOf(request), [&](auto* db, const auto& cor, const auto& well) {
            return store::insertPoint(db,
                                      cor,
                                      well,
                                      request.border,
                                      request.absolute.value_or(NORLEX_unknownDepth),
                                      request.measured.value_or(NORLEX_unknownDepth),
                                      request.type);
        });
}

int movePick(const pickRequest& request) {
    return edit(
        request, L"moved " + placeOf(request), [&](auto* db, const auto& cor, const auto& well) {
            return store::moveBorder(db,
                                     cor,
                                     well,
                                     request.border,
                                     request.measured.value_or(NORLEX_unknownDepth),
                                     request.absolute.value_or(NORLEX_unknownDepth));
        });
}

int removePick(const pickRequest& request) {
    return edit(
        request, L"removed " + placeOf(request), [&](auto* db, const auto& cor, const auto& well) {
            return store::deleteBorder(db, cor, well, request.border);
        });
}

int setPickType(const pickRequest& request) {
    return edit(request,
                L"gave " + placeOf(request) + L" the type " + std::to_wstring(request.type),
                [&](auto* db, const auto& cor, const auto& well) {
                    return store::setBorderType(db, cor, well, request.border, request.type);
                });
}

int importCorrelation(const correlationImportRequest& request) {
    const auto container = openContainer(request.file);
    odbc_database* const db = container ? container->getBaseLink() : nullptr;
    const auto description = container ? correlationNamed(db, request.name) : std::nullopt;
    if (!description)
        return output::failure;
    auto options = request.options;
    options.correlation = *description;
    NORLEX_correlationTableResult result;
    tableReports::withProgress(
        [&] { result = NORLEX_importCorrelation(db, request.table, options); });
    const auto& picks = result.picks;
    const json counts = {{"picks", picks.inserted},
                         {"moved", picks.moved},
                         {"wells", picks.wells},
                         {"borders_created", picks.borders}};
    if (request.form == resultForm::json)
        jsonOut::print(tableReports::document(result.ok, result.report, counts, result.error));
    else if (result.ok || result.report.badCount > 0)
        tableReports::print(result.report,
                            counted(picks.inserted, "pick") + " made, "
                                + std::to_string(picks.moved) + " moved, on "
                                + counted(picks.wells, "well") + ", "
                                + counted(picks.borders, "border") + " created");
    return result.ok ? 0 : output::refused(result.error);
}

// Standard output gets the table once all of it is there.
int exportCorrelation(const correlationExportRequest& request) {
    const auto opened = openCorrelation(request.file, request.name);
    if (!opened)
        return output::failure;
    auto options = request.options;
    options.correlation = *opened.description;
    const bool toOutput = request.out == L"-";
    const temporaryFile between(toOutput);
    const auto result =
        NORLEX_exportCorrelation(opened.db(), toOutput ? between.path() : request.out, options);
    if (!result.ok)
        return output::refused(result.error);
    if (toOutput)
        return between.copyToOutput() ? 0 : output::refused(L"the table cannot be read back");
    output::line(counted(result.picks, "pick") + " of " + counted(result.wells, "well")
                 + " written to " + text::shown(request.out));
    return 0;
}

} // namespace commands
