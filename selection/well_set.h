// Lists of wells without doubles, joined by key.
#pragma once

#include "NORLEX_wellDescription.h"

#include <vector>

namespace wellSet {

using list = std::vector<NORLEX_wellDescription>;

// The wells of `wells` that `others` has too, and those that it has not, in their order.
[[nodiscard]] list common(list wells, const list& others);
[[nodiscard]] list without(list wells, const list& others);
// `wells`, then those of `others` that they do not hold yet.
[[nodiscard]] list joined(list wells, const list& others);

} // namespace wellSet
