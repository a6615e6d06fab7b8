#include "wells/record_writer.h"

#include "odbc_database.h"
#include "platform/sql_text.h"

#include <array>
#include <charconv>
#include <iterator>

namespace {

constexpr std::size_t rowsPerStatement = 500;
constexpr std::size_t longestStatement = 4U << 20U; // characters: values may be long

void append(std::wstring& out, std::int64_t value) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    out.append(digits.begin(), end);
}

// Depths are stored with two decimals. They are within ±2,000,000 here.
void append(std::wstring& out, double depth) {
    std::array<char, 32> digits{};
    const auto end =
        std::to_chars(digits.begin(), digits.end(), depth, std::chars_format::fixed, 2).ptr;
    out.append(digits.begin(), end);
}

std::int64_t lastKey(odbc_database& db, const wchar_t* query) {
    const auto rows = db.query(query);
    return rows && rows->next() ? rows->get_counter(0) : 0;
}

} // namespace

recordWriter::recordWriter(odbc_database& db, propertyRecords::geometry kind)
    : m_db(db), m_arePoints(kind == propertyRecords::geometry::points) {
    m_firstKey = 1
                 + lastKey(db,
                           m_arePoints ? L"SELECT max(obj_id) FROM point_data"
                                       : L"SELECT max(obj_id) FROM interval_data");
    m_nextKey = m_firstKey;
}

void recordWriter::addGeometry(const NORLEX_geometryRecord& r) {
    if (m_geometryRows++ == 0)
        // two blanks before VALUES are part of the text for points
        m_geometry =
            m_arePoints
                ? L"INSERT INTO point_data (obj_id, depth, depth_abs, type)  VALUES ("
                : L"INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) VALUES (";
    else
        m_geometry += L",(";
    append(m_geometry, m_nextKey);
    for (const double depth : {r.top, m_arePoints ? r.topAbs : r.bot}) {
        m_geometry += L',';
        append(m_geometry, depth);
    }
    if (m_arePoints) {
        m_geometry += L',';
        append(m_geometry, std::int64_t{r.flag});
    } else
        for (const double depth : {r.topAbs, r.botAbs}) {
            m_geometry += L',';
            append(m_geometry, depth);
        }
    m_geometry += L')';
}

void recordWriter::addValue(std::int64_t field, const std::wstring& value) {
    if (m_valueRows++ == 0)
        m_values = L"INSERT INTO val (f_id, value, obj_id) VALUES  ("; // with two blanks
    else
        m_values += L",(";
    append(m_values, field);
    m_values += L",'";
    std::copy_if(value.begin(), value.end(), std::back_inserter(m_values), [](wchar_t c) {
        return c != L'\'';
    });
    m_values += L"',";
    append(m_values, m_nextKey);
    m_values += L')';
}

bool recordWriter::flush(std::wstring& statement, std::size_t& rows) {
    if (rows == 0)
        return true;
    rows = 0;
    return m_db.exec(statement);
}

bool recordWriter::add(const NORLEX_geometryRecord& record,
                       std::span<const std::int64_t> fields,
                       std::span<const std::wstring> values) {
    addGeometry(record);
    if (m_geometryRows == rowsPerStatement && !flush(m_geometry, m_geometryRows))
        return false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        addValue(fields[i], values[i]);
        if ((m_valueRows == rowsPerStatement || m_values.size() > longestStatement)
            && !flush(m_values, m_valueRows))
            return false;
    }
    ++m_nextKey;
    return true;
}

bool recordWriter::finish() {
    return flush(m_geometry, m_geometryRows) && flush(m_values, m_valueRows)
           && (m_nextKey == m_firstKey
               || m_db.keys_were_given(m_arePoints ? L"point_data" : L"interval_data", L"obj_id"));
}
