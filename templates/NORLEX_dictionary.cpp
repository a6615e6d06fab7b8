#include "NORLEX_dictionary.h"

#include "eventMsgDescription.h"
#include "odbc_database.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "templates/dictionary_state.h"
#include "templates/template_queries.h"

using namespace sqlText;

namespace {

using entries = std::vector<NORLEX_dictionary_value>;

// The first entry with the text; the number of entries when there is none.
template <typename Index>
std::size_t find(std::optional<Index>& index,
                 const entries& values,
                 std::wstring NORLEX_dictionary_value::*member,
                 const std::wstring& text) {
    if (!index) {
        index.emplace();
        index->reserve(values.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            index->try_emplace(values[i].*member, i);
    }
    const auto found = index->find(text);
    return found == index->end() ? values.size() : found->second;
}

} // namespace

NORLEX_dictionary::NORLEX_dictionary(odbc_database* db, const std::wstring& name)
    : m_db(db), m_state(std::make_shared<state>()) {
    m_state->name = name;
    if (!templateQueries::isOpen(db))
        return;
    m_state->watch.emplace(
        *db, 0U, [this](const eventMsgDescription& message) { onGlobalUpdate(message); });
    loadData();
    if (!m_state->ok)
        refuseMissing(db, sql(L"there is no dictionary \"", name, L"\""));
}

NORLEX_dictionary::~NORLEX_dictionary() {
    m_state->watch.reset(); // a posting announcement may keep the rest for a moment
}

void NORLEX_dictionary::loadData() const {
    auto& self = *m_state;
    self.values.clear();
    self.entriesChanged();
    self.id = getDictID(m_db, self.name);
    self.ok = self.id != 0;
    if (!self.ok)
        return;
    const auto rows = m_db->query(sql(L"SELECT v_id, value, code FROM dict_values WHERE dict_id = ",
                                      key(self.id),
                                      L" ORDER BY v_id"));
    while (rows && rows->next())
        self.values.emplace_back(
            static_cast<std::uint32_t>(rows->get_counter(0)), rows->get_text(2), rows->get_text(1));
}

// Inside of a caller's transaction, which may yet be rolled back, it stays out of date.
void NORLEX_dictionary::refresh() const {
    if (!m_state->watch || (!m_state->watch->takeMissed() && !m_state->isStale))
        return;
    m_state->isStale = m_db->in_transaction();
    loadData();
}

void NORLEX_dictionary::onGlobalUpdate(const eventMsgDescription& message) {
    auto& self = *m_state;
    const bool isOwnData = message.kind == eventKind::dictionary && message.property.name.empty()
                           && message.params[0] == self.name;
    if (isOwnData && self.expected > 0)
        --self.expected;
    else if (isOwnData || message.kind == eventKind::container)
        self.isStale = true;
}

bool NORLEX_dictionary::isOK() const {
    refresh();
    return m_state->ok;
}

const std::wstring& NORLEX_dictionary::getName() const {
    return m_state->name;
}

std::uint32_t NORLEX_dictionary::getID() const {
    refresh();
    return m_state->id;
}

std::size_t NORLEX_dictionary::getValueCount() const {
    return getValueList().size();
}

const entries& NORLEX_dictionary::getValueList() const {
    refresh();
    return m_state->values;
}

std::wstring NORLEX_dictionary::getValueByCode(const std::wstring& code) const {
    const auto& values = getValueList();
    const auto at = find(m_state->byCode, values, &NORLEX_dictionary_value::code, code);
    return code.empty() || at == values.size() ? std::wstring() : values[at].value;
}

std::wstring NORLEX_dictionary::getCodeByValue(const std::wstring& value) const {
    const auto& values = getValueList();
    const auto at = find(m_state->byValue, values, &NORLEX_dictionary_value::value, value);
    return value.empty() || at == values.size() ? std::wstring() : values[at].code;
}

std::wstring NORLEX_dictionary::getShownValue(const std::wstring& code) const {
    const auto& values = getValueList();
    const auto at = find(m_state->byCode, values, &NORLEX_dictionary_value::code, code);
    return at == values.size() || values[at].value.empty() ? code : values[at].value;
}

std::vector<std::wstring> NORLEX_dictionary::getCodeListByValue(const std::wstring& value) const {
    std::vector<std::wstring> codes;
    for (const auto& entry : getValueList())
        if (entry.value == value)
            codes.push_back(entry.code);
    return codes;
}
