#include "cli/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr double largestFixed = 1e15; // above it a double has no decimals left to show

} // namespace

namespace numberText {

std::optional<double> parse(std::string_view text) {
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string shortest(double value) {
    std::array<char, 32> buffer{};
    const auto [stop, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return error == std::errc{} ? std::string(buffer.data(), stop) : std::string{};
}

std::string fixed(double value, int decimals) {
    if (!std::isfinite(value))
        return {};
    if (std::abs(value) >= largestFixed)
        return shortest(value);
    std::array<char, 64> buffer{};
    const auto [stop, error] = std::to_chars(
        buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    if (error != std::errc{})
        return {};
    std::string out(buffer.data(), stop);
    // A small negative value rounds to zero, which has no sign.
    if (out.starts_with('-') && out.find_first_not_of("-0.") == std::string::npos)
        out.erase(0, 1);
    return out;
}

std::string brief(double value) {
    constexpr int places = 4;
    if (value != 0.0 && std::abs(value) < 0.001)
        return shortest(value);
    std::string out = fixed(value, places);
    if (out.find('.') == std::string::npos || out.find('e') != std::string::npos)
        return out;
    out.erase(out.find_last_not_of('0') + 1);
    if (out.ends_with('.'))
        out.pop_back();
    return out;
}

std::string counted(std::size_t count, std::string_view thing) {
    return std::to_string(count) + " " + std::string(thing) + (count == 1 ? "" : "s");
}

} // namespace numberText
