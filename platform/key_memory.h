// What one connection remembers of the keys that it gave, for a server with other writers.
#pragma once

#include "platform/postgres_dialect.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// "SELECT max(key)" behind an INSERT asks for the key just given. On a server the largest key may
// be another client's, so it is answered from what the server notes of this connection. Where a
// range of keys is to be taken instead, nobody else may write into the table meanwhile.
class key_memory {
public:
    void inserted(const postgresDialect::insertion& rows);
    void deleted(const std::string& table);
    // After a rollback: the rows whose keys were given are gone, and locks may be.
    void forget();
    void beginTransaction();
    // Rows with keys of their own leave the source of keys behind; those tables, each told once.
    [[nodiscard]] std::vector<std::string> takeUnsynchronised();
    [[nodiscard]] bool isBehind(const postgresDialect::insertion& rows) const;
    void synchronised(const std::string& table);

    // Whether the largest key of the table is the one that this connection was given last.
    [[nodiscard]] bool isOwn(const postgresDialect::largestKey& wanted) const;
    [[nodiscard]] bool isLocked(const std::string& table) const;
    void locked(const std::string& table);

private:
    // Tables that this connection inserted into, with the columns that it named.
    std::map<std::string, std::string> m_given;
    std::set<std::string> m_behind; // tables whose source of keys is behind
    std::set<std::string> m_locked;
};
