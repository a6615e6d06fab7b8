// One operation on files as a journal tells it: its line, where the journals lie, and its undoing.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace changeJournal {

inline constexpr const char* journalExtension = ".changes";

enum class kind : char { created = 'C', aside = 'R', moved = 'M', folder = 'D' };

// `other` is where the content went: the target of a move, the file a content was set aside in.
struct change {
    kind what = kind::created;
    std::filesystem::path path;
    std::filesystem::path other;
};

// The line that tells a change, with its line end. Paths are relative to `root`.
[[nodiscard]] std::string lineOf(const std::filesystem::path& root, const change& done);
[[nodiscard]] change changeOf(const std::filesystem::path& root, std::string_view line);

// Where journals are, the journal of a name, and the folder of the contents that it keeps.
[[nodiscard]] std::filesystem::path pendingFolder(const std::filesystem::path& root);
[[nodiscard]] std::filesystem::path journalPath(const std::filesystem::path& root,
                                                const std::wstring& name);
[[nodiscard]] std::filesystem::path keptFolder(const std::filesystem::path& root,
                                               const std::wstring& name);

// What was not done, or is undone already, is no failure: an undo may be interrupted and repeated.
[[nodiscard]] bool undo(const change& done);
[[nodiscard]] bool renamed(const std::filesystem::path& from, const std::filesystem::path& to);

// Removes `folder` and its parents below `root` while they are empty.
void removeEmptyFolders(const std::filesystem::path& root, std::filesystem::path folder);

// "<what> <path>: <why>" becomes the last error.
bool refuseAt(const wchar_t* what, const std::filesystem::path& path, const std::wstring& why);

} // namespace changeJournal
