// Rows of a delimited text table on their way into a file.
#pragma once

#include "ts_strconv.h"

#include <cstdio>
#include <string>
#include <string_view>

class tableWriter {
public:
    // What a cell is quoted for: any of the three separators, for readers that try them in turn,
    // or only the one in use. The first ends lines with CR LF, the second with LF.
    enum class style { table, plainLines };

    // Begins the file: UTF-16 and UTF-32 need a byte-order mark.
    tableWriter(std::FILE* file,
                char separator,
                ts::strconv::encodings encoding,
                style wanted = style::table);

    // Refuses a separator that is none, and an encoding that stands for finding one out.
    [[nodiscard]] static bool accepts(char separator, ts::strconv::encodings encoding);

    // Quoted where the cell would read back as something else.
    void add(std::wstring_view cell);
    // A number that reads back the same.
    void add(double number);
    // False, with a line, when the row cannot be written, or not in this encoding.
    [[nodiscard]] bool endRow();
    [[nodiscard]] bool finish();

private:
    [[nodiscard]] bool flush();

    std::FILE* m_file;
    wchar_t m_separator;
    ts::strconv::encodings m_encoding;
    std::wstring m_special; // characters that a cell is quoted for
    std::wstring m_lineEnd;
    std::wstring m_row;
    bool m_isRowEmpty = true;
    std::string m_bytes;
};
