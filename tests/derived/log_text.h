// Logs as text: "10:1.5 11:- 12:3" are samples at 10, 11 and 12 metres, the second one missing.
#pragma once

#include "NORLEX_logSample.h"
#include "derived/depth_pieces.h"
#include "platform/numbers.h"

#include <string>
#include <string_view>
#include <vector>

namespace logText {

inline double number(std::string_view text) {
    return text == "-" ? NORLEX_missingValue : numbers::toDouble(text).value();
}
inline std::string number(double value) {
    return value == NORLEX_missingValue ? "-" : numbers::shortest(value);
}

// The parts of `text` between blanks.
inline std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> out;
    while (!text.empty()) {
        const auto end = std::min(text.find(' '), text.size());
        if (end > 0)
            out.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return out;
}

// The absolute depth is the measured one, negated.
inline std::vector<NORLEX_logSample> log(std::string_view text) {
    std::vector<NORLEX_logSample> out;
    for (const auto word : words(text)) {
        const auto colon = word.find(':');
        const double depth = number(word.substr(0, colon));
        out.push_back({depth, -depth, number(word.substr(colon + 1))});
    }
    return out;
}

// "0..2:1.5 2..3:-"
inline std::vector<depthPiece> pieces(std::string_view text) {
    std::vector<depthPiece> out;
    for (const auto word : words(text)) {
        const auto dots = word.find("..");
        const auto colon = word.find(':');
        out.push_back(
            {{number(word.substr(0, dots)), number(word.substr(dots + 2, colon - dots - 2))},
             number(word.substr(colon + 1))});
    }
    return out;
}

template <typename Items, typename Spelled>
std::string joined(const Items& items, Spelled spelled) {
    std::string out;
    for (const auto& item : items)
        out += (out.empty() ? "" : " ") + spelled(item);
    return out;
}

inline std::string shown(const std::vector<NORLEX_logSample>& samples) {
    return joined(samples, [](const auto& s) { return number(s.depth) + ":" + number(s.value); });
}
inline std::string shown(const std::vector<double>& values) {
    return joined(values, [](double value) { return number(value); });
}
inline std::string shown(const std::vector<depthSpan>& spans) {
    return joined(spans, [](const auto& s) { return number(s.top) + ".." + number(s.bot); });
}

} // namespace logText
