// Rows of a table as records of a property.
#pragma once

#include "NORLEX_propRecord.h"
#include "NORLEX_tableColumns.h"
#include "NORLEX_wellProperty.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class NORLEX_inclinometry;

namespace tableRows {

enum class outcome { record, passedOver, bad };

class parser {
public:
    parser(const NORLEX_tableColumns& columns,
           const NORLEX_tableOptions& options,
           const std::vector<NORLEX_propField>& fields,
           bool arePoints);

    // Why the columns do not suit the property: no depth column for its kind, a field that it does
    // not have, a column number below 1. Empty when they do.
    [[nodiscard]] std::wstring fault() const { return m_fault; }

    // `cells` may be shorter than the columns: what is missing is empty. Depths are completed with
    // the survey. A numeric field takes a number, its decimal comma becomes a point. `reason` is
    // set for a bad row.
    [[nodiscard]] outcome parse(const std::vector<std::wstring>& cells,
                                NORLEX_inclinometry* incl,
                                NORLEX_geometryRecord& record,
                                std::vector<std::wstring>& values,
                                std::wstring& reason) const;

private:
    struct depthColumn {
        int column = 0;
        double NORLEX_geometryRecord::*depth = nullptr;
    };
    struct fieldColumn {
        int column = 0; // 0: stays empty
        bool isNumeric = false;
        std::wstring name;
    };

    std::vector<depthColumn> m_depths;
    std::vector<fieldColumn> m_fields; // in the property's order
    bool m_arePoints;
    bool m_skipWithoutDepth;
    std::wstring m_fault;
};

// Hands every record of a table to `write`. False when `write` answers false, the table breaks off,
// or, unless good rows are to be kept, a row is bad; the line then names the first one.
using recordSink =
    std::function<bool(const NORLEX_geometryRecord&, const std::vector<std::wstring>&)>;
[[nodiscard]] bool readAll(tableRW::tableReader& reader,
                           const parser& rows,
                           const NORLEX_tableOptions& options,
                           NORLEX_inclinometry* incl,
                           const recordSink& write,
                           NORLEX_tableReport& report);

// What a caller is told of a table that was not taken because of its bad rows.
[[nodiscard]] bool refuseBadRows(const NORLEX_tableReport& report);

// A number with a decimal point or comma; nothing when the text is none.
[[nodiscard]] std::optional<double> toNumber(const std::wstring& text);

void addError(NORLEX_tableReport& report,
              std::uint64_t row,
              std::uint64_t line,
              std::wstring reason);

} // namespace tableRows
