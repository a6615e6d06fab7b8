// Any bytes as a survey listing: refused with the stations left alone, or read as finite numbers.
#include "exchange/survey_listing.h"
#include "platform/files.h"

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <system_error>

namespace {

std::wstring scratchFile() {
    std::error_code code;
    return files::wide(std::filesystem::temp_directory_path(code)
                       / ("fuzz_survey_listing." + std::to_string(::getpid())));
}

void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::wstring path = scratchFile();
    {
        const auto file = files::openWrite(path);
        require(file && files::put(file.get(), {reinterpret_cast<const char*>(data), size}));
    }
    std::vector<inclData> stations(1);
    if (surveyListing::read(path, stations)) {
        require(stations.size() >= 2 && stations.size() <= size / 3); // "0  ", the shortest line
        for (const auto& station : stations)
            require(std::isfinite(station.depth) && std::isfinite(station.angle)
                    && std::isfinite(station.azimuth));
    } else {
        require(stations.size() == 1);
    }
    static_cast<void>(files::removeFile(path));
    return 0;
}
