#include "exchange/well_store.h"

#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "store/audit.h"
#include "store/journal.h"
#include "store/metadata.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/well_records.h"

using namespace sqlText;

namespace {

// A mark that no table cell holds between the names.
std::wstring keyOf(const NORLEX_wellDescription& well) {
    return well.workObject + L'\0' + well.field + L'\0' + well.name;
}

} // namespace

wellStore::wellStore(odbc_database& db, const NORLEX_wellTableOptions& options)
    : m_db(db), m_options(options),
      m_wells(
          db,
          L"INSERT INTO well_base (w_id, work_object, field, name, altitude, bottom, x, y, UUID, create_date, update_date, create_user, update_user) VALUES "),
      m_meta(db, L"INSERT INTO meta (m_group, obj_id, key, value) VALUES ") {}

bool wellStore::open() {
    const auto next = manyKeys::next(m_db, L"SELECT max(w_id) FROM well_base");
    m_nextKey = static_cast<std::uint32_t>(next.value_or(0));
    return next && readWells() && readAttributes();
}

bool wellStore::readWells() {
    const auto rows =
        m_db.query(L"SELECT work_object, field, name, w_id, x, y, altitude, bottom FROM well_base");
    if (!rows)
        return refuse(L"the wells cannot be read: " + m_db.last_error());
    while (rows->next()) {
        knownWell& well =
            m_known[keyOf({rows->get_text(0), rows->get_text(1), rows->get_text(2), 0})];
        well.wellId = static_cast<std::uint32_t>(rows->get_counter(3));
        well.values.x = rows->get_double(4);
        well.values.y = rows->get_double(5);
        well.values.altitude = rows->get_double(6);
        if (!rows->get_text(7).empty())
            well.values.bottom = rows->get_double(7);
    }
    return true;
}

bool wellStore::readAttributes() {
    if (m_options.onExisting != NORLEX_onExistingWell::update || m_options.attributes.empty())
        return true;
    std::wstring keys;
    for (const auto& attribute : m_options.attributes)
        keys += (keys.empty() ? L"" : L",") + quoted(attribute.key);
    const auto rows = m_db.query(sql(L"SELECT obj_id, key, m_id, value FROM meta WHERE m_group = ",
                                     quoted(metadata::ofWell),
                                     L" AND key IN(",
                                     keys,
                                     L")"));
    if (!rows)
        return refuse(L"the attributes of wells cannot be read: " + m_db.last_error());
    while (rows->next())
        m_attributes.try_emplace(
            {static_cast<std::uint32_t>(rows->get_counter(0)), rows->get_text(1)},
            storedAttribute{rows->get_counter(2), rows->get_text(3)});
    return true;
}

wellStore::knownWell& wellStore::of(const NORLEX_wellDescription& well) {
    return m_known[keyOf(well)];
}

bool wellStore::create(const wellRows::row& row) {
    auto well = row.well;
    well.wellId = m_nextKey++;
    m_created.push_back(well);
    const auto& v = row.values;
    if (!m_wells.add(sql(L"(",
                         key(well.wellId),
                         L", ",
                         quotedName(well.workObject),
                         L", ",
                         quotedName(well.field),
                         L", ",
                         quotedName(well.name),
                         L", ",
                         number(v.altitude.value_or(0.0)),
                         L", ",
                         v.bottom ? fixed(*v.bottom, 2) : std::wstring(L"NULL"),
                         L", ",
                         number(v.x.value_or(0.0)),
                         L", ",
                         number(v.y.value_or(0.0)),
                         L", ",
                         audit::created(m_db),
                         L")")))
        return false;
    bool isChanged = false; // a well that is new is told as a whole
    for (std::size_t i = 0; i < row.attributes.size(); ++i)
        if (!row.attributes[i].empty()
            && !setAttribute(
                well.wellId, m_options.attributes[i].key, row.attributes[i], isChanged))
            return false;
    return true;
}

bool wellStore::setAttribute(std::uint32_t wellId,
                             const std::wstring& name,
                             const std::wstring& value,
                             bool& isChanged) {
    const auto known = m_attributes.find({wellId, name});
    if (known != m_attributes.end() && known->second.value == value)
        return true;
    isChanged = true;
    if (known != m_attributes.end())
        return m_db.exec(sql(
            L"UPDATE meta SET value = ", quoted(value), L" WHERE m_id = ", key(known->second.key)));
    return m_meta.add(sql(L"(",
                          quoted(metadata::ofWell),
                          L", ",
                          key(wellId),
                          L", ",
                          quoted(name),
                          L", ",
                          quoted(value),
                          L")"));
}

// Through the well itself: what is computed from its altitude follows.
bool wellStore::updateNumbers(const wellRows::numbers& values,
                              const knownWell& well,
                              bool& isChanged) {
    const auto& old = well.values;
    const auto differs = [](const std::optional<double>& value, const std::optional<double>& was) {
        return value && value != was;
    };
    const bool isMoved = differs(values.x, old.x) || differs(values.y, old.y);
    const bool isLifted = differs(values.altitude, old.altitude);
    const bool isDeepened = differs(values.bottom, old.bottom);
    isChanged = isMoved || isLifted || isDeepened;
    if (!isChanged)
        return true;
    NORLEX_well stored(&m_db, well.wellId);
    return stored.isOK()
           && (!isMoved || stored.setPosition(values.x.value_or(*old.x), values.y.value_or(*old.y)))
           && (!isLifted || stored.setAltitude(*values.altitude))
           && (!isDeepened || stored.setBottom(*values.bottom));
}

bool wellStore::update(const wellRows::row& row, const knownWell& well) {
    auto description = row.well;
    description.wellId = well.wellId;
    bool isChanged = false;
    if (!updateNumbers(row.values, well, isChanged))
        return false;
    if (isChanged)
        m_changed.push_back(description);
    for (std::size_t i = 0; i < row.attributes.size(); ++i) {
        bool isNewValue = false;
        const auto& name = m_options.attributes[i].key;
        if (!row.attributes[i].empty()
            && !setAttribute(well.wellId, name, row.attributes[i], isNewValue))
            return false;
        if (isNewValue)
            m_changedAttributes.emplace_back(description, name);
    }
    return true;
}

void wellStore::tell() const {
    for (const auto& well : m_created)
        journal::add(m_db, eventKind::well, eventAction::create, names::shown(well));
    for (const auto& well : m_changed)
        journal::add(m_db, eventKind::well, eventAction::update, names::shown(well));
    announce::afterCommit(m_db,
                          [created = m_created, attributes = m_changedAttributes](
                              auto& observer, const auto& container) {
                              for (const auto& well : created)
                                  observer.createWell(container, well);
                              for (const auto& [well, key] : attributes)
                                  observer.updateWellMeta(container, well, key);
                          });
}

bool wellStore::finish() {
    std::vector<std::int64_t> touched;
    for (const auto& [well, name] : m_changedAttributes)
        touched.push_back(well.wellId);
    if (!m_wells.finish() || !m_meta.finish()
        || (!m_created.empty() && !m_db.keys_were_given(L"well_base", L"w_id"))
        || !manyKeys::update(
            m_db, sql(L"UPDATE well_base SET ", audit::touched(m_db), L" WHERE w_id"), touched)
        || (!m_created.empty() && !wellRecords::touchContainer(m_db)))
        return false;
    tell();
    return true;
}
