// What the server's refusals mean, in words.
#pragma once

#include "platform/odbc_session.h"

#include <string>

namespace serverRefusals {

// One line: what it means, and what the server says itself.
[[nodiscard]] std::string ofStatement(const odbc_failure& failure);
[[nodiscard]] std::string ofConnection(const odbc_failure& failure);

} // namespace serverRefusals
