// The fields of a data line, and what separates them.
#pragma once

#include <string_view>
#include <vector>

namespace lasFields {

// blank: blanks and tabs, however many. tab and comma: exactly one between two fields, so that a
// field may be empty, which says that the value is absent.
enum class delimiter { blank, tab, comma };

// The fields of a line, trimmed. Between commas, a pair of double quotes keeps a comma in a field.
void split(std::string_view line, delimiter by, std::vector<std::string_view>& fields);

// What separates the fields of the lines at the start of `block`, which should hold `width` fields
// each: commas where the lines split right only by them, or where the header says so and they
// exist; else tabs where the header says so; else blanks.
[[nodiscard]] delimiter choose(std::string_view block, std::size_t width, delimiter declared);

// Takes the first line, without its LF, off the front of `block`.
[[nodiscard]] std::string_view takeLine(std::string_view& block);

} // namespace lasFields
