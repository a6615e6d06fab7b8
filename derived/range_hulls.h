// Finds, between two points of a sequence, the one that is farthest along the value axis from the
// straight line through the two.
//
// The point that is farthest in a direction is a corner of the convex hull. The hulls of every 64
// points, of every 128 and so on are made once, each from two below it, by the monotone chain
// (A. Andrew, Another efficient algorithm for convex hulls in two dimensions, Information
// Processing Letters 9 (1979), 216-219), and a question takes a binary search in a few of them. So
// n points cost O(n log n) at first and O(log² n) a question, whatever the values are.
#pragma once

#include "NORLEX_logSample.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class rangeHulls {
public:
    // Points with values, by strictly increasing depth; borrowed.
    explicit rangeHulls(std::span<const NORLEX_logSample> points);

    struct farthest {
        std::size_t index = 0;
        double distance = -1.0; // there is no point between
    };
    // The uppermost of several.
    [[nodiscard]] farthest between(std::size_t upper, std::size_t lower) const;

private:
    // The chains of neighbouring blocks, one behind the other.
    struct chains {
        std::vector<std::uint32_t> corners;
        std::vector<std::size_t> starts{0}; // of each block, and the end of the last one
    };
    // Of the large values with the sign 1, of the small ones with -1.
    void addChain(chains& out, std::span<const std::uint32_t> candidates, double sign) const;
    [[nodiscard]] chains lowestLevel(double sign) const;
    [[nodiscard]] chains levelAbove(const chains& below, double sign) const;
    [[nodiscard]] std::size_t
    corner(const chains& of, std::size_t block, double slope, double sign) const;
    [[nodiscard]] std::size_t largestBlock(std::size_t first, std::size_t end) const;

    std::span<const NORLEX_logSample> m_points;
    std::array<std::vector<chains>, 2> m_levels; // by sign, then by size of the blocks
};
