// Decimal text of doubles in fixed notation, straight into a buffer.
#pragma once

#include <cstddef>

namespace fixedText {

// Room that every finite double needs with up to three decimals: 309 digits before the point.
inline constexpr std::size_t longest = 320;

// Writes `value` with 1 to 3 decimals and answers the end of the text. The same characters as
// std::to_chars(…, std::chars_format::fixed, decimals): the exact value rounded to nearest, a tie
// to the even digit. `value` is finite and `to` has room for `longest` characters.
[[nodiscard]] char* write(char* to, double value, int decimals);

} // namespace fixedText
