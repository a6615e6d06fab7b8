// How many columns text takes on a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Of UTF-8 text: 0 for combining marks, 2 for East Asian wide characters and emoji, else 1.
[[nodiscard]] std::size_t columnsOf(std::string_view utf8);

// At most `columns` columns of the text, the last of them "…" where something was cut.
[[nodiscard]] std::string shortened(std::string_view utf8, std::size_t columns);
