#include "cli/input_files.h"

#include "cli/text.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

namespace fs = std::filesystem;

bool isLasName(const fs::path& path) {
    std::string extension = path.extension().string();
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return extension == ".las";
}

std::wstring because(const std::error_code& error) {
    return text::wide(error.message());
}

// What could not be walked is told at the end of the list.
void addFolder(const std::wstring& folder, std::vector<lasSource>& out) {
    std::vector<fs::path> found;
    std::error_code error;
    fs::recursive_directory_iterator it(
        text::path(folder), fs::directory_options::skip_permission_denied, error);
    for (; !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
        std::error_code ignored;
        if (isLasName(it->path()) && it->is_regular_file(ignored))
            found.push_back(it->path());
    }
    std::sort(found.begin(), found.end());
    for (const auto& path : found)
        out.push_back({text::ofPath(path), {}});
    if (error)
        out.push_back({folder, L"the folder cannot be read: " + because(error)});
    else if (found.empty())
        out.push_back({folder, L"no file *.las is in this folder or below it"});
}

} // namespace

std::wstring whyNoInput(const std::wstring& path) {
    std::error_code error;
    const auto status = fs::status(text::path(path), error);
    if (!fs::exists(status) || fs::is_regular_file(status) || fs::is_directory(status))
        return {};
    return path + L" is neither a file nor a folder; save what it gives as a file and name that";
}

std::vector<lasSource> findLasFiles(const std::vector<std::wstring>& paths) {
    std::vector<lasSource> out;
    for (const auto& path : paths) {
        std::error_code error;
        if (fs::is_directory(text::path(path), error))
            addFolder(path, out);
        else
            out.push_back({path, whyNoInput(path)}); // a missing one is refused when it is opened
    }
    return out;
}
