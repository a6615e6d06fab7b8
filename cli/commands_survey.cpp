#include "cli/commands.h"
#include "cli/input_files.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"

namespace {

json stationOf(const NORLEX_inclinometry& incl, std::size_t i) {
    return {
        {"depth", jsonOut::number(incl.getDepthData(i))},
        {"abs", jsonOut::number(incl.getAbsDepthData(i))},
        {"angle", jsonOut::number(incl.getAngleData(i))},
        {"azimuth", jsonOut::number(incl.getAzimuthData(i))},
        {"x", jsonOut::number(incl.getXShiftData(i))},
        {"y", jsonOut::number(incl.getYShiftData(i))},
    };
}

json surveyOf(const NORLEX_inclinometry& incl, bool valid) {
    json stations = json::array();
    for (std::size_t i = 0; i < incl.getDataCount(); ++i)
        stations.push_back(stationOf(incl, i));
    return {
        {"altitude", jsonOut::number(incl.getAltitude())},
        {"valid", valid},
        {"stations", std::move(stations)},
        {"west", jsonOut::number(incl.getWMaxShift())},
        {"east", jsonOut::number(incl.getEMaxShift())},
        {"north", jsonOut::number(incl.getNMaxShift())},
        {"south", jsonOut::number(incl.getSMaxShift())},
    };
}

void printSurvey(const NORLEX_inclinometry& incl, bool valid) {
    using enum table::align;
    table stations({{"DEPTH", right},
                    {"ABS", right},
                    {"ANGLE", right},
                    {"AZIMUTH", right},
                    {"X", right},
                    {"Y", right}});
    for (std::size_t i = 0; i < incl.getDataCount(); ++i)
        stations.add({numberText::fixed(incl.getDepthData(i), 2),
                      numberText::fixed(incl.getAbsDepthData(i), 2),
                      numberText::fixed(incl.getAngleData(i), 4),
                      numberText::fixed(incl.getAzimuthData(i), 4),
                      numberText::fixed(incl.getXShiftData(i), 2),
                      numberText::fixed(incl.getYShiftData(i), 2)});
    stations.print();
    output::line("");
    printPairs({
        {"altitude", numberText::fixed(incl.getAltitude(), 2)},
        {"valid", valid ? "yes" : "no"},
        {"west", numberText::fixed(incl.getWMaxShift(), 2)},
        {"east", numberText::fixed(incl.getEMaxShift(), 2)},
        {"north", numberText::fixed(incl.getNMaxShift(), 2)},
        {"south", numberText::fixed(incl.getSMaxShift(), 2)},
    });
}

struct holePoint {
    double md = 0.0;
    double abs = 0.0;
    double x = 0.0;
    double y = 0.0;
};

holePoint pointAt(NORLEX_well& well, double measured, double absolute) {
    holePoint out{measured, absolute, 0.0, 0.0};
    well.getCoord(absolute, out.x, out.y);
    return out;
}

void printPoints(const std::vector<holePoint>& points, resultForm form) {
    if (form == resultForm::json) {
        json rows = json::array();
        for (const auto& p : points)
            rows.push_back({
                {"md", jsonOut::number(p.md)},
                {"abs", jsonOut::number(p.abs)},
                {"x", jsonOut::number(p.x)},
                {"y", jsonOut::number(p.y)},
            });
        jsonOut::print(rows);
        return;
    }
    using enum table::align;
    table rows({{"MD", right}, {"ABS", right}, {"X", right}, {"Y", right}});
    for (const auto& p : points)
        rows.add({numberText::fixed(p.md, 2),
                  numberText::fixed(p.abs, 2),
                  numberText::fixed(p.x, 2),
                  numberText::fixed(p.y, 2)});
    rows.print();
}

} // namespace

namespace commands {

int importSurvey(const importSurveyRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    if (const std::wstring why = whyNoInput(request.listing); !why.empty())
        return output::refused(why);
    if (!opened.well->loadInclFromLST(request.listing, false))
        return output::refused();
    output::line(
        L"the survey of " + names::spelled(opened.well->getDescription()) + L" has "
        + std::to_wstring(opened.well->getIncl()->getDataCount())
        + (opened.well->checkIncl()
               ? L" stations"
               : L" stations; it is not valid: depths must grow and absolute depths fall"));
    return 0;
}

int survey(const wellRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    const bool valid = opened.well->checkIncl();
    const NORLEX_inclinometry& incl = *opened.well->getIncl();
    if (request.form == resultForm::json)
        jsonOut::print(surveyOf(incl, valid));
    else
        printSurvey(incl, valid);
    return 0;
}

int depth(const depthRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    NORLEX_inclinometry& incl = *opened.well->getIncl();
    std::vector<holePoint> points;
    for (const double measured : request.measured)
        points.push_back(pointAt(*opened.well, measured, incl.getAbs(measured)));
    for (const double absolute : request.absolute)
        points.push_back(pointAt(*opened.well, incl.getReal(absolute), absolute));
    printPoints(points, request.form);
    return 0;
}

} // namespace commands
