#include "derived/rank_set.h"

#include <bit>

namespace {

constexpr std::size_t wordBits = 64;

constexpr std::uint64_t bitOf(std::size_t number) {
    return std::uint64_t{1} << (number % wordBits);
}

std::size_t lowest(std::uint64_t word) {
    return static_cast<std::size_t>(std::countr_zero(word));
}

std::size_t highest(std::uint64_t word) {
    return wordBits - 1 - static_cast<std::size_t>(std::countl_zero(word));
}

} // namespace

rankSet::rankSet(std::size_t size) {
    do {
        size = (size + wordBits - 1) / wordBits;
        m_levels.emplace_back(size);
    } while (size > 1);
}

void rankSet::insert(std::size_t rank) {
    for (auto& words : m_levels) {
        words[rank / wordBits] |= bitOf(rank);
        rank /= wordBits;
    }
}

void rankSet::erase(std::size_t rank) {
    for (auto& words : m_levels) {
        words[rank / wordBits] &= ~bitOf(rank);
        rank /= wordBits;
        if (words[rank] != 0)
            return;
    }
}

std::size_t rankSet::next(std::size_t rank) const {
    for (std::size_t level = 0; level < m_levels.size(); ++level) {
        // the bits above the number's own; of the highest there are none
        const std::uint64_t above =
            m_levels[level][rank / wordBits] & ~(bitOf(rank) - 1) & ~bitOf(rank);
        if (above == 0) {
            rank /= wordBits;
            continue;
        }
        rank = rank / wordBits * wordBits + lowest(above);
        while (level-- > 0)
            rank = rank * wordBits + lowest(m_levels[level][rank]);
        return rank;
    }
    return rank;
}

std::size_t rankSet::previous(std::size_t rank) const {
    for (std::size_t level = 0; level < m_levels.size(); ++level) {
        const std::uint64_t below = m_levels[level][rank / wordBits] & (bitOf(rank) - 1);
        if (below == 0) {
            rank /= wordBits;
            continue;
        }
        rank = rank / wordBits * wordBits + highest(below);
        while (level-- > 0)
            rank = rank * wordBits + highest(m_levels[level][rank]);
        return rank;
    }
    return rank;
}
