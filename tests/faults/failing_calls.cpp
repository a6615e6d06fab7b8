#include "tests/faults/failing_calls.h"

#include "platform/files.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <stdio_ext.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <string_view>

namespace {

using failing::trouble;

// What a call is for, as far as troubles differ in it.
enum traits : unsigned {
    plain = 0,
    needsRoom = 1,
    changesNames = 2,
    removes = 4,
    moves = 8,
};

struct plan {
    std::mutex mutex;
    std::string folder; // with a separator at its end
    bool isArmed = false;
    trouble what = trouble::once;
    std::size_t left = 0; // calls until the one that fails
    std::size_t failed = 0;
    bool leavesFiles = false;
    std::string fault;
};

// Never destroyed: files are closed as late as a program can do anything.
plan& current() {
    static plan& one = *new plan;
    return one;
}

// What is asked before anything else, by each call of the whole program.
std::atomic<bool> isWatching{false};

bool meets(trouble what, unsigned of) {
    switch (what) {
    case trouble::full:
        return (of & needsRoom) != 0;
    case trouble::denied:
        return (of & changesNames) != 0;
    default:
        return true;
    }
}

int errorOf(trouble what) {
    switch (what) {
    case trouble::full:
        return ENOSPC;
    case trouble::denied:
        return EACCES;
    default:
        return EIO;
    }
}

std::string pathOf(int file) {
    char target[PATH_MAX];
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t size = ::readlink(link.c_str(), target, sizeof target);
    return size < 0 ? std::string() : std::string(target, static_cast<std::size_t>(size));
}

std::string pathAt(int folder, const char* path) {
    return *path == '/' || folder == AT_FDCWD ? path : pathOf(folder) + "/" + path;
}

// Whether the call has to fail; errno is set then.
bool fails(const char* call, unsigned of, const std::string& path) {
    plan& p = current();
    const std::scoped_lock lock(p.mutex);
    if (!p.isArmed || !path.starts_with(p.folder) || !meets(p.what, of))
        return false;
    if (p.left > 1) {
        --p.left;
        return false;
    }
    if (p.what == trouble::once && p.failed > 0)
        return false;
    if (p.failed++ == 0)
        p.fault = std::string(call) + " " + path.substr(p.folder.size());
    p.leavesFiles = p.leavesFiles || (of & removes) != 0 || ((of & moves) != 0 && p.failed > 1);
    errno = errorOf(p.what);
    return true;
}

bool fails(const char* call, unsigned of, int file) {
    return isWatching && fails(call, of, pathOf(file));
}

bool fails(const char* call, unsigned of, const char* path) {
    return isWatching && fails(call, of, std::string(path));
}

bool failsAt(const char* call, unsigned of, int folder, const char* path) {
    return isWatching && fails(call, of, pathAt(folder, path));
}

bool failsOpening(const char* call, int folder, const char* path, int flags) {
    if (!isWatching || ((flags & O_ACCMODE) == O_RDONLY && (flags & O_CREAT) == 0))
        return false;
    const std::string whole = pathAt(folder, path);
    const bool isNew = (flags & O_CREAT) != 0 && ::access(whole.c_str(), F_OK) != 0;
    return fails(call, changesNames | (isNew ? needsRoom : plain), whole);
}

bool failsOpening(const char* call, const char* path, const char* mode) {
    return failsOpening(
        call, AT_FDCWD, path, *mode == 'r' && mode[1] != '+' ? O_RDONLY : O_WRONLY | O_CREAT);
}

// A flush of the folder that succeeds has nothing to do.
bool isHeldBack(int file) {
    if (!isWatching)
        return false;
    const std::string path = pathOf(file) + "/";
    const std::scoped_lock lock(current().mutex);
    return path.starts_with(current().folder);
}

// A full disk takes a part of a write before it takes no more.
std::size_t taken(std::size_t size) {
    const std::scoped_lock lock(current().mutex);
    return current().what == trouble::full && current().failed == 1 ? size / 2 : 0;
}

mode_t modeOf(int flags, va_list& rest) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

template <typename Call>
Call* next(Call*, const char* name) {
    return reinterpret_cast<Call*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

// The call that this program's definition hides.
#define REAL(name) static const auto real = next(&::name, #name)

// Shared libraries find them here, whatever the program's own symbols are.
#pragma GCC visibility push(default)
extern "C" {

int open(const char* path, int flags, ...) {
    REAL(open);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return failsOpening("open", AT_FDCWD, path, flags) ? -1 : real(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    REAL(open64);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return failsOpening("open64", AT_FDCWD, path, flags) ? -1 : real(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    REAL(openat);
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return failsOpening("openat", folder, path, flags) ? -1 : real(folder, path, flags, mode);
}

std::FILE* fopen(const char* path, const char* mode) {
    REAL(fopen);
    return failsOpening("fopen", path, mode) ? nullptr : real(path, mode);
}

std::FILE* fopen64(const char* path, const char* mode) {
    REAL(fopen64);
    return failsOpening("fopen64", path, mode) ? nullptr : real(path, mode);
}

int mkstemp(char* pattern) {
    REAL(mkstemp);
    return fails("mkstemp", needsRoom | changesNames, pattern) ? -1 : real(pattern);
}

ssize_t write(int file, const void* bytes, std::size_t size) {
    REAL(write);
    if (!fails("write", needsRoom, file))
        return real(file, bytes, size);
    const std::size_t part = taken(size);
    return part == 0 ? -1 : real(file, bytes, part);
}

ssize_t writev(int file, const iovec* parts, int count) {
    REAL(writev);
    return fails("writev", needsRoom, file) ? -1 : real(file, parts, count);
}

ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t at) {
    REAL(pwrite);
    return fails("pwrite", needsRoom, file) ? -1 : real(file, bytes, size, at);
}

ssize_t pwrite64(int file, const void* bytes, std::size_t size, off64_t at) {
    REAL(pwrite64);
    if (!fails("pwrite64", needsRoom, file))
        return real(file, bytes, size, at);
    const std::size_t part = taken(size);
    return part == 0 ? -1 : real(file, bytes, part, at);
}

ssize_t sendfile(int to, int from, off_t* at, std::size_t size) noexcept {
    REAL(sendfile);
    return fails("sendfile", needsRoom, to) ? -1 : real(to, from, at, size);
}

std::size_t fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
    REAL(fwrite);
    return fails("fwrite", needsRoom, fileno(file)) ? 0 : real(bytes, size, count, file);
}

// What a full disk does not take is lost when the file is closed.
int fflush(std::FILE* file) {
    REAL(fflush);
    const bool isWritten = file != nullptr && __fpending(file) > 0;
    return isWritten && fails("fflush", needsRoom, fileno(file)) ? EOF : real(file);
}

int fclose(std::FILE* file) {
    REAL(fclose);
    const bool hasData = __fpending(file) > 0;
    if (__fwritable(file) == 0 || !fails("fclose", hasData ? needsRoom : plain, fileno(file)))
        return real(file);
    const int error = errno;
    __fpurge(file);
    real(file);
    errno = error;
    return EOF;
}

int close(int file) {
    REAL(close);
    const int flags = isWatching ? ::fcntl(file, F_GETFL) : O_RDONLY;
    if (flags == -1 || (flags & O_ACCMODE) == O_RDONLY || !fails("close", plain, file))
        return real(file);
    const int error = errno;
    real(file);
    errno = error;
    return -1;
}

int fsync(int file) {
    REAL(fsync);
    if (fails("fsync", plain, file))
        return -1;
    return isHeldBack(file) ? 0 : real(file);
}

int fdatasync(int file) {
    REAL(fdatasync);
    if (fails("fdatasync", plain, file))
        return -1;
    return isHeldBack(file) ? 0 : real(file);
}

int syncfs(int file) noexcept {
    REAL(syncfs);
    if (fails("syncfs", plain, file))
        return -1;
    return isHeldBack(file) ? 0 : real(file);
}

int ftruncate(int file, off_t size) noexcept {
    REAL(ftruncate);
    return fails("ftruncate", plain, file) ? -1 : real(file, size);
}

int ftruncate64(int file, off64_t size) noexcept {
    REAL(ftruncate64);
    return fails("ftruncate64", plain, file) ? -1 : real(file, size);
}

int fchmod(int file, mode_t mode) noexcept {
    REAL(fchmod);
    return fails("fchmod", plain, file) ? -1 : real(file, mode);
}

int chmod(const char* path, mode_t mode) noexcept {
    REAL(chmod);
    return fails("chmod", plain, path) ? -1 : real(path, mode);
}

int rename(const char* from, const char* to) noexcept {
    REAL(rename);
    return fails("rename", changesNames | moves, to) ? -1 : real(from, to);
}

int unlink(const char* path) noexcept {
    REAL(unlink);
    return fails("unlink", changesNames | removes, path) ? -1 : real(path);
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    REAL(unlinkat);
    return failsAt("unlinkat", changesNames | removes, folder, path) ? -1
                                                                     : real(folder, path, flags);
}

int remove(const char* path) noexcept {
    REAL(remove);
    return fails("remove", changesNames | removes, path) ? -1 : real(path);
}

int rmdir(const char* path) noexcept {
    REAL(rmdir);
    return fails("rmdir", changesNames | removes, path) ? -1 : real(path);
}

int mkdir(const char* path, mode_t mode) noexcept {
    REAL(mkdir);
    return fails("mkdir", needsRoom | changesNames, path) ? -1 : real(path, mode);
}

} // extern "C"
#pragma GCC visibility pop

namespace failing {

std::string calls::nameOf(std::size_t manner) const {
    constexpr const char* names[] = {"one call fails",
                                     "the disk is full",
                                     "the folder may not be written",
                                     "the device is gone"};
    return names[manner];
}

calls::calls(const std::wstring& folder) {
    const std::scoped_lock lock(current().mutex);
    current().folder = files::native(folder).native() + "/";
    current().isArmed = false;
    isWatching = true;
}

calls::~calls() {
    isWatching = false;
    stop();
}

void calls::failAt(std::size_t manner, std::size_t n) {
    plan& p = current();
    const std::scoped_lock lock(p.mutex);
    p.what = static_cast<trouble>(manner);
    p.left = n;
    p.failed = 0;
    p.leavesFiles = false;
    p.fault.clear();
    p.isArmed = true;
}

void calls::stop() {
    const std::scoped_lock lock(current().mutex);
    current().isArmed = false;
}

std::string calls::fault() const {
    const std::scoped_lock lock(current().mutex);
    return current().fault;
}

bool calls::leavesFiles() const {
    const std::scoped_lock lock(current().mutex);
    return current().leavesFiles;
}

} // namespace failing
