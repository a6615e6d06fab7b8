// Names of the text encodings that files may be in.
#pragma once

#include "ts_strconv.h"

#include <optional>
#include <string>
#include <string_view>

namespace encodings {

// Without case, "-" and "_": "cp1251", "Windows-1251" and "1251" are the same.
[[nodiscard]] std::optional<ts::strconv::encodings> byName(std::string_view name);
[[nodiscard]] std::string_view name(ts::strconv::encodings encoding);
[[nodiscard]] std::string list(); // of the names, for messages

} // namespace encodings
