#include "exchange/fixed_text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

std::string ours(double value, int decimals) {
    std::array<char, fixedText::longest> buffer{};
    return {buffer.data(), fixedText::write(buffer.data(), value, decimals)};
}

std::string library(double value, int decimals) {
    std::array<char, fixedText::longest> buffer{};
    char* const from = buffer.data();
    return {
        from,
        std::to_chars(from, from + buffer.size(), value, std::chars_format::fixed, decimals).ptr};
}

} // namespace

// 0.0625 and 0.5625 are exact, so three decimals are a tie: to the even digit. 2.675 lies below its
// decimal spelling (2.67499999999999982…), 1.005 as well.
TEST(FixedText, roundsTheExactValueAndTiesToEven) {
    struct {
        double value;
        int decimals;
        const char* text;
    } const cases[] = {
        {0.0625, 3, "0.062"},
        {0.1875, 3, "0.188"},
        {0.5625, 3, "0.562"},
        {0.25, 1, "0.2"},
        {0.75, 1, "0.8"},
        {2.675, 2, "2.67"},
        {1.005, 2, "1.00"},
        {-0.0004, 3, "-0.000"},
        {-0.0, 1, "-0.0"},
        {0.9996, 3, "1.000"},
        {1234567.05, 1, "1234567.1"}, // …05000000004656…
        {-99999.0, 3, "-99999.000"},
        {5e-324, 3, "0.000"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ours(c.value, c.decimals), c.text);
}

TEST(FixedText, agreesWithTheLibraryEverywhere) {
    std::mt19937_64 random(20240229);
    std::uniform_real_distribution<double> usual(-5000.0, 5000.0);
    const double edges[] = {0x1p52,
                            0x1p53,
                            std::nextafter(0x1p52, 0.0),
                            0x1p-11,
                            std::nextafter(0x1p-11, 0.0),
                            0.0005,
                            0.0015,
                            std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::denorm_min()};
    const auto check = [](double value) {
        for (int decimals = 1; decimals <= 3; ++decimals)
            ASSERT_EQ(ours(value, decimals), library(value, decimals)) << decimals;
    };
    for (const double value : edges)
        check(value);
    for (int i = 0; i < 100'000; ++i) {
        check(usual(random));
        check(std::round(usual(random) * 16.0) / 16.0); // ties
        if (const auto any = std::bit_cast<double>(random()); std::isfinite(any))
            check(any);
    }
}
