// Zip archives of files, with names in UTF-8 and "/" between folders.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct zip;

// Each call sets the last error when it answers false.
class archive_writer {
public:
    // Writes beside `path` and takes its place once close() has succeeded.
    explicit archive_writer(std::wstring path);
    ~archive_writer();
    archive_writer(const archive_writer&) = delete;
    archive_writer& operator=(const archive_writer&) = delete;

    // The file must stay as it is until close().
    [[nodiscard]] bool add(const std::wstring& file, const std::wstring& name);
    [[nodiscard]] bool close();

private:
    [[nodiscard]] bool fail();

    std::wstring m_path;
    zip* m_zip = nullptr;
};

class archive_reader {
public:
    ~archive_reader();
    archive_reader() = default;
    archive_reader(const archive_reader&) = delete;
    archive_reader& operator=(const archive_reader&) = delete;

    // False for a file that is no archive, or whose list of contents is damaged.
    [[nodiscard]] bool open(const std::wstring& path);
    // In the archive's order. A name that would lead out of the folder it is extracted into is
    // none.
    [[nodiscard]] const std::vector<std::wstring>& names() const { return m_names; }
    // Writes the file of a name below `folder`. False when its content does not match its checksum.
    [[nodiscard]] bool extract(const std::wstring& name, const std::wstring& folder) const;

private:
    std::wstring m_path;
    zip* m_zip = nullptr;
    std::vector<std::wstring> m_names;
};
