// Reads the rows of a delimited text table.
#pragma once

#include "NORLEX_export.h"
#include "ts_strconv.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tableRW {

struct tableOptions {
    ts::strconv::encodings encoding = ts::strconv::detect;
    char separator = 0; // ';', ',' or tab; 0: the one that most of the first lines hold
};

// Cells lie between separators. Blanks around a cell are no part of it. A cell that begins with
// a quote ends with one, and may hold separators, line ends (read as LF) and, written twice,
// quotes; in a row where no cell begins with a quote, quotes are ordinary characters (5" casing).
// Empty lines are no rows. Rows need not be of one length.
class NORLEX_API tableReader {
public:
    tableReader();
    ~tableReader();
    tableReader(const tableReader&) = delete;
    tableReader& operator=(const tableReader&) = delete;

    // False when the file cannot be read or the separator is none of the three; last error says
    // why.
    [[nodiscard]] bool open(const std::wstring& path, const tableOptions& options);

    [[nodiscard]] ts::strconv::encodings encoding() const; // the one in use, never detect
    [[nodiscard]] char separator() const;                  // the one in use

    // False at the end of the table, and where a row cannot be read: isBroken() tells the two
    // apart, and the last error names the line. Broken are a quote that is not closed within
    // 1 MB, text behind a closing quote, a quote inside an unquoted cell of a row that has
    // quoted ones, and a line of more than 1 MB. Nothing is read behind a broken row.
    [[nodiscard]] bool next(std::vector<std::wstring>& cells);
    [[nodiscard]] bool isBroken() const;

    [[nodiscard]] std::uint64_t rowNumber() const;  // of the row last read, from 1
    [[nodiscard]] std::uint64_t lineNumber() const; // of its first line in the file, from 1
    [[nodiscard]] std::uint64_t bytesLeft() const;  // of the file, behind what was read so far

private:
    struct state;
    std::unique_ptr<state> m_state;
};

} // namespace tableRW
