// A change to one pick: found by its well and border, finished with everything that follows it.
#pragma once

#include "NORLEX_correlation.h"
#include "correlation/cor_edit.h"

#include <cstdint>
#include <optional>
#include <string>

namespace pickEdit {

// A border on a well, both of them there.
struct place {
    NORLEX_wellDescription well;
    std::int64_t borderId = 0;
    std::wstring border;
};

// Refuses, with a line, a well or a border that is not there; nothing, too, without an edit.
[[nodiscard]] std::optional<place>
find(const corEdit& edit, const correlation::wellRef& well, const std::wstring& border);

bool refuseUnpicked(const place& at); // always false

// The row is written already: mirror, stamps, announcements, journal, commit.
[[nodiscard]] bool finish(corEdit& edit, const place& at, int action);

} // namespace pickEdit
