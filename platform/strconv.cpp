#include "platform/strconv.h"
#include "platform/strconv_points.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

namespace ts::strconv {

namespace {

constexpr bool isAscii(wchar_t unit) {
    return static_cast<char32_t>(unit) < 0x80;
}

// Writes a code point and answers the place behind it; the caller has made room.
char* putUtf8(char* to, char32_t point) {
    const unsigned tails = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    constexpr std::array<unsigned, 4> leads{0, 0xC0, 0xE0, 0xF0};
    *to++ = static_cast<char>(leads[tails] | (point >> (6 * tails)));
    for (unsigned left = tails; left > 0; --left)
        *to++ = static_cast<char>(0x80 | ((point >> (6 * (left - 1))) & 0x3F));
    return to;
}

// Room for a text as UTF-8, at least.
std::size_t utf8Room(std::wstring_view text) {
    std::size_t room = text.size();
    for (const wchar_t unit : text) {
        const auto point = static_cast<char32_t>(unit);
        room +=
            (point >= 0x80 ? 1U : 0U) + (point >= 0x800 ? 1U : 0U) + (point >= 0x10000 ? 1U : 0U);
    }
    return room;
}

// How many bytes from `at` are ASCII, eight at a time.
std::size_t asciiRun(std::string_view bytes, std::size_t at) {
    const std::size_t begin = at;
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    for (std::uint64_t eight = 0; at + sizeof eight <= bytes.size(); at += sizeof eight) {
        std::memcpy(&eight, bytes.data() + at, sizeof eight);
        if ((eight & highBits) != 0)
            break;
    }
    while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80)
        ++at;
    return at - begin;
}

// Copies the ASCII that `from` begins with, eight characters at a time, and answers how many.
template <class From, class To>
std::size_t copyAscii(std::basic_string_view<From> from, To* to) {
    constexpr std::size_t group = 8;
    const auto unit = [&](std::size_t i) {
        return static_cast<std::make_unsigned_t<From>>(from[i]);
    };
    std::size_t at = 0;
    for (; at + group <= from.size(); at += group) {
        std::uint32_t all = 0;
        for (std::size_t i = 0; i < group; ++i)
            all |= unit(at + i);
        if (all >= 0x80)
            break;
        for (std::size_t i = 0; i < group; ++i)
            to[at + i] = static_cast<To>(from[at + i]);
    }
    for (; at < from.size() && unit(at) < 0x80; ++at)
        to[at] = static_cast<To>(from[at]);
    return at;
}

struct utf8Point {
    char32_t point = noText;
    std::size_t length = 1;
    bool whole = false; // false: `length` bytes are no character, and end before the next one
};

// The range that the second byte must lie in: it keeps out overlong forms, surrogates and values
// above U+10FFFF.
std::pair<unsigned, unsigned> secondByte(unsigned lead) {
    switch (lead) {
    case 0xE0:
        return {0xA0, 0xBF};
    case 0xED:
        return {0x80, 0x9F};
    case 0xF0:
        return {0x90, 0xBF};
    case 0xF4:
        return {0x80, 0x8F};
    default:
        return {0x80, 0xBF};
    }
}

// The character at the start of `bytes`, which begins with a byte of 0x80 or more. A broken
// sequence is as long as its well-formed beginning, as the Unicode standard recommends.
utf8Point takeUtf8(std::string_view bytes) {
    const auto at = [&](std::size_t i) {
        return static_cast<unsigned>(static_cast<unsigned char>(bytes[i]));
    };
    const unsigned lead = at(0);
    if (lead >= 0xC2 && lead < 0xE0 && bytes.size() > 1 && (at(1) & 0xC0) == 0x80)
        return {((lead & 0x1F) << 6) | (at(1) & 0x3F), 2, true}; // most of them, so the first
    const std::size_t length = lead < 0xC2   ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0)
        return {};
    char32_t point = lead & (0x7FU >> length);
    auto [low, high] = secondByte(lead);
    for (std::size_t i = 1; i < length; ++i) {
        if (i == bytes.size() || at(i) < low || at(i) > high)
            return {noText, i, false};
        point = (point << 6) | (at(i) & 0x3F);
        low = 0x80, high = 0xBF;
    }
    return {point, length, true};
}

} // namespace

