// Text between the machine's bytes and the library's wide strings.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace text {

// Arguments and file names. Bytes that are no UTF-8 travel as U+DC80 … U+DCFF and come back
// unchanged, so that any file of the machine can be named.
[[nodiscard]] std::wstring wide(std::string_view bytes);
[[nodiscard]] std::string bytes(std::wstring_view wide);

[[nodiscard]] std::filesystem::path path(std::wstring_view wide);
[[nodiscard]] std::wstring ofPath(const std::filesystem::path& path);

// For JSON and CSV: well-formed UTF-8, U+FFFD for what is no text.
[[nodiscard]] std::string utf8(std::wstring_view wide);

// For people: UTF-8 in one line. Control characters are written out ("\n", "\u001b"), so that no
// name in a database can steer a terminal.
[[nodiscard]] std::string shown(std::wstring_view wide);

// The code point that starts at `position`, which moves past it. What is no text reads as U+FFFD.
[[nodiscard]] char32_t nextCodePoint(std::string_view utf8, std::size_t& position);

} // namespace text
