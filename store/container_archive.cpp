#include "store/container_archive.h"

#include "NORLEX_contDescription.h"
#include "NORLEX_lastError.h"
#include "odbc_database.h"
#include "platform/archive.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/progress.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "platform/uuid.h"
#include "store/connection.h"
#include "store/container_check.h"
#include "store/container_copy.h"
#include "store/journal.h"
#include "store/stored_version.h"
#include "store/well_path.h"

#include <algorithm>
#include <utility>

using namespace sqlText;

namespace containerArchive {

namespace {

constexpr std::wstring_view databaseName = L"container.well2";
constexpr std::wstring_view filesName = L"files/";

// A folder for parts of the work beside `path`, where there is as much room as for the result.
class work_folder {
public:
    explicit work_folder(const std::wstring& path)
        : m_path(path + L".work~" + newUuid() + L"/"), m_ok(files::makeFolder(m_path)) {}
    ~work_folder() {
        const keptReason why;
        static_cast<void>(files::removeTree(m_path));
    }
    work_folder(const work_folder&) = delete;
    work_folder& operator=(const work_folder&) = delete;

    [[nodiscard]] bool isOK() const { return m_ok; }
    std::wstring operator/(std::wstring_view name) const { return m_path + std::wstring(name); }

private:
    std::wstring m_path;
    bool m_ok;
};

NORLEX_contDescription localDescription(const std::wstring& path, const std::wstring& folder) {
    NORLEX_contDescription out;
    out.path = out.connection = path;
    out.type = 1;
    out.fileContainerPath = folder;
    return out;
}

// Holds writers back while a local container is read.
class write_lock {
public:
    explicit write_lock(const odbc_database& db) {
        m_held = db.is_server()
                 || (m_other.connect(db.get_connection_string()) && m_other.begin_transaction());
        if (!m_held)
            refuse(sql(L"cannot copy ", db.get_identity(), L": ", m_other.last_error()));
    }
    [[nodiscard]] bool isHeld() const { return m_held; }

private:
    odbc_database m_other;
    bool m_held = false;
};

bool copyDatabase(odbc_database& db, const work_folder& work) {
    const std::wstring copy = work / databaseName;
    return db.is_server()
               ? containerCopy::tablesTo(db, localDescription(copy, work / L"unused/"))
               : db.backup(copy)
                     || refuse(sql(L"cannot copy the container to ", copy, L": ", db.last_error()));
}

// Of a file directory: the journal goes through its engine, what is being changed is left out.
bool addFiles(archive_writer& archive, const std::wstring& root) {
    std::vector<std::wstring> all;
    if (!containerCopy::lastingFiles(root, all))
        return false;
    progress steps(L"reading the files", all.size());
    std::uint64_t done = 0;
    for (const auto& below : all) {
        if (steps.isStopped())
            return refuse(L"the backup was stopped");
        if (!archive.add(root + below, std::wstring(filesName) + below))
            return false;
        steps.advance(++done);
    }
    return true;
}

bool extractAll(const archive_reader& archive, const work_folder& work) {
    progress steps(L"reading the archive", archive.names().size());
    std::uint64_t done = 0;
    for (const auto& name : archive.names()) {
        if (steps.isStopped())
            return refuse(L"the restoring was stopped");
        if (!archive.extract(name, work / L""))
            return false;
        steps.advance(++done);
    }
    return true;
}

bool isSound(odbc_database& db, const std::wstring& archive) {
    std::vector<NORLEX_checkFinding> damages;
    if (upgrade::storedVersion(db) == 0)
        return refuseMissing(
            &db, sql(archive, L" holds no container: the schema version cannot be read"));
    if (!containerCheck::checkEngine(db, damages))
        return false;
    return damages.empty()
           || refuse(sql(L"the database in ", archive, L" is damaged: ", damages.front().example));
}

std::wstring withoutEnd(const std::wstring& folder) {
    return folder.substr(0, folder.find_last_not_of(L"/\\") + 1);
}

// Puts `from`, or nothing where it is not there, in the place of `to` and keeps what was there, to
// be put back or removed.
class exchanged {
public:
    [[nodiscard]] bool put(const std::wstring& from, const std::wstring& to) {
        m_to = to;
        if (files::isFile(to) || files::isFolder(to)) {
            const std::wstring aside = to + L".replaced~" + newUuid();
            if (!files::move(to, aside))
                return false;
            m_aside = aside;
        }
        m_isNew = (!files::isFile(from) && !files::isFolder(from)) || files::move(from, to);
        return m_isNew;
    }
    // What has to be told where that fails.
    [[nodiscard]] std::wstring undo() {
        if (m_isNew)
            static_cast<void>(files::removeTree(m_to));
        if (m_aside.empty() || files::move(m_aside, m_to))
            return {};
        return sql(L"; what was ", m_to, L" is now ", m_aside);
    }
    void keep() {
        if (!m_aside.empty())
            static_cast<void>(files::removeTree(m_aside));
    }

private:
    std::wstring m_to;
    std::wstring m_aside;
    bool m_isNew = false;
};

bool putInPlace(const work_folder& work, const NORLEX_contDescription& target) {
    // The engine would play an old rollback journal into the new database.
    exchanged database, journal, folder;
    const std::wstring folderPath = withoutEnd(target.fileContainerPath);
    if (folder.put(work / L"files", folderPath)
        && journal.put(work / L"none", target.path + L"-journal")
        && database.put(work / databaseName, target.path)) {
        folder.keep();
        journal.keep();
        database.keep();
        return true;
    }
    std::wstring why = NORLEX_lastError();
    why += database.undo();
    why += journal.undo();
    why += folder.undo();
    return refuse(why);
}

bool mayReplace(const NORLEX_contDescription& target, bool replace) {
    if (target.type != 1 || !files::isFile(target.path))
        return true;
    if (!replace)
        return refuse(sql(L"cannot restore ", target.path, L": it exists already"));
    if (connection::isOpenHere(target.path))
        return refuse(sql(L"cannot restore ", target.path, L": it is open in this program"));
    return connection::isUnused(target);
}

} // namespace

bool backup(odbc_database& db, const std::wstring& archive) {
    if (db.in_transaction())
        return refuse(L"a container is not backed up inside a transaction: end it first");
    const work_folder work(archive);
    const std::wstring root = NORLEX_getFilePath(db);
    journal::close(db);
    const write_lock lock(db);
    if (!work.isOK() || !lock.isHeld() || !copyDatabase(db, work)
        || !containerCopy::copyJournal(root, work / L""))
        return false;
    archive_writer writer(archive);
    const std::wstring log = work / L"journal.db";
    return writer.add(work / databaseName, std::wstring(databaseName)) && addFiles(writer, root)
           && (!files::isFile(log) || writer.add(log, std::wstring(filesName) + L"journal.db"))
           && writer.close();
}

bool restore(const std::wstring& archive, const NORLEX_contDescription& target, bool replace) {
    archive_reader reader;
    if (!connection::isUsable(target) || !mayReplace(target, replace) || !reader.open(archive))
        return false;
    if (std::ranges::find(reader.names(), databaseName) == reader.names().end())
        return refuse(sql(archive, L" is no backup of a container: it holds no ", databaseName));
    const work_folder work(target.path);
    if (!work.isOK() || !extractAll(reader, work))
        return false;
    {
        odbc_database db;
        const auto restored = localDescription(work / databaseName, work / filesName);
        if (!connection::open(db, restored))
            return refuse(sql(L"the database in ", archive, L" cannot be read: ", db.last_error()));
        if (!isSound(db, archive))
            return false;
        if (target.type == 2)
            return containerCopy::copyTo(db, target);
    }
    return putInPlace(work, target);
}

} // namespace containerArchive
