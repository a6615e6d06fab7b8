// The units of a chart in memory, and how they lie to each other.
#pragma once

#include "NORLEX_strategraphy.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class chart {
public:
    static constexpr std::size_t levelCount = 8;
    // The position of a level among those of the chart, from the highest.
    [[nodiscard]] static std::optional<std::size_t> levelOf(NORLEX_taxonType type);

    using unit = std::size_t; // by the order in which they are created

    // Units come from the highest level to the lowest, of one level in the order of their first
    // rows. The first row that names a unit defines it.
    void build(const std::vector<strategraphy::raw_data>& rows);

    [[nodiscard]] std::size_t unitCount() const { return m_units.size(); }
    [[nodiscard]] const strategraphy::element& element(unit of) const;
    [[nodiscard]] const std::vector<strategraphy::element>& elements(std::size_t level) const;
    [[nodiscard]] std::optional<unit> byIndex(std::size_t level, const std::wstring& index) const;
    [[nodiscard]] std::optional<unit> byIndex(const strategraphy::element& like) const;
    // By index or name, the highest level first.
    [[nodiscard]] std::optional<unit> byText(const std::wstring& text) const;

    [[nodiscard]] std::size_t levelAt(unit of) const { return m_units[of].level; }
    [[nodiscard]] std::size_t positionOf(unit of) const { return m_units[of].position; }
    // Those that stand in a row with it, by level and position.
    [[nodiscard]] const std::vector<unit>& related(unit of) const { return m_units[of].related; }
    // That of a higher level; the unit itself at its own.
    [[nodiscard]] std::optional<unit> containing(unit of, std::size_t level) const;
    // From the oldest of the ends, of which there is one, to the youngest, at their lowest level.
    [[nodiscard]] std::vector<unit> range(const std::vector<unit>& ends) const;

private:
    static constexpr unit none = static_cast<unit>(-1);

    struct entry {
        std::size_t level = 0;
        std::size_t position = 0;
        std::size_t firstRow = 0;
        std::size_t lastRow = 0;
        std::array<bool, levelCount> isDivided{}; // into units of these levels
        std::vector<unit> related;
    };
    using rowUnits = std::array<unit, levelCount>; // of each level, or none

    [[nodiscard]] unit
    addNewElement(std::size_t level, std::wstring_view index, std::wstring_view name);
    void relate(const rowUnits& row);
    void sortRelations();
    [[nodiscard]] unit standIn(const rowUnits& row, std::size_t level) const;

    std::vector<entry> m_units;
    std::vector<rowUnits> m_rows;
    std::array<std::vector<strategraphy::element>, levelCount> m_elements;
    std::array<std::unordered_map<std::wstring, unit>, levelCount> m_byIndex;
    std::array<std::unordered_map<std::wstring, unit>, levelCount> m_byText;
};
