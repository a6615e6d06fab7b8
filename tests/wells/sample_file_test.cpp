#include "wells/sample_file.h"

#include "NORLEX_lastError.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr double missing = NORLEX_missingValue;
constexpr double infinity = std::numeric_limits<double>::infinity();

std::string fromHex(std::string_view hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(std::strtol(std::string(hex.substr(i, 2)).c_str(), nullptr, 16));
    return bytes;
}

template <typename T>
std::string bytesOf(T value) {
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

// Three samples, (10, 90, 1.5), (20, 80, missing), (30, 70, -2), packed by another program:
// range -2 … 1.5, half of it 1.75 (3ffc...), missing mark 7fefffffffffffff.
const std::string golden = fromHex("feffffff00000000"
                                   "00000000000000c0"
                                   "000000000000f83f"
                                   "000000000000fc3f"
                                   "ffffffffffffef7f"
                                   "000000000000000000000000000000000000000000000000"
                                   "000000000000000000000000000000000000000000000000"
                                   "03000000ffffffffffffef7f"
                                   "00000000000024400000000000805640000000000000f83f"
                                   "00000000000034400000000000005440ffffffffffffef7f"
                                   "0000000000003e40000000000080514000000000000000c0");
const std::vector<NORLEX_logSample> goldenSamples = {
    {10, 90, 1.5}, {20, 80, missing}, {30, 70, -2.0}};

class SampleFileTest : public testing::Test {
protected:
    std::wstring written(const std::vector<NORLEX_logSample>& samples) const {
        const std::wstring path = folder / L"log.wpdb";
        const auto file = files::openWrite(path);
        EXPECT_TRUE(file && sampleFile::write(file.get(), samples));
        return path;
    }

    temp_folder folder;
};

bool same(const std::vector<NORLEX_logSample>& a, const std::vector<NORLEX_logSample>& b) {
    return a.size() == b.size()
           && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0);
}

} // namespace

TEST_F(SampleFileTest, bytesAreThoseOfTheFormat) {
    EXPECT_EQ(temp_folder::read(written(goldenSamples)), golden);

    const auto file = files::openWrite(folder / L"columns.wpdb");
    const double depths[] = {10, 20, 30};
    const double depthsAbs[] = {90, 80, 70};
    const double values[] = {1.5, missing, -2.0};
    ASSERT_TRUE(sampleFile::write(file.get(), depths, depthsAbs, values));
    std::fflush(file.get());
    EXPECT_EQ(temp_folder::read(folder / L"columns.wpdb"), golden);
    EXPECT_FALSE(sampleFile::write(file.get(), depths, depthsAbs, std::span(values).first(2)));

    std::vector<NORLEX_logSample> samples;
    ASSERT_TRUE(sampleFile::read(folder.write(L"golden.wpdb", golden), samples));
    EXPECT_TRUE(same(samples, goldenSamples));
}

// More samples than one block holds, with a value that is not finite in the last block only.
TEST_F(SampleFileTest, keepsOrderAndEverySampleOfALongLog) {
    std::vector<NORLEX_logSample> samples;
    for (int i = 0; i < 40000; ++i)
        samples.push_back({0.1 * i, 100 - 0.1 * i, static_cast<double>((i * 7919) % 40000)});
    std::vector<NORLEX_logSample> back;
    ASSERT_TRUE(sampleFile::read(written(samples), back));
    EXPECT_TRUE(same(back, samples));

    samples[39999].value = std::nan("");
    samples[12].value = -infinity;
    ASSERT_TRUE(sampleFile::read(written(samples), back));
    samples[39999].value = missing;
    samples[12].value = missing;
    EXPECT_TRUE(same(back, samples));
}

TEST_F(SampleFileTest, rangeLeavesMissingValuesOut) {
    struct {
        const char* where;
        std::vector<double> values;
        double smallest, largest, half;
    } const cases[] = {
        {"no sample", {}, missing, -missing, -missing},
        {"all missing", {missing, missing}, missing, -missing, -missing},
        {"not finite counts as missing",
         {std::nan(""), infinity, -infinity},
         missing,
         -missing,
         -missing},
        {"one value", {missing, -3.5}, -3.5, -3.5, 0.0},
        {"missing first and last", {missing, 4, -2, missing}, -2, 4, 3},
        {"a difference that is no double", {-1e308, 1e308}, -1e308, 1e308, 1e308},
    };
    for (const auto& c : cases) {
        std::vector<NORLEX_logSample> samples;
        for (const double value : c.values)
            samples.push_back({1, 1, value});
        const auto path = written(samples);
        sampleFile::header head;
        ASSERT_TRUE(sampleFile::readHeader(path, head)) << c.where;
        EXPECT_TRUE(head.hasRange) << c.where;
        EXPECT_EQ(head.smallest, c.smallest) << c.where;
        EXPECT_EQ(head.largest, c.largest) << c.where;
        EXPECT_EQ(temp_folder::read(path).substr(24, 8), bytesOf(c.half)) << c.where;
    }
}

