#include "platform/transaction_files.h"

#include "odbc_database.h"
#include "platform/change_journal.h"
#include "platform/files.h"
#include "platform/journal_remains.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "platform/uuid.h"
#include "platform/write_queue.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <set>
#include <utility>

using namespace sqlText;
namespace fs = std::filesystem;

namespace {

bool isThere(const fs::path& path) {
    std::error_code code;
    return fs::exists(fs::symlink_status(path, code));
}

// Without a separator at its end, so that it compares with the folders below it.
fs::path bare(const std::wstring& path) {
    const fs::path whole = files::native(path);
    return whole.has_filename() ? whole : whole.parent_path();
}

bool flush(const fs::path& path, int (*call)(int)) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool done = file >= 0 && call(file) == 0;
    const int error = errno;
    if (file >= 0)
        ::close(file);
    return done || refuse(L"cannot write " + files::wide(path) + L": " + files::reason(error));
}

// The disk has much of a large file by the time that the commit waits for all of it.
void startFlush(std::FILE* file) {
    constexpr off_t large = 1 << 20;
    if (ftello(file) >= large)
        static_cast<void>(::sync_file_range(fileno(file), 0, 0, SYNC_FILE_RANGE_WRITE));
}

bool writeWhole(const fs::path& place,
                const std::wstring& shownPath,
                const std::function<bool(std::FILE*)>& writer) {
    auto file = files::openWrite(files::wide(place));
    if (!file)
        return false;
    errno = 0;
    const bool written = writer(file.get()) && std::fflush(file.get()) == 0;
    if (!written && errno != 0)
        refuse(L"cannot write " + shownPath + L": " + files::reason(errno));
    if (written)
        startFlush(file.get());
    file.reset();
    std::error_code ignored;
    if (!written)
        fs::remove(place, ignored); // on a full disk its room is wanted
    return written;
}

// A commit must not outlive the samples it speaks of. A flush costs the same for one file or for
// all of a file system, so several files share one. A file that is gone again needs none.
bool flushAll(const std::vector<fs::path>& written, const fs::path& root) {
    const auto isGone = [](const fs::path& path) { return !isThere(path); };
    if (std::ranges::all_of(written, isGone))
        return true;
    return written.size() == 1 ? flush(written.front(), ::fdatasync) : flush(root, ::syncfs);
}

} // namespace

struct transaction_files::journal : changeJournal::writer {
    using changeJournal::writer::writer;
    std::vector<fs::path> emptied; // folders that lost something
    write_queue later;             // the last member: its files are written before the rest ends
};

transaction_files::transaction_files(odbc_database* db) : m_db(db) {}
transaction_files::~transaction_files() = default;

// What others left is put right first: it may be about the files that are changed now.
bool transaction_files::openJournal() {
    const fs::path root = bare(m_db->get_file_container_path());
    if (m_journal && m_journal->root() != root && !m_journal->isActive())
        m_journal.reset(); // the connection was given another file directory
    if (!m_journal)
        m_journal = std::make_unique<journal>(root);
    return m_journal->isActive() || (recover() && m_journal->begin());
}

// Only what lies below the file directory may change, and only inside a transaction.
bool transaction_files::accepts(const std::wstring& path) {
    const std::wstring& root = m_db->get_file_container_path();
    if (!m_db->in_transaction())
        return refuse(L"cannot change " + path + L": files change inside a transaction only");
    const auto relative =
        bare(path).lexically_normal().lexically_relative(bare(root).lexically_normal());
    if (root.empty() || relative.empty() || *relative.begin() == ".." || *relative.begin() == ".")
        return refuse(L"cannot change " + path + L": it is not below the file directory " + root);
    return openJournal();
}

// A new file is written in its place: no row speaks of it before the commit. One that replaces
// another is written elsewhere, so that readers find the old content until the new one is whole.
bool transaction_files::write(const std::wstring& path,
                              const std::function<bool(std::FILE*)>& writer) {
    if (!accepts(path))
        return false;
    const fs::path target = files::native(path);
    m_journal->wrote(target);
    if (!isThere(target))
        return m_journal->makeFolders(target.parent_path())
               && m_journal->note({changeJournal::kind::created, target, {}})
               && writeWhole(target, path, writer);
    if (!finishWrites())
        return false;
    const fs::path fresh = m_journal->newName();
    return writeWhole(fresh, path, writer) && m_journal->setAside({&target, 1})
           && changeJournal::renamed(fresh, target);
}

bool transaction_files::writeLater(const std::wstring& path,
                                   std::function<bool(std::FILE*)> writer) {
    if (!accepts(path))
        return false;
    const fs::path target = files::native(path);
    if (isThere(target))
        return write(path, writer);
    if (const std::wstring why = m_journal->later.failure(); !why.empty())
        return refuse(why);
    m_journal->wrote(target);
    if (!m_journal->makeFolders(target.parent_path())
        || !m_journal->note({changeJournal::kind::created, target, {}}))
        return false;
    m_journal->later.add(
        m_journal->changes().size() - 1,
        [target, path, writer = std::move(writer)] { return writeWhole(target, path, writer); });
    return true;
}

bool transaction_files::finishWrites() {
    m_journal->later.wait();
    const std::wstring why = m_journal->later.failure();
    return why.empty() || refuse(why);
}

bool transaction_files::remove(const std::wstring& path) {
    return remove(std::vector{path});
}

