// Values by codes, from a table of both.
#pragma once

#include "ts_strconv.h"

#include <string>
#include <unordered_map>

class valueLookup {
public:
    // Codes are in the first column, their values in the second one; a header is one code more.
    // Refused: a row of one cell, a code with two values.
    [[nodiscard]] bool read(const std::wstring& path);

    [[nodiscard]] const std::wstring* find(const std::wstring& code) const; // null: unknown

private:
    std::unordered_map<std::wstring, std::wstring> m_values;
};
