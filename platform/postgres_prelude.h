// Helper functions that adapted statements call on the server, in a schema of their own, "wellsql".
#pragma once

#include <span>
#include <string_view>

namespace postgresPrelude {

// How many functions there are, as pg_proc counts those of the schema.
inline constexpr int functions = 5;

// Simultaneous creations collide: callers hold this advisory lock.
inline constexpr std::string_view lock = "SELECT pg_advisory_xact_lock(7301)";

// One statement after the other.
[[nodiscard]] std::span<const std::string_view> creation();

} // namespace postgresPrelude
