// The text of index expressions: pieces with "-" and "+" between them, and groups in braces.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace indexExpression {

// The same without braces. What touches a group is written to each of its pieces: "D{1-3}" becomes
// "D1-D3". A group that would make more than `mostPieces`, or a piece longer than `longestPiece`,
// becomes an empty piece.
[[nodiscard]] std::wstring withoutBraces(std::wstring_view text);

inline constexpr std::size_t mostPieces = 256;
inline constexpr std::size_t longestPiece = 128;

struct piece {
    std::wstring text;    // without blanks at its ends; may be empty
    bool isRange = false; // from the piece before it: "-" stands between them
};
// Of a text without braces.
[[nodiscard]] std::vector<piece> split(std::wstring_view text);

} // namespace indexExpression