bool transaction_files::remove(const std::vector<std::wstring>& paths) {
    if (paths.empty())
        return true;
    for (const auto& path : paths)
        if (!accepts(path))
            return false;
    if (!finishWrites())
        return false;
    std::set<fs::path> targets;
    for (const auto& path : paths)
        if (const fs::path target = bare(path); isThere(target))
            targets.insert(target);
    for (const auto& target : targets)
        m_journal->emptied.push_back(target.parent_path());
    return m_journal->setAside(std::vector(targets.begin(), targets.end()));
}

bool transaction_files::removeFolder(const std::wstring& path) {
    return remove(path);
}

bool transaction_files::move(const std::wstring& from, const std::wstring& to) {
    if (!accepts(from) || !accepts(to) || !finishWrites())
        return false;
    const fs::path source = bare(from);
    const fs::path target = bare(to);
    if (isThere(target))
        return refuse(L"cannot move " + from + L" to " + to + L": the target exists");
    m_journal->emptied.push_back(source.parent_path());
    return m_journal->makeFolders(target.parent_path()) && m_journal->move(source, target);
}

std::size_t transaction_files::mark() const {
    return m_journal ? m_journal->changes().size() : 0;
}

// What cannot be undone now is left to whoever changes files next, or opens the container.
bool transaction_files::undoTo(std::size_t mark) {
    if (!m_journal)
        return true;
    const keptReason why; // what is undone for comes before what hinders it
    m_journal->later.wait();
    m_journal->later.forgetFailures(mark);
    const bool done = m_journal->undoTo(mark);
    if (mark == 0 && !m_db->in_transaction() && m_journal->isActive()) {
        if (done)
            m_journal->end();
        else
            static_cast<void>(leave());
    }
    return done;
}

// A server may be at the commit of a program that is dead already. Such a commit holds a lock named
// after the transaction, and whoever looks for its marker waits for that.
bool transaction_files::holdCommit(const std::wstring& id) {
    return !m_db->is_server()
           || m_db->query(
               sql(L"SELECT pg_advisory_xact_lock(hashtextextended(", quoted(id), L", 0))"))
           || refuse(L"files of " + m_db->get_identity() + L" cannot follow its rows: "
                     + m_db->last_error());
}

bool transaction_files::beforeCommit() {
    if (!m_journal || !m_journal->isActive())
        return true;
    if (!finishWrites() || !flushAll(m_journal->written(), m_journal->root())
        || !holdCommit(m_journal->id()))
        return false;
    if (m_marker != 0 && !m_db->exec(sql(L"DELETE FROM meta WHERE m_id = ", key(m_marker))))
        return false;
    if (!m_db->exec(
            sql(L"INSERT INTO meta (m_group, obj_id, key, value) VALUES ('file_changes', 0, ",
                quoted(m_journal->id()),
                L", '')")))
        return false;
    const auto rows = m_db->query(L"SELECT max(m_id) FROM meta");
    m_journal->marker = rows && rows->next() ? rows->get_counter(0) : 0;
    return true;
}

void transaction_files::afterCommit() {
    if (!m_journal || !m_journal->isActive())
        return;
    m_marker = m_journal->marker;
    m_journal->end();
    for (const auto& folder : std::exchange(m_journal->emptied, {}))
        changeJournal::removeEmptyFolders(m_journal->root(), folder);
}

bool transaction_files::leave() {
    if (!m_journal || !m_journal->isActive())
        return false;
    m_journal->leave();
    m_journal.reset();
    m_marker = 0;
    return true;
}

// A marker that stays behind is one idle row. One that is missed lets a journal be undone that
// tells of no end.
void transaction_files::close() {
    const std::int64_t row = std::exchange(m_marker, 0);
    const bool isEnded = !m_journal || m_journal->isEnded();
    m_journal.reset(); // removes it from the disk
    if (row != 0 && isEnded && m_db->is_connected())
        static_cast<void>(m_db->exec(sql(L"DELETE FROM meta WHERE m_id = ", key(row))));
}

// 0 where there is none; nothing when that cannot be told. The oldest containers have no table for
// markers.
std::optional<std::int64_t> transaction_files::markerOf(const std::wstring& id) {
    const auto number = [&](const std::wstring& query) -> std::optional<std::int64_t> {
        const auto row = m_db->query(query);
        if (row && row->next())
            return row->get_counter(0);
        refuse(L"files of " + m_db->get_identity() + L" cannot follow its rows: "
               + m_db->last_error());
        return std::nullopt;
    };
    const auto tables =
        number(m_db->is_server() ? L"SELECT count(*) FROM pg_tables WHERE tablename = 'meta'"
                                 : L"SELECT count(*) FROM sqlite_master WHERE name = 'meta'");
    if (!tables || *tables == 0)
        return tables;
    return number(
        sql(L"SELECT coalesce(max(m_id), 0) FROM meta WHERE m_group = 'file_changes' AND key = ",
            quoted(id)));
}

bool transaction_files::recover() {
    const fs::path root = bare(m_db->get_file_container_path());
    for (auto& left : changeJournal::abandoned(root)) {
        std::optional<std::int64_t> marker = 0; // a journal without an id has nothing to undo
        if (!left.id().empty() && (!holdCommit(left.id()) || !(marker = markerOf(left.id()))))
            return false;
        if (*marker == 0 && !left.undo())
            return false;
        if (*marker != 0)
            left.removeEmptied();
        const bool isUndone = !left.id().empty() && *marker == 0;
        const bool isGone = left.drop();
        if (isUndone && !isGone)
            return false;
        if (isGone && *marker != 0) // what stays where nothing may be written is found again
            static_cast<void>(m_db->exec(sql(L"DELETE FROM meta WHERE m_id = ", key(*marker))));
    }
    return true;
}
