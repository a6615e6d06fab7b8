// Selections and filters as people type them; docs/query-language.md has the grammar.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_filterCondition.h"
#include "NORLEX_query.h"

#include <string>
#include <string_view>
#include <vector>

// The queries that a text such as `exists log and not exists survey` stands for. A text that is
// refused leaves `queries` as it was; NORLEX_lastError() names the column, from 1, where it went
// wrong.
[[nodiscard]] NORLEX_API bool NORLEX_parseSelectionText(std::wstring_view text,
                                                        std::vector<NORLEX_query>& queries);
// The text that reads back as these queries; empty where one of them has no text, such as a
// comparison that its type does not know.
[[nodiscard]] NORLEX_API std::wstring
NORLEX_selectionText(const std::vector<NORLEX_query>& queries);

// The children of `tree` from a text such as `Core/Porosity.por > 0.2 or (…)`; as above.
[[nodiscard]] NORLEX_API bool NORLEX_parseFilterText(std::wstring_view text,
                                                     TreeNode<filterCondition>& tree);
[[nodiscard]] NORLEX_API std::wstring NORLEX_filterText(const TreeNode<filterCondition>& tree);
