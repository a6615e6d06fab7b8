// Remembers server credentials for the life of the process; nothing is written to disk.
#pragma once

#include "NORLEX_export.h"

#include <map>
#include <mutex>
#include <string>
#include <utility>

struct NORLEX_contDescription;

// Keyed by a description's path. Safe to use from several threads.
class NORLEX_API pwdHolder {
public:
    [[nodiscard]] static pwdHolder& Instance();

    // Completes `description`. True for a local file and for a remembered or complete pair (which
    // is then remembered); false when a server's user or password must be asked for.
    [[nodiscard]] bool fill(NORLEX_contDescription& description);

    void set(const std::wstring& path, const std::wstring& user, const std::wstring& password);

private:
    pwdHolder() = default;

    std::mutex m_mutex;
    std::map<std::wstring, std::pair<std::wstring, std::wstring>> m_pairs;
};
