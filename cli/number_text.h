// Numbers in arguments and results, never through the process locale.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace numberText {

// The whole of `text` as a finite number with a decimal point; nothing when it is not one.
[[nodiscard]] std::optional<double> parse(std::string_view text);

// The shortest text that reads back as the same double.
[[nodiscard]] std::string shortest(double value);

// For tables: `decimals` places; up to four places without closing zeros. Both are empty for a
// value that is not finite, and fall back to the shortest text for very large ones.
[[nodiscard]] std::string fixed(double value, int decimals);
[[nodiscard]] std::string brief(double value);

// "1 log", "3 logs".
[[nodiscard]] std::string counted(std::size_t count, std::string_view thing);

} // namespace numberText
