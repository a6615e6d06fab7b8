// Opens, names and replaces files. Nothing else in the library touches the file system.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace files {

// Paths are kept as they were given, with either separator; this maps one to the machine's own.
// Bytes of a file name that are no UTF-8 travel as U+DC80 … U+DCFF and come back unchanged.
[[nodiscard]] std::filesystem::path native(std::wstring_view path);
[[nodiscard]] std::wstring wide(const std::filesystem::path& path);

// A name as a file or folder name: characters that Windows or Linux refuse, reserved device
// names, "." and "..", and "%" itself are written as %XX of their UTF-8 bytes; the empty name is
// "%". Two names never share a file name.
[[nodiscard]] std::wstring fileName(std::wstring_view name);
// The inverse of fileName.
[[nodiscard]] std::wstring nameOfFile(std::wstring_view fileName);
// Longest spelling of a name as a file name, in bytes; leaves room for an extension.
inline constexpr std::size_t longestFileName = 240;

// Part up to and including the last separator; name without folder; extension with its dot.
[[nodiscard]] std::wstring folderOf(std::wstring_view path);
[[nodiscard]] std::wstring nameOf(std::wstring_view path);
[[nodiscard]] std::wstring extensionOf(std::wstring_view path);

[[nodiscard]] bool isFile(const std::wstring& path);
[[nodiscard]] bool isFolder(const std::wstring& path);
[[nodiscard]] std::optional<std::uint64_t> size(const std::wstring& path);
// Full paths of the files (not folders) directly in a folder, or below it, sorted.
[[nodiscard]] std::vector<std::wstring> list(const std::wstring& folder);
[[nodiscard]] std::vector<std::wstring> listTree(const std::wstring& folder);
// The same where nothing may be missing: false when a folder cannot be read.
[[nodiscard]] bool listTree(const std::wstring& folder, std::vector<std::wstring>& found);

// Each sets the last error, naming the path and the system's reason, when it answers false.
[[nodiscard]] bool makeFolder(const std::wstring& path); // with its parents
[[nodiscard]] bool removeFile(const std::wstring& path); // a missing one is no failure
[[nodiscard]] bool removeTree(const std::wstring& path);
[[nodiscard]] bool move(const std::wstring& from, const std::wstring& to);
[[nodiscard]] bool copy(const std::wstring& from, const std::wstring& to);

struct closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using handle = std::unique_ptr<std::FILE, closer>;

// Null when the file cannot be opened; the last error says why.
[[nodiscard]] handle openRead(const std::wstring& path);
[[nodiscard]] handle openWrite(const std::wstring& path); // creates or empties

// The system's reason for a failed call, from errno.
[[nodiscard]] std::wstring reason(int error);

// Writes `path` anew through a file beside it that replaces it once `write` has answered true and
// everything is flushed: the old content or the new one is there, never a part.
[[nodiscard]] bool replace(const std::wstring& path, const std::function<bool(std::FILE*)>& write);

// `fwrite`s everything or answers false.
[[nodiscard]] bool put(std::FILE* file, std::string_view bytes);

} // namespace files
