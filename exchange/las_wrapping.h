// Gathers the fields of wrapped data, where a depth step stands on several lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

// The standard puts the depth alone on the first line of a step and the values on the following
// ones; a depth that shares its line is taken as well. A step whose lines do not fill up is given
// up as soon as the next one is recognised, so that nothing is shifted into a wrong curve: the next
// one begins with a line of one field where the steps before had none, or where more than one
// field follows it. Where every field has a line of its own, a missing one cannot be told.
class las_wrapping {
public:
    // A field that is no number comes, and goes out, as NaN.
    using stepTaken = std::function<void(std::uint64_t line, std::span<const double> step)>;
    using lineSkipped = std::function<void(std::uint64_t line, std::wstring reason)>;

    // `width` fields make a step, depth included. `depthStep` is the header's, 0 where unknown.
    las_wrapping(std::size_t width, double depthStep, stepTaken taken, lineSkipped skipped);

    void take(std::uint64_t line, std::span<const double> fields);
    void finish(); // the data are at their end

private:
    [[nodiscard]] bool isFull() const;
    [[nodiscard]] bool isAsBefore() const;
    [[nodiscard]] bool isNextDepth(double field) const;
    [[nodiscard]] bool continuesDepths(double depth) const;
    void settleHeld(std::size_t nextCount);
    void begin(std::uint64_t line, std::span<const double> fields);
    void add(std::uint64_t line, std::span<const double> fields);
    void complete();
    void giveUp();

    std::size_t m_width;
    double m_depthStep;
    stepTaken m_taken;
    lineSkipped m_skipped;
    std::vector<double> m_values;      // of the step being gathered
    std::vector<std::size_t> m_counts; // fields on each of its lines
    std::uint64_t m_firstLine = 0;
    std::uint64_t m_lastLine = 0;
    std::vector<std::size_t> m_pattern; // counts of the last complete step
    std::optional<double> m_lastDepth;
    std::optional<bool> m_depthAlone;
    bool m_held = false; // full, by a line of one field that may be the next depth
};
