// Decimal numbers of log data, read fast and always correctly rounded.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace lasNumber {

// Behind the longest decimal number ("-12.5", ".5", "+1.e-3") at the start of `text`, or null when
// there is none: words such as "nan" and "inf" are no numbers here, nor is a value beyond the range
// of a double; one below it is 0. The text must be ended by a byte that cannot belong to a number.
[[nodiscard]] const char* readCarefully(const char* text, double& value);

// The whole of `field` as a number; with `decimalComma` also one comma in place of the point.
[[nodiscard]] std::optional<double> whole(std::string_view field, bool decimalComma);
// The same of wide text, of which anything beyond ASCII is no number.
[[nodiscard]] std::optional<double> whole(std::wstring_view field, bool decimalComma);

// Powers of ten that a double holds exactly.
inline constexpr std::array<double, 23> exactPowers = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr std::uint64_t exactMantissa = std::uint64_t{1} << 53;

// Up to this many digits fit an unsigned 64-bit integer.
inline constexpr std::uint64_t mostDigits = 19;

// The digits at `text` appended to `mantissa`; answers behind them.
inline const char* takeDigits(const char* text, std::uint64_t& mantissa) {
    for (;; ++text) {
        const unsigned digit = static_cast<unsigned char>(*text) - unsigned{'0'};
        if (digit > 9)
            return text;
        mantissa = mantissa * 10 + digit;
    }
}

// readCarefully for the common case, which it leaves to it otherwise. A mantissa and a power of ten
// that are both exact in a double give a correctly rounded quotient in one division.
//
// W. D. Clinger, "How to read floating point numbers accurately", 1990.
[[nodiscard]] inline const char* read(const char* text, double& value) {
    const char* at = text;
    const bool negative = *at == '-';
    at += negative ? 1 : 0;
    std::uint64_t mantissa = 0;
    const char* const whole = at;
    at = takeDigits(at, mantissa);
    auto digits = static_cast<std::uint64_t>(at - whole);
    std::uint64_t decimals = 0;
    if (*at == '.') {
        const char* const fraction = at + 1;
        at = takeDigits(fraction, mantissa);
        decimals = static_cast<std::uint64_t>(at - fraction);
        digits += decimals;
    }
    // no digit at all wraps around to a large number
    if (digits - 1 >= mostDigits || mantissa > exactMantissa || (*at | 0x20) == 'e')
        return readCarefully(text, value);
    const double magnitude =
        static_cast<double>(static_cast<std::int64_t>(mantissa)) / exactPowers[decimals];
    value = negative ? -magnitude : magnitude;
    return at;
}

} // namespace lasNumber
