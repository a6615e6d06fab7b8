#include "NORLEX_inclinometry.h"

#include "odbc_database.h"
#include "platform/geometry.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "trajectory/station_search.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace sqlText;

namespace {

constexpr double absentDepth = 2000000.0;

bool isSameStation(const inclData& a, const inclData& b) {
    return std::abs(a.depth - b.depth) <= 0.01 && std::abs(a.angle - b.angle) <= 0.00001
           && std::abs(a.azimuth - b.azimuth) <= 0.00001;
}

bool areSameStations(const std::vector<inclData>& a, const std::vector<inclData>& b) {
    return std::ranges::equal(a, b, isSameStation);
}

std::shared_ptr<const stationSearch> makeSearch(const std::vector<inclData>& stations,
                                                double (*keyOf)(const inclData&)) {
    std::vector<double> keys(stations.size());
    std::ranges::transform(stations, keys.begin(), keyOf);
    return std::make_shared<const stationSearch>(std::move(keys));
}

} // namespace

NORLEX_inclinometry::NORLEX_inclinometry(odbc_database* db, std::uint32_t wellId)
    : m_db(db), m_wellId(wellId) {
    update();
}

NORLEX_inclinometry::NORLEX_inclinometry(odbc_database* db,
                                         std::uint32_t wellId,
                                         const inclHead& head,
                                         const std::vector<inclData>& stations)
    : m_db(db), m_wellId(wellId), m_altitude(head.altitude), m_headX(head.x), m_headY(head.y) {
    setStations(stations);
    compute();
}

void NORLEX_inclinometry::update() {
    loadInclData();
}

void NORLEX_inclinometry::loadInclData() {
    readAltitude();
    readHead();
    readStations();
    compute();
    m_activeIndex = 0;
}

void NORLEX_inclinometry::readAltitude() {
    m_altitude = 0.0;
    const auto rows =
        m_db->query(sql(L"SELECT altitude FROM well_base WHERE w_id = ", key(m_wellId)));
    while (rows && rows->next())
        m_altitude = rows->get_double(0);
}

void NORLEX_inclinometry::readHead() {
    m_headX = m_headY = 0.0;
    const auto rows = m_db->query(sql(L"SELECT x, y FROM well_base WHERE w_id = ", key(m_wellId)));
    while (rows && rows->next()) {
        m_headX = rows->get_double(0);
        m_headY = rows->get_double(1);
    }
}

void NORLEX_inclinometry::readStations() {
    m_stations.clear();
    const auto rows =
        m_db->query(sql(L"SELECT depth, angle, azimuth FROM inclinometry WHERE w_id = ",
                        key(m_wellId),
                        L" ORDER BY depth"));
    if (!rows)
        return;
    std::vector<inclData> stored;
    while (rows->next()) {
        inclData& station = stored.emplace_back();
        station.depth = rows->get_double(0);
        station.angle = rows->get_double(1);
        station.azimuth = rows->get_double(2);
    }
    setStations(stored);
}

// Behind a synthetic station at the surface. A survey that begins at the surface replaces it,
// unless it is a single row.
void NORLEX_inclinometry::setStations(const std::vector<inclData>& stored) {
    const bool beginsAtSurface = stored.size() > 1 && std::abs(stored.front().depth) < 0.001;
    m_stations.assign(beginsAtSurface ? 0 : 1, {});
    m_stations.insert(m_stations.end(), stored.begin(), stored.end());
}

// Tangential method: an interval is straight along the angles of the station at its top.
void NORLEX_inclinometry::compute() {
    for (std::size_t i = 0; i < m_stations.size(); ++i) {
        auto& station = m_stations[i];
        station.cosAngle = std::cos(ts_grd2rad(station.angle));
        station.sinAzimuth = std::sin(ts_grd2rad(station.azimuth));
        station.cosAzimuth = std::cos(ts_grd2rad(station.azimuth));
        if (i == 0) {
            station.absDepth = m_altitude;
            station.xShift = station.yShift = 0.0;
            continue;
        }
        const auto& upper = m_stations[i - 1];
        const double aside = (station.depth - upper.depth) * std::sin(ts_grd2rad(upper.angle));
        station.absDepth = (upper.depth - station.depth) * upper.cosAngle + upper.absDepth;
        station.xShift = aside * upper.sinAzimuth + upper.xShift;
        station.yShift = aside * upper.cosAzimuth + upper.yShift;
        widenExtremes(station);
    }
    indexStations();
}

// Never reset: reloads and changes of altitude only widen the extremes. Station 0 stays out.
void NORLEX_inclinometry::widenExtremes(const inclData& station) {
    m_east = std::max(m_east, station.xShift);
    m_west = std::min(m_west, station.xShift);
    m_north = std::max(m_north, station.yShift);
    m_south = std::min(m_south, station.yShift);
}

void NORLEX_inclinometry::indexStations() {
    m_byDepth = makeSearch(m_stations, [](const inclData& s) { return -s.depth; });
    m_byAbsDepth = makeSearch(m_stations, [](const inclData& s) { return s.absDepth; });
}

// The station whose interval holds the depth; the last one below the survey. Station 0 where the
// survey begins below the depth.
std::size_t NORLEX_inclinometry::findActiveIndexReal(double depth) const {
    return m_byDepth->find(m_activeIndex, -depth);
}

