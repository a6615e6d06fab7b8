// Writes the values of one field of a property, hundreds of rows to a statement.
#pragma once

#include "NORLEX_wellDescription.h"

#include <cstdint>
#include <string>
#include <vector>

class NORLEX_wellProperty;
class odbc_database;

namespace fieldValues {

struct value {
    std::int64_t record = 0;
    std::wstring text;
};

// A value for every record of the property. A field that is not there is added as a numeric one;
// one of another type is refused. One transaction, stamped and announced as one change.
[[nodiscard]] bool write(odbc_database& db,
                         const NORLEX_wellDescription& well,
                         const NORLEX_wellProperty& property,
                         const std::wstring& field,
                         const std::vector<value>& values);

} // namespace fieldValues
