// A sequence of operations on a container: after each one its check finds nothing, a refusal has
// its reason and changed nothing, and what was stored reads back. WELLDB_FUZZ_STEPS prints the
// steps of an input as they are done; those of one that fails are printed in any case.
#include "NORLEX_host.h"
#include "fuzz/container/steps.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>

using namespace fuzzContainer;

namespace {

constexpr std::size_t mostSteps = 40;

} // namespace

// The first byte chooses the container, the others are steps.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    NORLEX_setErrorBox([](const std::wstring&) {});
    NORLEX_setYesNoBox([](const std::wstring&) { return true; });
    world at(data[0] % 4 == 0);
    const std::size_t steps = std::min((size - 1) / stepSize, mostSteps);
    for (std::size_t i = 0; i < steps; ++i)
        takeStep(at, {data + 1 + i * stepSize, stepSize});
    at.checkAll();
    return 0;
}

#ifdef WELLDB_FUZZ

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

// Adds, removes, repeats or swaps whole steps, or changes one: changes of the length of a step
// would make all that follow into others.
extern "C" std::size_t
LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed) {
    const std::size_t count = size < 1 + stepSize ? 0 : (size - 1) / stepSize;
    const std::size_t room = std::min(mostSteps, most < 1 ? 0 : (most - 1) / stepSize);
    const auto at = [&](std::size_t i) { return data + 1 + i * stepSize; };
    const std::size_t first = count == 0 ? 0 : seed / 8 % count;
    const std::size_t second = count == 0 ? 0 : seed / 4096 % (count + 1);
    const auto kind = seed % 8;
    if (count == 0 || (kind < 3 && count < room)) { // a new one, or a copy of one
        if (room == 0)
            return size;
        data[0] = size == 0 ? 0 : data[0];
        std::uint8_t made[stepSize];
        std::minstd_rand numbers(seed);
        for (auto& byte : made)
            byte = static_cast<std::uint8_t>(numbers() >> 8U);
        if (kind == 0 && count > 0) {
            std::memcpy(made, at(first), stepSize);
            static_cast<void>(LLVMFuzzerMutate(made, stepSize, stepSize));
        }
        std::memmove(at(second + 1), at(second), (count - second) * stepSize);
        std::memcpy(at(second), made, stepSize);
        return 1 + (count + 1) * stepSize;
    }
    if (kind == 3 && count > 1) {
        std::memmove(at(first), at(first + 1), (count - first - 1) * stepSize);
        return 1 + (count - 1) * stepSize;
    }
    if (kind == 4 && second < count)
        std::swap_ranges(at(first), at(first) + stepSize, at(second));
    else if (kind == 5)
        static_cast<void>(LLVMFuzzerMutate(data, 1, 1));
    else
        static_cast<void>(LLVMFuzzerMutate(at(first), stepSize, stepSize));
    return 1 + count * stepSize;
}

#endif
