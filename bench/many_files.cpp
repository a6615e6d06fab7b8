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
    ::sync(); // else the flushes would write the inputs, too
    NORLEX_lasImport import(container->getBaseLink(), {});
    double resident = 0.0;
    double size = 0.0;
    bool good = true;
    const double time = timed([&] {
        for (std::size_t i = 0; good && i < with.files; ++i) {
            const auto path = [&](std::size_t n) {
                return n < with.files ? ts::strconv::fromUtf8(inputPath(with, n)) : std::wstring();
            };
            const auto result = import.importFile(path(i), path(i + 1));
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

bool writeFlushed(const std::string& path, std::size_t size, int (*flush)(int)) {
    const int file = ::open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    const std::string content(size, 'x');
    const bool good = file >= 0 && ::write(file, content.data(), size) == static_cast<ssize_t>(size)
                      && (flush == nullptr || flush(file) == 0);
    if (file >= 0)
        ::close(file);
    return good;
}

// Seconds for what the disk must do at least: for each input a folder with its sample files, safe
// before the commit, and the three flushes of a commit.
std::vector<double> bareFiles(const settings& with, const std::string& base) {
    constexpr std::size_t sampleFileSize = 100 + 24 * rows;
    bool good = true;
    ::sync();
    const double time = timed([&] {
        for (std::size_t i = 0; good && i < with.files; ++i) {
            const std::string folder = base + "/" + std::to_string(i);
            std::filesystem::create_directories(folder);
            for (std::size_t log = 0; good && log < curves; ++log)
                good = writeFlushed(folder + "/" + std::to_string(log),
                                    sampleFileSize,
                                    log + 1 == curves ? ::syncfs : nullptr);
            for (int flush = 0; good && flush < 3; ++flush)
                good = writeFlushed(base + "/database", 8192, ::fdatasync);
        }
    });
    return good ? std::vector<double>{time} : std::vector<double>{};
}

} // namespace

bool manyFiles(const settings& with, std::vector<figure>& figures) {
    std::error_code error;
    std::filesystem::create_directories(with.folder + "/many", error);
    for (std::size_t i = 0; i < with.files; ++i)
        if (!makeLas(inputPath(with, i), "W-" + std::to_string(i), rows, curves))
            return failed("making " + inputPath(with, i));
    // All are removed at the end: creating files is slow for a while after many were removed.
    const std::string base = with.folder + "/many-base";
    std::vector<double> rates, growth, sizes;
    for (std::size_t round = 0; round < std::min<std::size_t>(with.rounds, 3); ++round) {
        const std::string folder = base + "/" + std::to_string(round);
        std::filesystem::create_directories(folder, error);
        const auto result = inChild([&] { return importAll(with, folder + "/base.well2"); });
        if (!result)
            return failed("importing many files");
        rates.push_back(static_cast<double>(with.files) / result->values[0]);
        growth.push_back((result->values[1] - result->values[2]) / 1e6);
        sizes.push_back(result->values[2] / 1e6);
    }
    const auto bare = inChild([&] { return bareFiles(with, base + "/bare"); });
    std::filesystem::remove_all(base, error);
    std::filesystem::remove_all(with.folder + "/many", error);
    if (!bare)
        return failed("writing many files");
    figure rate = atLeast("small LAS files into a container", "files/s", median(rates), 300.0);
    const double bareRate = static_cast<double>(with.files) / bare->values[0];
    rate.note = "this disk takes " + numbers::fixed(bareRate, 0) + " files/s without a database";
    add(figures, rate);
    figure memory = atMost("memory beside pages, last 3/4 of them", "MB", median(growth), 1.0);
    memory.note = "the database grew by " + numbers::fixed(median(sizes), 1) + " MB";
    add(figures, memory);
    return true;
}

} // namespace bench
