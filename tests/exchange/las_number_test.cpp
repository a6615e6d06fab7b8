#include "exchange/las_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <random>
#include <string>

namespace {

struct reading {
    bool isNumber = false;
    double value = 0.0;
    std::size_t length = 0;
};

reading readText(const std::string& text) {
    reading result;
    const char* const end = lasNumber::read(text.c_str(), result.value);
    result.isNumber = end != nullptr;
    result.length = end == nullptr ? 0 : static_cast<std::size_t>(end - text.c_str());
    return result;
}

// The library of the compiler rounds correctly.
bool isRoundedAsByTheLibrary(const std::string& text) {
    double expected = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), expected);
    const reading got = readText(text);
    return error == std::errc{} && got.isNumber
           && got.length == static_cast<std::size_t>(end - text.data())
           && std::bit_cast<std::uint64_t>(got.value) == std::bit_cast<std::uint64_t>(expected);
}

std::string randomDigits(std::mt19937_64& random, std::uint64_t most) {
    std::string digits(random() % (most + 1), '0');
    for (char& digit : digits)
        digit = static_cast<char>('0' + random() % 10);
    return digits;
}

} // namespace

TEST(LasNumber, agreesWithTheLibraryOnRandomTexts) {
    std::mt19937_64 random(20240229);
    for (int i = 0; i < 600'000; ++i) {
        // one in four is long, which is where the quick way must give up
        const std::uint64_t most = i % 4 == 0 ? 22 : 6;
        std::string text = random() % 2 == 0 ? "-" : "";
        text += std::to_string(random() % 10) + randomDigits(random, most);
        if (random() % 8 != 0)
            text += "." + randomDigits(random, most);
        if (random() % 4 == 0)
            text += (random() % 2 == 0 ? "e" : "E+") + std::to_string(random() % 40);
        else if (random() % 8 == 0)
            text += "e-" + std::to_string(random() % 290);
        ASSERT_TRUE(isRoundedAsByTheLibrary(text)) << text;
    }
}

TEST(LasNumber, roundsTheHardCases) {
    const char* const cases[] = {
        "9007199254740992",         // 2^53, the last mantissa taken the quick way
        "9007199254740993",         // a tie, to even
        "9007199254740993.0000001", // just above it
        "9999999999999999999",      // nineteen digits
        "18446744073709551616",     // 2^64: the mantissa would overflow
        "0.000000000000000000001",  // one digit that counts, far behind the point
        "123456789012345678e-22",
        "1e22",
        "1e23",                    // 10^23 is no double
        "8.5e-323",                // subnormal
        "2.2250738585072011e-308", // just below the smallest normal number
        "1.7976931348623157e308",  // the largest
        "-0",
        "0.0e5",
        "5e-324",
    };
    for (const char* const text : cases)
        EXPECT_TRUE(isRoundedAsByTheLibrary(text)) << text;
}

TEST(LasNumber, takesWhatIsSpelledAsANumberAndNoMore) {
    struct {
        const char* text;
        bool isNumber;
        double value;
        std::size_t length;
    } const cases[] = {
        {"12.5 7", true, 12.5, 4},
        {".5\n", true, 0.5, 2},
        {"-.5\t", true, -0.5, 3},
        {"5.,", true, 5.0, 2},
        {"+7 ", true, 7.0, 2},
        {"1e3x", true, 1000.0, 3},
        {"1e x", true, 1.0, 1}, // an "e" without digits is not of the number
        {"1e+", true, 1.0, 1},
        {"1.2.3", true, 1.2, 3},
        {"1e-400 ", true, 0.0, 6}, // below the smallest double
        {"0.0000001e-9999 ", true, 0.0, 15},
        {"-", false, 0.0, 0},
        {".", false, 0.0, 0},
        {"e5", false, 0.0, 0},
        {"--1", false, 0.0, 0},
        {"+-1", false, 0.0, 0},
        {"nan", false, 0.0, 0},
        {"inf", false, 0.0, 0},
        {"-Infinity", false, 0.0, 0},
        {"1e400 ", false, 0.0, 0}, // beyond the largest double
        {"-12345e99999999999", false, 0.0, 0},
    };
    for (const auto& c : cases) {
        const reading got = readText(c.text);
        EXPECT_EQ(got.isNumber, c.isNumber) << c.text;
        if (!c.isNumber)
            continue;
        EXPECT_EQ(got.value, c.value) << c.text;
        EXPECT_EQ(got.length, c.length) << c.text;
    }
}

TEST(LasNumber, decimalCommaStandsBetweenDigits) {
    EXPECT_EQ(lasNumber::whole(std::string_view("123,45"), true), 123.45);
    EXPECT_EQ(lasNumber::whole(std::wstring_view(L"-0,5"), true), -0.5);
    for (const char* const text : {"12,", ",5", "-,5", "1,2,3", "1,234.5", ""})
        EXPECT_FALSE(lasNumber::whole(std::string_view(text), true)) << text;
    EXPECT_FALSE(lasNumber::whole(std::string_view("123,45"), false));
    EXPECT_FALSE(lasNumber::whole(std::wstring_view(L"12\u0416"), true));
}
