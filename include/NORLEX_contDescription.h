// Names a well database: where it is, where its files lie and how to connect to it.
#pragma once

#include "NORLEX_export.h"

#include <cstdint>
#include <string>

struct NORLEX_API NORLEX_contDescription {
    std::wstring path;              // what the user chose: the database or the server description
    std::int32_t type = 0;          // 0 not set, 1 local file, 2 server
    std::wstring fileContainerPath; // folder of attached files, ends in a separator
    std::wstring user;              // server only
    std::wstring password;          // server only
    std::wstring connection;        // without credentials; for a local file the file itself
    std::wstring tag;               // the host's own; copied, never read here

    // `connection`, then "UID=…;" and "PWD=…;" where they are not empty, in UTF-8.
    [[nodiscard]] std::string getConnectionString() const;

    // A local file needs a path; a server needs a path, a user and a password.
    [[nodiscard]] bool isOK() const;

    // A server whose user or password is still to be asked for.
    [[nodiscard]] bool isNeedPwd() const;
};

// The same database: type and path, case-sensitive. Credentials do not take part.
[[nodiscard]] NORLEX_API bool operator==(const NORLEX_contDescription& a,
                                         const NORLEX_contDescription& b);
