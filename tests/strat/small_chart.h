// A chart of a few rows: each is the indexes of the eight levels, "." where a level has no unit. A
// unit is named "u" and its index.
#pragma once

#include "NORLEX_strategraphy.h"
#include "platform/strconv.h"
#include "tests/support/temp_folder.h"

#include <initializer_list>
#include <sstream>
#include <string>

namespace smallChart {

inline std::string line(const std::string& indexes) {
    std::istringstream in(indexes);
    std::string out;
    std::string index;
    for (int i = 0; in >> index; ++i) {
        if (i > 0)
            out += ';';
        out += index == "." ? ";" : index + ";u" + index;
    }
    return out + "\n";
}

// Devonian to Jurassic in short, with a level that some rows lack and one that others jump over.
inline std::string text() {
    std::string out;
    for (const char* row : {"A A1 . . . . . .",
                            "P P1 . E1 . . . .",
                            "P P2 R R1 . . . .",
                            "P P2 . . V V1 . .",
                            "P P2 . . V V2 . .",
                            ". F . Z D D1 . D1a",
                            ". F . Z D D1 . D1b",
                            ". F . Z D D2 . D2a",
                            ". F . Z C C1 C1.1 C1a",
                            ". F . Z C C1 C1.2 C1b",
                            ". F . Z C C2 C2.1 .",
                            ". F . M J J1 . .",
                            ". F . M J J2 . .",
                            ". F . M J J3 . ."})
        out += line(row);
    return out;
}

// The indexes with blanks between them.
inline std::string shown(const std::vector<strategraphy::element>& units) {
    std::string out;
    for (const auto& unit : units)
        out += (out.empty() ? "" : " ") + ts::strconv::toUtf8(unit.index);
    return out;
}

inline std::string shown(const strategraphy::element* unit) {
    return unit == nullptr ? "none" : ts::strconv::toUtf8(unit->index);
}

inline std::string identified(const strategraphy::statoTable& chart, const std::string& text) {
    std::vector<strategraphy::element> units(3); // goes away
    chart.identify(ts::strconv::fromUtf8(text), units);
    return shown(units);
}

} // namespace smallChart
