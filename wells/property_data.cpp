// The records of a property: read, and added one by one.
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "wells/bulk_rows.h"
#include "wells/geometry_rows.h"
#include "wells/names.h"
#include "wells/property_state.h"
#include "wells/table_rows.h"

using propertyRecords::geometry;

namespace {

const wchar_t* kindName(geometry kind) {
    return kind == geometry::points ? L"points" : L"intervals";
}

} // namespace

std::vector<std::int64_t> NORLEX_wellProperty::fieldKeys() const {
    std::vector<std::int64_t> keys;
    for (const auto& field : m_state->fields)
        keys.push_back(field.fieldId);
    return keys;
}

std::int64_t NORLEX_wellProperty::fieldKey(std::size_t field) const {
    if (field < m_state->fields.size())
        return m_state->fields[field].fieldId;
    refuse(L"the property " + names::shown(m_state->descr) + L" has "
           + std::to_wstring(m_state->fields.size()) + L" fields; there is none at position "
           + std::to_wstring(field));
    return 0;
}

// Whether the property is open and its records are of the kind; refused otherwise.
bool NORLEX_wellProperty::holds(geometryKind wanted) const {
    refresh();
    if (!m_state->ok)
        return refuse(L"the property is not open");
    const auto kind = wanted == geometryKind::points ? geometry::points : geometry::intervals;
    return propertyRecords::geometryOf(m_state->type) == kind
           || refuse(L"the property " + names::shown(m_state->descr) + L" does not hold "
                     + kindName(kind));
}

recordSet& NORLEX_wellProperty::records() {
    refresh();
    auto& self = *m_state;
    if (self.records)
        return *self.records;
    self.records.emplace();
    const auto kind = propertyRecords::geometryOf(self.type);
    bool isRead = self.ok;
    if (self.ok && kind == geometry::picks)
        isRead = self.records->readPicks(*m_db, self.wellId, self.descr.name);
    else if (self.ok && (kind == geometry::points || kind == geometry::intervals))
        isRead = self.records->readRecords(*m_db, kind, fieldKeys());
    for (const auto& row : self.made)
        self.records->add({row.top, row.bot, row.topAbs, row.botAbs}, row.values);
    self.isStale = self.isStale || !isRead; // asked again the next time
    return *self.records;
}

const std::vector<NORLEX_geometryRecord>& NORLEX_wellProperty::getRecords() {
    return records().records();
}

std::wstring NORLEX_wellProperty::getValue(std::size_t field, std::size_t record) {
    return std::wstring(records().value(field, record));
}

std::optional<double> NORLEX_wellProperty::getNumber(std::size_t field, std::size_t record) {
    return tableRows::toNumber(getValue(field, record));
}

// `change` writes rows of records; the property is stamped with them, others are told, and the
// records in memory are read again.
bool NORLEX_wellProperty::editRecords(const std::function<bool()>& change, bool announce) {
    transaction edit(m_db);
    if (!edit.isOpen() || !change() || !propertyRecords::touch(*m_db, m_state->id))
        return false;
    if (announce)
        announceData();
    if (!edit.commit())
        return false;
    m_state->records.reset();
    return true;
}

bool NORLEX_wellProperty::addAtOnce(const NORLEX_bulkRow& row, geometryKind kind) {
    if (!holds(kind))
        return false;
    const bool isPoint = kind == geometryKind::points;
    std::wstring reason;
    const auto record = bulkRows::toRecord(row, isPoint, m_state->fields.size(), m_incl, reason);
    if (!reason.empty())
        return refuse(names::shown(m_state->descr) + L": " + reason);
    return editRecords(
        [&] {
            return geometryRows::insert(*m_db,
                                        isPoint ? geometry::points : geometry::intervals,
                                        record,
                                        fieldKeys(),
                                        row.values);
        },
        true);
}

bool NORLEX_wellProperty::addInMemory(const NORLEX_bulkRow& row, geometryKind kind) {
    if (!holds(kind))
        return false;
    std::wstring reason;
    const auto record = bulkRows::toRecord(
        row, kind == geometryKind::points, m_state->fields.size(), m_incl, reason);
    if (!reason.empty())
        return refuse(names::shown(m_state->descr) + L": " + reason);
    m_state->made.push_back({record.top, record.bot, record.topAbs, record.botAbs, row.values});
    if (m_state->records)
        m_state->records->add(record, row.values);
    return true;
}

bool NORLEX_wellProperty::createPointCommit(double depth,
                                            double depthAbs,
                                            const std::vector<std::wstring>& values) {
    return addAtOnce({depth, depth, depthAbs, depthAbs, values}, geometryKind::points);
}

bool NORLEX_wellProperty::createPlastCommit(
    double top, double bot, double topAbs, double botAbs, const std::vector<std::wstring>& values) {
    return addAtOnce({top, bot, topAbs, botAbs, values}, geometryKind::intervals);
}

bool NORLEX_wellProperty::createPointData(double depth,
                                          double depthAbs,
                                          const std::vector<std::wstring>& values) {
    return addInMemory({depth, depth, depthAbs, depthAbs, values}, geometryKind::points);
}

bool NORLEX_wellProperty::createPlastData(
    double top, double bot, double topAbs, double botAbs, const std::vector<std::wstring>& values) {
    return addInMemory({top, bot, topAbs, botAbs, values}, geometryKind::intervals);
}

bool NORLEX_wellProperty::commit(bool announce) {
    refresh();
    if (!m_state->ok)
        return refuse(L"the property is not open");
    const auto kind = propertyRecords::geometryOf(m_state->type);
    if (kind == geometry::samples)
        return loadSamples() && storeSamples(announce);
    if (m_state->made.empty())
        return true;
    if (!editRecords(
            [&] { return bulkRows::write(*m_db, kind, fieldKeys(), m_incl, m_state->made); },
            announce))
        return false;
    m_state->made.clear();
    return true;
}
