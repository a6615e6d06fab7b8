// NORLEX_well::exportLAS: logs on a common depth grid.
#include "NORLEX_well.h"

#include "exchange/depth_grid.h"
#include "exchange/las_writer.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/string_table.h"
#include "wells/header_attributes.h"

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
                      const std::vector<NORLEX_wellProperty*>& properties) {
    las_content content;
    content.wellEntries = wellEntries(well, grid);
    for (NORLEX_wellProperty* const property : properties) {
        addNewEntries(content.wellEntries, property->getAttributeWellList());
        addNewEntries(content.paramEntries, property->getAttributeParamList());
        content.curveEntries.push_back({property->getName(),
                                        property->getAttribute(headerAttributes::units),
                                        L" ", // no API code
                                        property->getComment()});
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

// A caller cannot see a failure from here, so the last error is emptied first: whatever it says
// afterwards is of this export.
void NORLEX_well::exportLAS(const std::wstring& path,
                            const std::vector<NORLEX_wellProperty*>& properties) {
    refuse({});
    if (properties.empty()) {
        refuse(L"there is no log to write; at least one is needed");
        return;
    }
    log_columns logs;
    if (!readColumns(*m_db, properties, log_order::stored, logs))
        return;
    const auto range = depth_grid::of(logs);
    if (!range)
        return;
    const depth_grid grid = range->rounded();
    if (!grid.isWalkable())
        return;
    if (grid.top == grid.bottom) { // a range that no row of two decimals divides
        static_cast<void>(
            files::replace(path, [&](std::FILE* file) { return writeFile(file, grid, nullptr); }));
        return;
    }
    las_content content = contentOf(getDescription(), grid, properties);
    content.logs = std::move(logs);
    static_cast<void>(
        files::replace(path, [&](std::FILE* file) { return writeFile(file, grid, &content); }));
}
