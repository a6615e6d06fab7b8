// Code points inside wide text: one unit where wchar_t is wide, one or two where it is UTF-16.
#pragma once

#include <cstddef>
#include <string_view>

namespace ts::strconv {

inline constexpr char32_t noText = 0xFFFD; // stands for what is no text
inline constexpr bool wideIsUtf16 = sizeof(wchar_t) == 2;

constexpr bool isSurrogate(char32_t point) {
    return point >= 0xD800 && point <= 0xDFFF;
}

constexpr char32_t joined(char32_t high, char32_t low) {
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

constexpr bool isPair(char32_t high, char32_t low) {
    return high >= 0xD800 && high < 0xDC00 && low >= 0xDC00 && low < 0xE000;
}

// The code point at `at`, which moves behind it; a surrogate or a value above U+10FFFF where the
// text is broken.
inline char32_t takeWide(std::wstring_view text, std::size_t& at) {
    const auto first = static_cast<char32_t>(text[at++]);
    if constexpr (wideIsUtf16) {
        if (at < text.size() && isPair(first, static_cast<char32_t>(text[at])))
            return joined(first, static_cast<char32_t>(text[at++]));
    }
    return first;
}

constexpr bool isScalar(char32_t point) {
    return point <= 0x10FFFF && !isSurrogate(point);
}

// Writes a code point and answers the place behind it; the caller has made room.
inline wchar_t* putWide(wchar_t* to, char32_t point) {
    if constexpr (wideIsUtf16) {
        if (point >= 0x10000) {
            *to++ = static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10));
            point = 0xDC00 + (point & 0x3FF);
        }
    }
    *to++ = static_cast<wchar_t>(point);
    return to;
}

} // namespace ts::strconv
