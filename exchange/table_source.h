// A delimited table on its way into a container: its rows, its columns by name, and how far it is
// read.
#pragma once

#include "NORLEX_tableColumns.h"
#include "exchange/column_search.h"
#include "platform/progress.h"
#include "tableReader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class odbc_database;

namespace tableRW {

// The line of an import that failed: the last error, or else what the database says.
[[nodiscard]] std::wstring failure(const odbc_database* db, const std::wstring& path);

} // namespace tableRW

class tableSource {
public:
    explicit tableSource(const std::wstring& path) : m_path(path), m_header(L"\"" + path + L"\"") {}

    // Reads the header where there is one.
    [[nodiscard]] bool open(const tableRW::tableOptions& format, bool hasHeader);

    [[nodiscard]] const columnSearch::header& header() const { return m_header; }

    // The next row of data; false at the end, and where reading has to stop: isWhole() tells the
    // two apart, and the last error why.
    [[nodiscard]] bool next(std::vector<std::wstring>& cells);
    [[nodiscard]] bool isWhole() const { return !m_isStopped && !m_reader.isBroken(); }

    // Notes the row last read as bad, or rather one that came earlier.
    void addError(NORLEX_tableReport& report, std::wstring reason) const;
    [[nodiscard]] std::uint64_t rowNumber() const { return m_reader.rowNumber(); }
    [[nodiscard]] std::uint64_t lineNumber() const { return m_reader.lineNumber(); }

    // Refuses the table as a whole for what the report holds: bad rows that are not to be left
    // out, or no good one.
    [[nodiscard]] bool judge(const NORLEX_tableReport& report, bool keepGoodRows) const;

private:
    std::wstring m_path;
    tableRW::tableReader m_reader;
    columnSearch::header m_header;
    bool m_isStopped = false;
    std::uint64_t m_size = 0;
    std::uint64_t m_nextLook = 0; // the row at which progress is told again
    std::optional<progress> m_progress;
};
