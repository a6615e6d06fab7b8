// Identifies a property of a well: its name and its group.
#pragma once

#include <compare>
#include <string>
#include <utility>

// The pair is unique within a well; it orders by name, then group.
class NORLEX_propDescription {
public:
    NORLEX_propDescription() = default;
    NORLEX_propDescription(std::wstring propName, std::wstring propGroup)
        : name(std::move(propName)), group(std::move(propGroup)) {}
    NORLEX_propDescription(const NORLEX_propDescription&) = default;
    NORLEX_propDescription(NORLEX_propDescription&&) = default;
    NORLEX_propDescription& operator=(const NORLEX_propDescription&) = default;
    NORLEX_propDescription& operator=(NORLEX_propDescription&&) = default;
    virtual ~NORLEX_propDescription() = default;

    std::wstring name;
    std::wstring group;
};

[[nodiscard]] inline bool operator==(const NORLEX_propDescription& a,
                                     const NORLEX_propDescription& b) {
    return a.name == b.name && a.group == b.group;
}

[[nodiscard]] inline std::strong_ordering operator<=>(const NORLEX_propDescription& a,
                                                      const NORLEX_propDescription& b) {
    if (const auto byName = a.name.compare(b.name); byName != 0)
        return byName <=> 0;
    return a.group.compare(b.group) <=> 0;
}
