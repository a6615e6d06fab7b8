// Attributes of a property: rows of `meta`.
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "store/metadata.h"
#include "wells/header_attributes.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_state.h"

namespace {

bool isKnown(odbc_database& db, std::int64_t propertyId, const std::wstring& key) {
    return metadata::isSet(db, metadata::ofProperty, propertyId, key);
}

bool refuseTaken(const NORLEX_propDescription& prop, const std::wstring& key) {
    return refuse(L"the property " + names::shown(prop) + L" has an attribute " + key
                  + L" already; another key is expected");
}

bool refuseAbsent(const NORLEX_propDescription& prop, const std::wstring& key) {
    return refuse(L"the property " + names::shown(prop) + L" has no attribute " + key);
}

// `change` and the stamp of the property, together.
template <typename Change>
bool edited(odbc_database* db, std::int64_t propertyId, const std::wstring& key, Change change) {
    if (propertyId == 0 || key.empty())
        return refuse(L"an attribute needs an open property and a key that is not empty");
    transaction edit(db);
    return edit.isOpen() && change() && propertyRecords::touch(*db, propertyId) && edit.commit();
}

} // namespace

bool NORLEX_wellProperty::setAttribute(const std::wstring& key, const std::wstring& value) {
    return edited(m_db, getID(), key, [&] {
        return metadata::set(*m_db, metadata::ofProperty, m_state->id, key, value);
    });
}

bool NORLEX_wellProperty::createAttribute(const std::wstring& key, const std::wstring& value) {
    return edited(m_db, getID(), key, [&] {
        if (isKnown(*m_db, m_state->id, key))
            return refuseTaken(m_state->descr, key);
        return metadata::add(*m_db, metadata::ofProperty, m_state->id, {{key, value}});
    });
}

bool NORLEX_wellProperty::updateAttribute(const std::wstring& key, const std::wstring& value) {
    return edited(m_db, getID(), key, [&] {
        if (!isKnown(*m_db, m_state->id, key))
            return refuseAbsent(m_state->descr, key);
        return metadata::set(*m_db, metadata::ofProperty, m_state->id, key, value);
    });
}

bool NORLEX_wellProperty::updateKey(const std::wstring& oldKey, const std::wstring& newKey) {
    return edited(m_db, getID(), newKey, [&] {
        if (!isKnown(*m_db, m_state->id, oldKey))
            return refuseAbsent(m_state->descr, oldKey);
        if (oldKey == newKey)
            return true;
        if (isKnown(*m_db, m_state->id, newKey))
            return refuseTaken(m_state->descr, newKey);
        return metadata::renameKey(*m_db, metadata::ofProperty, m_state->id, oldKey, newKey);
    });
}

std::wstring NORLEX_wellProperty::getAttribute(const std::wstring& key) {
    return m_state->ok ? metadata::get(*m_db, metadata::ofProperty, m_state->id, key)
                       : std::wstring();
}

std::vector<std::wstring> NORLEX_wellProperty::getAttributeList() {
    std::vector<std::wstring> keys;
    for (auto& [key, value] : getAttributeKeyValueList())
        keys.push_back(std::move(key));
    return keys;
}

std::vector<std::pair<std::wstring, std::wstring>> NORLEX_wellProperty::getAttributeKeyValueList() {
    return m_state->ok ? metadata::getAll(*m_db, metadata::ofProperty, m_state->id)
                       : metadata::pairs();
}

std::vector<lasDescription> NORLEX_wellProperty::getAttributeWellList() {
    return headerAttributes::entries(getAttributeKeyValueList(), headerAttributes::block::well);
}

std::vector<lasDescription> NORLEX_wellProperty::getAttributeParamList() {
    return headerAttributes::entries(getAttributeKeyValueList(), headerAttributes::block::param);
}

std::vector<lasDescription> NORLEX_wellProperty::getAttributeCurveList() {
    return headerAttributes::entries(getAttributeKeyValueList(), headerAttributes::block::curve);
}
