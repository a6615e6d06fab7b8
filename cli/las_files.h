// Finds the LAS files that an import is to take.
#pragma once

#include <string>
#include <vector>

struct lasSource {
    std::wstring path;
    std::wstring error; // why there is nothing to read; empty for a file
};

// Files as they are given, whatever their name; of a folder every *.las below it, without case, in
// the order of their paths. Links to folders are not followed.
[[nodiscard]] std::vector<lasSource> findLasFiles(const std::vector<std::wstring>& paths);
