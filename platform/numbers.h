// Numbers in files and listings, never through the process locale.
#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <string_view>

namespace numbers {

// The whole of `text`, blanks at its ends aside, as a number; nothing when it is not one. A
// leading "+" is taken.
[[nodiscard]] std::optional<double> toDouble(std::string_view text);
[[nodiscard]] std::optional<double> toDouble(std::wstring_view text);

// Fixed notation, and the shortest text that reads back as the same double.
[[nodiscard]] std::string fixed(double value, int decimals);
[[nodiscard]] std::string shortest(double value);

// Text without the blanks and tabs at its ends.
[[nodiscard]] std::wstring_view trimmed(std::wstring_view text);
[[nodiscard]] std::string_view trimmed(std::string_view text);

} // namespace numbers
