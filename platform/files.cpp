#include "platform/files.h"

#include "platform/last_error.h"
#include "platform/strconv.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace files {

namespace fs = std::filesystem;

namespace {

bool refuseCode(const wchar_t* what, const std::wstring& path, const std::error_code& code) {
    return refuse(std::wstring(what) + L" " + path + L": " + ts::strconv::fromUtf8(code.message()));
}

bool refuseErrno(const wchar_t* what, const std::wstring& path) {
    return refuse(std::wstring(what) + L" " + path + L": " + reason(errno));
}

handle open(const std::wstring& path, int flags, const char* mode, const wchar_t* what) {
    const int descriptor = ::open(native(path).c_str(), flags | O_CLOEXEC, 0666);
    std::FILE* file = descriptor < 0 ? nullptr : fdopen(descriptor, mode);
    if (file == nullptr)
        refuseErrno(what, path);
    if (file == nullptr && descriptor >= 0)
        ::close(descriptor);
    return handle(file);
}

// A folder that is not there, or goes in the meantime, holds nothing.
bool addFiles(const fs::path& folder, bool isDeep, std::vector<std::wstring>& found) {
    std::error_code code;
    for (fs::directory_iterator i(folder, code), end; !code && i != end; i.increment(code)) {
        std::error_code kind;
        if (isDeep && fs::is_directory(i->symlink_status(kind))) {
            if (!addFiles(i->path(), isDeep, found))
                return false;
        } else if (i->is_regular_file(kind)) {
            found.push_back(wide(i->path()));
        }
    }
    return !code || code == std::errc::no_such_file_or_directory
           || code == std::errc::not_a_directory
           || refuseCode(L"cannot read the folder", wide(folder), code);
}

std::vector<std::wstring> listed(const std::wstring& folder, bool isDeep) {
    std::vector<std::wstring> found;
    static_cast<void>(addFiles(native(folder), isDeep, found));
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace

std::wstring reason(int error) {
    return ts::strconv::fromUtf8(std::generic_category().message(error));
}

bool isFile(const std::wstring& path) {
    std::error_code code;
    return fs::is_regular_file(native(path), code);
}

bool isFolder(const std::wstring& path) {
    std::error_code code;
    return fs::is_directory(native(path), code);
}

std::optional<std::uint64_t> size(const std::wstring& path) {
    std::error_code code;
    const auto bytes = fs::file_size(native(path), code);
    return code ? std::nullopt : std::optional<std::uint64_t>(bytes);
}

std::vector<std::wstring> list(const std::wstring& folder) {
    return listed(folder, false);
}

std::vector<std::wstring> listTree(const std::wstring& folder) {
    return listed(folder, true);
}

bool listTree(const std::wstring& folder, std::vector<std::wstring>& found) {
    found.clear();
    const bool done = addFiles(native(folder), true, found);
    std::sort(found.begin(), found.end());
    return done;
}

bool makeFolder(const std::wstring& path) {
    std::error_code code;
    fs::create_directories(native(path), code);
    return !code || refuseCode(L"cannot make the folder", path, code);
}

bool removeFile(const std::wstring& path) {
    std::error_code code;
    fs::remove(native(path), code);
    return !code || refuseCode(L"cannot remove", path, code);
}

bool removeTree(const std::wstring& path) {
    std::error_code code;
    fs::remove_all(native(path), code);
    return !code || refuseCode(L"cannot remove", path, code);
}

bool move(const std::wstring& from, const std::wstring& to) {
    std::error_code code;
    fs::rename(native(from), native(to), code);
    return !code || refuseCode(L"cannot move", from + L" to " + to, code);
}

bool copy(const std::wstring& from, const std::wstring& to) {
    std::error_code code;
    fs::copy_file(native(from), native(to), fs::copy_options::overwrite_existing, code);
    return !code || refuseCode(L"cannot copy", from + L" to " + to, code);
}

handle openRead(const std::wstring& path) {
    if (isFolder(path)) {
        refuse(L"cannot read " + path + L": it is a folder");
        return nullptr;
    }
    return open(path, O_RDONLY, "rb", L"cannot read");
}

handle openWrite(const std::wstring& path) {
    return open(path, O_WRONLY | O_CREAT | O_TRUNC, "wb", L"cannot write");
}

bool put(std::FILE* file, std::string_view bytes) {
    return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
}

bool replace(const std::wstring& path, const std::function<bool(std::FILE*)>& write) {
    const std::wstring beside = path + L".new~" + std::to_wstring(::getpid());
    auto file = openWrite(beside);
    if (!file)
        return false;
    errno = 0;
    bool written =
        write(file.get()) && std::fflush(file.get()) == 0 && ::fdatasync(fileno(file.get())) == 0;
    if (!written && errno != 0)
        refuseErrno(L"cannot write", path);
    if (std::fclose(file.release()) != 0 && written)
        written = refuseErrno(L"cannot write", path);
    if (written && move(beside, path))
        return true;
    std::error_code ignored;
    fs::remove(native(beside), ignored);
    return false;
}

} // namespace files
