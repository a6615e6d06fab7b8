// The numbers of one column in one well, found by depth.
#pragma once

#include <cstdint>
#include <vector>

class columnValues {
public:
    // A point has two equal depths. Absolute depths in metres, in any order of rows and ends.
    void addPoint(std::int64_t record, double depth, double value);
    void addInterval(std::int64_t record, double bottom, double top, double value);
    // Once all are there.
    void arrange();

    // Of the shallowest point from `bottom` to `top`; without points, of the interval with the
    // shallowest top that holds the middle. Of several at one depth the record made first.
    // NORLEX_missingValue where there is none.
    [[nodiscard]] double at(double bottom, double top) const;

private:
    struct entry {
        std::int64_t record;
        double bottom;
        double top;
        double value;
        double lowest; // bottom of this one and of all before it
    };
    std::vector<entry> m_points; // by depth, shallowest first
    std::vector<entry> m_intervals;
};
