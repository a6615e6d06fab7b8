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
constexpr std::size_t writeBlock = 32768; // samples
constexpr std::size_t readBlock = 8192;

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

    // Whether all values were finite; the others are left out.
    bool take(std::span<const NORLEX_logSample> samples) {
        // Without branches, because real logs have gaps at no regular places, and in four lanes,
        // because one sample would wait for the one before.
        constexpr std::size_t lanes = 4;
        std::array<extremes, lanes> lane;
        unsigned other = 0;
        std::size_t i = 0;
        for (; i + lanes <= samples.size(); i += lanes)
            for (std::size_t k = 0; k < lanes; ++k)
                other |= lane[k].takeOne(samples[i + k].value);
        for (; i < samples.size(); ++i)
            other |= takeOne(samples[i].value);
        for (const auto& one : lane) {
            smallest = std::min(smallest, one.smallest);
            largest = std::max(largest, one.largest);
        }
        return other == 0;
    }
    // 1 for a value that is not finite, else 0.
    unsigned takeOne(double value) {
        constexpr double limit = std::numeric_limits<double>::max();
        static_assert(limit == NORLEX_missingValue);
        const bool isValue = (value >= -limit) & (value < limit); // no NaN, either
        smallest = std::min(smallest, isValue ? value : limit);
        largest = std::max(largest, isValue ? value : -limit);
        return unsigned{!isValue} & unsigned{value != limit};
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

bool seek(std::FILE* file, std::uint64_t offset) {
    return fseeko(file, static_cast<off_t>(offset), SEEK_SET) == 0;
}

// Writes `count` samples, which `blockAt` hands out from an index on. The range is gathered while
// each block is in the cache, so the header of more than one block is written for its place first,
// and again with the range of all.
template <typename BlockAt>
bool writeFile(std::FILE* file, std::size_t count, BlockAt blockAt) {
    extremes range;
    std::vector<NORLEX_logSample> mended;
    std::size_t done = 0;
    do {
        std::span<const NORLEX_logSample> block = blockAt(done, std::min(writeBlock, count - done));
        if (!range.take(block)) {
            mended.assign(block.begin(), block.end());
            for (auto& sample : mended)
                if (!std::isfinite(sample.value))
                    sample.value = NORLEX_missingValue;
            block = mended;
        }
        if (done == 0 && !writeHeader(file, range, count))
            return false;
        if (!block.empty()
            && std::fwrite(block.data(), sizeof(NORLEX_logSample), block.size(), file)
                   != block.size())
            return false;
        done += writeBlock;
    } while (done < count);
    return count <= writeBlock
           || (seek(file, 0) && writeHeader(file, range, count) && fseeko(file, 0, SEEK_END) == 0);
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

bool readSamples(std::FILE* file, NORLEX_logSample* samples, std::size_t count) {
    return std::fread(samples, sizeof(NORLEX_logSample), count, file) == count;
}

// Appended block by block: filling the vector with empty samples first would cost as much as
// reading them.
bool appendSamples(std::FILE* file, std::size_t count, std::vector<NORLEX_logSample>& samples) {
    std::vector<NORLEX_logSample> block(std::min(count, readBlock));
    for (std::size_t left = count; left > 0; left -= block.size()) {
        block.resize(std::min(left, readBlock));
        if (!readSamples(file, block.data(), block.size()))
            return false;
        samples.insert(samples.end(), block.begin(), block.end());
    }
    return true;
}

} // namespace

bool readHeader(const std::wstring& path, header& out) {
    const auto file = files::openRead(path);
    return file && parseHeader(file.get(), path, out);
}

bool read(const std::wstring& path, std::vector<NORLEX_logSample>& samples) {
    samples.clear();
    const auto file = files::openRead(path);
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0); // the blocks need no other buffer
    header head;
    if (!file || !parseHeader(file.get(), path, head))
        return false;
    try {
        samples.reserve(head.count);
    } catch (const std::bad_alloc&) {
        return damaged(path,
                       L"its " + std::to_wstring(head.count) + L" samples do not fit in memory");
    }
    return appendSamples(file.get(), head.count, samples)
           || damaged(path, L"it ends before its last sample");
}

bool readRange(const std::wstring& path, header& out, NORLEX_depthRange& range) {
    const auto file = files::openRead(path);
    if (!file || !parseHeader(file.get(), path, out))
        return false;
    if (out.count == 0)
        return false;
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
    return writeFile(file, samples.size(), [&](std::size_t from, std::size_t size) {
        return samples.subspan(from, size);
    });
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
    std::vector<NORLEX_logSample> block(std::min(values.size(), writeBlock));
    return writeFile(file, values.size(), [&](std::size_t from, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i)
            block[i] = {depths[from + i], depthsAbs[from + i], values[from + i]};
        return std::span<const NORLEX_logSample>(block.data(), size);
    });
}

} // namespace sampleFile
