// Makes new containers.
#pragma once

#include <functional>

class odbc_database;
struct NORLEX_contDescription;

namespace store {

// A failure leaves nothing behind: what was at the description's path before is there again.
[[nodiscard]] bool createContainer(const NORLEX_contDescription& description);

// The same with other content: `fill` is called once the connection is there, inside the
// transaction that makes the container, and creates the tables.
[[nodiscard]] bool createWith(const NORLEX_contDescription& description,
                              const std::function<bool(odbc_database&)>& fill);

} // namespace store
