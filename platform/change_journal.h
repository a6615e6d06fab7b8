// The journal of a connection's file operations, as it stands on disk.
//
// ".pending/<name>.changes" below the file directory tells the operations of the transaction that
// is open: what follows the last line that ends one. A line an operation is written before the
// operation is done. Fields have a tab between them, paths are relative to the file directory:
//   T id         the transaction begins
//   C path       a file is created            undone by removing it
//   R path kept  moved aside to kept          undone by moving it back
//   M from to    moved                        undone by moving it back
//   D path       a folder is made             undone by removing it while it is empty
//   E            the transaction is over
// The file is cut only now and then: giving its room back costs more than all its lines.
// Its process holds a lock on the file: a journal that can be locked belongs to a dead one.
#pragma once

#include "platform/journaled_change.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace changeJournal {

class writer {
public:
    explicit writer(std::filesystem::path root);
    ~writer(); // removes the journal from the disk
    writer(const writer&) = delete;
    writer& operator=(const writer&) = delete;

    // Each sets the last error when it answers false.
    [[nodiscard]] bool begin(); // a transaction; makes the journal on disk with the first one
    [[nodiscard]] bool note(const change& done);
    // Files or folders that are there, none of them twice; one flush of the disk serves all.
    [[nodiscard]] bool setAside(std::span<const std::filesystem::path> paths);
    [[nodiscard]] bool makeFolders(const std::filesystem::path& folder);
    void wrote(const std::filesystem::path& path); // to be flushed at the commit
    [[nodiscard]] bool move(const std::filesystem::path& from, const std::filesystem::path& to);

    [[nodiscard]] bool undoTo(std::size_t mark); // false: something is still to be undone
    void end();                                  // the transaction is over: what was set aside goes
    void leave();                                // to the next opening, as if the process had died
    [[nodiscard]] bool isActive() const { return !m_id.empty(); }
    [[nodiscard]] bool isEnded() const { return m_isEnded; } // the last one, on disk
    [[nodiscard]] const std::filesystem::path& root() const { return m_root; }

    [[nodiscard]] std::filesystem::path newName(); // for new content, in the journal's folder
    [[nodiscard]] const std::wstring& id() const { return m_id; }
    [[nodiscard]] const std::vector<change>& changes() const { return m_changes; }
    [[nodiscard]] const std::vector<std::filesystem::path>& written() const { return m_written; }

    std::int64_t marker = 0; // row of the marker in the table `meta`

private:
    [[nodiscard]] bool open();
    void remove(); // from the disk
    [[nodiscard]] bool write(const std::string& line);
    [[nodiscard]] bool cut(std::size_t size);
    void followMove(const std::filesystem::path& from, const std::filesystem::path& to);

    std::filesystem::path m_root;
    std::wstring m_name;
    std::wstring m_id; // of the open transaction
    std::uint64_t m_transactions = 0;
    int m_file = -1;
    std::size_t m_size = 0; // of the file
    bool m_isEnded = true;
    std::vector<change> m_changes;
    std::vector<std::size_t> m_starts; // of each change's line
    std::vector<std::filesystem::path> m_written;
    std::size_t m_names = 0;
};

} // namespace changeJournal
