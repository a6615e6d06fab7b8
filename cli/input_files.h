// Finds the files that a command is to read.
#pragma once

#include <string>
#include <vector>

// Why a path that is there cannot be read as a file or folder: a pipe, which would be waited for
// without end, or a device. Empty for everything else, a missing file among it.
[[nodiscard]] std::wstring whyNoInput(const std::wstring& path);

struct lasSource {
    std::wstring path;
    std::wstring error; // why there is nothing to read; empty for a file
};

// Files as they are given, whatever their name; of a folder every *.las below it, without case, in
// the order of their paths. Links to folders are not followed.
[[nodiscard]] std::vector<lasSource> findLasFiles(const std::vector<std::wstring>& paths);
