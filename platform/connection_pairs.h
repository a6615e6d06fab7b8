// Connection strings of the form "name=value;", as ODBC has them.
//
// A value that stands in braces may hold ";": {a;b} is a;b, and }} inside is one }.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace connectionPairs {

struct pair {
    std::string name;
    std::string value;
};

// The pairs in their order, names and values without the blanks and braces around them. The value
// of PWD, which stands last, may hold anything without being quoted: it reaches to the end of the
// text, a ";" there aside.
[[nodiscard]] std::vector<pair> parse(std::string_view text);

// The value of the first pair of that name, without case; null when there is none.
[[nodiscard]] const std::string* find(const std::vector<pair>& pairs, std::string_view name);

// A value as it stands in a connection string: in braces where it needs them, a } doubled.
[[nodiscard]] std::string quoted(std::string_view value);

// "name=value;" of every pair.
[[nodiscard]] std::string join(const std::vector<pair>& pairs);

} // namespace connectionPairs
