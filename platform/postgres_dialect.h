// Statement texts of the local engine, adapted to PostgreSQL.
//
// Callers write one text for both engines. What PostgreSQL refuses, or silently understands in
// another way, is changed here; literals never are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace postgresDialect {

enum class shape : std::uint8_t {
    statement,
    empty,   // nothing but blanks and comments
    several, // there is text behind the end of the first statement
    pragma   // a setting of the local engine, which the server has nothing for
};

struct adapted {
    shape is = shape::statement;
    std::string text; // without the ";" at its end
};

[[nodiscard]] adapted adapt(std::string_view statement);

// The table and the columns, as they stand between their parentheses, that an INSERT names.
struct insertion {
    std::string table; // in lower case
    std::string_view columns;
    bool hasRows = false; // VALUES follows: rows that stand in the text itself
    bool isPlain = false; // the server takes it as it stands

    [[nodiscard]] bool names(std::string_view column) const;
};

[[nodiscard]] std::optional<insertion> insertionOf(std::string_view statement);

// Whether a statement makes, changes or removes a table.
[[nodiscard]] bool isDefinition(std::string_view statement);

// The table that a DELETE names, in lower case; empty for any other statement.
[[nodiscard]] std::string deletionOf(std::string_view statement);

// "SELECT max(key) FROM table" and nothing else: how the largest key is read.
struct largestKey {
    std::string table; // both in lower case
    std::string key;
};

[[nodiscard]] std::optional<largestKey> largestKeyOf(std::string_view statement);

} // namespace postgresDialect
