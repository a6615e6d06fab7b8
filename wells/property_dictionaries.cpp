// The dictionaries that the fields of a property are bound to.
#include "NORLEX_dictionary.h"
#include "NORLEX_wellProperty.h"
#include "wells/property_state.h"

std::shared_ptr<NORLEX_dictionary> NORLEX_wellProperty::getFieldDictionary(std::size_t field) {
    refresh();
    if (!m_state->ok || field >= m_state->fields.size())
        return nullptr;
    const auto known = m_state->dictionaries.find(field);
    // One that was renamed or deleted is looked for anew.
    if (known != m_state->dictionaries.end() && (!known->second || known->second->isOK()))
        return known->second;
    const auto name =
        NORLEX_dictionary::getDictFromLink(m_db, m_state->descr, m_state->fields[field].name);
    auto& found = m_state->dictionaries[field];
    found = name.empty() ? nullptr : std::make_shared<NORLEX_dictionary>(m_db, name);
    return found;
}

std::wstring NORLEX_wellProperty::getShownValue(std::size_t field, std::size_t record) {
    const auto stored = getValue(field, record);
    const auto dictionary = getFieldDictionary(field);
    return dictionary ? dictionary->getShownValue(stored) : stored;
}
