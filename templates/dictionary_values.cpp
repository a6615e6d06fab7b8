// The entries of an open dictionary: added, changed, removed.
#include "globalEventObserver.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "templates/dictionary_state.h"
#include "templates/template_queries.h"

#include <algorithm>
#include <unordered_set>

using namespace sqlText;

namespace {

constexpr std::size_t rowsPerStatement = 500;
constexpr std::size_t longestStatement = 4U << 20U; // characters: texts may be long

constexpr const wchar_t* insertion = L"INSERT INTO dict_values (value, code, dict_id) VALUES (";

std::wstring rowOf(const std::wstring& code, const std::wstring& value, std::uint32_t dictId) {
    return sql(quoted(value), L", ", quoted(code), L", ", key(dictId), L")");
}

// The rows are let go of before anything is written.
bool isThere(odbc_database& db, const std::wstring& query) {
    const auto rows = db.query(query);
    return rows && rows->next();
}

} // namespace

bool NORLEX_dictionary::isOpen() const {
    if (!templateQueries::isOpen(m_db))
        return false;
    return isOK() || refuse(L"there is no dictionary \"" + m_state->name + L"\"");
}

// The entries in memory are changed with the rows. They are read again where that cannot be relied
// on: when the change fails, or may be rolled back by a caller's transaction.
bool NORLEX_dictionary::edit(const std::function<outcome()>& change) {
    if (!isOpen())
        return false;
    m_state->isStale = true;
    const bool isInner = m_db->in_transaction();
    transaction edited(m_db);
    if (!edited.isOpen())
        return false;
    const auto done = change();
    if (done == outcome::failed)
        return false;
    if (done == outcome::changed) {
        if (!updateEditTimeDict(m_db, m_state->name))
            return false;
        m_db->after_commit(
            [weak = std::weak_ptr(m_state), path = m_db->get_identity(), name = m_state->name] {
                const auto self = weak.lock();
                if (self)
                    self->expected = 1;
                globalEventObserver::Instance().updateDictionaryData(path, name);
                if (self)
                    self->expected = 0;
            });
    }
    m_state->isStale = isInner;
    if (edited.commit())
        return true;
    m_state->isStale = true;
    return false;
}

bool NORLEX_dictionary::addValue(const std::wstring& code, const std::wstring& value) {
    return edit([&] { return addValueBase(plainName(code), plainName(value)); });
}

NORLEX_dictionary::outcome NORLEX_dictionary::addValueBase(const std::wstring& code,
                                                           const std::wstring& value) {
    if (isThere(*m_db,
                sql(L"SELECT * FROM dict_values WHERE code = ",
                    quoted(code),
                    L"AND dict_id = ", // without a blank before AND
                    key(m_state->id))))
        return outcome::unchanged;
    if (!m_db->exec(sql(insertion, rowOf(code, value, m_state->id))))
        return outcome::failed;
    const auto entryId = templateQueries::counter(m_db, L"SELECT max(v_id) FROM dict_values");
    m_state->values.emplace_back(static_cast<std::uint32_t>(entryId), code, value);
    if (m_state->byCode)
        m_state->byCode->try_emplace(code, m_state->values.size() - 1);
    if (m_state->byValue)
        m_state->byValue->try_emplace(value, m_state->values.size() - 1);
    return outcome::changed;
}

bool NORLEX_dictionary::renameValue(std::uint32_t entryId, const std::wstring& text) {
    return renameText(entryId, text, false);
}

bool NORLEX_dictionary::renameCode(std::uint32_t entryId, const std::wstring& text) {
    return renameText(entryId, text, true);
}

bool NORLEX_dictionary::renameText(std::uint32_t entryId, const std::wstring& text, bool isCode) {
    return edit([&] {
        const auto ofDictionary = sql(L" AND dict_id = ", key(m_state->id));
        if (isThere(*m_db,
                    sql(isCode ? L"SELECT * FROM dict_values WHERE code = "
                               : L"SELECT * FROM dict_values WHERE value = ",
                        quoted(text),
                        ofDictionary))) {
            refuse(sql(L"the dictionary \"",
                       m_state->name,
                       isCode ? L"\" has a code \"" : L"\" has a value \"",
                       text,
                       L"\" already"));
            return outcome::failed;
        }
        return changeEntry(
            entryId,
            sql(isCode ? L"UPDATE dict_values SET code = " : L"UPDATE dict_values SET value = ",
                quoted(text),
                L" WHERE v_id = ",
                key(entryId),
                ofDictionary),
            [&](auto entry) { (isCode ? entry->code : entry->value) = text; });
    });
}

bool NORLEX_dictionary::deleteValue(std::uint32_t entryId) {
    return edit([&] {
        return changeEntry(entryId,
                           sql(L"DELETE FROM dict_values WHERE v_id = ",
                               key(entryId),
                               L" AND dict_id = ",
                               key(m_state->id)),
                           [&](auto entry) { m_state->values.erase(entry); });
    });
}

// `inMemory` gets the place of the entry, which may be one that another program added.
NORLEX_dictionary::outcome NORLEX_dictionary::changeEntry(
    std::uint32_t entryId,
    const std::wstring& statement,
    const std::function<void(std::vector<NORLEX_dictionary_value>::iterator)>& inMemory) {
    if (!m_db->exec(statement))
        return outcome::failed;
    if (m_db->affected_rows() == 0) {
        refuse(sql(
            L"the dictionary \"", m_state->name, L"\" has no entry with the key ", key(entryId)));
        return outcome::failed;
    }
    auto& values = m_state->values;
    const auto entry = std::find_if(
        values.begin(), values.end(), [&](const auto& one) { return one.id == entryId; });
    if (entry != values.end())
        inMemory(entry);
    m_state->entriesChanged();
    return outcome::changed;
}

bool NORLEX_dictionary::swapData() {
    m_state->isStale = true;
    return swapData(m_db, m_state->name);
}

bool NORLEX_dictionary::importFromList(
    const std::vector<std::pair<std::wstring, std::wstring>>& pairs) {
    std::uint64_t added = 0;
    return addAll(pairs, added);
}

bool NORLEX_dictionary::importFromList(const std::vector<NORLEX_dictionary_value>& entries) {
    std::vector<std::pair<std::wstring, std::wstring>> pairs;
    pairs.reserve(entries.size());
    for (const auto& entry : entries)
        pairs.emplace_back(entry.code, entry.value);
    return importFromList(pairs);
}

// As addValueBase for each of them: of two pairs with one code the first is taken.
bool NORLEX_dictionary::addAll(const std::vector<std::pair<std::wstring, std::wstring>>& pairs,
                               std::uint64_t& added) {
    added = 0;
    const bool done = edit([&] {
        const auto known = templateQueries::texts(
            m_db, sql(L"SELECT code FROM dict_values WHERE dict_id = ", key(m_state->id)));
        std::unordered_set<std::wstring> codes(known.begin(), known.end());
        std::wstring statement;
        for (const auto& [givenCode, givenValue] : pairs) {
            const auto code = plainName(givenCode);
            if (!codes.insert(code).second)
                continue;
            statement += statement.empty() ? insertion : L",(";
            statement += rowOf(code, plainName(givenValue), m_state->id);
            if (++added % rowsPerStatement != 0 && statement.size() < longestStatement)
                continue;
            if (!m_db->exec(statement))
                return outcome::failed;
            statement.clear();
        }
        if (!statement.empty() && !m_db->exec(statement))
            return outcome::failed;
        return added == 0 ? outcome::unchanged : outcome::changed;
    });
    m_state->isStale = true; // the new entries have keys that only the database knows
    return done;
}
