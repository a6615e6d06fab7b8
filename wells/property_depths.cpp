// The records of a property: their number, and their absolute depths after the survey has changed.
#include "NORLEX_inclinometry.h"
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "wells/geometry_rows.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_state.h"
#include "wells/property_summary.h"
#include "wells/record_depths.h"

#include <cmath>
#include <utility>

using namespace sqlText;

namespace {

// Columns: key, measured and absolute depth, and for intervals those of the bottom.
std::vector<NORLEX_geometryRecord> readRecords(odbc_database& db, const std::wstring& statement) {
    std::vector<NORLEX_geometryRecord> out;
    const auto rows = db.query(statement);
    while (rows && rows->next()) {
        NORLEX_geometryRecord r;
        r.obj_id = rows->get_counter(0);
        r.top = r.bot = rows->get_double(1);
        r.topAbs = r.botAbs = rows->get_double(2);
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

bool isWithin(double depth) {
    return std::isfinite(depth) && std::abs(depth) <= recordDepths::deepest;
}

// Each answers whether the computed depths can be stored.
bool followMeasured(NORLEX_inclinometry& incl, NORLEX_geometryRecord& r) {
    r.topAbs = absolute(incl, r.top, r.topAbs);
    r.botAbs = absolute(incl, r.bot, r.botAbs);
    if (r.topAbs < r.botAbs)
        std::swap(r.topAbs, r.botAbs); // in a hole that rises the bottom is the higher end
    return isWithin(r.topAbs) && isWithin(r.botAbs);
}

// Of velocities, whose absolute depths are those of the model.
bool followAbsolute(NORLEX_inclinometry& incl, NORLEX_geometryRecord& r) {
    r.top = incl.getReal(r.topAbs);
    r.bot = incl.getReal(r.botAbs);
    if (r.top > r.bot)
        std::swap(r.top, r.bot);
    return isWithin(r.top) && isWithin(r.bot);
}

// Depths are stored with two decimals.
bool isStoredEqual(double a, double b) {
    return std::abs(a - b) < 0.004;
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

} // namespace

std::uint64_t NORLEX_wellProperty::getRecordCount() {
    refresh();
    if (!m_state->ok)
        return 0;
    const auto kind = propertyRecords::geometryOf(m_state->type);
    const bool areRecords =
        kind != propertyRecords::geometry::samples && kind != propertyRecords::geometry::none;
    if (areRecords && m_state->records)
        return m_state->records->records().size();
    if (m_state->samplesLoaded)
        return m_state->samples.size();
    propertyRecords::row self;
    self.id = m_state->id;
    self.description = m_state->descr;
    self.type = m_state->type;
    return propertySummary::of(*m_db, m_state->wellId, {self}).front().records;
}

bool NORLEX_wellProperty::recalcSamples(bool announce) {
    if (!m_state->samplesLoaded && !files::isFile(samplePath()))
        return true; // made from a template and not filled yet
    const bool edited = m_state->samplesLoaded;
    if (!loadSamples())
        return false;
    bool changed = edited;
    for (auto& sample : m_state->samples) {
        const double depthAbs = m_incl->getAbs(sample.depth);
        changed = changed || depthAbs != sample.depthAbs;
        sample.depthAbs = depthAbs;
    }
    if (changed)
        return storeSamples(announce);
    dropSamples();
    return true;
}

bool NORLEX_wellProperty::recalcRecords(bool announce) {
    const auto kind = propertyRecords::geometryOf(m_state->type);
    transaction edit(m_db);
    if (!edit.isOpen())
        return false;
    const auto records = readRecords(
        *m_db, selectRecords(kind, keyList(fieldKeys()), m_state->wellId, m_state->descr.name));
    bool isChanged = false;
    for (const auto& old : records) {
        auto r = old;
        const bool isSound = propertyRecords::isVelocity(m_state->type)
                                 ? followAbsolute(*m_incl, r)
                                 : followMeasured(*m_incl, r);
        if (!isSound)
            return refuse(L"a depth of " + names::shown(m_state->descr)
                          + L" would not be within 2000000; another survey is expected");
        if (!isStoredEqual(r.topAbs, old.topAbs) || !isStoredEqual(r.botAbs, old.botAbs)
            || !isStoredEqual(r.top, old.top) || !isStoredEqual(r.bot, old.bot)) {
            isChanged = true;
            if (!geometryRows::update(*m_db, kind, r))
                return false;
        }
    }
    m_state->records.reset();
    if (!isChanged)
        return edit.commit();
    if (announce)
        announceData();
    return propertyRecords::touch(*m_db, m_state->id) && edit.commit();
}

bool NORLEX_wellProperty::recalcDepth(bool announce) {
    refresh();
    if (!m_state->ok || m_incl == nullptr)
        return refuse(L"depths need an open property and a survey to be computed with");
    switch (propertyRecords::geometryOf(m_state->type)) {
    case propertyRecords::geometry::none:
        return true;
    case propertyRecords::geometry::samples:
        return recalcSamples(announce);
    default:
        return recalcRecords(announce);
    }
}
