#include "platform/key_memory.h"

#include <utility>

namespace {

// The tables that bulk writers give keys to.
bool hasGivenKeys(const postgresDialect::insertion& rows) {
    return (rows.table == "point_data" || rows.table == "interval_data") && rows.names("obj_id");
}

} // namespace

void key_memory::inserted(const postgresDialect::insertion& rows) {
    if (hasGivenKeys(rows))
        m_behind.insert(rows.table);
    if (rows.hasRows && !rows.columns.empty())
        m_given.insert_or_assign(rows.table, std::string(rows.columns));
    else
        m_given.erase(rows.table);
}

void key_memory::deleted(const std::string& table) {
    m_given.erase(table);
}

void key_memory::forget() {
    m_given.clear();
    m_locked.clear();
}

void key_memory::beginTransaction() {
    forget();
    m_behind.clear();
}

std::vector<std::string> key_memory::takeUnsynchronised() {
    const auto taken = std::exchange(m_behind, {});
    return {taken.begin(), taken.end()};
}

bool key_memory::isBehind(const postgresDialect::insertion& rows) const {
    return m_behind.contains(rows.table) && !hasGivenKeys(rows);
}

void key_memory::synchronised(const std::string& table) {
    m_behind.erase(table);
}

bool key_memory::isOwn(const postgresDialect::largestKey& wanted) const {
    const auto found = m_given.find(wanted.table);
    if (found == m_given.end())
        return false;
    postgresDialect::insertion rows;
    rows.columns = found->second;
    return !rows.names(wanted.key);
}

bool key_memory::isLocked(const std::string& table) const {
    return m_locked.contains(table);
}

void key_memory::locked(const std::string& table) {
    m_locked.insert(table);
}
