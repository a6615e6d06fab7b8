// Survey stations from the rows of a table, or from the curves of a LAS file.
#pragma once

#include "NORLEX_inclRead_descr.h"
#include "NORLEX_inclinometry.h"
#include "NORLEX_tableColumns.h"

#include <cstdint>
#include <string>
#include <vector>

namespace surveyTable {

// The texts of one station.
struct row {
    std::uint64_t number = 0;
    std::uint64_t line = 0;
    std::wstring depth;
    std::wstring angle;
    std::wstring azimuth;
};

// Takes rows one after the other. A row is bad when a depth or an angle is no number, the
// inclination lies outside 0 to 180, the azimuth is none (a vertical station needs none), or the
// depth is not below that of the station before.
class collector {
public:
    // `unitMetres`: one unit of depth in metres.
    collector(const NORLEX_inclRead_descr& description,
              double unitMetres,
              NORLEX_tableReport& report)
        : m_description(description), m_unitMetres(unitMetres), m_report(report) {}

    void take(const row& given);
    // False, with a line, where bad rows are not to be left out or too few stations are left.
    [[nodiscard]] bool judge() const;
    [[nodiscard]] const std::vector<inclData>& stations() const { return m_stations; }

private:
    [[nodiscard]] std::wstring parse(const row& given, inclData& station) const;

    const NORLEX_inclRead_descr& m_description;
    double m_unitMetres;
    NORLEX_tableReport& m_report;
    std::vector<inclData> m_stations;
};

} // namespace surveyTable
