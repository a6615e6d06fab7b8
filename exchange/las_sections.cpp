#include "exchange/las_sections.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lasSections {

namespace {

template <class character>
constexpr character lower(character c) {
    return c >= 'A' && c <= 'Z' ? static_cast<character>(c - 'A' + 'a') : c;
}

kind ofLetter(char letter) {
    switch (lower(letter)) {
    case 'v':
        return kind::version;
    case 'w':
        return kind::well;
    case 'c':
        return kind::curves;
    case 'p':
        return kind::parameters;
    case 'o':
        return kind::other;
    case 'a':
        return kind::data;
    default:
        return kind::unread;
    }
}

// Sets whose name is also that of a section of version 2.0: "~ASCII_Data" is the log data.
constexpr std::array<std::string_view, 13> plainSets = {"v",
                                                        "version",
                                                        "w",
                                                        "well",
                                                        "c",
                                                        "curve",
                                                        "curves",
                                                        "p",
                                                        "parameter",
                                                        "o",
                                                        "other",
                                                        "a",
                                                        "ascii"};

kind ofSet(std::string_view set, std::string_view part) {
    const auto same = [set](std::string_view name) { return sameWithoutCase(set, name); };
    if (std::ranges::any_of(plainSets, same))
        return ofLetter(set.front());
    if (!same("log"))
        return kind::unread;
    return sameWithoutCase(part, "definition")  ? kind::curves
           : sameWithoutCase(part, "parameter") ? kind::parameters
                                                : kind::data;
}

} // namespace

bool sameWithoutCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lower<char>, lower<char>);
}

bool sameWithoutCase(std::wstring_view left, std::wstring_view right) {
    return std::ranges::equal(left, right, {}, lower<wchar_t>, lower<wchar_t>);
}

kind ofTitle(std::string_view title) {
    const auto name = title.substr(1, title.find_first_of(" \t|[", 1) - 1);
    if (name.empty())
        return kind::unread;
    const auto part = name.substr(name.rfind('_') + 1);
    for (const std::string_view known : {"definition", "data", "parameter"})
        if (part.size() + 1 < name.size() && sameWithoutCase(part, known))
            return ofSet(name.substr(0, name.find('_')), part);
    return ofLetter(name.front());
}

} // namespace lasSections
