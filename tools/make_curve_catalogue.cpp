// Makes the database of log curves from its table: make_curve_catalogue LAS_methods.csv OUT.db
//
// The table is UTF-8 with ";" between the columns that its first line names. A row that would make
// a look-up ambiguous is refused, and then nothing is written.
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "platform/transaction.h"
#include "tableReader.h"

#include "NORLEX_lastError.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

using namespace sqlText;

namespace {

enum column : std::size_t { id, mnemonic, units, rusUnits, comment, type, synonyms, columns };

const std::vector<std::wstring> header = {
    L"method_id", L"mnemonic", L"common_units", L"rus_units", L"comment", L"type", L"synonyms"};

std::vector<std::wstring> words(const std::wstring& text) {
    std::vector<std::wstring> out;
    constexpr const wchar_t* between = L" |";
    for (std::size_t at = text.find_first_not_of(between); at != std::wstring::npos;) {
        const std::size_t end = std::min(text.find_first_of(between, at), text.size());
        out.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(between, end);
    }
    return out;
}

bool isKey(const std::wstring& text) {
    return !text.empty() && text.size() < 10 && text.front() != L'0'
           && text.find_first_not_of(L"0123456789") == std::wstring::npos;
}

// What is wrong with a row goes to the last error with the row's line.
class catalogue_reader {
public:
    explicit catalogue_reader(const std::wstring& path) : m_path(path) {}

    [[nodiscard]] bool read() {
        std::vector<std::wstring> cells;
        if (!m_table.open(m_path, {ts::strconv::utf8, ';'}))
            return false;
        if (!m_table.next(cells) || cells != header)
            return refuseRow(L"the columns are not method_id;mnemonic;common_units;rus_units;"
                             L"comment;type;synonyms",
                             1);
        while (m_table.next(cells)) {
            if (!take(cells))
                return false;
            m_rows.push_back(cells);
        }
        return !m_table.isBroken() && areSynonymsFree();
    }
    [[nodiscard]] const std::vector<std::vector<std::wstring>>& rows() const { return m_rows; }

private:
    bool refuseRow(const std::wstring& why, std::uint64_t line) const {
        return refuse(m_path + L", line " + std::to_wstring(line) + L": " + why);
    }
    bool refuseRow(const std::wstring& why) const { return refuseRow(why, m_table.lineNumber()); }

    [[nodiscard]] bool take(const std::vector<std::wstring>& cells) {
        if (cells.size() != columns)
            return refuseRow(L"the row has " + std::to_wstring(cells.size())
                             + L" columns instead of " + std::to_wstring(columns));
        if (!isKey(cells[id]))
            return refuseRow(L"method_id \"" + cells[id] + L"\" is not a number from 1");
        if (!m_ids.insert(cells[id]).second)
            return refuseRow(L"method_id " + cells[id] + L" is there twice");
        for (const column needed : {mnemonic, comment, type})
            if (cells[needed].empty())
                return refuseRow(L"the column " + header[needed] + L" is empty");
        if (!m_mnemonics.insert(ts::strconv::lower(cells[mnemonic])).second)
            return refuseRow(L"the mnemonic " + cells[mnemonic] + L" is there twice");
        for (const auto& synonym : words(cells[synonyms]))
            if (!m_synonyms.emplace(synonym, m_table.lineNumber()).second)
                return refuseRow(L"the synonym " + synonym + L" is there twice");
        return true;
    }
    // Mnemonics are looked up first, in any case of letters.
    [[nodiscard]] bool areSynonymsFree() const {
        for (const auto& [synonym, line] : m_synonyms)
            if (m_mnemonics.contains(ts::strconv::lower(synonym)))
                return refuseRow(L"the synonym " + synonym + L" is a mnemonic", line);
        return true;
    }

    std::wstring m_path;
    tableRW::tableReader m_table;
    std::set<std::wstring> m_ids;
    std::set<std::wstring> m_mnemonics;
    std::map<std::wstring, std::uint64_t> m_synonyms; // and the line of each
    std::vector<std::vector<std::wstring>> m_rows;
};

bool fill(odbc_database& db, const std::vector<std::vector<std::wstring>>& rows) {
    for (const auto& row : rows) {
        if (!db.exec(sql(L"INSERT INTO LAS_methods (method_id, mnemonic, common_units, rus_units, "
                         L"comment, type) VALUES (",
                         row[id],
                         L", ",
                         quoted(row[mnemonic]),
                         L", ",
                         quoted(row[units]),
                         L", ",
                         quoted(row[rusUnits]),
                         L", ",
                         quoted(row[comment]),
                         L", ",
                         quoted(row[type]),
                         L")")))
            return false;
        for (const auto& synonym : words(row[synonyms]))
            if (!db.exec(sql(L"INSERT INTO las_method_synonyms (Method_id, Syn_name) VALUES (",
                             row[id],
                             L", ",
                             quoted(synonym),
                             L")")))
                return false;
    }
    return true;
}

bool write(const std::wstring& path, const std::vector<std::vector<std::wstring>>& rows) {
    odbc_database db;
    if (!db.connect(files::native(path).native()))
        return false;
    transaction whole(&db);
    return whole.isOpen()
           && db.exec(L"CREATE TABLE LAS_methods(method_id INTEGER PRIMARY KEY, mnemonic TEXT NOT "
                      L"NULL, common_units TEXT, rus_units TEXT, comment TEXT, type TEXT)")
           && db.exec(L"CREATE TABLE las_method_synonyms(Method_id INTEGER NOT NULL, Syn_name TEXT "
                      L"NOT NULL)")
           && fill(db, rows) && whole.commit();
}

bool make(const std::wstring& table, const std::wstring& out) {
    catalogue_reader catalogue(table);
    const std::wstring unfinished = out + L".tmp"; // left by one that was killed
    return catalogue.read() && files::makeFolder(files::folderOf(out))
           && files::removeFile(unfinished) && write(unfinished, catalogue.rows())
           && files::move(unfinished, out);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        static_cast<void>(std::fputs("make_curve_catalogue TABLE.csv OUT.db\n", stderr));
        return 2;
    }
    if (make(files::wide(argv[1]), files::wide(argv[2])))
        return 0;
    static_cast<void>(
        std::fprintf(stderr, "%s\n", ts::strconv::toUtf8(NORLEX_lastError()).c_str()));
    return 1;
}
