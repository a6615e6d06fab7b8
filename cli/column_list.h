// Columns of a table as they are named on the command line.
//
// A column is a number, from 1, or the text of its header cell; "\3" is a header that reads 3. In a
// list, "depth=1,Name=3", a comma ends a part and the first "=" of it its name. A backslash makes
// the character behind it plain: "\,", "\=", "\\".
#pragma once

#include "NORLEX_columnRef.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace columnList {

struct entry {
    std::wstring name;
    NORLEX_columnRef column;
    bool isPlain = false; // the name began with a backslash: it is no word of the program's own
};

[[nodiscard]] NORLEX_columnRef column(std::wstring_view text);

// False when a part has no "=", or nothing before or behind it.
[[nodiscard]] bool parse(std::wstring_view list, std::vector<entry>& entries);
// The same of a single part, in which a comma is like any other character.
[[nodiscard]] bool parseOne(std::wstring_view part, entry& out);

// "NAME=REST", the rest as it stands: what lies behind the first plain "=".
[[nodiscard]] bool split(std::wstring_view text, std::pair<std::wstring, std::wstring>& out);

} // namespace columnList
