#include "correlation/mirrors.h"

#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/row_inserter.h"
#include "platform/sql_text.h"
#include "store/audit.h"
#include "store/journal.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_records.h"

#include <algorithm>

using namespace sqlText;

namespace mirrors {

namespace {

// Other kinds of property may bear the name of a correlation; they are none of its mirrors.
constexpr const wchar_t* areBorders =
    L" AND bt_id IN (SELECT bt_id FROM base_template WHERE type = 'NORLEX_dataTypeBorder')";

std::wstring ofWell(std::uint32_t wellId) {
    return wellId == 0 ? std::wstring() : L" AND w_id =" + key(wellId);
}

using wellSet = std::set<std::uint32_t>;

bool refuseGroup(const NORLEX_propDescription& prop, const std::wstring& group) {
    return refuse(L"the correlation \"" + prop.name + L"\" is shown in the group \"" + group
                  + L"\" already; it cannot be in the group \"" + prop.group + L"\", too");
}

// Properties of the name on the wells: mirrors go to `out`, those wells out of `missing`.
bool findPresent(odbc_database& db,
                 const NORLEX_propDescription& prop,
                 const std::vector<NORLEX_wellDescription>& wells,
                 wellSet& missing,
                 found& out) {
    const auto rows = db.query(sql(
        L"SELECT property.pr_id, property.w_id, property.p_group, base_template.type FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE property.name = ",
        quotedName(prop.name),
        wells.size() == 1 ? L" AND property.w_id = " + key(wells.front().wellId) : std::wstring()));
    if (!rows)
        return refuse(L"the properties cannot be read: " + db.last_error());
    while (rows->next()) {
        const auto wellId = static_cast<std::uint32_t>(rows->get_counter(1));
        const bool isBorder = getDataTypeByEnum(rows->get_text(3)) == NORLEX_dataTypeBorder;
        if (!missing.contains(wellId) || rows->get_text(2) != prop.group)
            continue;
        if (!isBorder) {
            const auto well = std::ranges::find(wells, wellId, &NORLEX_wellDescription::wellId);
            return refuse(L"the well " + names::shown(*well) + L" has a property "
                          + names::shown(prop) + L" of another kind; another name is expected");
        }
        out.keys.push_back(rows->get_counter(0));
        missing.erase(wellId);
    }
    return true;
}

bool insertProperties(odbc_database& db,
                      const NORLEX_propDescription& prop,
                      std::uint32_t templateId,
                      const wellSet& wells) {
    rowInserter batch(
        db,
        L"INSERT INTO property (w_id, name, p_group, bt_id, UUID, create_date, update_date, create_user, update_user) VALUES ");
    const std::wstring names = sql(L",", quotedName(prop.name), L",", quotedName(prop.group), L",");
    for (const std::uint32_t wellId : wells)
        if (!batch.add(
                sql(L"(", key(wellId), names, key(templateId), L", ", audit::created(db), L")")))
            return false;
    return batch.finish();
}

// The keys of the properties of the name and group on the wells.
bool readKeys(odbc_database& db,
              const NORLEX_propDescription& prop,
              const wellSet& wells,
              std::vector<std::int64_t>& keys) {
    const auto rows =
        db.query(sql(L"SELECT pr_id, w_id FROM property WHERE name = ",
                     quotedName(prop.name),
                     L" AND p_group = ",
                     quotedName(prop.group),
                     wells.size() == 1 ? L" AND w_id = " + key(*wells.begin()) : std::wstring()));
    while (rows && rows->next())
        if (wells.contains(static_cast<std::uint32_t>(rows->get_counter(1))))
            keys.push_back(rows->get_counter(0));
    return keys.size() == wells.size()
           || refuse(L"the new properties " + names::shown(prop) + L" cannot be read back: "
                     + db.last_error());
}

bool addField(odbc_database& db,
              const std::vector<std::int64_t>& properties,
              const std::wstring& name,
              NORLEX_fieldType type) {
    return manyKeys::forEachPart(properties, [&](const std::wstring& keys) {
        return db.exec(sql(L"INSERT INTO field (name, pr_id, type, is_base) SELECT ",
                           quotedName(name),
                           L", pr_id, ",
                           quoted(fieldType_getBaseEnum(type)),
                           L", 0 FROM property WHERE pr_id IN(",
                           keys,
                           L") ORDER BY pr_id"));
    });
}

bool create(odbc_database& db,
            const NORLEX_propDescription& prop,
            const wellSet& wells,
            std::vector<std::int64_t>& made) {
    for (const auto& group : groups(db, prop.name))
        if (group != prop.group)
            return refuseGroup(prop, group);
    const auto standard = propertyRecords::standardTemplate(db, NORLEX_dataTypeBorder);
    if (standard.empty())
        return refuseMissing(&db, L"there is no property template of correlation borders");
    const NORLEX_propTemplate source(&db, standard);
    if (!source.isOK() || !names::areStorable(prop)
        || !insertProperties(db, prop, source.getID(), wells) || !readKeys(db, prop, wells, made))
        return false;
    const auto fields = source.getFieldList();
    return std::ranges::all_of(fields,
                               [&](const auto& f) { return addField(db, made, f.name, f.type); })
           && manyKeys::forEachPart(std::vector<std::uint32_t>(wells.begin(), wells.end()),
                                    [&](const std::wstring& keys) {
                                        return db.exec(sql(L"UPDATE well_base SET ",
                                                           audit::touched(db),
                                                           L" WHERE w_id IN(",
                                                           keys,
                                                           L")"));
                                    });
}

// The field of the type, on those that lack it.
bool completeFields(odbc_database& db, const std::vector<std::int64_t>& properties) {
    std::set<std::int64_t> lacking(properties.begin(), properties.end());
    const bool isRead = manyKeys::forEachPart(properties, [&](const std::wstring& keys) {
        const auto rows = db.query(sql(L"SELECT pr_id FROM field WHERE name = ",
                                       quoted(typeField),
                                       L" AND pr_id IN(",
                                       keys,
                                       L")"));
        while (rows && rows->next())
            lacking.erase(rows->get_counter(0));
        return rows || refuse(L"the fields cannot be read: " + db.last_error());
    });
    return isRead
           && addField(db, {lacking.begin(), lacking.end()}, typeField, NORLEX_fieldTypeNumeric);
}

} // namespace

bool ensure(odbc_database& db,
            const NORLEX_propDescription& prop,
            const std::vector<NORLEX_wellDescription>& wells,
            found& out) {
    wellSet missing;
    for (const auto& well : wells)
        missing.insert(well.wellId);
    if (!findPresent(db, prop, wells, missing, out))
        return false;
    std::vector<std::int64_t> made;
    if (!missing.empty() && !create(db, prop, missing, made))
        return false;
    out.keys.insert(out.keys.end(), made.begin(), made.end());
    out.created = std::move(missing);
    return completeFields(db, out.keys);
}

bool tell(odbc_database& db,
          const NORLEX_propDescription& prop,
          const std::vector<NORLEX_wellDescription>& wells,
          const found& have) {
    for (const auto& well : wells)
        if (have.created.contains(well.wellId))
            journal::add(db,
                         eventKind::property,
                         eventAction::create,
                         names::shown(well) + L": " + names::shown(prop));
    announce::afterCommit(
        db, [prop, wells, created = have.created](auto& observer, const auto& container) {
            for (const auto& well : wells)
                if (created.contains(well.wellId))
                    observer.createProperty(container, well, prop);
                else
                    observer.updateDataProperty(0, container, well, prop);
        });
    return manyKeys::forEachPart(have.keys, [&](const std::wstring& keys) {
        return db.exec(
            sql(L"UPDATE property SET ", audit::touched(db), L" WHERE pr_id IN(", keys, L")"));
    });
}

bool tell(odbc_database& db,
          const NORLEX_propDescription& prop,
          const NORLEX_wellDescription& well) {
    found have;
    if (const auto id = propertyRecords::find(db, well.wellId, prop); id != 0)
        have.keys.push_back(id);
    return tell(db, prop, {well}, have);
}

bool tellAll(odbc_database& db, const NORLEX_propDescription& prop) {
    announce::afterCommit(db, [prop](auto& observer, const auto& container) {
        observer.updateDataAll(container, prop);
    });
    return db.exec(sql(L"UPDATE property SET ",
                       audit::touched(db),
                       L" WHERE name = ",
                       quotedName(prop.name),
                       areBorders));
}

std::vector<std::wstring>
groups(odbc_database& db, const std::wstring& name, std::uint32_t wellId) {
    std::vector<std::wstring> out;
    const auto rows = db.query(sql(L"SELECT distinct(p_group) FROM property WHERE name = ",
                                   quotedName(name),
                                   ofWell(wellId),
                                   areBorders,
                                   L" ORDER BY p_group"));
    while (rows && rows->next())
        out.push_back(rows->get_text(0));
    return out;
}

bool rename(odbc_database& db, const std::wstring& oldName, const std::wstring& newName) {
    return db.exec(sql(L"UPDATE property SET name = ",
                       quotedName(newName),
                       L" WHERE name = ",
                       quotedName(oldName),
                       areBorders))
           && db.exec(sql(L"UPDATE property SET ",
                          audit::touched(db),
                          L" WHERE name = ",
                          quotedName(newName),
                          areBorders));
}

bool remove(odbc_database& db, const NORLEX_propDescription& prop, std::uint32_t wellId) {
    auto all = groups(db, prop.name, wellId);
    if (std::ranges::find(all, prop.group) == all.end())
        all.push_back(prop.group);
    return std::ranges::all_of(all, [&](const std::wstring& group) {
        const std::wstring properties = sql(L" IN (SELECT pr_id FROM property WHERE name = ",
                                            quotedName(prop.name),
                                            L" AND p_group =",
                                            quotedName(group),
                                            ofWell(wellId),
                                            areBorders,
                                            L")");
        return db.exec(sql(L"DELETE FROM meta WHERE m_group = 'property' AND obj_id", properties))
               && db.exec(sql(L"DELETE FROM file_link WHERE pr_id", properties))
               && db.exec(
                   sql(L"DELETE FROM prop_link WHERE fld_id IN (SELECT f_id FROM field WHERE pr_id",
                       properties,
                       L")"))
               && db.exec(sql(L"DELETE FROM field WHERE pr_id", properties))
               && db.exec(sql(L"DELETE FROM property WHERE name = ",
                              quotedName(prop.name),
                              L" AND p_group = ",
                              quotedName(group),
                              ofWell(wellId),
                              areBorders));
    });
}

} // namespace mirrors
