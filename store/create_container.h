// Makes new containers.
#pragma once

struct NORLEX_contDescription;

namespace store {

// A failure leaves nothing behind: what was at the description's path before is there again.
[[nodiscard]] bool createContainer(const NORLEX_contDescription& description);

} // namespace store
