#include "exchange/las_number.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

namespace lasNumber {

namespace {

// A decimal number as it is spelled: [sign] digits [. digits] [e [sign] digits].
struct spelling {
    const char* begin = nullptr; // behind a "+", which from_chars does not take
    const char* end = nullptr;
    bool negative = false;
    std::uint64_t mantissa = 0; // of all digits; has overflowed when there are more than 19
    std::uint64_t digits = 0;
    std::int64_t exponent = 0; // of ten, with the decimals counted in
    // Of ten, of the first digit that is not zero: tells overflow from underflow.
    std::int64_t magnitude = 0;
};

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr std::int64_t largestExponent = 1'000'000'000; // written ones beyond it count as this

const char* takeExponent(const char* at, std::int64_t& exponent) {
    const char* digits = at + 1;
    const bool negative = *digits == '-';
    if (*digits == '-' || *digits == '+')
        ++digits;
    std::int64_t value = 0;
    const char* end = digits;
    for (; isDigit(*end); ++end)
        value = std::min(value * 10 + (*end - '0'), largestExponent);
    if (end == digits)
        return at; // an "e" without digits does not belong to the number
    exponent += negative ? -value : value;
    return end;
}

bool spell(const char* text, spelling& number) {
    number.negative = *text == '-';
    const char* at = *text == '-' || *text == '+' ? text + 1 : text;
    number.begin = number.negative ? text : at;
    const char* const whole = at;
    at = takeDigits(at, number.mantissa);
    const char* const point = at;
    if (*point == '.')
        at = takeDigits(point + 1, number.mantissa);
    const std::int64_t decimals = *point == '.' ? at - point - 1 : 0;
    number.digits = static_cast<std::uint64_t>(point - whole + decimals);
    if (number.digits == 0)
        return false;
    const char* const first = std::find_if(whole, at, [](char c) { return c >= '1' && c <= '9'; });
    number.magnitude = first < point ? point - first - 1 : point - first;
    number.exponent = -decimals;
    number.end = at;
    if ((*at | 0x20) == 'e') {
        std::int64_t written = 0;
        number.end = takeExponent(at, written);
        number.exponent += written;
        number.magnitude += written;
    }
    return true;
}

bool isExact(const spelling& number) {
    constexpr auto most = static_cast<std::int64_t>(exactPowers.size()) - 1;
    return number.digits <= mostDigits && number.mantissa <= exactMantissa
           && number.exponent >= -most && number.exponent <= most;
}

double exactValue(const spelling& number) {
    const auto mantissa = static_cast<double>(number.mantissa);
    const auto power = static_cast<std::size_t>(std::abs(number.exponent));
    const double magnitude =
        number.exponent < 0 ? mantissa / exactPowers[power] : mantissa * exactPowers[power];
    return number.negative ? -magnitude : magnitude;
}

} // namespace

const char* readCarefully(const char* text, double& value) {
    spelling number;
    if (!spell(text, number))
        return nullptr;
    if (isExact(number)) {
        value = exactValue(number);
        return number.end;
    }
    const auto error = std::from_chars(number.begin, number.end, value).ec;
    if (error == std::errc::result_out_of_range) {
        if (number.magnitude > 0)
            return nullptr;
        value = number.negative ? -0.0 : 0.0;
    }
    return number.end;
}

std::optional<double> whole(std::string_view field, bool decimalComma) {
    std::string text{field};
    // Digits stand on both sides of a decimal comma, so that "12," is no number.
    const auto comma = text.find(',');
    if (decimalComma && comma != std::string::npos && text.find('.') == std::string::npos
        && isDigit(text[comma + 1]) && comma != 0 && isDigit(text[comma - 1]))
        text[comma] = '.';
    double value = 0.0;
    const char* const end = read(text.c_str(), value);
    if (end == nullptr || end != text.c_str() + text.size())
        return {};
    return value;
}

std::optional<double> whole(std::wstring_view field, bool decimalComma) {
    std::string text;
    for (const wchar_t c : field) {
        if (c <= 0 || c >= 0x80)
            return {};
        text += static_cast<char>(c);
    }
    return whole(std::string_view{text}, decimalComma);
}

} // namespace lasNumber
