#include "cli/text.h"

#include <array>

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t escapedByte = 0xDC00; // plus the byte, 0x80 … 0xFF

struct decoded {
    char32_t point = replacement;
    std::size_t length = 1;
    bool ok = false;
};

bool isSurrogate(char32_t point) {
    return point >= 0xD800 && point <= 0xDFFF;
}

// One UTF-8 sequence: no overlong form, no surrogate, nothing above U+10FFFF.
decoded decode(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (first < 0x80)
        return {first, 1, true};
    const std::size_t length = first >= 0xF0 ? 4U : first >= 0xE0 ? 3U : 2U;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < length)
        return {};
    char32_t point = first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        if ((next & 0xC0U) != 0x80U)
            return {};
        point = point << 6U | (next & 0x3FU);
    }
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    if (point < smallest[length] || isSurrogate(point) || point > 0x10FFFF)
        return {};
    return {point, length, true};
}

void appendWide(std::wstring& out, char32_t point) {
    if (sizeof(wchar_t) == 2 && point > 0xFFFF) {
        out += static_cast<wchar_t>(0xD800U + ((point - 0x10000U) >> 10U));
        out += static_cast<wchar_t>(0xDC00U + ((point - 0x10000U) & 0x3FFU));
        return;
    }
    out += static_cast<wchar_t>(point);
}

char32_t nextWide(std::wstring_view wide, std::size_t& position) {
    const auto first = static_cast<char32_t>(wide[position++]);
    if (sizeof(wchar_t) > 2 || first < 0xD800 || first > 0xDBFF || position == wide.size())
        return first;
    const auto second = static_cast<char32_t>(wide[position]);
    if (second < 0xDC00 || second > 0xDFFF)
        return first;
    ++position;
    return 0x10000U + ((first - 0xD800U) << 10U) + (second - 0xDC00U);
}

void appendUtf8(std::string& out, char32_t point) {
    const auto put = [&out](char32_t byte) { out += static_cast<char>(byte); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0U | point >> 6U);
        put(0x80U | (point & 0x3FU));
    } else if (point < 0x10000) {
        put(0xE0U | point >> 12U);
        put(0x80U | (point >> 6U & 0x3FU));
        put(0x80U | (point & 0x3FU));
    } else {
        put(0xF0U | point >> 18U);
        put(0x80U | (point >> 12U & 0x3FU));
        put(0x80U | (point >> 6U & 0x3FU));
        put(0x80U | (point & 0x3FU));
    }
}

void appendText(std::string& out, char32_t point) {
    appendUtf8(out, isSurrogate(point) || point > 0x10FFFF ? replacement : point);
}

// "\n", "\t" or "\u001b".
void appendControl(std::string& out, char32_t point) {
    constexpr std::string_view digits = "0123456789abcdef";
    if (point == U'\n' || point == U'\t' || point == U'\r') {
        out += point == U'\n' ? "\\n" : point == U'\t' ? "\\t" : "\\r";
        return;
    }
    out += "\\u";
    for (const unsigned shift : {12U, 8U, 4U, 0U})
        out += digits[point >> shift & 0xFU];
}

// Control characters, line and paragraph separators, and marks that reorder a line.
bool isControl(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point < 0xA0) || (point >= 0x2028 && point <= 0x202E)
           || (point >= 0x2066 && point <= 0x2069);
}

} // namespace

namespace text {

std::wstring wide(std::string_view bytes) {
    std::wstring out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        const decoded next = decode(bytes);
        if (next.ok)
            appendWide(out, next.point);
        else
            out += static_cast<wchar_t>(escapedByte + static_cast<unsigned char>(bytes[0]));
        bytes.remove_prefix(next.length);
    }
    return out;
}

std::string bytes(std::wstring_view wide) {
    std::string out;
    out.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size();) {
        const char32_t point = nextWide(wide, i);
        if (point >= escapedByte + 0x80U && point <= escapedByte + 0xFFU)
            out += static_cast<char>(point - escapedByte);
        else
            appendText(out, point);
    }
    return out;
}

std::filesystem::path path(std::wstring_view wide) {
    const std::string spelled = bytes(wide);
    return {std::u8string(spelled.begin(), spelled.end())};
}

std::wstring ofPath(const std::filesystem::path& path) {
    const std::u8string spelled = path.u8string();
    return wide(std::string(spelled.begin(), spelled.end()));
}

std::string utf8(std::wstring_view wide) {
    std::string out;
    out.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size();)
        appendText(out, nextWide(wide, i));
    return out;
}

std::string shown(std::wstring_view wide) {
    std::string out;
    out.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size();) {
        const char32_t point = nextWide(wide, i);
        if (isControl(point))
            appendControl(out, point);
        else
            appendText(out, point);
    }
    return out;
}

char32_t nextCodePoint(std::string_view utf8, std::size_t& position) {
    const decoded next = decode(utf8.substr(position));
    position += next.length;
    return next.point;
}

} // namespace text
