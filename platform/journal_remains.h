// The journals of dead processes: what they left is undone, or is found committed and put away.
#pragma once

#include "platform/journaled_change.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace changeJournal {

// What a dead process left.
class remains {
public:
    remains(std::filesystem::path root, std::wstring name, int lockedFile);
    ~remains();
    remains(remains&& other) noexcept;
    remains& operator=(remains&&) = delete;

    [[nodiscard]] const std::wstring& id() const { return m_id; } // empty: none was open
    [[nodiscard]] bool undo();
    void removeEmptied() const; // what is committed: folders that it left empty
    [[nodiscard]] bool drop();

private:
    void read();

    std::filesystem::path m_root;
    std::wstring m_name;
    int m_file;
    std::wstring m_id;
    std::vector<change> m_changes;
    std::vector<std::size_t> m_starts; // of each change's line
};

[[nodiscard]] std::vector<remains> abandoned(const std::filesystem::path& root);

} // namespace changeJournal
