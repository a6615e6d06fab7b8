#include "store/journal.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/sql_text.h"
#include "store/schema.h"
#include "store/well_path.h"

#include <map>
#include <memory>
#include <mutex>

using namespace sqlText;

namespace journal {

namespace {

struct line {
    int object = 0;
    int action = 0;
    std::wstring comment;
};

// The lines that one connection's open transaction has given so far. The actions that wait for the
// commit own them: those of a level that is rolled back go, and their lines with them.
struct batch {
    std::vector<std::weak_ptr<line>> lines;
};

std::shared_ptr<batch> batchOf(const odbc_database& db) {
    static std::mutex mutex;
    static std::map<const odbc_database*, std::weak_ptr<batch>> batches;
    const std::lock_guard lock(mutex);
    std::erase_if(batches, [](const auto& entry) { return entry.second.expired(); });
    auto found = batches[&db].lock();
    if (!found)
        batches[&db] = found = std::make_shared<batch>();
    return found;
}

std::wstring pathOf(const odbc_database& db) {
    return NORLEX_getFilePath(db) + L"journal.db";
}

// Journals stay open while their containers are: opening one costs more than writing a line.
struct openJournals {
    std::mutex mutex;
    std::map<std::wstring, std::unique_ptr<odbc_database>> byPath;
};

openJournals& opened() {
    static openJournals journals;
    return journals;
}

// A journal that lags after a power cut is no loss worth a flush on every import, and one that
// another program holds is not waited for longer than a user would notice.
std::unique_ptr<odbc_database> open(const std::wstring& path) {
    auto journalDb = std::make_unique<odbc_database>();
    const bool done = files::makeFolder(files::folderOf(path))
                      && journalDb->connect(files::native(path).string())
                      && journalDb->exec(L"PRAGMA busy_timeout=1000")
                      && journalDb->exec(L"PRAGMA synchronous=OFF")
                      && schema::create(*journalDb, schema::journalTables());
    return done ? std::move(journalDb) : nullptr;
}

std::wstring rowsOf(const batch& given, const std::wstring& user, const std::wstring& now) {
    std::wstring rows;
    for (const auto& weak : given.lines)
        if (const auto entry = weak.lock())
            rows += sql(L"(",
                        quoted(user),
                        L", ",
                        now,
                        L", '",
                        key(entry->object),
                        L"', '",
                        key(entry->action),
                        L"', ",
                        quoted(entry->comment),
                        L"),");
    rows.pop_back();
    return rows;
}

// What cannot be written is left out: the operation stands. A journal that was removed or replaced
// since it was opened refuses its first statement and is opened anew.
void write(const odbc_database& db, const batch& given) {
    const std::wstring path = pathOf(db);
    const std::lock_guard lock(opened().mutex);
    auto& journalDb = opened().byPath[path];
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!journalDb)
            journalDb = open(path);
        if (journalDb
            && journalDb->exec(
                sql(L"INSERT INTO log_table (user, cur_date, object, action, comment) VALUES ",
                    rowsOf(given, db.get_user(), journalDb->cur_time()))))
            return;
        journalDb.reset();
    }
    opened().byPath.erase(path);
}

} // namespace

void add(odbc_database& db, int object, int action, const std::wstring& comment) {
    if (db.get_file_container_path().empty())
        return;
    const auto waiting = batchOf(db);
    const auto entry = std::make_shared<line>(line{object, action, comment});
    waiting->lines.push_back(entry);
    // The first of these to run writes the lines of all.
    db.after_commit([&db, waiting, entry] {
        if (!waiting->lines.empty())
            write(db, *waiting);
        waiting->lines.clear();
    });
}

void close(const odbc_database& db) {
    const std::lock_guard lock(opened().mutex);
    opened().byPath.erase(pathOf(db));
}

std::vector<entry> read(const odbc_database& db) {
    std::vector<entry> entries;
    const std::wstring path = pathOf(db);
    odbc_database journalDb;
    if (!files::isFile(path) || !journalDb.connect(files::native(path).string()))
        return entries;
    const auto rows = journalDb.query(
        L"SELECT user, cur_date, object, action, comment FROM log_table ORDER BY rowid");
    while (rows && rows->next())
        entries.push_back({rows->get_text(0),
                           rows->get_text(1),
                           rows->get_text(2),
                           rows->get_text(3),
                           rows->get_text(4)});
    return entries;
}

} // namespace journal
