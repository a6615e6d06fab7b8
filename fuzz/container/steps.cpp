#include "fuzz/container/steps.h"

#include "NORLEX_lastError.h"

namespace fuzzContainer {

namespace {

constexpr std::span<const step> (*subjects[])() = {wellSteps,
                                                   wellRecordSteps,
                                                   propertySteps,
                                                   rowSteps,
                                                   logSteps,
                                                   derivedSteps,
                                                   templateSteps,
                                                   dictionarySteps,
                                                   correlationSteps,
                                                   pickSteps,
                                                   exchangeSteps,
                                                   selectionSteps,
                                                   careSteps};

} // namespace

void takeStep(world& at, std::span<const std::uint8_t> bytes) {
    const auto list = subjects[(bytes.front() >> 4U) % std::size(subjects)]();
    const step& one = list[(bytes.front() & 15U) % list.size()];
    choices by(bytes.subspan(1));
    world::beginStep(one.name);
    const outcome came = one.run(at, by);
    world::tell(by.told()
                + (came == outcome::done      ? L" -> done"
                   : came == outcome::refused ? L" -> refused: " + NORLEX_lastError()
                                              : L""));
    at.check(came);
}

} // namespace fuzzContainer
