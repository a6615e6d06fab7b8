// The journal of one transaction's file operations, as it stands on disk.
//
// ".pending/<id>.changes" below the file directory holds a line an operation, written before the
// operation is done, fields with a tab between them, paths relative to the file directory:
//   C path       a file is created            undone by removing it
//   R path kept  moved aside to kept         undone by moving it back
//   M from to    moved                        undone by moving it back
//   D path       a folder is made             undone by removing it while it is empty
// Its process holds a lock on the file: a journal that can be locked belongs to a dead one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace changeJournal {

enum class kind : char { created = 'C', aside = 'R', moved = 'M', folder = 'D' };

// `other` is where the content went: the target of a move, the file a content was set aside in.
struct change {
    kind what = kind::created;
    std::filesystem::path path;
    std::filesystem::path other;
};

class writer {
public:
    explicit writer(std::filesystem::path root);
    ~writer(); // removes the journal from the disk
    writer(const writer&) = delete;
    writer& operator=(const writer&) = delete;

    // Each sets the last error when it answers false.
    [[nodiscard]] bool open();
    [[nodiscard]] bool note(const change& done);
    [[nodiscard]] bool setAside(const std::filesystem::path& path);
    [[nodiscard]] bool makeFolders(const std::filesystem::path& folder);
    void wrote(const std::filesystem::path& path); // to be flushed at the commit
    [[nodiscard]] bool move(const std::filesystem::path& from, const std::filesystem::path& to);

    void undoTo(std::size_t mark);
    void keep(); // the changes stand: what was set aside goes

    [[nodiscard]] std::filesystem::path newName(); // for new content, in the journal's folder
    [[nodiscard]] const std::wstring& id() const { return m_id; }
    [[nodiscard]] const std::vector<change>& changes() const { return m_changes; }
    [[nodiscard]] const std::vector<std::filesystem::path>& written() const { return m_written; }

    std::int64_t marker = 0; // row of the marker in the table `meta`

private:
    [[nodiscard]] std::filesystem::path folder() const;
    void followMove(const std::filesystem::path& from, const std::filesystem::path& to);

    std::filesystem::path m_root;
    std::wstring m_id;
    int m_file = -1;
    std::vector<change> m_changes;
    std::vector<std::size_t> m_ends; // of each change's line, in bytes
    std::vector<std::filesystem::path> m_written;
    std::size_t m_names = 0;
};

// What a dead process left.
class remains {
public:
    remains(std::filesystem::path root, std::wstring id, int lockedFile);
    ~remains();
    remains(remains&& other) noexcept;
    remains& operator=(remains&&) = delete;

    [[nodiscard]] const std::wstring& id() const { return m_id; }
    [[nodiscard]] bool undo();
    void drop();

private:
    std::filesystem::path m_root;
    std::wstring m_id;
    int m_file;
};

[[nodiscard]] std::vector<remains> abandoned(const std::filesystem::path& root);

// Removes `folder` and its parents below `root` while they are empty.
void removeEmptyFolders(const std::filesystem::path& root, std::filesystem::path folder);

} // namespace changeJournal
