#include "exchange/well_export_exact.h"

#include "NORLEX_well.h"
#include "exchange/exact_notes.h"
#include "exchange/exact_rows.h"
#include "exchange/las_writer.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/strconv.h"
#include "platform/string_table.h"
#include "wells/header_attributes.h"

#include <algorithm>
#include <limits>
#include <set>

using headerAttributes::block;

namespace {

struct exact_content {
    std::vector<lasDescription> wellEntries;
    std::vector<lasDescription> curveEntries; // the depth first
    std::vector<lasDescription> paramEntries;
    exactNotes::notes notes;
    double nullValue = 0.0;
};

std::wstring text(double x) {
    const std::string digits = numbers::shortest(x);
    return {digits.begin(), digits.end()};
}

// The entry as readers take it back. A value ends at the colon that the description begins with,
// so it holds none itself; a "~" would begin a block for readers that look for it anywhere.
lasDescription readable(lasDescription entry) {
    entry.mnemonic = exactNotes::mnemonicOf(entry.mnemonic);
    for (wchar_t& c : entry.unit)
        if (std::wstring_view(L" \t\r\n:~").find(c) != std::wstring_view::npos)
            c = L'_';
    std::replace(entry.value.begin(), entry.value.end(), L':', L'_');
    std::replace(entry.value.begin(), entry.value.end(), L'~', L'-');
    std::replace(entry.description.begin(), entry.description.end(), L'~', L'-');
    return entry;
}

// Those of `more` that have a mnemonic which `entries` does not have, in any case of letters.
void addReadable(std::vector<lasDescription>& entries, const std::vector<lasDescription>& more) {
    std::set<std::wstring> known;
    for (const auto& entry : entries)
        known.insert(ts::strconv::upper(entry.mnemonic));
    for (const auto& entry : more)
        if (!entry.mnemonic.empty() && known.insert(ts::strconv::upper(entry.mnemonic)).second)
            entries.push_back(readable(entry));
}

// The null value of the files that the logs came from, where they agree on one.
std::optional<double> sourceNull(const std::vector<exportedLogs::source>& logs) {
    const std::wstring first = logs.front().attribute(headerAttributes::nullValue);
    for (const auto& log : logs)
        if (log.attribute(headerAttributes::nullValue) != first)
            return std::nullopt;
    return numbers::toDouble(first);
}

std::vector<lasDescription>
wellEntries(const NORLEX_wellDescription& well, const row_range& range, double null) {
    return {
        {L"STRT", L"M", text(range.top), stringTable::text(150)},
        {L"STOP", L"M", text(range.bottom), stringTable::text(151)},
        {L"STEP", L"M", text(range.step), stringTable::text(152)},
        {L"NULL", L"", text(null), stringTable::text(153)},
        readable({L"WELL", L"", well.name, stringTable::text(155)}),
        readable({L"FLD", L"", well.field, stringTable::text(156)}),
    };
}

// A second curve of one mnemonic, in any case of letters, is read as "…_2": it is written as that.
std::wstring unusedMnemonic(const std::wstring& name, std::set<std::wstring>& used) {
    const std::wstring base = exactNotes::mnemonicOf(name);
    std::wstring mnemonic = base;
    for (int i = 2; !used.insert(ts::strconv::upper(mnemonic)).second; ++i)
        mnemonic = base + L'_' + std::to_wstring(i);
    return mnemonic;
}

std::wstring apiCode(const exportedLogs::source& log) {
    const auto entries = headerAttributes::entries(log.attributes, block::curve);
    return entries.empty() ? std::wstring() : entries.front().value;
}

void addCurves(exact_content& content, const std::vector<exportedLogs::source>& logs) {
    std::set<std::wstring> used = {L"DEPT"};
    content.curveEntries.push_back({L"DEPT", L"M", L"", L""});
    for (const auto& log : logs) {
        const std::wstring mnemonic = unusedMnemonic(log.name, used);
        content.curveEntries.push_back(readable(
            {mnemonic, log.attribute(headerAttributes::units), apiCode(log), log.comment}));
        content.notes.curves.push_back(
            {mnemonic, mnemonic == log.name ? std::wstring() : log.name, {}});
    }
}

// What the header's values lose of the names, and readers do: control characters are dropped.
void addNames(exact_content& content, const NORLEX_wellDescription& well) {
    const auto isControl = [](wchar_t c) { return static_cast<unsigned>(c) < 0x20 || c == 0x7F; };
    const auto isKept = [&](const std::wstring& name) {
        return readable({L"", L"", name, L""}).value == name && numbers::trimmed(name) == name
               && std::none_of(name.begin(), name.end(), isControl);
    };
    if (!isKept(well.name))
        content.notes.wellName = well.name;
    if (!isKept(well.field))
        content.notes.fieldName = well.field;
}

// Which nulls of the table are samples.
void addMissing(exactNotes::notes& notes, exact_rows rows) {
    for (std::uint32_t row = 0; rows.next(); ++row)
        for (std::size_t log = 0; log < notes.curves.size(); ++log)
            if (rows.valueOf(log) == NORLEX_missingValue)
                notes.curves[log].missing.add(row);
}

void writeHeader(las_writer& out,
                 const exact_content& content,
                 const std::vector<std::wstring>& notes) {
    out.line(L"~Version Information");
    out.block({{L"VERS", L"", L"2.0", L"CWLS Log ASCII Standard - Version 2.0"},
               {L"WRAP", L"", L"NO", L"One line per depth step"}});
    out.line(L"~Well Information Block");
    out.block(content.wellEntries);
    out.line(L"~Curve Information Block");
    out.block(content.curveEntries);
    if (!content.paramEntries.empty()) {
        out.line(L"~Parameter Information");
        out.block(content.paramEntries);
    }
    if (!notes.empty()) {
        out.line(L"~Other Information");
        for (const auto& line : notes)
            out.line(line);
    }
    out.line(L"~ASCII Log Data");
}

bool writeFile(std::FILE* file, const exact_content& content, exact_rows rows) {
    std::vector<std::wstring> notes;
    if (!exactNotes::lines(content.notes, notes))
        return false;
    las_writer out(file, ts::strconv::utf8);
    writeHeader(out, content, notes);
    while (out.isOK() && rows.next()) {
        out.shortest(rows.depth());
        for (std::size_t log = 0; log < content.notes.curves.size(); ++log) {
            const double value = rows.valueOf(log).value_or(NORLEX_missingValue);
            out.ascii(" ");
            out.shortest(value == NORLEX_missingValue ? content.nullValue : value);
        }
        out.endLine();
    }
    return out.flush();
}

} // namespace

