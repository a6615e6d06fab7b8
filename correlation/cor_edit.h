// The scope of a change to one correlation: one transaction, stamped and written to the journal.
#pragma once

#include "NORLEX_propDescription.h"
#include "platform/transaction.h"

#include <cstdint>
#include <optional>
#include <string>

class odbc_database;

class corEdit {
public:
    // Refuses, with a line, a database that is not there and a correlation that does not exist.
    corEdit(odbc_database* db, const NORLEX_propDescription& cor);

    [[nodiscard]] explicit operator bool() const { return m_id != 0; }
    [[nodiscard]] odbc_database& db() const { return *m_db; }
    [[nodiscard]] const NORLEX_propDescription& prop() const { return m_prop; } // as stored
    [[nodiscard]] std::int64_t id() const { return m_id; }

    // The key of a border name; 0, refused with a line, when there is none.
    [[nodiscard]] std::int64_t border(const std::wstring& name) const;

    // Stamps, a line of the journal, and the commit. `action` is one of eventAction.
    [[nodiscard]] bool finish(int action, const std::wstring& what);
    // The same of an edit after which no correlation is left to stamp.
    [[nodiscard]] bool finishRemoved();

private:
    [[nodiscard]] bool commit(int action, const std::wstring& line);

    odbc_database* m_db;
    NORLEX_propDescription m_prop;
    std::int64_t m_id = 0;
    std::optional<transaction> m_transaction;
};
