// Dictionaries as tables: NORLEX_dictionary's entries read from one and written as one.
#include "NORLEX_columnRef.h"
#include "NORLEX_dictionary.h"
#include "NORLEX_tableColumns.h"
#include "exchange/table_source.h"
#include "exchange/table_writer.h"
#include "platform/files.h"
#include "platform/last_error.h"

#include <optional>

namespace {

using pairs = std::vector<std::pair<std::wstring, std::wstring>>;

// The cell of a column counted from 1; nothing when the row is too short.
std::optional<std::wstring> cellOf(const std::vector<std::wstring>& cells, int column) {
    const auto at = static_cast<std::size_t>(column) - 1;
    return at < cells.size() ? std::optional(cells[at]) : std::nullopt;
}

void readPairs(
    tableSource& table, int codeColumn, int valueColumn, pairs& out, NORLEX_tableReport& report) {
    std::vector<std::wstring> cells;
    while (table.next(cells)) {
        ++report.rows;
        auto code = cellOf(cells, codeColumn);
        auto value = cellOf(cells, valueColumn);
        if (!code || !value)
            table.addError(report,
                           L"the row has " + std::to_wstring(cells.size())
                               + L" cells; a code in column " + std::to_wstring(codeColumn)
                               + L" and its value in column " + std::to_wstring(valueColumn)
                               + L" are expected");
        else if (code->empty() && value->empty())
            table.addError(report, L"neither a code nor a value is in the row");
        else
            out.emplace_back(std::move(*code), std::move(*value));
    }
}

// Both columns are needed, and a table has them or not.
bool findColumn(const tableSource& table,
                const NORLEX_columnRef& column,
                const std::wstring& what,
                int& number) {
    if (!column.isSet())
        return refuse(L"a table of a dictionary needs the column of " + what);
    return table.header().find(column, what, number);
}

} // namespace

bool NORLEX_dictionary::importFromText(const std::wstring& path,
                                       const NORLEX_dictTableOptions& options,
                                       const NORLEX_columnRef& code,
                                       const NORLEX_columnRef& value,
                                       NORLEX_tableReport& report) {
    report = {};
    tableSource table(path);
    int codeColumn = 0;
    int valueColumn = 0;
    if (!isOpen() || !table.open(options.format, options.hasHeader)
        || !findColumn(table, code, L"the codes", codeColumn)
        || !findColumn(table, value, L"the values", valueColumn))
        return false;
    pairs read;
    readPairs(table, codeColumn, valueColumn, read, report);
    report.taken = read.size(); // as far as one can tell before they are stored
    if (!table.isWhole() || !table.judge(report, options.keepGoodRows)
        || !addAll(read, report.taken)) {
        report.taken = 0;
        return false;
    }
    report.passedOver = read.size() - report.taken;
    return true;
}

bool NORLEX_dictionary::importFromText(const std::wstring& path,
                                       const NORLEX_dictTableOptions& options,
                                       int codeColumn,
                                       int valueColumn,
                                       NORLEX_tableReport& report) {
    return importFromText(
        path, options, NORLEX_columnRef{codeColumn, {}}, NORLEX_columnRef{valueColumn, {}}, report);
}

bool NORLEX_dictionary::exportToText(const std::wstring& path,
                                     ts::strconv::encodings encoding) const {
    if (!isOpen())
        return false;
    if (encoding == ts::strconv::detect)
        return refuse(L"a table needs an encoding to be written in");
    return files::replace(path, [&](std::FILE* file) {
        tableWriter lines(file, ';', encoding, tableWriter::style::plainLines);
        for (const auto& entry : getValueList()) {
            lines.add(entry.code);
            lines.add(entry.value);
            if (!lines.endRow())
                return false;
        }
        return lines.finish();
    });
}
