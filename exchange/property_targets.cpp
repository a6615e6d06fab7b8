#include "exchange/property_targets.h"

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

#include <algorithm>

using namespace sqlText;
using propertyRecords::geometry;

namespace {

bool areAlike(const std::vector<NORLEX_propField>& a, const std::vector<NORLEX_propField>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.name == y.name && x.type == y.type;
    });
}

} // namespace

bool propertyTargets::open() {
    m_prop = names::plain(m_options.property);
    if (!names::areStorable(m_prop) || !openTemplate() || !readExisting() || !readFields())
        return false;
    // Where every well would have to make the property, each of its rows would be bad.
    const std::wstring fault = faultOf(m_fields);
    const bool isNeeded =
        m_existing.empty() || m_options.onExisting == NORLEX_onExistingData::replace;
    if (isNeeded && !fault.empty())
        return refuse(L"the columns do not suit the template " + m_options.templateName + L": "
                      + fault);
    const auto property = manyKeys::next(m_db, L"SELECT max(pr_id) FROM property");
    const auto field = property ? manyKeys::next(m_db, L"SELECT max(f_id) FROM field") : property;
    m_nextProperty = property.value_or(0);
    m_nextField = field.value_or(0);
    return field.has_value();
}

bool propertyTargets::openTemplate() {
    const NORLEX_propTemplate source(&m_db, m_options.templateName);
    if (!source.isOK())
        return refuseMissing(&m_db,
                             L"there is no property template \"" + m_options.templateName + L"\"");
    m_templateId = source.getID();
    m_kind = propertyRecords::geometryOf(source.getType());
    if (m_kind != geometry::points && m_kind != geometry::intervals)
        return refuse(L"the template " + m_options.templateName
                      + L" is neither of points nor of intervals; other kinds of property are not"
                        L" read from tables");
    if (propertyRecords::isVelocity(source.getType()))
        return refuse(L"the template " + m_options.templateName
                      + L" is of velocities, which are made of the well's velocity model");
    for (const auto& field : source.getFieldList())
        m_fields.push_back({0, field.name, field.type});
    return true;
}

// " FROM property … WHERE …": the properties of the name, of the only well where there is one.
std::wstring propertyTargets::ofTheName() const {
    return sql(L"property.name = ",
               quotedName(m_prop.name),
               L" AND property.p_group = ",
               quotedName(m_prop.group),
               m_options.well.wellId == 0 ? std::wstring()
                                          : L" AND property.w_id = " + key(m_options.well.wellId));
}

bool propertyTargets::readExisting() {
    const auto rows = m_db.query(sql(
        L"SELECT property.w_id, property.pr_id, base_template.type FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE ",
        ofTheName()));
    if (!rows)
        return refuse(L"the properties cannot be read: " + m_db.last_error());
    while (rows->next())
        m_existing.try_emplace(
            static_cast<std::uint32_t>(rows->get_counter(0)),
            existing{rows->get_counter(1),
                     propertyRecords::geometryOf(getDataTypeByEnum(rows->get_text(2))),
                     {}});
    return true;
}

bool propertyTargets::readFields() {
    if (m_existing.empty() || m_options.onExisting != NORLEX_onExistingData::append)
        return true;
    std::unordered_map<std::int64_t, existing*> byKey;
    for (auto& [wellId, property] : m_existing)
        byKey[property.propertyId] = &property;
    const auto rows = m_db.query(sql(
        L"SELECT f_id, field.name, field.type, field.pr_id FROM field INNER JOIN property ON property.pr_id = field.pr_id WHERE ",
        ofTheName(),
        L" ORDER BY f_id"));
    if (!rows)
        return refuse(L"the fields cannot be read: " + m_db.last_error());
    while (rows->next())
        if (const auto property = byKey.find(rows->get_counter(3)); property != byKey.end())
            property->second->fields.push_back(
                {rows->get_counter(0), rows->get_text(1), fieldType_getType(rows->get_text(2))});
    return true;
}

const tableRows::parser* propertyTargets::parserOf(const std::vector<NORLEX_propField>& fields) {
    for (const auto& [known, parser] : m_parsers)
        if (areAlike(known, fields))
            return parser.get();
    m_parsers.emplace_back(fields,
                           std::make_unique<tableRows::parser>(
                               m_columns, m_options.rows, fields, m_kind == geometry::points));
    return m_parsers.back().second.get();
}

// A record is found by its values: without a field there is no way to it.
std::wstring propertyTargets::faultOf(const std::vector<NORLEX_propField>& fields) {
    if (fields.empty())
        return L"the property has no field; one is expected before records are written";
    return parserOf(fields)->fault();
}