bool exactLas::write(const std::wstring& path,
                     const NORLEX_wellDescription& well,
                     const std::vector<exportedLogs::source>& logs) {
    if (logs.empty())
        return refuse(L"there is no log to write; at least one is needed");
    log_columns columns;
    if (!readColumns(logs, log_order::increasing, columns))
        return false;
    const exact_rows rows(columns);
    const auto range = ::rangeOf(rows);
    if (!range)
        return refuse(L"the logs have no samples to write; at least one is needed");
    const auto null = freeNullValue(columns, sourceNull(logs));
    if (!null)
        return false;

    exact_content content;
    content.nullValue = *null;
    content.wellEntries = wellEntries(well, *range, *null);
    for (const auto& log : logs) {
        addReadable(content.wellEntries, headerAttributes::entries(log.attributes, block::well));
        addReadable(content.paramEntries, headerAttributes::entries(log.attributes, block::param));
    }
    addCurves(content, logs);
    addNames(content, well);
    content.notes.nullsAreNoSamples = rows.isMerged();
    if (rows.isMerged())
        addMissing(content.notes, rows);
    return files::replace(path, [&](std::FILE* file) { return writeFile(file, content, rows); });
}

bool NORLEX_well::exportLASExact(const std::wstring& path,
                                 const std::vector<NORLEX_wellProperty*>& properties) {
    std::vector<exportedLogs::source> logs;
    return exportedLogs::of(*m_db, properties, logs)
           && exactLas::write(path, getDescription(), logs);
}
