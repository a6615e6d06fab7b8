// Runs a measurement in a process of its own: its peak memory is its own, and nothing that an
// earlier one left in memory helps it.
#pragma once

#include <functional>
#include <optional>
#include <vector>

namespace bench {

struct childResult {
    std::vector<double> values;
    double peakBytes = 0.0; // largest resident size
};

// None when the work answered nothing or the process ended by a signal.
[[nodiscard]] std::optional<childResult> inChild(const std::function<std::vector<double>()>& work);

[[nodiscard]] double seconds(); // of a clock that never goes back
[[nodiscard]] double timed(const std::function<void()>& work);
// The processor's time alone, for work that waits for nothing: other programs do not lengthen it.
[[nodiscard]] double timedOnProcessor(const std::function<void()>& work);

// Resident size of this process now, in bytes.
[[nodiscard]] double residentBytes();

} // namespace bench