std::size_t NORLEX_inclinometry::findActiveIndexAbs(double absDepth) const {
    return m_byAbsDepth->find(m_activeIndex, absDepth);
}

double NORLEX_inclinometry::getAbs(double depth) {
    if (depth < 0.0)
        return m_altitude;
    if (m_stations.empty())
        return m_altitude - depth;
    m_activeIndex = findActiveIndexReal(depth);
    const auto& station = m_stations[m_activeIndex];
    if (station.depth == depth)
        return station.absDepth;
    return (station.depth - depth) * station.cosAngle + station.absDepth;
}

// No guard for level stations: their cosine is practically zero and the answer unbounded.
double NORLEX_inclinometry::getReal(double absDepth) {
    if (m_stations.empty())
        return m_altitude - absDepth;
    m_activeIndex = findActiveIndexAbs(absDepth);
    const auto& station = m_stations[m_activeIndex];
    if (station.absDepth == absDepth)
        return station.depth;
    return (station.absDepth - absDepth) / station.cosAngle + station.depth;
}

// Offsets from the head where there are stations, but the head itself where there are none:
// callers add the offsets to the head.
void NORLEX_inclinometry::getCoordAbs(double absDepth, double& x, double& y) {
    if (absDepth == absentDepth)
        return;
    x = m_headX;
    y = m_headY;
    if (m_stations.empty())
        return;
    m_activeIndex = findActiveIndexAbs(absDepth);
    const auto& station = m_stations[m_activeIndex];
    x = station.xShift;
    y = station.yShift;
    if (station.absDepth == absDepth)
        return;
    const double angle = ts_grd2rad(station.angle);
    const double aside = (station.absDepth - absDepth) / std::cos(angle) * std::sin(angle);
    x = aside * station.sinAzimuth + station.xShift;
    y = aside * station.cosAzimuth + station.yShift;
}

bool NORLEX_inclinometry::clear() {
    return m_db->exec(sql(L"DELETE FROM inclinometry WHERE w_id = ", key(m_wellId)));
}

bool NORLEX_inclinometry::addPoint(double depth, double angle, double azimuth) {
    for (const double value : {depth, angle, azimuth})
        if (!std::isfinite(value))
            return refuse(L"survey station (depth, angle, azimuth) holds "
                          + ts::strconv::fromUtf8(numbers::shortest(value))
                          + L": each must be a finite number");
    return m_db->exec(sql(L"INSERT INTO inclinometry (w_id, depth, angle, azimuth) VALUES(",
                          key(m_wellId),
                          L",",
                          fixed(depth, 2),
                          L",",
                          fixed(angle, 4),
                          L",",
                          fixed(azimuth, 4),
                          L")"));
}

double NORLEX_inclinometry::getAltitude() const {
    return m_altitude;
}

void NORLEX_inclinometry::setAltitude(double altitude) {
    m_altitude = altitude;
    compute();
}

std::size_t NORLEX_inclinometry::getDataCount() const {
    return m_stations.size();
}

double NORLEX_inclinometry::getDepthData(std::size_t index) const {
    return index < m_stations.size() ? m_stations[index].depth : 0.0;
}

double NORLEX_inclinometry::getAbsDepthData(std::size_t index) const {
    return index < m_stations.size() ? m_stations[index].absDepth : 0.0;
}

double NORLEX_inclinometry::getAngleData(std::size_t index) const {
    return index < m_stations.size() ? m_stations[index].angle : 0.0;
}

double NORLEX_inclinometry::getAzimuthData(std::size_t index) const {
    return index < m_stations.size() ? m_stations[index].azimuth : 0.0;
}

double NORLEX_inclinometry::getXShiftData(std::size_t index) const {
    return index < m_stations.size() ? m_stations[index].xShift : 0.0;
}

double NORLEX_inclinometry::getYShiftData(std::size_t index) const {
    return index < m_stations.size() ? m_stations[index].yShift : 0.0;
}

double NORLEX_inclinometry::getUdlData(std::size_t index) const {
    if (index >= m_stations.size())
        return 0.0;
    return m_stations[index].depth - (m_altitude - m_stations[index].absDepth);
}

double NORLEX_inclinometry::getWMaxShift() const {
    return m_stations.size() == 1 ? 0.0 : m_west;
}

double NORLEX_inclinometry::getEMaxShift() const {
    return m_stations.size() == 1 ? 0.0 : m_east;
}

double NORLEX_inclinometry::getNMaxShift() const {
    return m_stations.size() == 1 ? 0.0 : m_north;
}

double NORLEX_inclinometry::getSMaxShift() const {
    return m_stations.size() == 1 ? 0.0 : m_south;
}

bool NORLEX_inclinometry::isInclData() const {
    return m_stations.size() > 1;
}

bool NORLEX_inclinometry::checIsDataLoaded(const std::vector<inclData>& stations) const {
    return areSameStations(stations, m_stations);
}

bool NORLEX_inclinometry::isEqual(NORLEX_inclinometry* a, NORLEX_inclinometry* b) {
    return areSameStations(a->m_stations, b->m_stations);
}

bool NORLEX_inclinometry::isValid() const {
    const auto isBroken = [](const inclData& upper, const inclData& lower) {
        return !(lower.depth > upper.depth && lower.absDepth < upper.absDepth);
    };
    return std::ranges::adjacent_find(m_stations, isBroken) == m_stations.end();
}
