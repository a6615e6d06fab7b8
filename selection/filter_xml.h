// The tree of a data filter as an XML file: root "tree", below it elements "node", nested as in
// the tree, with the attributes isEndCondition, isAnd, propDescr_group, propDescr_name, field,
// operation, strParam.
#pragma once

#include "NORLEX_filterCondition.h"

#include <string>

namespace filterXml {

[[nodiscard]] bool save(const TreeNode<filterCondition>& tree, const std::wstring& path);

// Replaces the children of `tree`. Other elements and attributes are passed over; what lacks keeps
// its default. A file that cannot be read, one of another root, and one with an attribute that is
// no number or no truth value leave the tree as it was.
[[nodiscard]] bool load(const std::wstring& path, TreeNode<filterCondition>& tree);

} // namespace filterXml
