// The groups of measures. Each prints its figures as they are there and adds them to `figures`.
#pragma once

#include "bench/figures.h"

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

struct settings {
    std::string folder;           // of the inputs and results, without a separator at its end
    std::size_t rows = 1'000'000; // of the large LAS file, of 20 curves
    std::size_t files = 2000;     // small LAS files
    std::size_t wells = 10'000;   // of the large container
    std::size_t rounds = 5;       // of each pair of figure and limit

    // A folder of a group below it; made when it is not there.
    [[nodiscard]] std::string subfolder(const std::string& name) const;
};

// False when something failed that is to be measured; the reason is printed.
using measure = bool (*)(const settings&, std::vector<figure>&);

[[nodiscard]] bool lasRead(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool lasImport(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool lasExport(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool sampleFiles(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool survey(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool vdm(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool manyFiles(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool containers(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool recordMeasures(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool selectionMeasures(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool filterMeasures(const settings& with, std::vector<figure>& figures);
[[nodiscard]] bool correlationMeasures(const settings& with, std::vector<figure>& figures);

// Prints why a measure could not be taken, with the library's own line; answers false.
[[nodiscard]] bool failed(const std::string& what);

// Prints a figure and keeps it.
void add(std::vector<figure>& figures, const figure& line);

} // namespace bench
