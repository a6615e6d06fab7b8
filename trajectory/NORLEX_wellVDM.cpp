#include "NORLEX_wellVDM.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "platform/transaction.h"
#include "trajectory/station_search.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <set>

using namespace sqlText;

namespace {

constexpr double sameAsHead = 0.1; // metres

using coordinate = double vdm_data::*;

// On the line between points i and i + 1.
double
onLine(const std::vector<vdm_data>& p, std::size_t i, coordinate from, coordinate to, double at) {
    return p[i].*to - (p[i].*to - p[i + 1].*to) * (p[i].*from - at) / (p[i].*from - p[i + 1].*from);
}

// The definition: the first interval that holds `at`, and `at` itself where none does.
double scanned(const std::vector<vdm_data>& p, coordinate from, coordinate to, double at) {
    for (std::size_t i = 0; i + 1 < p.size(); ++i)
        if (p[i].*from >= at && at > p[i + 1].*from)
            return onLine(p, i, from, to, at);
    return at;
}

// Down from the first point, which lies above `at`, the first one below it ends that interval: all
// those before it are not below. Only coordinates that are no numbers break this.
double converted(const std::vector<vdm_data>& p,
                 const stationSearch& search,
                 coordinate from,
                 coordinate to,
                 double at) {
    const auto& first = p.front();
    const auto& last = p.back();
    if (at >= first.*from)
        return first.*to + (at - first.*from);
    if (at <= last.*from)
        return last.*to + (at - last.*from);
    const std::size_t i = search.findFromTop(at);
    if (i + 1 < p.size() && p[i].*from >= at && at > p[i + 1].*from)
        return onLine(p, i, from, to, at);
    return scanned(p, from, to, at);
}

std::shared_ptr<const stationSearch> searchOf(const std::vector<vdm_data>& points, coordinate of) {
    std::vector<double> keys(points.size());
    std::ranges::transform(points, keys.begin(), [of](const auto& p) { return p.*of; });
    return std::make_shared<const stationSearch>(std::move(keys));
}

bool isNumber(const wchar_t* what, double value) {
    return std::isfinite(value)
           || refuse(std::wstring(L"the ") + what + L" of a model's point is "
                     + ts::strconv::fromUtf8(numbers::shortest(value))
                     + L"; a finite number is expected");
}

std::optional<std::int64_t> keyOf(std::wstring_view text) {
    const std::string digits = ts::strconv::toUtf8(numbers::trimmed(text));
    std::int64_t value = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, value);
    return error == std::errc{} && rest == end ? std::optional(value) : std::nullopt;
}

bool hasRow(odbc_database* db, const std::wstring& statement) {
    const auto rows = db != nullptr ? db->query(statement) : nullptr;
    return rows && rows->next();
}

} // namespace

NORLEX_wellVDM::NORLEX_wellVDM(odbc_database* db, std::uint32_t wellId, double altitude)
    : m_db(db), m_altitude(altitude), m_wellId(key(wellId)) {}

void NORLEX_wellVDM::load() {
    if (!m_loaded)
        init();
}

void NORLEX_wellVDM::init() {
    m_points.clear();
    const auto rows = m_db->query(sql(L"SELECT dt_id, depth, time FROM vdm_data WHERE w_id = ",
                                      m_wellId,
                                      L" ORDER BY depth DESC"));
    m_loaded = rows != nullptr; // else asked for again the next time
    while (rows && rows->next())
        m_points.push_back({rows->get_text(0), rows->get_double(1), rows->get_double(2)});
    if (m_points.empty() || std::abs(m_points.front().depth - m_altitude) > sameAsHead)
        m_points.insert(m_points.begin(), {L"0", m_altitude, 0.0});
    m_byDepth = searchOf(m_points, &vdm_data::depth);
    m_byTime = searchOf(m_points, &vdm_data::time);
}

double NORLEX_wellVDM::getTime(double depth) {
    load();
    return converted(m_points, *m_byDepth, &vdm_data::depth, &vdm_data::time, depth);
}

double NORLEX_wellVDM::getDepth(double time) {
    load();
    return converted(m_points, *m_byTime, &vdm_data::time, &vdm_data::depth, time);
}

bool NORLEX_wellVDM::getModelCoverageDepth(NORLEX_intervalValue& coverage) {
    load();
    if (m_points.size() < 2)
        return false;
    coverage.top = m_points.front().depth;
    coverage.bot = m_points.back().depth;
    return true;
}

bool NORLEX_wellVDM::getModelCoverageTime(NORLEX_intervalValue& coverage) {
    load();
    if (m_points.size() < 2)
        return false;
    coverage.top = m_points.front().time;
    coverage.bot = m_points.back().time;
    return true;
}

void NORLEX_wellVDM::getList(std::vector<vdm_data>& points) {
    load();
    points = m_points;
}

