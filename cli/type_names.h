// The words that people and programs know data types and field types by.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_fieldType.h"

#include <optional>
#include <string>
#include <string_view>

namespace typeNames {

// "unknown" for any other value.
[[nodiscard]] std::string_view of(NORLEX_dataType type);
[[nodiscard]] std::string_view of(NORLEX_fieldType type);

// By the word (a hyphen may stand for its blank), the stored name or the display name.
[[nodiscard]] std::optional<NORLEX_dataType> dataType(const std::wstring& name);
[[nodiscard]] std::optional<NORLEX_fieldType> fieldType(const std::wstring& name);

// What would be accepted: "marker, interval, …".
[[nodiscard]] std::string dataTypes();
[[nodiscard]] std::string fieldTypes();

} // namespace typeNames
