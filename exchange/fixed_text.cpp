#include "exchange/fixed_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>

namespace fixedText {

namespace {

constexpr int fractionBits = 52;
constexpr int exponentBias = 1023;

char* writeGeneral(char* to, double value, int decimals) {
    return std::to_chars(to, to + longest, value, std::chars_format::fixed, decimals).ptr;
}

// `scaled` / 10^decimals.
char* writeScaled(char* to, std::uint64_t scaled, std::uint64_t power, int decimals) {
    to = std::to_chars(to, to + longest, scaled / power).ptr;
    *to++ = '.';
    std::uint64_t rest = scaled % power;
    for (int i = decimals - 1; i >= 0; --i, rest /= 10)
        to[i] = static_cast<char>('0' + rest % 10);
    return to + decimals;
}

} // namespace

// A double is m × 2^-k with m < 2^53. For 0 < k < 64, m × 10^decimals stays below 2^63 and its
// division by 2^k with rounding is exact in integers. Larger and much smaller numbers, which logs
// hardly hold, go the general way.
char* write(char* to, double value, int decimals) {
    static constexpr std::array<std::uint64_t, 4> powers = {1, 10, 100, 1000};
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int exponent = static_cast<int>((bits >> fractionBits) & 0x7FF);
    const int shift = exponentBias + fractionBits - exponent;
    if (shift <= 0 || shift >= 64 || decimals < 1 || decimals > 3)
        return writeGeneral(to, value, decimals);

    const std::uint64_t mantissa =
        (bits & ((std::uint64_t{1} << fractionBits) - 1)) | (std::uint64_t{1} << fractionBits);
    const std::uint64_t power = powers[static_cast<std::size_t>(decimals)];
    const std::uint64_t product = mantissa * power;
    std::uint64_t scaled = product >> shift;
    const std::uint64_t rest = product & ((std::uint64_t{1} << shift) - 1);
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    if (rest > half || (rest == half && (scaled & 1) != 0))
        ++scaled;
    if ((bits >> 63) != 0)
        *to++ = '-';
    return writeScaled(to, scaled, power, decimals);
}

} // namespace fixedText
