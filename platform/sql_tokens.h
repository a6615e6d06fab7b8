// An SQL text as its words, numbers, literals and signs; blanks and comments are left out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace sqlTokens {

enum class kind : std::uint8_t {
    word,
    number,
    literal,    // 'text', its quotes included
    quotedName, // "name", its quotes included
    sign        // one sign, or "||"
};

inline constexpr std::size_t none = static_cast<std::size_t>(-1);

struct token {
    kind type = kind::sign;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t partner = none; // of a parenthesis: the index of its other half
};

[[nodiscard]] std::vector<token> split(std::string_view text);

// Where the literal that opens at `at` ends, behind its closing quote; the text's end when it is
// not closed.
[[nodiscard]] std::size_t literalEnd(std::string_view text, std::size_t at);

[[nodiscard]] bool isWordCharacter(char c);

} // namespace sqlTokens
