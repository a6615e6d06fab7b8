#include "exchange/survey_angles.h"

#include "platform/numbers.h"
#include "wells/table_rows.h"

#include <cmath>
#include <vector>

namespace surveyAngles {

namespace {

bool isBetween(wchar_t c) {
    return std::wstring_view(L" \t°'\"′″’”:º").find(c) != std::wstring_view::npos;
}

std::vector<std::wstring> parts(std::wstring_view text) {
    std::vector<std::wstring> out;
    bool isOpen = false;
    for (const wchar_t c : text) {
        if (isBetween(c)) {
            isOpen = false;
            continue;
        }
        if (!isOpen)
            out.emplace_back();
        isOpen = true;
        out.back() += c;
    }
    return out;
}

// The bearing of a letter; nothing when it is none of the four.
std::optional<double> bearingOf(wchar_t letter) {
    constexpr std::wstring_view letters = L"NnСсEeВвSsЮюWwЗз"; // four to a quarter
    const auto at = letters.find(letter);
    if (at == std::wstring_view::npos)
        return std::nullopt;
    const std::size_t quarter = at / 4;
    return 90.0 * static_cast<double>(quarter);
}

// From `from`, north or south, by an angle towards `to`, east or west.
std::optional<double> quadrant(double from, std::wstring_view angle, double to) {
    const auto by = degrees(angle);
    const bool isQuadrant = std::fmod(from, 180.0) == 0.0 && std::fmod(to, 180.0) != 0.0;
    if (!isQuadrant || !by || *by < 0.0 || *by > 90.0)
        return std::nullopt;
    const bool isClockwise = (from == 0.0) == (to == 90.0);
    return turned(isClockwise ? from + *by : from - *by);
}

} // namespace

double turned(double degrees) {
    const double rest = std::fmod(degrees, 360.0);
    const double positive = rest < 0.0 ? rest + 360.0 : rest;
    return positive >= 360.0 ? 0.0 : positive; // a tiny negative rest rounds up to 360
}

std::optional<double> degrees(std::wstring_view text) {
    const auto pieces = parts(text);
    if (pieces.empty() || pieces.size() > 3)
        return std::nullopt;
    double out = 0.0;
    double share = 1.0;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const auto value = tableRows::toNumber(pieces[i]);
        if (!value || !std::isfinite(*value) || (i > 0 && (*value < 0.0 || *value >= 60.0)))
            return std::nullopt;
        out += std::abs(*value) * share;
        share /= 60.0;
    }
    return pieces.front().front() == L'-' ? -out : out;
}

std::optional<double> azimuth(std::wstring_view text) {
    text = numbers::trimmed(text);
    if (text.empty())
        return std::nullopt;
    const auto first = bearingOf(text.front());
    if (!first) {
        const auto angle = degrees(text);
        return angle ? std::optional(turned(*angle)) : std::nullopt;
    }
    if (text.size() == 1)
        return first;
    const auto last = bearingOf(text.back());
    return last ? quadrant(*first, text.substr(1, text.size() - 2), *last) : std::nullopt;
}

} // namespace surveyAngles
