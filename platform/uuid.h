// New identifiers for rows.
#pragma once

#include <string>

// A random UUID in lower case, "xxxxxxxx-xxxx-4xxx-xxxx-xxxxxxxxxxxx".
[[nodiscard]] std::wstring newUuid();
