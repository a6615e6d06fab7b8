// The line that tells why the last operation of this thread was refused.
#pragma once

#include "NORLEX_export.h"

#include <string>

// What was refused, the offending value and what would be accepted, in one line. Each thread has
// its own. A success does not clear it: read it only after an operation has answered false, empty
// or not-OK.
[[nodiscard]] NORLEX_API const std::wstring& NORLEX_lastError();
