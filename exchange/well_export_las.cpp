#include "exchange/well_export_las.h"

#include "NORLEX_well.h"
#include "exchange/depth_grid.h"
#include "exchange/las_writer.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/string_table.h"
#include "wells/header_attributes.h"

using headerAttributes::block;

namespace {

constexpr std::wstring_view hyphens = L"#-----------------------------------------";
constexpr std::string_view gap = "      ";

struct las_content {
    std::vector<lasDescription> wellEntries;
    std::vector<lasDescription> curveEntries;
    std::vector<lasDescription> paramEntries;
    log_columns logs;
};

std::wstring twoDecimals(double x) {
    const std::string digits = numbers::fixed(x, 2);
    return {digits.begin(), digits.end()};
}

std::vector<lasDescription> wellEntries(const NORLEX_wellDescription& well,
                                        const depth_grid& grid) {
    const std::wstring metre = L"\u041C"; // the Cyrillic capital em
    return {
        {L"STRT", metre, twoDecimals(grid.top), stringTable::text(150)},
        {L"STOP", metre, twoDecimals(grid.bottom), stringTable::text(151)},
        {L"STEP", metre, twoDecimals(grid.step), stringTable::text(152)},
        {L"NULL", L"", L"-99999.0", stringTable::text(153)},
        {L"WELL", L"", well.name, stringTable::text(155)},
        {L"FLD", L"", well.field, stringTable::text(156)},
    };
}

las_content contentOf(const NORLEX_wellDescription& well,
                      const depth_grid& grid,
                      const std::vector<exportedLogs::source>& logs) {
    las_content content;
    content.wellEntries = wellEntries(well, grid);
    for (const auto& log : logs) {
        addNewEntries(content.wellEntries, headerAttributes::entries(log.attributes, block::well));
        addNewEntries(content.paramEntries,
                      headerAttributes::entries(log.attributes, block::param));
        content.curveEntries.push_back({log.name,
                                        log.attribute(headerAttributes::units),
                                        L" ", // no API code
                                        log.comment});
    }
    return content;
}

void writeHeader(las_writer& out, const las_content& content) {
    out.block(content.wellEntries);
    out.line(hyphens);
    out.line(L"~Curve Information Block");
    out.line(L"# MNEM.UNIT                   API CODE   CURVE DESCRIPTION ");
    out.line(L"DEPT.");
    out.block(content.curveEntries);
    out.line(hyphens);
    if (!content.paramEntries.empty()) {
        out.line(L"~Parameter Information");
        out.line(L"# MNEM.UNIT                     VALUE       DESCRIPTION ");
        out.line(hyphens);
        out.block(content.paramEntries);
        out.line(hyphens);
    }
    out.line(L"~ASCII Log Data");
}

void writeValue(las_writer& out, double value) {
    if (value == NORLEX_missingValue)
        out.ascii("-99999.0");
    else
        out.fixed(value, 3);
    out.ascii(gap);
}

// The depth is added up, so that it carries the rounding of every step: files must not change
// where that shows in the last row.
void writeRows(las_writer& out, const depth_grid& grid, const log_columns& logs) {
    std::vector<grid_cursor> cursors(logs.begin(), logs.end());
    double depth = grid.top;
    while (depth <= grid.bottom && out.isOK()) {
        out.fixed(depth, 1);
        out.ascii(gap);
        for (auto& cursor : cursors)
            writeValue(out, cursor.valueAt(depth));
        out.endLine();
        depth += grid.step;
    }
}

bool writeFile(std::FILE* file, const depth_grid& grid, const las_content* content) {
    las_writer out(file, ts::strconv::windows1251);
    out.line(L"~Version Information");
    out.line(hyphens);
    out.line(L"VERS.                 2.0:    CWLS Log ASCII Standard - Version 2.0");
    out.line(L"WRAP.NO : One Lines per Depth Step");
    out.line(L"~Well Information Block");
    if (content != nullptr) {
        writeHeader(out, *content);
        writeRows(out, grid, content->logs);
    }
    return out.flush();
}

} // namespace

bool describedLas::write(const std::wstring& path,
                         const NORLEX_wellDescription& well,
                         const std::vector<exportedLogs::source>& logs) {
    if (logs.empty())
        return refuse(L"there is no log to write; at least one is needed");
    log_columns columns;
    if (!readColumns(logs, log_order::stored, columns))
        return false;
    const auto range = depth_grid::of(columns);
    if (!range)
        return false;
    const depth_grid grid = range->rounded();
    if (!grid.isWalkable())
        return false;
    if (grid.top == grid.bottom) // a range that no row of two decimals divides
        return files::replace(path,
                              [&](std::FILE* file) { return writeFile(file, grid, nullptr); });
    las_content content = contentOf(well, grid, logs);
    content.logs = std::move(columns);
    return files::replace(path, [&](std::FILE* file) { return writeFile(file, grid, &content); });
}

// A caller cannot see a failure from here, so the last error is emptied first: whatever it says
// afterwards is of this export.
void NORLEX_well::exportLAS(const std::wstring& path,
                            const std::vector<NORLEX_wellProperty*>& properties) {
    refuse({});
    std::vector<exportedLogs::source> logs;
    if (exportedLogs::of(*m_db, properties, logs))
        static_cast<void>(describedLas::write(path, getDescription(), logs));
}
