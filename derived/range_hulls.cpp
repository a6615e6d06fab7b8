#include "derived/range_hulls.h"

#include "derived/straight_line.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr std::size_t smallestBlock = 64;
constexpr std::array<double, 2> signs = {1.0, -1.0};

} // namespace

rangeHulls::rangeHulls(std::span<const NORLEX_logSample> points) : m_points(points) {
    for (std::size_t side = 0; side < signs.size(); ++side) {
        auto& levels = m_levels[side];
        if (points.size() >= smallestBlock)
            levels.push_back(lowestLevel(signs[side]));
        while (!levels.empty() && levels.back().starts.size() > 2)
            levels.push_back(levelAbove(levels.back(), signs[side]));
    }
}

void rangeHulls::addChain(chains& out,
                          std::span<const std::uint32_t> candidates,
                          double sign) const {
    const std::size_t start = out.corners.size();
    const auto point = [&](std::size_t back) -> const NORLEX_logSample& {
        return m_points[out.corners[out.corners.size() - back]];
    };
    // whether the last point stands out from the line between the one before it and the next
    const auto isCorner = [&](const NORLEX_logSample& next) {
        const auto& last = point(1);
        const auto& before = point(2);
        return sign * (last.value - before.value) * (next.depth - last.depth)
               > sign * (next.value - last.value) * (last.depth - before.depth);
    };
    for (const std::uint32_t next : candidates) {
        while (out.corners.size() >= start + 2 && !isCorner(m_points[next]))
            out.corners.pop_back();
        out.corners.push_back(next);
    }
    out.starts.push_back(out.corners.size());
}

// Points behind the last whole block belong to none.
rangeHulls::chains rangeHulls::lowestLevel(double sign) const {
    chains out;
    std::array<std::uint32_t, smallestBlock> block{};
    for (std::size_t i = 0; i + smallestBlock <= m_points.size(); i += smallestBlock) {
        std::iota(block.begin(), block.end(), static_cast<std::uint32_t>(i));
        addChain(out, block, sign);
    }
    return out;
}

rangeHulls::chains rangeHulls::levelAbove(const chains& below, double sign) const {
    chains out;
    const std::span corners(below.corners);
    for (std::size_t i = 2; i < below.starts.size(); i += 2)
        addChain(
            out, corners.subspan(below.starts[i - 2], below.starts[i] - below.starts[i - 2]), sign);
    return out;
}

// The point of a block that is farthest above, or below, every line of a slope: where the chain
// begins to rise less than the line.
std::size_t
rangeHulls::corner(const chains& of, std::size_t block, double slope, double sign) const {
    std::size_t first = of.starts[block];
    std::size_t last = of.starts[block + 1] - 1;
    while (first < last) {
        const std::size_t middle = first + (last - first) / 2;
        const auto& a = m_points[of.corners[middle]];
        const auto& b = m_points[of.corners[middle + 1]];
        if (sign * (b.value - a.value) > sign * slope * (b.depth - a.depth))
            first = middle + 1;
        else
            last = middle;
    }
    return of.corners[first];
}

// How many levels up the largest block is that begins at `first` and ends by `end`, from 1; 0:
// there is none.
std::size_t rangeHulls::largestBlock(std::size_t first, std::size_t end) const {
    std::size_t levels = 0;
    for (std::size_t size = smallestBlock;
         levels < m_levels[0].size() && first % size == 0 && first + size <= end;
         size *= 2)
        ++levels;
    return levels;
}

rangeHulls::farthest rangeHulls::between(std::size_t upper, std::size_t lower) const {
    farthest best;
    const auto& top = m_points[upper];
    const auto& bottom = m_points[lower];
    const double slope = (bottom.value - top.value) / (bottom.depth - top.depth);
    const auto visit = [&](std::size_t i) {
        const double distance =
            std::abs(m_points[i].value - straightLine::at(m_points[i].depth, top, bottom));
        if (distance > best.distance || (distance == best.distance && i < best.index))
            best = {i, distance};
    };
    for (std::size_t i = upper + 1; i < lower;) {
        const std::size_t levels = largestBlock(i, lower);
        if (levels == 0) {
            visit(i++);
            continue;
        }
        const std::size_t size = smallestBlock << (levels - 1);
        for (std::size_t side = 0; side < signs.size(); ++side)
            visit(corner(m_levels[side][levels - 1], i / size, slope, signs[side]));
        i += size;
    }
    return best;
}
