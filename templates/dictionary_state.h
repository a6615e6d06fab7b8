// What an open dictionary keeps in memory of the database.
#pragma once

#include "NORLEX_dictionary.h"
#include "events/change_watch.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

struct NORLEX_dictionary::state {
    using index = std::unordered_map<std::wstring, std::size_t>; // the first entry of a text

    std::wstring name;
    std::uint32_t id = 0;
    bool ok = false;
    bool isStale = false; // to be read again
    std::vector<NORLEX_dictionary_value> values;
    std::optional<index> byCode; // made when they are first asked for
    std::optional<index> byValue;
    // Announcements of this object's own that are on their way back to it.
    int expected = 0;
    std::optional<changeWatch> watch;

    void entriesChanged() {
        byCode.reset();
        byValue.reset();
    }
};