// The factor 2000 makes metres a second of metres and two-way milliseconds.
void NORLEX_wellVDM::getVDModel(std::vector<NORLEX_vdmItem>& model, bool reload) {
    m_loaded = m_loaded && !reload;
    load();
    model.clear();
    const auto& head = m_points.front();
    for (std::size_t i = 0; i + 1 < m_points.size(); ++i) {
        const auto& top = m_points[i];
        const auto& bot = m_points[i + 1];
        model.push_back({top.depth,
                         bot.depth,
                         top.time,
                         bot.time,
                         (top.depth - bot.depth) / (top.time - bot.time) * 2000.0,
                         (head.depth - bot.depth) / (head.time - bot.time) * 2000.0,
                         false});
    }
}

bool NORLEX_wellVDM::changed(bool done) {
    m_loaded = false;
    return done;
}

bool NORLEX_wellVDM::add(double depth, double time) {
    return isNumber(L"depth", depth) && isNumber(L"time", time)
           && changed(m_db->exec(sql(L"INSERT INTO vdm_data(depth, time, w_id) VALUES(",
                                     number(depth),
                                     L", ",
                                     number(time),
                                     L", ",
                                     m_wellId,
                                     L")")));
}

bool NORLEX_wellVDM::isStored(std::size_t index) {
    load();
    if (index >= m_points.size())
        return refuse(L"the model has " + std::to_wstring(m_points.size())
                      + L" points; there is none at position " + std::to_wstring(index));
    return m_points[index].dt_id != L"0"
           || refuse(L"the point at the well head is not stored and cannot be changed; a point "
                     L"within 0.1 of the altitude takes its place");
}

bool NORLEX_wellVDM::changePoint(std::size_t index, const wchar_t* statement, double value) {
    if (!isStored(index))
        return false;
    const std::int64_t id = keyOf(m_points[index].dt_id).value_or(0);
    if (!changed(m_db->exec(sql(statement, number(value), L" WHERE dt_id =", key(id)))))
        return false;
    return m_db->affected_rows() != 0
           || refuse(L"the point with the key " + key(id) + L" is not there any more");
}

bool NORLEX_wellVDM::editDepth(std::size_t index, double depth) {
    return isNumber(L"depth", depth) && changePoint(index, L"UPDATE vdm_data SET depth =", depth);
}

bool NORLEX_wellVDM::editTime(std::size_t index, double time) {
    return isNumber(L"time", time) && changePoint(index, L"UPDATE vdm_data SET time =", time);
}

bool NORLEX_wellVDM::removePoint(std::size_t index) {
    const std::int64_t id = keyOf(m_points[index].dt_id).value_or(0);
    if (!m_db->exec(sql(L"DELETE FROM vdm_data WHERE dt_id =", key(id))))
        return false;
    return m_db->affected_rows() != 0
           || refuse(L"the point with the key " + key(id) + L" is not there any more");
}

bool NORLEX_wellVDM::remove(std::size_t index) {
    return isStored(index) && changed(removePoint(index));
}

bool NORLEX_wellVDM::remove(const std::vector<std::size_t>& indexes) {
    const std::set<std::size_t> all(indexes.begin(), indexes.end());
    if (!std::ranges::all_of(all, [this](std::size_t i) { return isStored(i); }))
        return false;
    transaction edit(m_db);
    if (!edit.isOpen())
        return false;
    return changed(std::ranges::all_of(all, [this](std::size_t i) { return removePoint(i); })
                   && edit.commit());
}

bool NORLEX_wellVDM::clear() {
    return changed(m_db->exec(sql(L"DELETE FROM vdm_data WHERE w_id =", m_wellId)));
}

bool NORLEX_wellVDM::isExist(odbc_database* db, long long wellId) {
    return hasRow(db,
                  sql(L"SELECT distinct(w_id) FROM vdm_data WHERE w_id IN(", key(wellId), L")"));
}

bool NORLEX_wellVDM::isExistEny(odbc_database* db) {
    return hasRow(db, L"SELECT distinct(w_id) FROM vdm_data");
}

bool NORLEX_wellVDM::isExistEny(odbc_database* db, const std::wstring& wellIds) {
    std::vector<std::int64_t> keys;
    std::wstring_view rest = wellIds;
    while (!numbers::trimmed(rest).empty()) {
        const auto end = std::min(rest.find(L','), rest.size());
        const auto id = keyOf(rest.substr(0, end));
        if (!id)
            return refuse(L"\"" + std::wstring(rest.substr(0, end))
                          + L"\" in a list of wells is no key; decimal numbers with commas between "
                            L"them are expected");
        keys.push_back(*id);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return hasRow(db,
                  sql(L"SELECT distinct(w_id) FROM vdm_data WHERE w_id IN(", keyList(keys), L")"));
}
