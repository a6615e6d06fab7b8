// Spelling of values inside SQL text. Every value spliced into a statement passes through here.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace sqlText {

// Decimal digits of a key or count.
[[nodiscard]] std::wstring key(std::int64_t value);

// Fixed notation, `decimals` places, always a point: the process locale is not consulted. The
// value must be finite; callers refuse any other before they build a statement.
[[nodiscard]] std::wstring fixed(double value, int decimals);

// The shortest text that reads back as the same double. The value must be finite.
[[nodiscard]] std::wstring number(double value);

// 'text', an apostrophe inside doubled: the database receives the value unchanged.
[[nodiscard]] std::wstring quoted(std::wstring_view text);
// Each is a better match than the stream manipulator of the same name, which is found for standard
// strings wherever <iomanip> is included.
[[nodiscard]] inline std::wstring quoted(const std::wstring& text) {
    return quoted(std::wstring_view(text));
}
[[nodiscard]] inline std::wstring quoted(std::wstring& text) {
    return quoted(std::wstring_view(text));
}
[[nodiscard]] inline std::wstring quoted(const wchar_t* text) {
    return quoted(std::wstring_view(text));
}

// 'text' with apostrophes removed: names and values of the well and property layers.
[[nodiscard]] std::wstring quotedName(std::wstring_view text);

// The text as quotedName stores it.
[[nodiscard]] std::wstring plainName(std::wstring_view text);

// The pieces one after the other.
template <typename... Pieces>
[[nodiscard]] std::wstring sql(const Pieces&... pieces) {
    std::wstring out;
    out.reserve((std::wstring_view(pieces).size() + ...));
    (out.append(pieces), ...);
    return out;
}

// Decimal keys with commas between them, for IN(…).
template <typename Keys>
[[nodiscard]] std::wstring keyList(const Keys& keys) {
    std::wstring out;
    for (const auto value : keys) {
        if (!out.empty())
            out += L',';
        out += key(static_cast<std::int64_t>(value));
    }
    return out;
}

} // namespace sqlText
