// Comparisons of a text column with a text that a user typed, as conditions of a statement.
#pragma once

#include "NORLEX_filterKinds.h"

#include <string>
#include <string_view>

namespace textMatch {

// Equal, not equal, contains, does not contain, begins with, ends with; empty for any other
// operation. `column` is spliced as it stands ("val.value "). A NULL matches none of them, and an
// empty value is contained in every other text.
//
// `%`, `_` and backslash of a value stand for themselves. Ignoring case, column and value are
// compared in small letters of every script.
[[nodiscard]] std::wstring condition(std::wstring_view column,
                                     NORLEX_filterOperation operation,
                                     std::wstring_view value,
                                     bool ignoreCase = false);

} // namespace textMatch
