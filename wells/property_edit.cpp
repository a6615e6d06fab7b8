// Changes to single records.
#include "NORLEX_inclinometry.h"
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "wells/geometry_rows.h"
#include "wells/names.h"
#include "wells/property_state.h"
#include "wells/record_depths.h"

#include <algorithm>
#include <limits>

using namespace sqlText;
using propertyRecords::geometry;

namespace {

bool hasRecords(geometry kind) {
    return kind == geometry::points || kind == geometry::intervals || kind == geometry::picks;
}

} // namespace

// The records stay in memory: the next edit of a long list does not read them all again.
bool NORLEX_wellProperty::editOne(std::size_t record,
                                  const std::function<std::wstring(std::int64_t)>& statement,
                                  const std::function<void(recordSet&)>& inMemory) {
    auto& all = records();
    if (record >= all.records().size())
        return refuse(L"the property " + names::shown(m_state->descr) + L" has "
                      + std::to_wstring(all.records().size())
                      + L" records; there is none at position " + std::to_wstring(record));
    const std::int64_t id = all.records()[record].obj_id;
    if (id == 0)
        return refuse(L"the record is not stored yet; commit() stores it");
    auto kept = std::move(m_state->records);
    if (!editRecords([&] { return m_db->exec(statement(id)); }, true)) {
        m_state->records.reset();
        return false;
    }
    m_state->records = std::move(kept);
    inMemory(*m_state->records);
    return true;
}

bool NORLEX_wellProperty::updateValue(std::size_t field,
                                      std::size_t record,
                                      const std::wstring& text) {
    refresh();
    const std::int64_t fieldId = fieldKey(field);
    if (fieldId == 0)
        return false;
    return editOne(
        record,
        [&](std::int64_t id) {
            return sql(L"UPDATE val SET value = ",
                       quotedName(text),
                       L" WHERE f_id = ",
                       key(fieldId),
                       L" AND obj_id = ",
                       key(id));
        },
        [&](recordSet& all) { all.setValue(field, record, plainName(text)); });
}

bool NORLEX_wellProperty::setBorderType(std::size_t record, NORLEX_borderType type) {
    refresh();
    const auto kind = propertyRecords::geometryOf(m_state->type);
    if (kind != geometry::points && kind != geometry::picks)
        return refuse(L"a border type is kept for points; the property "
                      + names::shown(m_state->descr) + L" holds none");
    if (type < 0 || type > std::numeric_limits<std::uint8_t>::max())
        return refuse(L"the border type " + std::to_wstring(type)
                      + L" is not known; 0 to 255 are expected");
    return editOne(
        record,
        [&](std::int64_t id) {
            return kind == geometry::points ? sql(
                       L"UPDATE point_data SET type = ", key(type), L" WHERE obj_id = ", key(id))
                                            : sql(L"UPDATE correlation_data SET type = ",
                                                  key(type),
                                                  L" WHERE d_id = ",
                                                  key(id));
        },
        [&](recordSet& all) { all.setFlag(record, static_cast<std::uint8_t>(type)); });
}

// Whether the key is that of a record of this property; refused otherwise.
bool NORLEX_wellProperty::isOwn(std::int64_t obj_id) {
    const auto& all = getRecords();
    return (obj_id != 0
            && std::any_of(
                all.begin(), all.end(), [&](const auto& r) { return r.obj_id == obj_id; }))
           || refuse(L"the property " + names::shown(m_state->descr)
                     + L" has no record with the key " + key(obj_id));
}

bool NORLEX_wellProperty::updateDepth(std::int64_t obj_id, double depth, double depth2) {
    if (!isOwn(obj_id))
        return false;
    const auto kind = propertyRecords::geometryOf(m_state->type);
    NORLEX_geometryRecord record;
    std::wstring reason;
    if (kind == geometry::intervals) {
        record.top = depth;
        record.bot = depth2;
        reason = recordDepths::completeInterval(record, m_incl);
    } else {
        record.top = depth;
        record.topAbs = depth2;
        reason = recordDepths::completePoint(record, m_incl);
    }
    if (!reason.empty())
        return refuse(names::shown(m_state->descr) + L": " + reason);
    record.obj_id = obj_id;
    return editRecords([&] { return geometryRows::update(*m_db, kind, record); }, true);
}

bool NORLEX_wellProperty::removeGeometry(std::int64_t obj_id) {
    return removeGeometryByID({obj_id});
}

// The values are found by the property's own fields: points and intervals number their records
// separately, and a property of the same name in another well may use the same key.
bool NORLEX_wellProperty::removeGeometryByID(const std::vector<std::int64_t>& keys) {
    refresh();
    const auto kind = propertyRecords::geometryOf(m_state->type);
    if (!m_state->ok || !hasRecords(kind))
        return refuse(L"the property " + names::shown(m_state->descr)
                      + L" is not open or holds no records");
    if (keys.empty())
        return true;
    std::vector<std::int64_t> own;
    for (const auto& record : getRecords())
        own.push_back(record.obj_id);
    std::sort(own.begin(), own.end());
    for (const std::int64_t id : keys)
        if (id == 0 || !std::binary_search(own.begin(), own.end(), id))
            return refuse(L"the property " + names::shown(m_state->descr)
                          + L" has no record with the key " + key(id));
    const std::wstring list = keyList(keys);
    const std::wstring fields = keyList(fieldKeys());
    return editRecords(
        [&] {
            if (kind == geometry::picks)
                return m_db->exec(sql(L"DELETE FROM correlation_data WHERE d_id IN (", list, L")"));
            return (fields.empty()
                    || (m_db->exec(sql(L"DELETE FROM val WHERE f_id IN (",
                                       fields,
                                       L") AND obj_id IN (",
                                       list,
                                       L")"))
                        // files attached to the values
                        && m_db->exec(sql(L"DELETE FROM prop_link WHERE fld_id IN (",
                                          fields,
                                          L") AND obj_id IN (",
                                          list,
                                          L")"))))
                   && geometryRows::remove(*m_db, kind, keys);
        },
        true);
}