TEST_F(SampleFileTest, readsTheOlderLayout) {
    const auto path = folder.write(L"old.wpdb", bytesOf(3U) + golden.substr(100));
    sampleFile::header head;
    ASSERT_TRUE(sampleFile::readHeader(path, head));
    EXPECT_FALSE(head.hasRange);
    EXPECT_EQ(head.count, 3U);
    std::vector<NORLEX_logSample> samples;
    ASSERT_TRUE(sampleFile::read(path, samples));
    EXPECT_TRUE(same(samples, goldenSamples));
    NORLEX_depthRange range;
    ASSERT_TRUE(sampleFile::readRange(path, head, range));
    EXPECT_EQ(range.bot, 30.0);
}

// Logs are listed downwards or upwards; the range is the same.
TEST_F(SampleFileTest, rangeIsThatOfTheFirstAndTheLastSample) {
    struct {
        const char* where;
        std::vector<NORLEX_logSample> samples;
        NORLEX_depthRange range;
    } const cases[] = {
        {"downwards", goldenSamples, {10, 30, 90, 70}},
        {"upwards", {{30, 70, 1}, {10, 90, 2}}, {10, 30, 90, 70}},
        {"one sample", {{5, -5, 1}}, {5, 5, -5, -5}},
        {"a hole that rises", {{10, -90, 1}, {20, -80, 1}}, {10, 20, -80, -90}},
    };
    for (const auto& c : cases) {
        sampleFile::header head;
        NORLEX_depthRange range;
        ASSERT_TRUE(sampleFile::readRange(written(c.samples), head, range)) << c.where;
        EXPECT_EQ(range.top, c.range.top) << c.where;
        EXPECT_EQ(range.bot, c.range.bot) << c.where;
        EXPECT_EQ(range.topAbs, c.range.topAbs) << c.where;
        EXPECT_EQ(range.botAbs, c.range.botAbs) << c.where;
    }
    sampleFile::header head;
    NORLEX_depthRange range;
    EXPECT_FALSE(sampleFile::readRange(written({}), head, range));
}

TEST_F(SampleFileTest, refusesDamagedFiles) {
    std::string fourBillion = golden;
    fourBillion.replace(88, 4, bytesOf(0xFFFFFFFFU));
    struct {
        const char* where;
        std::string bytes;
    } const cases[] = {
        {"empty", ""},
        {"part of the mark", golden.substr(0, 3)},
        {"part of the header", golden.substr(0, 99)},
        {"the last byte is gone", golden.substr(0, golden.size() - 1)},
        {"claims four billion samples", fourBillion},
        {"the older layout, one sample short", bytesOf(4U) + golden.substr(100)},
        {"the older layout, two billion samples", bytesOf(0x7FFFFFFFU)},
        {"some text", "Depth;Value\n"},
    };
    for (const auto& c : cases) {
        const auto path = folder.write(L"damaged.wpdb", c.bytes);
        std::vector<NORLEX_logSample> samples(1);
        sampleFile::header head;
        NORLEX_depthRange range;
        EXPECT_FALSE(sampleFile::read(path, samples)) << c.where;
        EXPECT_NE(NORLEX_lastError().find(path), std::wstring::npos) << c.where;
        EXPECT_TRUE(samples.empty()) << c.where;
        EXPECT_FALSE(sampleFile::readHeader(path, head)) << c.where;
        EXPECT_FALSE(sampleFile::readRange(path, head, range)) << c.where;
    }
    sampleFile::header head;
    EXPECT_FALSE(sampleFile::readHeader(folder / L"absent.wpdb", head));
    EXPECT_FALSE(sampleFile::readHeader(folder.path(), head)) << "a folder";

    std::string noRange = golden;
    noRange.replace(8, 8, bytesOf(std::nan("")));
    EXPECT_TRUE(sampleFile::readHeader(folder.write(L"nan.wpdb", noRange), head));
    EXPECT_FALSE(head.hasRange);
}
