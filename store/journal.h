// The action journal: who did what to a container, in a database of its own.
//
// "journal.db" in the container's file directory, table `log_table`. An entry that cannot be
// written never fails the operation it tells of; it is written once the operation's transaction
// is committed.
#pragma once

#include "eventMsgDescription.h"

#include <string>
#include <vector>

class odbc_database;

namespace journal {

// Object codes are eventKind's, and the container's own.
inline constexpr int containerObject = 18;
inline constexpr int templateObject = 11;

// Action codes are eventAction's, and the upgrade.
inline constexpr int upgradeAction = 6;

void add(odbc_database& db, int object, int action, const std::wstring& comment);

// Lets go of the container's journal; the next entry opens it again.
void close(const odbc_database& db);

struct entry {
    std::wstring user;
    std::wstring date;
    std::wstring object;
    std::wstring action;
    std::wstring comment;
};

// Oldest first; empty without a journal.
[[nodiscard]] std::vector<entry> read(const odbc_database& db);

} // namespace journal
