// The properties of a well: made, opened, removed, listed.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "store/metadata.h"
#include "wells/header_attributes.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_summary.h"
#include "wells/query.h"

#include <unordered_map>

using namespace sqlText;

namespace {

// The attribute "UNITS" of each property of a well that has one.
std::unordered_map<std::int64_t, std::wstring> readUnits(odbc_database& db, std::uint32_t wellId) {
    std::unordered_map<std::int64_t, std::wstring> out;
    const auto rows =
        db.query(sql(L"SELECT obj_id, value FROM meta WHERE m_group = 'property' AND key = ",
                     quoted(headerAttributes::units),
                     L" AND obj_id IN (SELECT pr_id FROM property WHERE w_id = ",
                     key(wellId),
                     L")"));
    while (rows && rows->next())
        out[rows->get_counter(0)] = rows->get_text(1);
    return out;
}

} // namespace

bool NORLEX_well::createProperty(NORLEX_dataType type, const NORLEX_propDescription& prop) {
    return NORLEX_wellProperty::create(m_db, m_wellId, type, prop);
}

bool NORLEX_well::createPropertyFromTemplate(const std::wstring& templateName,
                                             const NORLEX_propDescription& prop) {
    return NORLEX_wellProperty::create(m_db, m_wellId, templateName, prop);
}

std::unique_ptr<NORLEX_wellProperty>
NORLEX_well::createPropertyPtr(NORLEX_dataType type, const NORLEX_propDescription& prop) {
    return createProperty(type, prop) ? openProperty(names::plain(prop)) : nullptr;
}

std::unique_ptr<NORLEX_wellProperty>
NORLEX_well::createPropertyFromTemplatePtr(const std::wstring& templateName,
                                           const NORLEX_propDescription& prop) {
    return createPropertyFromTemplate(templateName, prop) ? openProperty(names::plain(prop))
                                                          : nullptr;
}

std::unique_ptr<NORLEX_wellProperty> NORLEX_well::openProperty(const NORLEX_propDescription& prop) {
    const std::int64_t id = NORLEX_wellProperty::getID(m_db, m_wellId, prop);
    if (!m_ok || id == 0) {
        refuseMissing(m_db, L"the well has no property " + names::shown(prop));
        return nullptr;
    }
    auto property = std::make_unique<NORLEX_wellProperty>(m_db, id, getIncl(), getVDM());
    return property->isOK() ? std::move(property) : nullptr;
}

bool NORLEX_well::removeProperty(const NORLEX_propDescription& prop) {
    const auto property = openProperty(prop);
    return property && property->remove();
}

void NORLEX_well::getPropertyList(std::vector<NORLEX_propDescription>& properties) const {
    properties.clear();
    const auto rows = query::isOpen(m_db)
                          ? m_db->query(sql(L"SELECT p_group, name FROM property WHERE w_id = ",
                                            key(m_wellId),
                                            L" ORDER BY p_group, name"))
                          : nullptr;
    while (rows && rows->next())
        properties.emplace_back(rows->get_text(1), rows->get_text(0));
}

void NORLEX_well::getPropertyListAny(std::vector<std::wstring>& names) const {
    query::texts(
        m_db,
        sql(L"SELECT distinct(name) FROM property WHERE w_id = ", key(m_wellId), L" ORDER BY name"),
        names);
}

void NORLEX_well::getPropertyInfoList(std::vector<NORLEX_propertyInfo>& properties) const {
    properties.clear();
    if (!query::isOpen(m_db))
        return;
    const auto rows = propertyRecords::ofWell(*m_db, m_wellId);
    const auto summaries = propertySummary::of(*m_db, m_wellId, rows);
    const auto units = readUnits(*m_db, m_wellId);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto unit = units.find(rows[i].id);
        properties.push_back({rows[i].description,
                              rows[i].id,
                              rows[i].type,
                              rows[i].templateName,
                              unit == units.end() ? std::wstring() : unit->second,
                              rows[i].comment,
                              summaries[i].records,
                              summaries[i].range});
    }
}

std::int64_t NORLEX_well::getPropertyCount() const {
    return query::counter(m_db,
                          sql(L"SELECT count(pr_id) FROM property where w_id = ", key(m_wellId)));
}

std::int64_t NORLEX_well::getPropertyCount(odbc_database* db, const NORLEX_wellDescription& well) {
    return query::counter(
        db,
        sql(L"SELECT count(pr_id) FROM property LEFT JOIN well_base ON property.w_id = well_base.w_id WHERE well_base.name = ",
            quotedName(well.name),
            L" AND well_base.field = ",
            quotedName(well.field),
            L" AND work_object = ",
            quotedName(well.workObject)));
}

bool NORLEX_well::isPropertyExist(const NORLEX_propDescription& prop) const {
    return NORLEX_wellProperty::isExist(m_db, m_wellId, prop);
}

bool NORLEX_well::isPropertyExistAny(const std::wstring& name) const {
    return NORLEX_wellProperty::isExistAny(m_db, m_wellId, name);
}

void NORLEX_well::getPropertyGroupList(std::vector<std::wstring>& groups) const {
    NORLEX_wellProperty::getGroupList(m_db, m_wellId, groups);
}

void NORLEX_well::getPropertyForGroup(const std::wstring& group,
                                      std::vector<std::wstring>& names) const {
    NORLEX_wellProperty::getListForGroup(m_db, m_wellId, group, names);
}
