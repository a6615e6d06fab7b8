// The samples of one log, written and read, beside the same bytes without a format.
#include "bench/child.h"
#include "bench/las_files.h"
#include "bench/measures.h"

#include "platform/strconv.h"
#include "wells/sample_file.h"

#include <array>
#include <cstdio>

namespace bench {

namespace {

constexpr std::size_t count = 1'000'000;
constexpr double megabytes = static_cast<double>(count * sizeof(NORLEX_logSample)) / 1e6;

std::vector<NORLEX_logSample> samples() {
    std::vector<NORLEX_logSample> out(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double depth = 0.1 * static_cast<double>(i);
        out[i] = {depth, 100.0 - depth, i % 25 == 0 ? NORLEX_missingValue : depth * 0.5};
    }
    return out;
}

using writer = bool (*)(std::FILE*, const std::vector<NORLEX_logSample>&);

// The same bytes: behind a header the samples do not lie on the borders of pages.
bool plainWrite(std::FILE* file, const std::vector<NORLEX_logSample>& data) {
    constexpr std::array<char, 100> header{};
    return std::fwrite(header.data(), 1, header.size(), file) == header.size()
           && std::fwrite(data.data(), sizeof(NORLEX_logSample), data.size(), file) == data.size();
}

bool formatWrite(std::FILE* file, const std::vector<NORLEX_logSample>& data) {
    return sampleFile::write(file, data);
}

std::vector<double> writeRate(const std::string& path, writer write) {
    const auto data = samples();
    bool good = false;
    const double time = timed([&] {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        good = file != nullptr && write(file, data);
        good = file != nullptr && std::fclose(file) == 0 && good;
    });
    return good ? std::vector{megabytes / time} : std::vector<double>{};
}

std::vector<double> plainReadRate(const std::string& path) {
    wholeFile file;
    const double time = timed([&] { file = readWhole(path); });
    return file.size > count ? std::vector{megabytes / time} : std::vector<double>{};
}

std::vector<double> formatReadRate(const std::string& path) {
    const std::wstring file = ts::strconv::fromUtf8(path);
    std::vector<NORLEX_logSample> data;
    bool good = false;
    const double time = timed([&] { good = sampleFile::read(file, data); });
    return good && data.size() == count ? std::vector{megabytes / time} : std::vector<double>{};
}

} // namespace

bool sampleFiles(const settings& with, std::vector<figure>& figures) {
    const std::string path = with.folder + "/log.wpdb";
    std::vector<double> written, writeLimits, read, readLimits;
    for (std::size_t round = 0; round < with.rounds; ++round) {
        const auto plain = inChild([&] { return writeRate(path + ".plain", plainWrite); });
        const auto format = inChild([&] { return writeRate(path, formatWrite); });
        const auto plainBack = inChild([&] { return plainReadRate(path); });
        const auto formatBack = inChild([&] { return formatReadRate(path); });
        if (!plain || !format || !plainBack || !formatBack)
            return failed("writing and reading " + path);
        writeLimits.push_back(plain->values[0]);
        written.push_back(format->values[0]);
        readLimits.push_back(plainBack->values[0]);
        read.push_back(formatBack->values[0]);
        std::remove(path.c_str());
        std::remove((path + ".plain").c_str());
    }
    add(figures, against("sample file write", "MB/s", written, "plain write", writeLimits, 0.7));
    add(figures, against("sample file read", "MB/s", read, "plain read", readLimits, 0.7));
    return true;
}

} // namespace bench
