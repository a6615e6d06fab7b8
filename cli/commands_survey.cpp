#include "cli/commands_survey.h"
#include "cli/json_out.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"

#include "NORLEX_surveyReport.h"

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

json documentOf(const NORLEX_surveyReport& report) {
    json rows = json::array();
    for (const auto& r : report.getRows())
        rows.push_back({{"depth", jsonOut::number(r.depth)},
                        {"angle", jsonOut::number(r.angle)},
                        {"azimuth", jsonOut::number(r.azimuth)},
                        {"vertical", jsonOut::number(r.vertical)},
                        {"abs", jsonOut::number(r.absDepth)},
                        {"north", jsonOut::number(r.north)},
                        {"east", jsonOut::number(r.east)},
                        {"dogleg_30m", jsonOut::number(r.dogLeg30m)},
                        {"dogleg_100ft", jsonOut::number(r.dogLeg100ft)},
                        {"abs_difference", jsonOut::number(r.absDepthDifference)},
                        {"north_difference", jsonOut::number(r.northDifference)},
                        {"east_difference", jsonOut::number(r.eastDifference)}});
    return rows;
}

void printReport(const NORLEX_surveyReport& report, resultForm form) {
    if (form == resultForm::json) {
        jsonOut::print(documentOf(report));
        return;
    }
    using enum table::align;
    table rows({{"DEPTH", right},
                {"ANGLE", right},
                {"AZIMUTH", right},
                {"VERTICAL", right},
                {"ABS", right},
                {"NORTH", right},
                {"EAST", right},
                {"DLS/30M", right},
                {"DLS/100FT", right},
                {"D_ABS", right},
                {"D_NORTH", right},
                {"D_EAST", right}});
    for (const auto& r : report.getRows()) {
        std::vector<std::string> cells;
        for (const double value : {r.depth,
                                   r.angle,
                                   r.azimuth,
                                   r.vertical,
                                   r.absDepth,
                                   r.north,
                                   r.east,
                                   r.dogLeg30m,
                                   r.dogLeg100ft,
                                   r.absDepthDifference,
                                   r.northDifference,
                                   r.eastDifference})
            cells.push_back(numberText::fixed(value, 2));
        rows.add(std::move(cells));
    }
    rows.print();
}

void printCrossings(const NORLEX_surveyReport& report, const surveyRequest& request) {
    json document = json::array();
    table rows({{"ABS", table::align::right}, {"MD", table::align::right}});
    for (const double absDepth : request.crossings) {
        json depths = json::array();
        for (const double depth : report.getCrossings(absDepth)) {
            depths.push_back(jsonOut::number(depth));
            rows.add({numberText::fixed(absDepth, 2), numberText::fixed(depth, 2)});
        }
        document.push_back({{"abs", jsonOut::number(absDepth)}, {"md", std::move(depths)}});
    }
    if (request.form == resultForm::json)
        jsonOut::print(document);
    else
        rows.print();
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

int survey(const surveyRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    NORLEX_inclinometry& incl = *opened.well->getIncl();
    const NORLEX_surveyReport report(incl);
    if (!request.crossings.empty())
        printCrossings(report, request);
    if (request.report)
        printReport(report, request.form);
    if (request.report || !request.crossings.empty())
        return 0;
    const bool valid = opened.well->checkIncl();
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
