// The wells of a container by what tables and files call them, read at once.
#pragma once

#include "NORLEX_wellDescription.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class odbc_database;

// OBJECT/FIELD/NAME. A slash inside a part, and the backslashes before any slash, each take a
// backslash.
[[nodiscard]] std::wstring wellReference(const NORLEX_wellDescription& well);

// The letters and digits of a name, in upper case.
[[nodiscard]] std::wstring lettersOf(std::wstring_view name);

class wellIndex {
public:
    // By name and by OBJECT/FIELD/NAME, or by the value of an attribute where that is not empty.
    [[nodiscard]] bool read(odbc_database& db, const std::wstring& attribute);
    // By the letters and digits of their names: wells of a work object and of a field, where those
    // are not empty.
    [[nodiscard]] bool
    readLetters(odbc_database& db, const std::wstring& workObject, const std::wstring& field);

    // The key of the only well that `reference` means. 0 where there is none, or there are several:
    // `reason` says which.
    [[nodiscard]] std::uint32_t find(const std::wstring& reference, std::wstring& reason) const;
    [[nodiscard]] bool has(const std::wstring& reference) const; // one or several wells
    void add(const std::wstring& reference, const NORLEX_wellDescription& well);

    // Of a key that find() gave.
    [[nodiscard]] const NORLEX_wellDescription& description(std::uint32_t wellId) const;

private:
    struct entry {
        std::uint32_t wellId = 0;
        std::size_t wells = 0;
    };
    [[nodiscard]] bool readWells(odbc_database& db);
    void enter(const std::wstring& reference, std::uint32_t wellId);

    std::unordered_map<std::uint32_t, NORLEX_wellDescription> m_wells;
    std::unordered_map<std::wstring, entry> m_entries;
};
