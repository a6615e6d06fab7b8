// A set of the numbers from 0 up to a size that finds neighbours in the set at once.
//
// A bit for each number, and above every 64 words a word that tells which of them hold any: four
// levels for sixteen million numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class rankSet {
public:
    explicit rankSet(std::size_t size);

    void insert(std::size_t rank);
    void erase(std::size_t rank);
    // The nearest member above or below `rank`, which there must be.
    [[nodiscard]] std::size_t next(std::size_t rank) const;
    [[nodiscard]] std::size_t previous(std::size_t rank) const;

private:
    std::vector<std::vector<std::uint64_t>> m_levels;
};
