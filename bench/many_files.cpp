// Many small LAS files, each a transaction of its own, into one container.
#include "bench/child.h"
#include "bench/database.h"
#include "bench/las_files.h"
#include "bench/measures.h"

#include "NORLEX_lasImport.h"
#include "platform/numbers.h"
#include "platform/strconv.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace bench {

namespace {

constexpr std::size_t rows = 450; // with ten curves, 50 KB
constexpr std::size_t curves = 10;

std::string inputPath(const settings& with, std::size_t number) {
    return with.folder + "/many/W-" + std::to_string(number) + ".las";
}

// Seconds for all files; then, from a quarter of them to all, by how many bytes the process and the
// database file grew. The page cache may keep all of the latter.
std::vector<double> importAll(const settings& with, const std::string& base) {
    const auto container = newContainer(base);
    if (!container)
        return {};
    NORLEX_lasImport import(container->getBaseLink(), {});
    double resident = 0.0;
    double size = 0.0;
    bool good = true;
    const double time = timed([&] {
        for (std::size_t i = 0; good && i < with.files; ++i) {
            const auto result = import.importFile(ts::strconv::fromUtf8(inputPath(with, i)));
            good = result.ok && result.created == curves;
            if (!good)
                static_cast<void>(failed(inputPath(with, i)));
            if (i == with.files / 4) {
                resident = residentBytes();
                size = sizeOf(base);
            }
        }
    });
    if (!good)
        return {};
    return {time, residentBytes() - resident, sizeOf(base) - size};
}

// Milliseconds that a small file needs to be safe on this disk.
std::vector<double> flushTime(const std::string& path) {
    std::vector<double> times;
    for (int i = 0; i < 50; ++i) {
        const int file = ::open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0600);
        const std::string content(11'000, 'x');
        bool good = file >= 0 && ::write(file, content.data(), content.size()) > 0;
        times.push_back(1e3 * timed([&] { good = good && ::fdatasync(file) == 0; }));
        if (file >= 0)
            ::close(file);
        if (!good)
            return {};
    }
    return {median(times)};
}

} // namespace

bool manyFiles(const settings& with, std::vector<figure>& figures) {
    std::error_code error;
    std::filesystem::create_directories(with.folder + "/many", error);
    for (std::size_t i = 0; i < with.files; ++i)
        if (!makeLas(inputPath(with, i), "W-" + std::to_string(i), rows, curves))
            return failed("making " + inputPath(with, i));
    std::vector<double> rates, growth, sizes;
    for (std::size_t round = 0; round < std::min<std::size_t>(with.rounds, 3); ++round) {
        const std::string folder = with.folder + "/many-base";
        std::filesystem::create_directories(folder, error);
        const auto result = inChild([&] { return importAll(with, folder + "/base.well2"); });
        std::filesystem::remove_all(folder, error);
        if (!result)
            return failed("importing many files");
        rates.push_back(static_cast<double>(with.files) / result->values[0]);
        growth.push_back((result->values[1] - result->values[2]) / 1e6);
        sizes.push_back(result->values[2] / 1e6);
    }
    std::filesystem::remove_all(with.folder + "/many", error);
    figure rate = atLeast("small LAS files into a container", "files/s", median(rates), 300.0);
    if (const auto flush = inChild([&] { return flushTime(with.folder + "/flush"); }))
        rate.note = "one flush of this disk takes " + numbers::fixed(flush->values[0], 2) + " ms";
    add(figures, rate);
    figure memory = atMost("memory beside pages, last 3/4 of them", "MB", median(growth), 1.0);
    memory.note = "the database grew by " + numbers::fixed(median(sizes), 1) + " MB";
    add(figures, memory);
    return true;
}

} // namespace bench
