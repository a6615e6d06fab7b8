// Files that change together with the rows of a transaction.
//
// Every operation is done at once, or by the commit, and noted beforehand in the connection's
// journal, which lies in
// ".pending" of the container's file directory. Rolling back undoes the operations in reverse
// order. Committing flushes the new files, puts a marker row into the table `meta` (group
// "file_changes", key: the transaction's id), commits, and empties the journal. A journal that a
// killed process leaves, or one whose undoing failed, is finished or undone when files change next
// or the container is opened, by whether its marker is there.
#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class odbc_database;

class transaction_files {
public:
    explicit transaction_files(odbc_database* db);
    ~transaction_files();
    transaction_files(const transaction_files&) = delete;
    transaction_files& operator=(const transaction_files&) = delete;

    // Each is refused outside a transaction, and for a path that is not below the container's
    // file directory; each sets the last error when it answers false. Folders are made as needed.
    [[nodiscard]] bool write(const std::wstring& path,
                             const std::function<bool(std::FILE*)>& writer);
    // As write(), by another thread: `writer` holds all that it needs. The file is there after the
    // commit; whatever prevents it makes the next call, or the commit, fail.
    [[nodiscard]] bool writeLater(const std::wstring& path, std::function<bool(std::FILE*)> writer);
    [[nodiscard]] bool remove(const std::wstring& path); // a missing file is no failure
    // Files, for the price of one: a path that is refused keeps all of them, and one that is
    // named twice is removed once.
    [[nodiscard]] bool remove(const std::vector<std::wstring>& paths);
    [[nodiscard]] bool removeFolder(const std::wstring& path);
    // A file or a folder; the target must not exist.
    [[nodiscard]] bool move(const std::wstring& from, const std::wstring& to);

    // Finishes or undoes what killed processes left; those still alive are left alone.
    [[nodiscard]] bool recover();

private:
    friend class odbc_database;
    struct journal;

    // Called by the connection as its transaction goes.
    [[nodiscard]] std::size_t mark() const;      // the operations done so far
    [[nodiscard]] bool undoTo(std::size_t mark); // false: something is still to be undone
    [[nodiscard]] bool beforeCommit();
    void afterCommit();
    bool leave(); // what is open, to recover(), which asks the database; false: nothing is
    void close(); // the connection closes

    [[nodiscard]] bool openJournal();
    [[nodiscard]] bool accepts(const std::wstring& path);
    [[nodiscard]] bool finishWrites();
    [[nodiscard]] bool holdCommit(const std::wstring& id);
    [[nodiscard]] std::optional<std::int64_t> markerOf(const std::wstring& id);

    odbc_database* m_db;
    std::unique_ptr<journal> m_journal;
    std::int64_t m_marker = 0; // row of the last commit's marker; removed with the next one
};
