#include "wells/sample_file.h"

#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/strconv.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>

namespace sampleFile {

namespace {

// Samples go to and from the disk as they lie in memory.
static_assert(std::endian::native == std::endian::little);
static_assert(sizeof(NORLEX_logSample) == 24 && std::is_trivially_copyable_v<NORLEX_logSample>);
static_assert(offsetof(NORLEX_logSample, depthAbs) == 8 && offsetof(NORLEX_logSample, value) == 16);

constexpr std::int32_t formatMark = -2;
constexpr std::uint32_t olderHeaderSize = 4;
constexpr std::uint32_t headerSize = 100;
using headerBytes = std::array<char, headerSize>;

// Large enough that the cost of a call does not count, small enough to stay in the cache.
constexpr std::size_t blockSamples = 16384;

template <typename T>
void put(headerBytes& bytes, std::size_t offset, T value) {
    std::memcpy(bytes.data() + offset, &value, sizeof value);
}

template <typename T>
T get(const headerBytes& bytes, std::size_t offset) {
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

// The smallest and largest value, missing ones left out; where there is none they are the largest
// finite double and its negative.
struct extremes {
    double smallest = NORLEX_missingValue;
    double largest = -NORLEX_missingValue;
    bool allFinite = true;

    void take(double value) {
        if (!std::isfinite(value))
            allFinite = false;
        else if (value != NORLEX_missingValue) {
            smallest = std::min(smallest, value);
            largest = std::max(largest, value);
        }
    }
    // Finite even where the difference is not: of samples that are all missing it is the negative
    // largest double.
    double halfRange() const {
        const double half = (largest - smallest) * 0.5;
        return std::isfinite(half) ? half : largest * 0.5 - smallest * 0.5;
    }
};

bool writeHeader(std::FILE* file, const extremes& range, std::size_t count) {
    if (count > std::numeric_limits<std::uint32_t>::max())
        return refuse(L"a log of " + std::to_wstring(count)
                      + L" samples cannot be stored; 4294967295 or fewer are expected");
    headerBytes bytes{};
    put(bytes, 0, formatMark);
    put(bytes, 8, range.smallest);
    put(bytes, 16, range.largest);
    put(bytes, 24, range.halfRange());
    put(bytes, 32, NORLEX_missingValue);
    put(bytes, 88, static_cast<std::uint32_t>(count));
    put(bytes, 92, NORLEX_missingValue);
    return files::put(file, {bytes.data(), bytes.size()});
}

// Writes `count` samples as `sampleAt` makes them, block by block.
template <typename SampleAt>
bool writeBlocks(std::FILE* file, std::size_t count, SampleAt sampleAt) {
    std::vector<NORLEX_logSample> block(std::min(count, blockSamples));
    for (std::size_t done = 0; done < count;) {
        const std::size_t size = std::min(blockSamples, count - done);
        for (std::size_t i = 0; i < size; ++i) {
            block[i] = sampleAt(done + i);
            if (!std::isfinite(block[i].value))
                block[i].value = NORLEX_missingValue;
        }
        if (std::fwrite(block.data(), sizeof(NORLEX_logSample), size, file) != size)
            return false;
        done += size;
    }
    return true;
}

bool damaged(const std::wstring& path, const std::wstring& why) {
    return refuse(L"cannot read the samples of " + path + L": " + why);
}

// Leaves the file standing behind the header.
bool parseHeader(std::FILE* file, const std::wstring& path, header& out) {
    out = {};
    headerBytes bytes{};
    if (std::fread(bytes.data(), 1, olderHeaderSize, file) != olderHeaderSize)
        return damaged(path, L"it is shorter than its header");
    out.firstSample = olderHeaderSize;
    out.count = get<std::uint32_t>(bytes, 0);
    if (get<std::int32_t>(bytes, 0) < 0) {
        constexpr std::size_t rest = headerSize - olderHeaderSize;
        if (std::fread(bytes.data() + olderHeaderSize, 1, rest, file) != rest)
            return damaged(path, L"it is shorter than its header");
        out.firstSample = headerSize;
        out.count = get<std::uint32_t>(bytes, 88);
        out.smallest = get<double>(bytes, 8);
        out.largest = get<double>(bytes, 16);
        out.hasRange = std::isfinite(out.smallest) && std::isfinite(out.largest);
    }
    const std::uint64_t needed =
        out.firstSample + std::uint64_t{out.count} * sizeof(NORLEX_logSample);
    const std::uint64_t size = files::size(path).value_or(0);
    return size >= needed
           || damaged(path,
                      L"its " + std::to_wstring(out.count) + L" samples take "
                          + std::to_wstring(needed) + L" bytes, it has " + std::to_wstring(size));
}

bool seek(std::FILE* file, std::uint64_t offset) {
    return fseeko(file, static_cast<off_t>(offset), SEEK_SET) == 0;
}

bool readSamples(std::FILE* file, NORLEX_logSample* samples, std::size_t count) {
    return std::fread(samples, sizeof(NORLEX_logSample), count, file) == count;
}

} // namespace

bool readHeader(const std::wstring& path, header& out) {
    const auto file = files::openRead(path);
    return file && parseHeader(file.get(), path, out);
}

bool read(const std::wstring& path, std::vector<NORLEX_logSample>& samples) {
    samples.clear();
    const auto file = files::openRead(path);
    header head;
    if (!file || !parseHeader(file.get(), path, head))
        return false;
    try {
        samples.resize(head.count);
    } catch (const std::bad_alloc&) {
        return damaged(path,
                       L"its " + std::to_wstring(head.count) + L" samples do not fit in memory");
    }
    return readSamples(file.get(), samples.data(), samples.size())
           || damaged(path, L"it ends before its last sample");
}

bool readRange(const std::wstring& path, header& out, NORLEX_depthRange& range) {
    const auto file = files::openRead(path);
    if (!file || !parseHeader(file.get(), path, out))
        return false;
    if (out.count == 0)
        return refuse(path + L" holds no samples");
    NORLEX_logSample first;
    NORLEX_logSample last;
    const std::uint64_t lastAt = out.firstSample + std::uint64_t{out.count - 1} * sizeof last;
    if (!readSamples(file.get(), &first, 1) || !seek(file.get(), lastAt)
        || !readSamples(file.get(), &last, 1))
        return damaged(path, L"it ends before its last sample");
    range.top = std::min(first.depth, last.depth);
    range.bot = std::max(first.depth, last.depth);
    range.topAbs = std::max(first.depthAbs, last.depthAbs);
    range.botAbs = std::min(first.depthAbs, last.depthAbs);
    return true;
}

bool write(std::FILE* file, std::span<const NORLEX_logSample> samples) {
    extremes range;
    for (const auto& sample : samples)
        range.take(sample.value);
    if (!writeHeader(file, range, samples.size()))
        return false;
    if (!range.allFinite)
        return writeBlocks(file, samples.size(), [&](std::size_t i) { return samples[i]; });
    const auto bytes = std::as_bytes(samples);
    return bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

bool write(std::FILE* file,
           std::span<const double> depths,
           std::span<const double> depthsAbs,
           std::span<const double> values) {
    if (depths.size() != values.size() || depthsAbs.size() != values.size())
        return refuse(L"a log has " + std::to_wstring(values.size()) + L" values for "
                      + std::to_wstring(depths.size()) + L" measured and "
                      + std::to_wstring(depthsAbs.size())
                      + L" absolute depths; equal numbers are expected");
    extremes range;
    for (const double value : values)
        range.take(value);
    return writeHeader(file, range, values.size())
           && writeBlocks(file, values.size(), [&](std::size_t i) {
                  return NORLEX_logSample{depths[i], depthsAbs[i], values[i]};
              });
}

} // namespace sampleFile
