#include "wells/record_set.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"

#include <algorithm>
#include <unordered_map>

using namespace sqlText;

namespace {

bool refuseUnread(odbc_database& db) {
    return refuse(L"the records cannot be read: " + db.last_error());
}

NORLEX_geometryRecord pointOf(const odbc_result& row) {
    NORLEX_geometryRecord r;
    r.topAbs = r.botAbs = row.get_double(2);
    r.top = r.bot = row.get_double(3);
    r.flag = static_cast<std::uint8_t>(row.get_int(4));
    return r;
}

NORLEX_geometryRecord intervalOf(const odbc_result& row) {
    NORLEX_geometryRecord r;
    r.topAbs = row.get_double(2);
    r.top = row.get_double(3);
    r.botAbs = row.get_double(4);
    r.bot = row.get_double(5);
    return r;
}

// A row for each value: key of the record, value, depths. The values of a record are neighbours,
// in the order of their fields.
std::wstring selectRows(bool arePoints, const std::wstring& fields) {
    if (arePoints)
        return sql(
            L"SELECT point_data.obj_id as obj_id, val.value as value, point_data.depth_abs as depth_abs, point_data.depth as depth_real, type FROM val LEFT JOIN point_data ON val.obj_id = point_data.obj_id WHERE ",
            L"val.f_id IN (",
            fields,
            L")",
            L" ORDER BY point_data.depth_abs desc, obj_id, val.f_id");
    return sql(
        // two blanks before WHERE are part of the text
        L"SELECT interval_data.obj_id as obj_id, val.value as value, interval_data.top_abs as top_abs, interval_data.top as top_real, interval_data.bot_abs as bot_abs, interval_data.bot as bot_real FROM val LEFT JOIN interval_data ON val.obj_id = interval_data.obj_id  WHERE",
        L" val.f_id IN (",
        fields,
        L")",
        L" ORDER BY interval_data.top_abs desc, obj_id, val.f_id");
}

} // namespace

void recordSet::begin(std::size_t fieldCount) {
    *this = {};
    m_fieldCount = fieldCount;
}

recordSet::place recordSet::store(std::wstring_view text) {
    const place at{m_text.size(), text.size()};
    m_text += text;
    return at;
}

std::wstring_view recordSet::value(std::size_t field, std::size_t record) const {
    if (field >= m_fieldCount || record >= m_records.size())
        return {};
    const place at = m_values[record * m_fieldCount + field];
    return std::wstring_view(m_text).substr(at.from, at.length);
}

void recordSet::add(const NORLEX_geometryRecord& record, const std::vector<std::wstring>& values) {
    m_records.push_back(record);
    for (std::size_t i = 0; i < m_fieldCount; ++i)
        m_values.push_back(i < values.size() ? store(values[i]) : place());
}

void recordSet::setValue(std::size_t field, std::size_t record, std::wstring_view text) {
    m_values[record * m_fieldCount + field] = store(text);
}

bool recordSet::readRecords(odbc_database& db,
                            propertyRecords::geometry kind,
                            const std::vector<std::int64_t>& fields) {
    begin(fields.size());
    if (fields.empty())
        return true;
    const bool arePoints = kind == propertyRecords::geometry::points;
    const auto rows = db.query(selectRows(arePoints, keyList(fields)));
    if (!rows)
        return refuseUnread(db);
    bool isComplete = true; // every record has a value in every field
    std::size_t filled = m_fieldCount;
    while (rows->next()) {
        const std::int64_t id = rows->get_counter(0);
        if (id == 0) // a value whose record is gone
            continue;
        if (m_records.empty() || m_records.back().obj_id != id) {
            isComplete = isComplete && filled == m_fieldCount;
            m_records.push_back(arePoints ? pointOf(*rows) : intervalOf(*rows));
            m_records.back().obj_id = id;
            m_values.resize(m_records.size() * m_fieldCount);
            filled = 0;
        }
        if (filled < m_fieldCount)
            m_values[(m_records.size() - 1) * m_fieldCount + filled] = store(rows->get_text(1));
        ++filled;
    }
    return (isComplete && filled == m_fieldCount) || placeByField(db, fields);
}

// Where records lack a value or hold one twice, the order alone does not say whose it is.
bool recordSet::placeByField(odbc_database& db, const std::vector<std::int64_t>& fields) {
    std::unordered_map<std::int64_t, std::size_t> positions;
    for (std::size_t i = 0; i < m_records.size(); ++i)
        positions[m_records[i].obj_id] = i;
    m_text.clear();
    m_values.assign(m_records.size() * m_fieldCount, {});
    const auto rows = db.query(sql(L"SELECT f_id, obj_id, value FROM val WHERE f_id IN (",
                                   keyList(fields),
                                   L") ORDER BY v_id"));
    if (!rows)
        return refuseUnread(db);
    while (rows->next()) {
        const auto field = std::find(fields.begin(), fields.end(), rows->get_counter(0));
        const auto record = positions.find(rows->get_counter(1));
        if (field != fields.end() && record != positions.end())
            setValue(static_cast<std::size_t>(field - fields.begin()),
                     record->second,
                     rows->get_text(2));
    }
    return true;
}

bool recordSet::readPicks(odbc_database& db, std::uint32_t wellId, const std::wstring& name) {
    begin(3); // the border, its group, the type of the pick
    const auto rows = db.query(sql(
        L"SELECT correlation_data.d_id, correlation_borders.name, correlation_data.depth_abs, correlation_data.depth_real, correlation_data.type, correlation_borders.b_group FROM correlation_data INNER JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id INNER JOIN correlation ON correlation_borders.cor_id = correlation.cor_id WHERE correlation.name = ",
        quotedName(name),
        L" AND correlation_data.w_id = ",
        key(wellId),
        L" ORDER BY correlation_data.depth_abs desc, correlation_data.d_id"));
    if (!rows)
        return refuseUnread(db);
    while (rows->next()) {
        NORLEX_geometryRecord r = pointOf(*rows);
        r.obj_id = rows->get_counter(0);
        add(r, {rows->get_text(1), rows->get_text(5), rows->get_text(4)});
    }
    return true;
}
