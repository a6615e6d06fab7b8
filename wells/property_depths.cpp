// The records of a property: their number, and their absolute depths after the survey has changed.
#include "NORLEX_inclinometry.h"
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_summary.h"

#include <algorithm>
#include <cmath>

using namespace sqlText;

namespace {

// A record of one or two measured depths.
struct record {
    std::int64_t key = 0;
    double depth = 0.0;
    double depthAbs = 0.0;
    double bot = 0.0;
    double botAbs = 0.0;
};

// Columns: key, measured and absolute depth, and for intervals those of the bottom.
std::vector<record> readRecords(odbc_database& db, const std::wstring& statement) {
    std::vector<record> out;
    const auto rows = db.query(statement);
    while (rows && rows->next()) {
        record r{rows->get_counter(0), rows->get_double(1), rows->get_double(2)};
        if (rows->column_count() > 3) {
            r.bot = rows->get_double(3);
            r.botAbs = rows->get_double(4);
        }
        out.push_back(r);
    }
    return out;
}

// An unknown measured depth tells nothing about the absolute one.
double absolute(NORLEX_inclinometry& incl, double depth, double depthAbs) {
    return depth == NORLEX_unknownDepth ? depthAbs : incl.getAbs(depth);
}

std::wstring selectRecords(propertyRecords::geometry kind,
                           const std::wstring& fields,
                           std::uint32_t wellId,
                           const std::wstring& name) {
    switch (kind) {
    case propertyRecords::geometry::points:
        return sql(
            L"SELECT distinct point_data.obj_id, point_data.depth, point_data.depth_abs FROM val INNER JOIN point_data ON val.obj_id = point_data.obj_id WHERE val.f_id IN (",
            fields,
            L")");
    case propertyRecords::geometry::intervals:
        return sql(
            L"SELECT distinct interval_data.obj_id, interval_data.top, interval_data.top_abs, interval_data.bot, interval_data.bot_abs FROM val INNER JOIN interval_data ON val.obj_id = interval_data.obj_id WHERE val.f_id IN (",
            fields,
            L")");
    default: // the picks of the correlation that the property mirrors
        return sql(
            L"SELECT d_id, depth_real, depth_abs FROM correlation_data WHERE w_id = ",
            key(wellId),
            L" AND b_id IN (SELECT b_id FROM correlation_borders WHERE cor_id IN (SELECT cor_id FROM correlation WHERE name = ",
            quotedName(name),
            L"))");
    }
}

std::wstring updateRecord(propertyRecords::geometry kind, const record& r) {
    switch (kind) {
    case propertyRecords::geometry::points:
        return sql(L"UPDATE point_data SET depth_abs = ",
                   fixed(r.depthAbs, 2),
                   L", depth = ",
                   fixed(r.depth, 2),
                   L" WHERE obj_id = ",
                   key(r.key));
    case propertyRecords::geometry::intervals:
        return sql(L"UPDATE interval_data SET top_abs = ",
                   fixed(std::max(r.depthAbs, r.botAbs), 2), // of a hole that rises the bottom's
                   L", bot_abs = ",
                   fixed(std::min(r.depthAbs, r.botAbs), 2),
                   L", top = ",
                   fixed(r.depth, 2),
                   L", bot = ",
                   fixed(r.bot, 2),
                   L" WHERE obj_id = ",
                   key(r.key));
    default:
        return sql(L"UPDATE correlation_data SET depth_abs = ",
                   fixed(r.depthAbs, 2),
                   L", depth_real = ",
                   fixed(r.depth, 2),
                   L" WHERE d_id = ",
                   key(r.key));
    }
}

} // namespace

std::uint64_t NORLEX_wellProperty::getRecordCount() {
    if (!m_ok)
        return 0;
    if (m_samplesLoaded)
        return m_samples.size();
    propertyRecords::row self;
    self.id = m_id;
    self.description = m_descr;
    self.type = m_type;
    return propertySummary::of(*m_db, m_wellId, {self}).front().records;
}

bool NORLEX_wellProperty::recalcSamples() {
    if (!m_samplesLoaded && !files::isFile(samplePath()))
        return true; // made from a template and not filled yet
    const bool edited = m_samplesLoaded;
    if (!loadSamples())
        return false;
    bool changed = edited;
    for (auto& sample : m_samples) {
        const double depthAbs = m_incl->getAbs(sample.depth);
        changed = changed || depthAbs != sample.depthAbs;
        sample.depthAbs = depthAbs;
    }
    if (changed)
        return storeSamples(false);
    dropSamples();
    return true;
}

bool NORLEX_wellProperty::recalcRecords() {
    const auto kind = propertyRecords::geometryOf(m_type);
    std::vector<std::int64_t> fields;
    for (const auto& field : m_fields)
        fields.push_back(field.fieldId);
    const auto records =
        readRecords(*m_db, selectRecords(kind, keyList(fields), m_wellId, m_descr.name));
    transaction edit(m_db);
    if (!edit.isOpen())
        return false;
    for (record r : records) {
        r.depthAbs = absolute(*m_incl, r.depth, r.depthAbs);
        r.botAbs = absolute(*m_incl, r.bot, r.botAbs);
        if (!std::isfinite(r.depthAbs) || !std::isfinite(r.botAbs))
            return refuse(L"a depth of " + names::shown(m_descr)
                          + L" would not be finite; the survey needs finite numbers");
        if (!m_db->exec(updateRecord(kind, r)))
            return false;
    }
    return (records.empty() || propertyRecords::touch(*m_db, m_id)) && edit.commit();
}

bool NORLEX_wellProperty::recalcDepth() {
    if (!m_ok || m_incl == nullptr)
        return refuse(L"depths need an open property and a survey to be computed with");
    switch (propertyRecords::geometryOf(m_type)) {
    case propertyRecords::geometry::none:
        return true;
    case propertyRecords::geometry::samples:
        return recalcSamples();
    default:
        return recalcRecords();
    }
}
