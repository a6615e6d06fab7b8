// Containers that the measures fill.
#pragma once

#include "NORLEX_wellContainer.h"

#include <memory>
#include <string>

namespace bench {

// A new container at `path`, open; null when it cannot be made.
[[nodiscard]] std::unique_ptr<NORLEX_wellContainer> newContainer(const std::string& path);
[[nodiscard]] std::unique_ptr<NORLEX_wellContainer> openContainer(const std::string& path);

} // namespace bench
