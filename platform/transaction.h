// A scope that rolls its transaction back unless it was committed.
#pragma once

#include "odbc_database.h"

class transaction {
public:
    explicit transaction(odbc_database* db) : m_db(db), m_open(db->begin_transaction()) {}
    ~transaction() {
        if (m_open)
            m_db->rollback();
    }
    transaction(const transaction&) = delete;
    transaction& operator=(const transaction&) = delete;

    [[nodiscard]] bool isOpen() const { return m_open; }
    [[nodiscard]] bool commit() {
        const bool open = m_open;
        m_open = false;
        return open && m_db->end_transaction();
    }

private:
    odbc_database* m_db;
    bool m_open;
};
