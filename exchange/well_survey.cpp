// Loaders of surveys from files: members of NORLEX_well.
#include "NORLEX_lasfileExt.h"
#include "NORLEX_well.h"
#include "exchange/column_search.h"
#include "exchange/las_import_well.h"
#include "exchange/survey_listing.h"
#include "exchange/survey_table.h"
#include "platform/last_error.h"
#include "platform/numbers.h"

#include <cmath>
#include <optional>

namespace {

constexpr double metresInFoot = 0.3048;

// The columns of the three values, from 0; -1 where there is none.
struct columns {
    int depth = 0;
    int angle = 0;
    int azimuth = 0;
};

bool findColumns(const NORLEX_inclRead_descr& description,
                 const columnSearch::header& header,
                 columns& out) {
    return header.find(description.depth, L"the depth", out.depth)
           && header.find(description.angle, L"the angle", out.angle)
           && header.find(description.azimuth, L"the azimuth", out.azimuth)
           && ((out.depth != 0 && out.angle != 0 && out.azimuth != 0)
               || refuse(L"a survey needs the columns of its depth, angle and azimuth"));
}

std::wstring cell(const std::vector<std::wstring>& cells, int column) {
    const auto index = static_cast<std::size_t>(column) - 1;
    return index < cells.size() ? cells[index] : std::wstring();
}

// A value of a LAS file by column: 0 is its depth column, the curves follow.
double valueOf(const NORLEX_lasfileExt& las, int column, std::size_t row) {
    const auto* curve = las.getCurveByIndex(column == 0 ? 0 : static_cast<std::size_t>(column) - 1);
    const auto point = curve->getPointByIndex(row);
    return column == 0 ? point.y : point.x; // a curve holds (value, depth)
}

// Curves are found as columns whose header is their mnemonics; the depth column stands first.
bool findCurves(const NORLEX_lasfileExt& las,
                const NORLEX_inclRead_descr& description,
                columns& out) {
    std::vector<std::wstring> names{las.getDepthDescription().mnemonic};
    std::vector<std::wstring> curves;
    las.getCurveNames(curves);
    names.insert(names.end(), curves.begin(), curves.end());
    const columnSearch::header header(L"of the curves", std::move(names));
    NORLEX_inclRead_descr wanted = description;
    if (!wanted.depth.isSet())
        wanted.depth.number = 1;
    if (!findColumns(wanted, header, out))
        return false;
    --out.depth;
    --out.angle;
    --out.azimuth;
    return true;
}

// Metres in one unit of the depths; nothing, with a line, for a unit that is no length.
std::optional<double> depthUnit(const NORLEX_inclRead_descr& description,
                                const std::wstring& unitOfFile) {
    switch (description.depthUnit) {
    case NORLEX_inclDepthUnit::metres:
        return 1.0;
    case NORLEX_inclDepthUnit::feet:
        return metresInFoot;
    default:
        break;
    }
    const auto metres = lasImportWell::metresIn(unitOfFile);
    if (!metres)
        refuse(L"the depths are in \"" + unitOfFile + L"\"; metres or feet are expected");
    return metres;
}

// The value of a curve as text; empty where it is missing.
std::wstring text(double value, double nodata) {
    if (value == nodata || !std::isfinite(value))
        return {};
    const std::string digits = numbers::shortest(value);
    return {digits.begin(), digits.end()};
}

} // namespace

bool NORLEX_well::loadInclFromLST(const std::wstring& path, bool silent) {
    std::vector<inclData> stations;
    return surveyListing::read(path, stations) && loadInclFromData(stations, silent);
}

bool NORLEX_well::loadInclFromReader(tableRW::tableReader& reader,
                                     const NORLEX_inclRead_descr& description,
                                     NORLEX_tableReport& report,
                                     bool silent) {
    report = {};
    columnSearch::header header(L"of the survey");
    columns at;
    if (!header.read(reader, description.hasHeader) || !findColumns(description, header, at))
        return false;
    surveyTable::collector stations(
        description,
        description.depthUnit == NORLEX_inclDepthUnit::feet ? metresInFoot : 1.0,
        report);
    std::vector<std::wstring> cells;
    while (reader.next(cells))
        stations.take({reader.rowNumber(),
                       reader.lineNumber(),
                       cell(cells, at.depth),
                       cell(cells, at.angle),
                       cell(cells, at.azimuth)});
    return !reader.isBroken() && stations.judge() && loadInclFromData(stations.stations(), silent);
}

bool NORLEX_well::loadInclFromLAS(const std::wstring& path,
                                  const NORLEX_inclRead_descr& description,
                                  NORLEX_tableReport& report,
                                  bool silent) {
    report = {};
    const NORLEX_lasfileExt las(path, false);
    columns at;
    if (!las.isOK() || !findCurves(las, description, at))
        return false;
    const auto& unit =
        at.depth == 0 ? las.getDepthDescription().unit
                      : las.getCurveByIndex(static_cast<std::size_t>(at.depth) - 1)->getUnits();
    const auto metres = depthUnit(description, unit);
    if (!metres)
        return false;
    surveyTable::collector stations(description, *metres, report);
    const std::size_t count =
        las.getNumCurves() == 0 ? 0 : las.getCurveByIndex(0)->getPointsCount();
    for (std::size_t i = 0; i < count; ++i) {
        const surveyTable::row row{i + 1,
                                   0,
                                   text(valueOf(las, at.depth, i), las.getNodata()),
                                   text(valueOf(las, at.angle, i), las.getNodata()),
                                   text(valueOf(las, at.azimuth, i), las.getNodata())};
        if (row.angle.empty() || row.azimuth.empty())
            ++report.passedOver;
        else
            stations.take(row);
    }
    return stations.judge() && loadInclFromData(stations.stations(), silent);
}
