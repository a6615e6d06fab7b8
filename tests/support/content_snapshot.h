// All that a container holds, to be compared with what it held before.
#pragma once

#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/strconv.h"
#include "store/journal.h"
#include "store/schema.h"
#include "tests/support/temp_folder.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace contentSnapshot {

// Rows by table, sorted; the bytes of the files by path; the lines of the action journal.
using content = std::map<std::wstring, std::vector<std::string>>;

enum class detail {
    exact,
    shape, // without keys, time stamps and UUIDs, which differ between two runs of an operation
};

inline bool isOfOneRun(std::wstring_view column) {
    return column == L"id" || column == L"UUID" || column == L"uuid" || column.ends_with(L"_id")
           || column.ends_with(L"_date");
}

// Columns with a bar between them.
inline std::string rowOf(const odbc_result& rows, detail wanted) {
    std::string out;
    for (int i = 0; i < rows.column_count(); ++i)
        if (wanted == detail::exact || !isOfOneRun(rows.column_name(i)))
            out += (rows.is_null(i) ? "NULL" : ts::strconv::toUtf8(rows.get_text(i))) + "|";
    return out;
}

inline content take(const NORLEX_wellContainer& container, detail wanted = detail::exact) {
    content out;
    odbc_database* const db = container.getBaseLink();
    for (const auto tables : {schema::containerTables(), schema::dictionaryTables()})
        for (const auto& table : tables) {
            auto& lines = out[std::wstring(table.name)];
            // The markers of finished file changes are of the connection, not of the content.
            const auto rows =
                db->query(L"SELECT * FROM " + std::wstring(table.name)
                          + (table.name == L"meta" ? L" WHERE m_group <> 'file_changes'" : L""));
            while (rows && rows->next())
                lines.push_back(rowOf(*rows, wanted));
            std::sort(lines.begin(), lines.end());
        }
    for (const auto& path : files::listTree(container.getFileContainerPath()))
        if (path.find(L".pending") == std::wstring::npos
            && !files::nameOf(path).starts_with(L"journal.db"))
            out[path].push_back(temp_folder::read(path));
    for (const auto& line : journal::read(*db))
        out[L"journal"].push_back(
            ts::strconv::toUtf8(line.object + L"|" + line.action + L"|" + line.comment));
    return out;
}

// What is in one of two and not in the other, a line each.
inline std::string differences(const content& before, const content& after) {
    static const std::vector<std::string> none;
    const auto of = [](const content& all, const std::wstring& name) -> const auto& {
        const auto found = all.find(name);
        return found == all.end() ? none : found->second;
    };
    std::string out;
    auto names = before;
    names.insert(after.begin(), after.end());
    for (const auto& [name, ignored] : names) {
        std::vector<std::string> gone, come;
        const auto &was = of(before, name), &is = of(after, name);
        std::set_difference(was.begin(), was.end(), is.begin(), is.end(), std::back_inserter(gone));
        std::set_difference(is.begin(), is.end(), was.begin(), was.end(), std::back_inserter(come));
        for (const auto& line : gone)
            out += ts::strconv::toUtf8(name) + " - " + line.substr(0, 200) + "\n";
        for (const auto& line : come)
            out += ts::strconv::toUtf8(name) + " + " + line.substr(0, 200) + "\n";
    }
    return out;
}

} // namespace contentSnapshot
