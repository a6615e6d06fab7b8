// The sections of a LAS file, as their title lines tell.
#pragma once

#include <string_view>

namespace lasSections {

enum class kind { none, version, well, curves, parameters, other, data, unread };

// Only the case of ASCII letters is overlooked.
[[nodiscard]] bool sameWithoutCase(std::string_view left, std::string_view right);
[[nodiscard]] bool sameWithoutCase(std::wstring_view left, std::wstring_view right);

// Whether a line, trimmed, is the title of a section.
[[nodiscard]] constexpr bool isTitle(std::string_view line) {
    return line.starts_with('~');
}

// The section that a title begins. The first letter decides ("~C", "~curve information"), as in
// versions 1.2 and 2.0. A title of version 3.0 made of a set and a part ("~Log_Definition",
// "~Core_Data[1]") is read for the log set alone; the other sets are tables of another kind.
[[nodiscard]] kind ofTitle(std::string_view title);

} // namespace lasSections
