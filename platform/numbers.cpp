#include "platform/numbers.h"

#include <array>
#include <cstddef>

namespace numbers {

namespace {

// The largest finite double has 309 digits before the point.
constexpr std::size_t longestFixed = 512;

template <typename Char>
std::basic_string_view<Char> trimmedOf(std::basic_string_view<Char> text) {
    const auto blank = [](Char c) {
        return c == Char(' ') || c == Char('\t') || c == Char('\r') || c == Char('\n');
    };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    return trimmedOf(text);
}

std::wstring_view trimmed(std::wstring_view text) {
    return trimmedOf(text);
}

std::optional<double> toDouble(std::string_view text) {
    text = trimmed(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-' && text[1] != '+')
        text.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<double> toDouble(std::wstring_view text) {
    text = trimmed(text);
    std::string narrow;
    narrow.reserve(text.size());
    for (const wchar_t c : text) {
        if (c <= 0 || c > 126)
            return std::nullopt;
        narrow += static_cast<char>(c);
    }
    return toDouble(std::string_view(narrow));
}

std::string fixed(double value, int decimals) {
    std::array<char, longestFixed> digits{};
    const auto result = std::to_chars(
        digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, decimals);
    return {digits.data(), result.ptr};
}

std::string shortest(double value) {
    std::array<char, 32> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), result.ptr};
}

} // namespace numbers
