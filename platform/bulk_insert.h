// Many rows in one INSERT, as the server takes them fastest.
//
// Most of the time of "INSERT INTO t (a, b) VALUES (1, 'x'), (2, 'y'), …" with hundreds of rows
// goes into the server's analysis of every value. The same rows as one array a column, "INSERT INTO
// t (a, b) SELECT * FROM unnest('{1,2}'::integer[], '{\"x\",\"y\"}'::text[])", are two literals to
// it, and are inserted in the same order.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace bulkInsert {

// By the column's name in lower case.
using columnTypes = std::map<std::string, std::string, std::less<>>;

// Whether a statement is long enough to be worth it, and begins as such an INSERT does.
[[nodiscard]] bool isCandidate(std::string_view statement);

// Nothing for a statement whose values are not all plain numbers, texts and NULL, or which the
// arrays would not say in the same way: it is sent as it stands. `columns` is the list of them.
[[nodiscard]] std::optional<std::string>
asArrays(std::string_view statement, std::string_view columns, const columnTypes& types);

} // namespace bulkInsert