void propertyTargets::append(target& one, const existing& property) {
    one.propertyId = property.propertyId;
    one.parser = parserOf(property.fields);
    for (const auto& field : property.fields)
        one.fields.push_back(field.fieldId);
    if (property.kind != m_kind)
        one.fault = L"the well has a property " + names::shown(m_prop)
                    + L" of another kind than the template " + m_options.templateName;
    else
        one.fault = faultOf(property.fields);
}

propertyTargets::target& propertyTargets::of(std::uint32_t wellId) {
    const auto [place, isFirst] = m_targets.try_emplace(wellId);
    target& one = place->second;
    if (!isFirst)
        return one;
    using enum NORLEX_onExistingData;
    one.wellId = wellId;
    one.survey = std::make_unique<NORLEX_inclinometry>(&m_db, wellId);
    const auto known = m_existing.find(wellId);
    if (known != m_existing.end() && m_options.onExisting == append) {
        this->append(one, known->second);
        return one;
    }
    one.isNew = true;
    one.isReplaced = known != m_existing.end();
    one.parser = parserOf(m_fields);
    one.fault = faultOf(m_fields);
    if (one.isReplaced && m_options.onExisting == fail)
        one.fault = L"the well has a property " + names::shown(m_prop) + L" already";
    return one;
}

bool propertyTargets::use(target& one) {
    if (one.isUsed)
        return true;
    one.isUsed = true;
    m_used.push_back(&one);
    if (one.isReplaced && !NORLEX_wellProperty::removeSilent(&m_db, one.wellId, m_prop))
        return false;
    if (!one.isNew)
        return true;
    ++m_created;
    one.propertyId = m_nextProperty++;
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        one.fields.push_back(m_nextField++);
    return true;
}

bool propertyTargets::insertProperties() {
    rowInserter rows(
        m_db,
        L"INSERT INTO property (pr_id, w_id, name, p_group, bt_id, UUID, create_date, update_date, create_user, update_user) VALUES ");
    for (const target* one : m_used)
        if (one->isNew
            && !rows.add(sql(L"(",
                             key(one->propertyId),
                             L",",
                             key(one->wellId),
                             L",",
                             quotedName(m_prop.name),
                             L",",
                             quotedName(m_prop.group),
                             L",",
                             key(m_templateId),
                             L", ",
                             audit::created(m_db),
                             L")")))
            return false;
    return rows.finish() && m_db.keys_were_given(L"property", L"pr_id");
}

bool propertyTargets::insertFields() {
    rowInserter rows(m_db, L"INSERT INTO field (f_id, name, pr_id, type, is_base) VALUES ");
    for (const target* one : m_used)
        for (std::size_t i = 0; one->isNew && i < m_fields.size(); ++i)
            if (!rows.add(sql(L"(",
                              key(one->fields[i]),
                              L",",
                              quotedName(m_fields[i].name),
                              L",",
                              key(one->propertyId),
                              L",",
                              quoted(fieldType_getBaseEnum(m_fields[i].type)),
                              L",0)")))
                return false;
    return rows.finish() && m_db.keys_were_given(L"field", L"f_id");
}

bool propertyTargets::stamp() const {
    std::vector<std::int64_t> properties;
    std::vector<std::int64_t> wells;
    for (const target* one : m_used) {
        if (!one->isNew)
            properties.push_back(one->propertyId);
        wells.push_back(one->wellId);
    }
    const std::wstring touched = audit::touched(m_db);
    return manyKeys::update(
               m_db, sql(L"UPDATE property SET ", touched, L" WHERE pr_id"), properties)
           && manyKeys::update(m_db, sql(L"UPDATE well_base SET ", touched, L" WHERE w_id"), wells);
}

void propertyTargets::tell(const wellIndex& wells) const {
    struct change {
        NORLEX_wellDescription well;
        bool isNew = false;
        bool isReplaced = false;
    };
    std::vector<change> changes;
    for (const target* one : m_used) {
        const auto& well = wells.description(one->wellId);
        changes.push_back({well, one->isNew, one->isReplaced});
        journal::add(m_db,
                     eventKind::property,
                     one->isNew ? eventAction::create : eventAction::update,
                     names::shown(well) + L": " + names::shown(m_prop));
    }
    announce::afterCommit(
        m_db, [changes = std::move(changes), prop = m_prop](auto& observer, const auto& container) {
            for (const auto& one : changes) {
                if (one.isReplaced)
                    observer.deleteProperty(container, one.well, prop);
                if (one.isNew)
                    observer.createProperty(container, one.well, prop);
                else
                    observer.updateDataProperty(0, container, one.well, prop);
            }
        });
}

bool propertyTargets::finish(const wellIndex& wells) {
    if (m_used.empty())
        return true;
    if ((m_created > 0 && (!insertProperties() || !insertFields())) || !stamp())
        return false;
    tell(wells);
    return true;
}
