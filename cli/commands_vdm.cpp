#include "cli/commands_vdm.h"

#include "cli/input_files.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/table_reports.h"
#include "cli/text.h"

namespace {

using enum table::align;

json documentOf(NORLEX_well& well) {
    std::vector<vdm_data> points;
    well.getVDM()->getList(points);
    json list = json::array();
    for (const auto& point : points)
        list.push_back({{"depth", jsonOut::number(point.depth)},
                        {"time", jsonOut::number(point.time)},
                        {"stored", point.dt_id != L"0"}});
    std::vector<NORLEX_vdmItem> model;
    well.getVDM()->getVDModel(model, false);
    json items = json::array();
    for (const auto& item : model)
        items.push_back({{"top", jsonOut::number(item.topDepth)},
                         {"bottom", jsonOut::number(item.botDepth)},
                         {"top_time", jsonOut::number(item.topTime)},
                         {"bottom_time", jsonOut::number(item.botTime)},
                         {"interval_velocity", jsonOut::number(item.intervalVelocity)},
                         {"average_velocity", jsonOut::number(item.averageVelocity)}});
    return {{"altitude", jsonOut::number(well.getAltitude())},
            {"points", std::move(list)},
            {"items", std::move(items)}};
}

void printModel(NORLEX_well& well) {
    std::vector<NORLEX_vdmItem> model;
    well.getVDM()->getVDModel(model, false);
    if (model.empty()) {
        output::line(L"the well " + names::spelled(well.getDescription())
                     + L" has no velocity model");
        return;
    }
    table items({{"TOP", right},
                 {"BOTTOM", right},
                 {"TOP_TIME", right},
                 {"BOTTOM_TIME", right},
                 {"INTERVAL_VELOCITY", right},
                 {"AVERAGE_VELOCITY", right}});
    for (const auto& item : model)
        items.add({numberText::fixed(item.topDepth, 2),
                   numberText::fixed(item.botDepth, 2),
                   numberText::fixed(item.topTime, 3),
                   numberText::fixed(item.botTime, 3),
                   numberText::fixed(item.intervalVelocity, 2),
                   numberText::fixed(item.averageVelocity, 2)});
    items.print();
}

// Says what there is now.
int tell(NORLEX_well& well) {
    std::vector<vdm_data> points;
    well.getVDM()->getList(points);
    output::line(L"the velocity model of " + names::spelled(well.getDescription()) + L" has "
                 + text::wide(numberText::counted(points.size(), "point")));
    return 0;
}

int made(NORLEX_well& well, const NORLEX_propDescription& prop) {
    const auto property = well.openProperty(prop);
    if (!property)
        return output::refused();
    output::line(L"made " + names::spelled(prop) + L" of the well "
                 + names::spelled(well.getDescription()) + L": "
                 + text::wide(numberText::counted(
                     static_cast<std::size_t>(property->getRecordCount()), "record")));
    return 0;
}

int makeVelocity(NORLEX_well& well, const vdmBuildRequest& request) {
    const bool isInterval = !request.intervalVelocity.empty();
    const auto prop =
        names::newProperty(isInterval ? request.intervalVelocity : request.averageVelocity);
    if (!prop)
        return output::failure;
    const bool isMade =
        isInterval ? well.VDMmakeIntervalVelocity(*prop) : well.VDMmakeAverageVelocity(*prop);
    return isMade ? made(well, *prop) : output::refused();
}

} // namespace

namespace commands {

int vdmShow(const wellRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    if (request.form == resultForm::json)
        jsonOut::print(documentOf(*opened.well));
    else
        printModel(*opened.well);
    return 0;
}

int vdmConvert(const vdmConvertRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    NORLEX_wellVDM& model = *opened.well->getVDM();
    std::vector<std::pair<double, double>> pairs;
    for (const double depth : request.depths)
        pairs.emplace_back(depth, model.getTime(depth));
    for (const double time : request.times)
        pairs.emplace_back(model.getDepth(time), time);
    json rows = json::array();
    table shown({{"DEPTH", right}, {"TIME", right}});
    for (const auto& [depth, time] : pairs) {
        rows.push_back({{"depth", jsonOut::number(depth)}, {"time", jsonOut::number(time)}});
        shown.add({numberText::fixed(depth, 2), numberText::fixed(time, 3)});
    }
    if (request.form == resultForm::json)
        jsonOut::print(rows);
    else
        shown.print();
    return 0;
}

int vdmImport(const vdmImportRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    if (const std::wstring why = whyNoInput(request.table); !why.empty())
        return output::refused(why);
    NORLEX_tableReport report;
    bool isDone = false;
    tableReports::withProgress(
        [&] { isDone = opened.well->VDMimport_fromTable(request.table, request.options, report); });
    const std::wstring error = isDone ? std::wstring() : output::reason();
    std::vector<vdm_data> points;
    opened.well->getVDM()->getList(points);
    if (request.form == resultForm::json)
        jsonOut::print(tableReports::document(isDone, report, {{"points", points.size()}}, error));
    else if (isDone || report.badCount > 0)
        tableReports::print(report, numberText::counted(points.size(), "point") + " in the model");
    return isDone ? 0 : output::refused(error);
}

int vdmBuild(const vdmBuildRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    NORLEX_well& well = *opened.well;
    const std::wstring& source = request.sonic.empty() ? request.markers : request.sonic;
    if (source.empty())
        return makeVelocity(well, request);
    const auto prop = names::findProperty(well, source);
    if (!prop)
        return output::failure;
    auto options = request.options;
    options.tieDepth = request.tieDepth.value_or(options.tieDepth);
    options.tieTime = request.tieTime.value_or(options.tieTime);
    options.maxGap = request.maxGap.value_or(options.maxGap);
    options.step = request.step.value_or(options.step);
    const bool isDone = request.sonic.empty()
                            ? well.VDMimport_fromMarkers(*prop, request.field, options)
                            : well.VDMimport_fromSonic(*prop, options);
    return isDone ? tell(well) : output::refused();
}

int vdmCopy(const vdmCopyRequest& request) {
    const openedWell from = openWell(request.file, request.from);
    if (!from)
        return output::failure;
    odbc_database* const db = from.container->getBaseLink();
    const auto target = names::findWell(db, request.to);
    if (!target)
        return output::failure;
    if (!request.replace && NORLEX_wellVDM::isExist(db, *target))
        return output::refused(L"the well " + names::spelled(*target)
                               + L" has a velocity model already; --replace does away with it");
    NORLEX_well to(db, *target);
    return NORLEX_wellVDM::copy(from.well.get(), &to, request.replace) ? tell(to)
                                                                       : output::refused();
}

int vdmRemove(const wellRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    if (!opened.well->clearVDM())
        return output::refused();
    output::line(L"removed the velocity model of " + names::spelled(opened.well->getDescription()));
    return 0;
}

} // namespace commands
