// Text in and out of wide strings; the only place that knows how wide wchar_t is.
#pragma once

#include "ts_strconv.h"

#include <optional>
#include <string>
#include <string_view>

namespace ts::strconv {

// UTF-8 and wide text. Bytes and code points that are no text become U+FFFD.
[[nodiscard]] std::string toUtf8(std::wstring_view text);
[[nodiscard]] std::wstring fromUtf8(std::string_view bytes);

// Whether every unit of `text` is a code point that may be stored: no lone surrogate, nothing
// above U+10FFFF.
[[nodiscard]] bool isText(std::wstring_view text);

// Whether the bytes are well-formed UTF-8.
[[nodiscard]] bool isUtf8(std::string_view bytes);

// Any of the encodings. A character that the encoding lacks becomes "?".
[[nodiscard]] std::wstring decode(std::string_view bytes, encodings encoding);
[[nodiscard]] std::string encode(std::wstring_view text, encodings encoding);

// The encoding that a byte-order mark at the start of `bytes` tells, and the mark's length.
struct mark {
    encodings encoding = detect;
    std::size_t length = 0;
};
[[nodiscard]] mark findMark(std::string_view bytes);

// The likeliest encoding of a text without a mark, from a sample of its bytes: UTF-16 or UTF-32
// by where the zero bytes stand, UTF-8 where it is well formed, else the single-byte encoding
// whose Cyrillic letters make the likeliest words.
[[nodiscard]] encodings detectEncoding(std::string_view sample);

// "utf-8", "windows-1251", … and back, for programs and messages. Accepts the usual synonyms
// ("cp1251", "1251", "koi8-r", "latin1"), without case.
[[nodiscard]] std::string name(encodings encoding);
[[nodiscard]] std::optional<encodings> byName(std::string_view name);

// Without case, in any script (ICU full case mapping, root locale).
[[nodiscard]] std::wstring lower(std::wstring_view text);
[[nodiscard]] std::wstring upper(std::wstring_view text);
[[nodiscard]] std::string lowerUtf8(std::string_view text);
[[nodiscard]] std::string upperUtf8(std::string_view text);

} // namespace ts::strconv
