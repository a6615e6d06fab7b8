// Identifies a well: work object, field, name and key.
#pragma once

#include <cstdint>
#include <string>

// The triple (work object, field, name) is unique in a container; the members stand in the order
// in which every SELECT returns them. A key of 0 means "not looked up yet".
struct NORLEX_wellDescription {
    std::wstring workObject;
    std::wstring field;
    std::wstring name;
    std::uint32_t wellId = 0;
};

// The same borehole: the triple decides, the key does not take part.
[[nodiscard]] inline bool operator==(const NORLEX_wellDescription& a,
                                     const NORLEX_wellDescription& b) {
    return a.workObject == b.workObject && a.field == b.field && a.name == b.name;
}
