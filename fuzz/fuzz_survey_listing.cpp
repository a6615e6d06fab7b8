// Any bytes as a survey listing: refused with the stations left alone, or read as finite numbers.
#include "exchange/survey_listing.h"
#include "fuzz/require.h"
#include "fuzz/scratch.h"
#include "platform/files.h"

#include <cmath>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const scratchFolder folder("fuzz_survey_listing");
    static const std::wstring path = folder / L"input";
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
