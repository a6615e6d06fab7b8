#include "platform/journaled_change.h"

#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/strconv.h"

#include <system_error>

namespace fs = std::filesystem;

namespace changeJournal {

std::string lineOf(const fs::path& root, const change& done) {
    std::string line(1, static_cast<char>(done.what));
    line += '\t' + done.path.lexically_relative(root).native();
    if (!done.other.empty())
        line += '\t' + done.other.lexically_relative(root).native();
    return line + '\n';
}

change changeOf(const fs::path& root, std::string_view line) {
    const auto first = line.find('\t');
    const auto second = line.find('\t', first + 1);
    change done{
        static_cast<kind>(line.front()), root / line.substr(first + 1, second - first - 1), {}};
    if (second != std::string_view::npos)
        done.other = root / line.substr(second + 1);
    return done;
}

fs::path pendingFolder(const fs::path& root) {
    return root / ".pending";
}

fs::path journalPath(const fs::path& root, const std::wstring& name) {
    return pendingFolder(root) / (ts::strconv::toUtf8(name) + journalExtension);
}

fs::path keptFolder(const fs::path& root, const std::wstring& name) {
    return pendingFolder(root) / ts::strconv::toUtf8(name);
}

bool undo(const change& done) {
    std::error_code code;
    if (done.what == kind::folder) {
        // A file of that name is why the folder could not be made. Others may have put something
        // into the folder since.
        if (fs::is_directory(fs::symlink_status(done.path, code)))
            fs::remove(done.path, code);
        return true;
    }
    if (done.what == kind::created) {
        fs::remove_all(done.path, code);
        return !code
               || refuseAt(L"cannot remove", done.path, ts::strconv::fromUtf8(code.message()));
    }
    if (!fs::exists(fs::symlink_status(done.other, code)))
        return true;
    if (done.what == kind::aside)
        fs::remove_all(done.path, code); // the new content, if it came that far
    return renamed(done.other, done.path);
}

bool renamed(const fs::path& from, const fs::path& to) {
    std::error_code code;
    fs::rename(from, to, code);
    return !code || refuseAt(L"cannot move", from, ts::strconv::fromUtf8(code.message()));
}

void removeEmptyFolders(const fs::path& root, fs::path folder) {
    std::error_code code;
    while (!folder.lexically_relative(root).empty() && folder != root
           && *folder.lexically_relative(root).begin() != ".." && fs::remove(folder, code))
        folder = folder.parent_path();
}

bool refuseAt(const wchar_t* what, const fs::path& path, const std::wstring& why) {
    return refuse(std::wstring(what) + L" " + files::wide(path) + L": " + why);
}

} // namespace changeJournal
