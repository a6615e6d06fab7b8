// What tests ask of files and folders.
#pragma once

#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

namespace disk {

using list = std::vector<std::wstring>;

inline void write(const std::wstring& path, const std::string& bytes) {
    std::ofstream(files::native(path), std::ios::binary) << bytes;
}

inline std::string read(const std::wstring& path) {
    std::ifstream file(files::native(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Names of the files directly in a folder, sorted.
inline list names(const std::wstring& folder) {
    list found;
    for (const auto& path : files::list(folder))
        found.push_back(files::nameOf(path));
    return found;
}

// Files and folders below `folder`, by their paths in it, sorted.
inline list tree(const std::wstring& folder) {
    list found;
    std::error_code code;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(files::native(folder), code))
        found.push_back(
            files::wide(std::filesystem::relative(entry.path(), files::native(folder), code)));
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace disk
