// The text of conditions, as a part of a statement that reads property, field and val.
#pragma once

#include "NORLEX_filterCondition.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace conditionText {

// How values of a field are compared with an operand.
enum class comparison {
    text,
    number,
    either, // wells have it of both kinds: as numbers where the operand is one
};

// A condition in parentheses. Nothing, with a line in the last error, for an operation that is
// none, and for an operand that is no number where one is needed.
[[nodiscard]] std::optional<std::wstring> getCondString(const filterCondition& condition,
                                                        comparison kind);

// The conditions of a tree in document order; the root's own value does not count, nor do nodes
// below a condition.
[[nodiscard]] std::vector<const filterCondition*> leaves(const TreeNode<filterCondition>& tree);

// The children of the root in parentheses. Groups without conditions are left out together with the
// word behind them. Nothing, with a line in the last error, for a tree without conditions, one that
// is nested deeper than the engines can take, and where a condition has no text.
[[nodiscard]] std::optional<std::wstring>
getTreeRequestAsSQLWstring(const TreeNode<filterCondition>& tree,
                           const std::function<comparison(const filterCondition&)>& kindOf);

} // namespace conditionText
