// A column of a table as a person names it: by number or by the text of its header cell.
#pragma once

#include <string>

// The header text is looked for as it stands, then without case of letters; one that several
// columns bear is refused.
struct NORLEX_columnRef {
    int number = 0; // from 1; 0: see `header`
    std::wstring header;

    [[nodiscard]] bool isSet() const { return number != 0 || !header.empty(); }
};
