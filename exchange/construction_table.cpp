// Constructions from tables: NORLEX_wellConstruction::loadElementsFromFile.
#include "NORLEX_wellConstruction.h"
#include "exchange/column_search.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "tableReader.h"
#include "wells/table_rows.h"

#include <algorithm>
#include <cmath>

namespace {

using section = NORLEX_wellConstructionElement;

struct numberColumn {
    const wchar_t* what;
    std::wstring NORLEX_construction_load_options::*given;
    double section::*value;
};

constexpr numberColumn numberColumns[] = {
    {L"from_dig", &NORLEX_construction_load_options::from_dig, &section::from_dig},
    {L"to_dig", &NORLEX_construction_load_options::to_dig, &section::to_dig},
    {L"diametr_dig", &NORLEX_construction_load_options::diametr_dig, &section::diametr_dig},
    {L"from_pipe", &NORLEX_construction_load_options::from_pipe, &section::from_pipe},
    {L"to_pipe", &NORLEX_construction_load_options::to_pipe, &section::to_pipe},
    {L"diametr_concrete",
     &NORLEX_construction_load_options::diametr_concrete,
     &section::diametr_concrete},
};

NORLEX_columnRef columnOf(const std::wstring& text) {
    NORLEX_columnRef column;
    const bool isNumber =
        !text.empty() && text.size() < 6
        && std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    if (isNumber)
        for (const wchar_t digit : text)
            column.number = column.number * 10 + (digit - L'0');
    else
        column.header = text;
    return column;
}

struct columns {
    int numbers[std::size(numberColumns)] = {};
    int comment = 0;
};

bool findColumns(const columnSearch::header& header,
                 const NORLEX_construction_load_options& options,
                 columns& out) {
    for (std::size_t i = 0; i < std::size(numberColumns); ++i)
        if (!header.find(
                columnOf(options.*numberColumns[i].given), numberColumns[i].what, out.numbers[i]))
            return false;
    return header.find(columnOf(options.comment), L"comment", out.comment)
           && (out.numbers[1] != 0
               || refuse(L"no column holds the end of the sections; to_dig is expected"));
}

std::wstring cell(const std::vector<std::wstring>& cells, int column) {
    const auto index = static_cast<std::size_t>(column) - 1; // of column 0: past every end
    return index < cells.size() ? cells[index] : std::wstring();
}

// The section of a row; the answer says why there is none.
std::wstring parse(const std::vector<std::wstring>& cells, const columns& at, section& out) {
    for (std::size_t i = 0; i < std::size(numberColumns); ++i) {
        const std::wstring text = cell(cells, at.numbers[i]);
        if (numbers::trimmed(text).empty())
            continue;
        const auto value = tableRows::toNumber(text);
        if (!value)
            return std::wstring(numberColumns[i].what) + L" \"" + text + L"\" is no number";
        out.*numberColumns[i].value = *value;
    }
    out.comment = cell(cells, at.comment);
    return NORLEX_wellConstruction::faultOf(out);
}

} // namespace

bool NORLEX_wellConstruction::loadElementsFromFile(const std::wstring& path,
                                                   const tableRW::tableOptions& format,
                                                   const NORLEX_construction_load_options& options,
                                                   NORLEX_tableReport& report) {
    report = {};
    tableRW::tableReader reader;
    columnSearch::header header(L"\"" + path + L"\"");
    columns at;
    if (!reader.open(path, format) || !header.read(reader, true)
        || !findColumns(header, options, at))
        return false;
    std::vector<section> elements;
    std::vector<std::wstring> cells;
    while (reader.next(cells)) {
        ++report.rows;
        section element;
        auto reason = parse(cells, at, element);
        if (reason.empty())
            elements.push_back(std::move(element));
        else
            tableRows::addError(report, reader.rowNumber(), reader.lineNumber(), std::move(reason));
    }
    if (reader.isBroken() || (report.badCount != 0 && !tableRows::refuseBadRows(report))
        || !loadElementsFromData(elements))
        return false;
    report.taken = elements.size();
    return true;
}