std::string toUtf8(std::wstring_view text) {
    std::string bytes(text.size(), '\0');
    std::size_t at = copyAscii(text, bytes.data());
    if (at == text.size())
        return bytes;
    bytes.resize(at + utf8Room(text.substr(at)));
    char* to = bytes.data() + at;
    while (at < text.size()) {
        const char32_t point = takeWide(text, at);
        to = putUtf8(to, isScalar(point) ? point : noText);
        const std::size_t run = copyAscii(text.substr(at), to);
        at += run;
        to += run;
    }
    bytes.resize(static_cast<std::size_t>(to - bytes.data()));
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    std::size_t at = copyAscii(bytes, text.data());
    wchar_t* to = text.data() + at;
    while (at < bytes.size()) {
        const utf8Point found = takeUtf8(bytes.substr(at));
        to = putWide(to, found.point);
        at += found.length;
        const std::size_t run = copyAscii(bytes.substr(at), to);
        at += run;
        to += run;
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
    return text;
}

bool isText(std::wstring_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (!isScalar(takeWide(text, at)))
            return false;
    }
    return true;
}

bool isUtf8(std::string_view bytes) {
    std::size_t at = 0;
    while ((at += asciiRun(bytes, at)) < bytes.size()) {
        const utf8Point found = takeUtf8(bytes.substr(at));
        if (!found.whole)
            return false;
        at += found.length;
    }
    return true;
}

namespace {

// ICU counts in 32 bits; a longer text keeps its case.
constexpr std::size_t longestCased = std::numeric_limits<std::int32_t>::max() / 4;

icu::UnicodeString toIcu(std::wstring_view text) {
    const auto length = static_cast<std::int32_t>(text.size());
    if constexpr (wideIsUtf16)
        return {reinterpret_cast<const char16_t*>(text.data()), length};
    else
        return icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()), length);
}

std::wstring fromIcu(const icu::UnicodeString& text) {
    std::wstring wide(static_cast<std::size_t>(text.length()), L'\0');
    wchar_t* to = wide.data();
    for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1))
        to = putWide(to, static_cast<char32_t>(text.char32At(at)));
    wide.resize(static_cast<std::size_t>(to - wide.data()));
    return wide;
}

using caseMapping = icu::UnicodeString& (icu::UnicodeString::*)(const icu::Locale&);

template <class Text, class Character>
Text mapAscii(const Text& text, Character first) {
    Text result(text);
    for (auto& c : result) {
        if (c >= first && c < first + 26)
            c = static_cast<Character>(c ^ 0x20);
    }
    return result;
}

std::wstring mapCase(std::wstring_view text, wchar_t first, caseMapping mapping) {
    // What is no text would become another one: U+FFFD in place of what is no character.
    if (text.size() > longestCased || std::all_of(text.begin(), text.end(), isAscii)
        || !isText(text))
        return mapAscii(std::wstring(text), first);
    icu::UnicodeString mapped = toIcu(text);
    return fromIcu((mapped.*mapping)(icu::Locale::getRoot()));
}

std::string mapCase(std::string_view text, char first, caseMapping mapping) {
    if (text.size() > longestCased || asciiRun(text, 0) == text.size())
        return mapAscii(std::string(text), first);
    icu::UnicodeString mapped = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    std::string result;
    (mapped.*mapping)(icu::Locale::getRoot()).toUTF8String(result);
    return result;
}

constexpr caseMapping toLower = &icu::UnicodeString::toLower;
constexpr caseMapping toUpper = &icu::UnicodeString::toUpper;

} // namespace

std::wstring lower(std::wstring_view text) {
    return mapCase(text, L'A', toLower);
}

std::wstring upper(std::wstring_view text) {
    return mapCase(text, L'a', toUpper);
}

std::string lowerUtf8(std::string_view text) {
    return mapCase(text, 'A', toLower);
}

std::string upperUtf8(std::string_view text) {
    return mapCase(text, 'a', toUpper);
}

} // namespace ts::strconv
