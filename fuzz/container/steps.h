// The steps of an input: operations of the public headers, by subject.
//
// The high half of a step's first byte is its subject, the low half its place in the subject's
// list: new ones go to the end of a list and of the subjects, so that inputs that were kept stay
// what they are. container_seeds.py reads the names.
#pragma once

#include "NORLEX_well.h"
#include "NORLEX_wellProperty.h"
#include "fuzz/container/world.h"

#include <memory>
#include <span>

namespace fuzzContainer {

struct step {
    const wchar_t* name;
    outcome (*run)(world& at, choices& by);
};

[[nodiscard]] std::span<const step> wellSteps();
[[nodiscard]] std::span<const step> wellRecordSteps();
[[nodiscard]] std::span<const step> propertySteps();
[[nodiscard]] std::span<const step> rowSteps();
[[nodiscard]] std::span<const step> logSteps();
[[nodiscard]] std::span<const step> derivedSteps();
[[nodiscard]] std::span<const step> templateSteps();
[[nodiscard]] std::span<const step> dictionarySteps();
[[nodiscard]] std::span<const step> correlationSteps();
[[nodiscard]] std::span<const step> pickSteps();
[[nodiscard]] std::span<const step> exchangeSteps();
[[nodiscard]] std::span<const step> selectionSteps();
[[nodiscard]] std::span<const step> careSteps();

// Does the step that the bytes tell, and looks at what it left.
void takeStep(world& at, std::span<const std::uint8_t> bytes);

inline outcome of(bool done) {
    return done ? outcome::done : outcome::refused;
}

// On a chosen well, and on a property of it; refused where it is not there.
template <typename Run>
outcome onWell(world& at, choices& by, const Run& run) {
    NORLEX_well well(at.db(), by.well(at.db()));
    return of(well.isOK() && run(well));
}
template <typename Run>
outcome onProperty(world& at, choices& by, const Run& run, kind wanted = kind::any) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto property = well.openProperty(by.property(well, wanted));
        return property && run(well, *property);
    });
}

} // namespace fuzzContainer
