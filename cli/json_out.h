// Results as JSON documents.
#pragma once

#include "NORLEX_wellDescription.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string_view>

using json = nlohmann::ordered_json; // keys in the order in which they are written down

namespace jsonOut {

[[nodiscard]] json number(double value); // null when it is not finite: JSON has no such number
[[nodiscard]] json number(const std::optional<double>& value);
[[nodiscard]] json string(std::wstring_view text);
[[nodiscard]] json well(const NORLEX_wellDescription& well); // "id", "object", "field", "name"

// To standard output.
void print(const json& document);

} // namespace jsonOut
