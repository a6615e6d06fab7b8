// A large LAS file into a container: parsing, sample files and rows.
#include "bench/child.h"
#include "bench/database.h"
#include "bench/las_files.h"
#include "bench/measures.h"

#include "NORLEX_lasImport.h"
#include "platform/strconv.h"

#include <filesystem>
#include <system_error>

namespace bench {

namespace {

std::vector<double> importRate(const std::string& base, const std::string& path) {
    const auto container = newContainer(base);
    if (!container)
        return {};
    NORLEX_lasImportResult result;
    const double time = timed([&] {
        result =
            NORLEX_lasImport(container->getBaseLink(), {}).importFile(ts::strconv::fromUtf8(path));
    });
    const bool good = result.ok && result.created == curvesOfLarge;
    return good ? std::vector{sizeOf(path) / 1e6 / time} : std::vector<double>{};
}

} // namespace

bool lasImport(const settings& with, std::vector<figure>& figures) {
    const std::string path = with.folder + "/large.las";
    if (!makeLas(path, "BIG-1", with.rows, curvesOfLarge))
        return failed("making " + path);
    std::vector<double> rates, limits;
    for (std::size_t round = 0; round < with.rounds; ++round) {
        const std::string folder = with.subfolder("import");
        const auto read = inChild([&] { return readRate(path, with.rows); });
        const auto import = inChild([&] { return importRate(folder + "/base.well2", path); });
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
        if (!read || !import)
            return failed("importing " + path);
        limits.push_back(read->values[0]);
        rates.push_back(import->values[0]);
    }
    add(figures,
        against("LAS import into a container", "MB/s", rates, "reading alone", limits, 0.5));
    return true;
}

} // namespace bench
