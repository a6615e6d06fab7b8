#include "store/container_copy.h"

#include "NORLEX_contDescription.h"
#include "odbc_database.h"
#include "odbc_result.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/progress.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/create_container.h"
#include "store/journal.h"
#include "store/schema.h"
#include "store/table_columns.h"
#include "store/well_path.h"

#include <functional>
#include <span>

using namespace sqlText;

namespace containerCopy {

namespace {

constexpr std::size_t rowsPerStatement = 500;
constexpr std::size_t longStatement = 1U << 20; // in characters; values may be long

std::int64_t countRows(odbc_database& db, std::wstring_view table) {
    const auto rows = db.query(sql(L"SELECT count(*) FROM ", table));
    return rows && rows->next() ? rows->get_counter(0) : -1; // no such table
}

// Rows on their way into one table.
class row_writer {
public:
    row_writer(odbc_database& db, const schema::table& table, std::vector<schema::column> columns)
        : m_db(db), m_table(table), m_columns(std::move(columns)),
          m_start(sql(
              L"INSERT INTO ", table.name, L" (", schema::columnList(m_columns), L") VALUES ")) {}

    [[nodiscard]] bool add(const odbc_result& row) {
        m_statement += m_rows == 0 ? m_start + L"(" : L",(";
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            if (i > 0)
                m_statement += L',';
            if (!addValue(row, static_cast<int>(i)))
                return false;
        }
        m_statement += L')';
        return ++m_rows < rowsPerStatement && m_statement.size() < longStatement ? true : flush();
    }
    [[nodiscard]] bool flush() {
        const bool done = m_rows == 0 || m_db.exec(m_statement);
        m_statement.clear();
        m_rows = 0;
        return done;
    }

private:
    // A local database keeps a text in a column of numbers; a server has no room for it, and an
    // empty one says the same there as nothing.
    bool addValue(const odbc_result& row, int index) {
        const auto& column = m_columns[static_cast<std::size_t>(index)];
        if (row.is_null(index)) {
            m_statement += L"NULL";
            return true;
        }
        const std::wstring text = row.get_text(index);
        if (!column.isText && numbers::toDouble(text))
            m_statement += text;
        else if (column.isText || !m_db.is_server())
            m_statement += quoted(text);
        else if (text.empty())
            m_statement += L"NULL";
        else
            return refuse(sql(L"cannot copy the table ",
                              m_table.name,
                              L": its column ",
                              column.name,
                              L" holds \"",
                              text,
                              L"\" where a number is expected"));
        return true;
    }

    odbc_database& m_db;
    const schema::table& m_table;
    std::vector<schema::column> m_columns;
    std::wstring m_start;
    std::wstring m_statement;
    std::size_t m_rows = 0;
};

bool copyTable(odbc_database& from, odbc_database& to, const schema::table& table) {
    const auto columns = schema::columnsOf(table);
    const bool hasKey = !table.after.empty();
    const auto rows = from.query(sql(L"SELECT ",
                                     schema::columnList(columns),
                                     L" FROM ",
                                     table.name,
                                     hasKey ? L" ORDER BY " + columns.front().name : L""));
    if (!rows)
        return refuse(sql(L"cannot read the table ", table.name, L": ", from.last_error()));
    row_writer writer(to, table, columns);
    while (rows->next())
        if (!writer.add(*rows))
            return false;
    return writer.flush() && (!hasKey || to.keys_were_given(table.name, columns.front().name));
}

// Dictionaries have tables where there ever was one.
std::vector<schema::table> tablesOf(odbc_database& from) {
    std::vector<schema::table> out;
    for (const auto& tables : {schema::containerTables(), schema::dictionaryTables()})
        for (const auto& table : tables)
            if (countRows(from, table.name) >= 0)
                out.push_back(table);
    return out;
}

// A query that failed has doomed the transaction it was read in: what it gave is not all.
bool isReadWhole(odbc_database& from) {
    const transaction probe(&from);
    return probe.isOpen()
           || refuse(sql(L"cannot copy ", from.get_identity(), L": ", from.last_error()));
}

bool copyTables(odbc_database& from, odbc_database& to) {
    const auto tables = tablesOf(from);
    progress steps(L"copying the tables", tables.size());
    std::uint64_t done = 0;
    for (const auto& table : tables) {
        if (steps.isStopped())
            return refuse(L"the copy was stopped");
        if (!schema::create(to, std::span(&table, 1)) || !copyTable(from, to, table))
            return false;
        steps.advance(++done);
    }
    return isReadWhole(from);
}

// The marker of a finished file change says something of its own file directory only.
bool dropMarkers(odbc_database& to) {
    return to.exec(L"DELETE FROM meta WHERE m_group = 'file_changes'");
}

bool copyFiles(odbc_database& from, const std::wstring& targetFolder) {
    const std::wstring root = NORLEX_getFilePath(from);
    std::vector<std::wstring> all;
    if (!lastingFiles(root, all))
        return false;
    progress steps(L"copying the files", all.size());
    std::uint64_t done = 0;
    for (const auto& below : all) {
        const std::wstring target = targetFolder + below;
        if (steps.isStopped())
            return refuse(L"the copy was stopped");
        if (!files::makeFolder(files::folderOf(target)) || !files::copy(root + below, target))
            return false;
        steps.advance(++done);
    }
    return copyJournal(root, targetFolder);
}

// `from` as it is at one moment, whoever writes.
bool copyWith(odbc_database& from,
              const NORLEX_contDescription& target,
              const std::function<bool(odbc_database&)>& more) {
    if (target.type == 1 && files::isFile(target.path))
        return refuse(sql(L"cannot copy to ", target.path, L": it exists already"));
    journal::close(from);
    transaction whole(&from);
    if (!whole.isOpen()
        || (from.is_server() && !from.exec(L"SET TRANSACTION ISOLATION LEVEL REPEATABLE READ")))
        return false;
    return store::createWith(target, [&](odbc_database& to) {
        return copyTables(from, to) && dropMarkers(to) && schema::createIndexes(to) && more(to);
    });
}

} // namespace

bool lastingFiles(const std::wstring& root, std::vector<std::wstring>& found) {
    found.clear();
    const std::filesystem::path folder = files::native(root);
    std::vector<std::wstring> all;
    if (!root.empty() && !files::listTree(files::wide(folder), all))
        return false;
    for (const auto& path : all) {
        const std::wstring below = files::wide(files::native(path).lexically_relative(folder));
        if (!below.starts_with(L".pending/") && !below.starts_with(L"journal.db"))
            found.push_back(below);
    }
    return true;
}

bool copyJournal(const std::wstring& fromFolder, const std::wstring& toFolder) {
    const std::wstring path = fromFolder + L"journal.db";
    if (fromFolder.empty() || !files::isFile(path))
        return true;
    odbc_database log;
    return log.connect(files::native(path).native()) && files::makeFolder(toFolder)
           && files::removeFile(toFolder + L"journal.db") && log.backup(toFolder + L"journal.db");
}

bool copyTo(odbc_database& from, const NORLEX_contDescription& target) {
    return copyWith(
        from, target, [&](odbc_database& to) { return copyFiles(from, NORLEX_getFilePath(to)); });
}

bool tablesTo(odbc_database& from, const NORLEX_contDescription& target) {
    return copyWith(from, target, [](odbc_database&) { return true; });
}

} // namespace containerCopy
