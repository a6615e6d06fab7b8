#include "exchange/survey_table.h"

#include "exchange/survey_angles.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "wells/record_depths.h"
#include "wells/table_rows.h"

#include <cmath>

namespace surveyTable {

namespace {

std::wstring bad(const wchar_t* what, const std::wstring& text, const wchar_t* expected) {
    return std::wstring(what) + L" \"" + text + L"\" cannot be taken; " + expected
           + L" is expected";
}

double inclinationOf(double angle, NORLEX_inclAngle kind) {
    switch (kind) {
    case NORLEX_inclAngle::dipDown:
        return 90.0 - angle;
    case NORLEX_inclAngle::dipUp:
        return 90.0 + angle;
    default:
        return angle;
    }
}

} // namespace

std::wstring collector::parse(const row& given, inclData& station) const {
    const auto depth = tableRows::toNumber(given.depth);
    if (!depth || !std::isfinite(*depth) || std::abs(*depth * m_unitMetres) > recordDepths::deepest)
        return bad(L"the depth", given.depth, L"a number");
    station.depth = *depth * m_unitMetres;
    if (!m_stations.empty() && station.depth <= m_stations.back().depth)
        return bad(L"the depth", given.depth, L"one below the station before");
    const auto angle = surveyAngles::degrees(given.angle);
    if (!angle)
        return bad(L"the angle", given.angle, L"degrees");
    station.angle = inclinationOf(*angle, m_description.angleKind);
    if (station.angle < 0.0 || station.angle > 180.0)
        return bad(L"the angle",
                   given.angle,
                   m_description.angleKind == NORLEX_inclAngle::inclination
                       ? L"an inclination of 0 to 180"
                       : L"a dip of -90 to 90");
    const auto azimuth = surveyAngles::azimuth(given.azimuth);
    const bool isNeeded = station.angle != 0.0 || !numbers::trimmed(given.azimuth).empty();
    if (!azimuth && isNeeded)
        return bad(L"the azimuth", given.azimuth, L"degrees or a bearing such as N45E");
    station.azimuth =
        azimuth ? surveyAngles::turned(*azimuth + m_description.azimuthCorrection) : 0.0;
    return {};
}

void collector::take(const row& given) {
    ++m_report.rows;
    inclData station;
    auto reason = parse(given, station);
    if (!reason.empty()) {
        tableRows::addError(m_report, given.number, given.line, std::move(reason));
        return;
    }
    ++m_report.taken;
    m_stations.push_back(station);
}

bool collector::judge() const {
    if (m_report.badCount != 0 && !m_description.keepGoodRows)
        return tableRows::refuseBadRows(m_report);
    return !m_stations.empty() || refuse(L"no row holds a survey station");
}

} // namespace surveyTable
