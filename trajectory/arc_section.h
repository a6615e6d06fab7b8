// One section of a hole: the circular arc between two survey stations.
#pragma once

#include <array>
#include <vector>

// North, east, down.
using direction3 = std::array<double, 3>;

// Angles in degrees; a unit vector.
[[nodiscard]] direction3 directionOf(double angle, double azimuth);

class arcSection {
public:
    arcSection(const direction3& upper, const direction3& lower, double length);

    [[nodiscard]] double turn() const { return m_turn; } // radians
    [[nodiscard]] direction3 offset() const;             // from the upper station to the lower one

    // Lengths along the section at which it is `down` below its upper station, in increasing
    // order; both ends of a level section that lies there.
    [[nodiscard]] std::vector<double> depthsAt(double down) const;

private:
    [[nodiscard]] std::vector<double> straightDepthsAt(double down) const;

    direction3 m_upper;
    direction3 m_normal{}; // in the plane of the arc, towards its centre
    double m_length;
    double m_turn;
};
