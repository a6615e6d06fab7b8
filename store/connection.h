// Connects to the database that a description names.
#pragma once

#include <string>

class odbc_database;
struct NORLEX_contDescription;

namespace connection {

inline constexpr const wchar_t* localExtension = L".well2";

// Refuses what cannot name a container: no path, a kind other than 1 and 2, an extension other
// than exactly ".well2", a local file whose connection leads elsewhere, a server without one.
[[nodiscard]] bool isUsable(const NORLEX_contDescription& description);

// Connects and gives the connection its file directory.
[[nodiscard]] bool open(odbc_database& db, const NORLEX_contDescription& description);

// What every connection to a container is set to; an engine that knows no pragmas rejects them.
void issuePragmas(odbc_database& db);

// Marks a local database as open in this process for the life of the object. Reading such a file
// in any other way would drop the engine's locks on it, and replacing it would leave its user with
// a file that has no name.
class openMark {
public:
    explicit openMark(const std::wstring& path);
    ~openMark();
    openMark(const openMark&) = delete;
    openMark& operator=(const openMark&) = delete;

private:
    std::wstring m_path;
};
[[nodiscard]] bool isOpenHere(const std::wstring& path);

// Whether no other program has the local database of a description in use, as far as it can be
// told: an idle reader holds no lock and cannot be seen; any statement of one can. What is no
// database is unused.
[[nodiscard]] bool isUnused(const NORLEX_contDescription& description);

} // namespace connection
