// A comparison of a text column with an operand.
#pragma once

#include "NORLEX_filterKinds.h"

#include <optional>
#include <string>
#include <string_view>

namespace valueCondition {

// The number that an operand is, with a decimal point or comma, spelled for a statement; nothing,
// with a line in the last error, when it is none.
[[nodiscard]] std::optional<std::wstring> operandNumber(std::wstring_view operand);

// Operations 3 to 14, `column` with nothing behind it. Numbers are compared with the column's
// leading number. `ignoreCase` tells for texts. Nothing, with a line in the last error, for another
// operation and an operand that is no number where one is needed.
[[nodiscard]] std::optional<std::wstring> text(std::wstring_view column,
                                               NORLEX_filterOperation operation,
                                               std::wstring_view operand,
                                               bool ignoreCase);

} // namespace valueCondition
