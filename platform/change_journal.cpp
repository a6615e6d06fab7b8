#include "platform/change_journal.h"

#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/strconv.h"
#include "platform/uuid.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

namespace fs = std::filesystem;

namespace changeJournal {

namespace {

constexpr const char* pendingName = ".pending";
constexpr const char* journalExtension = ".changes";
constexpr const char* endLine = "E\n";
constexpr std::size_t longEnough = 1 << 20; // to be cut, in bytes

fs::path pendingFolder(const fs::path& root) {
    return root / pendingName;
}

fs::path journalPath(const fs::path& root, const std::wstring& id) {
    return pendingFolder(root) / (ts::strconv::toUtf8(id) + journalExtension);
}

bool refuseAt(const wchar_t* what, const fs::path& path, const std::wstring& why) {
    return refuse(std::wstring(what) + L" " + files::wide(path) + L": " + why);
}

bool renamed(const fs::path& from, const fs::path& to) {
    std::error_code code;
    fs::rename(from, to, code);
    return !code || refuseAt(L"cannot move", from, ts::strconv::fromUtf8(code.message()));
}

// What was not done, or is undone already, is no failure: an undo may be interrupted and repeated.
bool undoOne(const change& done) {
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

std::string contentOf(int file) {
    std::string text;
    char buffer[4096];
    for (ssize_t got = 0; (got = ::read(file, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

} // namespace

writer::writer(fs::path root) : m_root(std::move(root)) {}

writer::~writer() {
    remove();
}

void writer::remove() {
    if (m_file < 0)
        return;
    std::error_code ignored;
    fs::remove_all(folder(), ignored);
    fs::remove(journalPath(m_root, m_name), ignored);
    ::close(std::exchange(m_file, -1));
    fs::remove(pendingFolder(m_root), ignored); // stays while another's journal is in it
}

fs::path writer::folder() const {
    return pendingFolder(m_root) / ts::strconv::toUtf8(m_name);
}

bool writer::open() {
    // Another process may remove the empty folder, or the journal before it is locked.
    for (int attempt = 0; attempt < 100; ++attempt) {
        m_name = newUuid();
        if (!files::makeFolder(files::wide(pendingFolder(m_root))))
            return false;
        m_file = ::open(journalPath(m_root, m_name).c_str(),
                        O_RDWR | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC,
                        0666);
        if (m_file < 0 && errno == ENOENT)
            continue;
        if (m_file < 0) {
            const std::wstring why = files::reason(errno);
            std::error_code ignored;
            fs::remove(pendingFolder(m_root), ignored); // stays while another's journal is in it
            return refuseAt(L"cannot write", journalPath(m_root, m_name), why);
        }
        struct stat state {};
        if (::flock(m_file, LOCK_EX | LOCK_NB) == 0 && ::fstat(m_file, &state) == 0
            && state.st_nlink > 0) {
            if (!files::makeFolder(files::wide(folder())))
                remove();
            return m_file >= 0;
        }
        ::close(std::exchange(m_file, -1));
    }
    return refuseAt(L"cannot write", pendingFolder(m_root), L"it is removed again and again");
}

bool writer::begin() {
    struct stat state {};
    if (m_file >= 0 && (::fstat(m_file, &state) != 0 || state.st_nlink == 0)) {
        ::close(std::exchange(m_file, -1)); // it went with the whole file directory
        m_size = 0;
    }
    if (m_file < 0 && !open())
        return false;
    m_id = m_name + L"-" + std::to_wstring(++m_transactions);
    if (write("T\t" + ts::strconv::toUtf8(m_id) + "\n"))
        return true;
    end();
    return false;
}

bool writer::write(const std::string& line) {
    if (::write(m_file, line.data(), line.size()) == static_cast<ssize_t>(line.size())) {
        m_size += line.size();
        return true;
    }
    const int error = errno;
    static_cast<void>(::ftruncate(m_file, static_cast<off_t>(m_size))); // no half line
    return refuseAt(L"cannot write", journalPath(m_root, m_name), files::reason(error));
}

bool writer::note(const change& done) {
    const std::string line = lineOf(m_root, done);
    if (line.find('\n') + 1 != line.size())
        return refuseAt(L"cannot change", done.path, L"its name holds a line end");
    const std::size_t start = m_size;
    if (!write(line))
        return false;
    m_changes.push_back(done);
    m_starts.push_back(start);
    return true;
}

fs::path writer::newName() {
    return folder() / (std::to_string(++m_names) + ".new");
}

// Other than a new file, an old content is lost if power fails before its line is on disk: all are
// noted and flushed before the first one moves.
bool writer::setAside(std::span<const fs::path> paths) {
    const std::size_t first = m_changes.size();
    for (const auto& path : paths)
        if (!note({kind::aside, path, folder() / (std::to_string(++m_names) + ".old")}))
            return false;
    if (!paths.empty() && ::fdatasync(m_file) != 0)
        return refuseAt(L"cannot write", journalPath(m_root, m_name), files::reason(errno));
    return std::ranges::all_of(std::span(m_changes).subspan(first), [](const change& noted) {
        return renamed(noted.path, noted.other);
    });
}

bool writer::makeFolders(const fs::path& folder) {
    std::error_code code;
    std::vector<fs::path> missing;
    for (fs::path step = folder; !fs::is_directory(step, code) && step != step.parent_path();
         step = step.parent_path())
        missing.push_back(step);
    for (auto step = missing.rbegin(); step != missing.rend(); ++step)
        if (!note({kind::folder, *step, {}}) || !files::makeFolder(files::wide(*step)))
            return false;
    return true;
}

void writer::wrote(const fs::path& path) {
    m_written.push_back(path);
}

bool writer::move(const fs::path& from, const fs::path& to) {
    if (!note({kind::moved, from, to}) || !renamed(from, to))
        return false;
    followMove(from, to);
    return true;
}

// Files to be flushed are known by where they are now.
void writer::followMove(const fs::path& from, const fs::path& to) {
    for (auto& path : m_written) {
        const auto below = path.lexically_relative(from);
        if (!below.empty() && *below.begin() != "..")
            path = below == "." ? to : to / below;
    }
}

// Each line goes with its operation: to undo one again, behind those before it, would take what
// they have brought back.
bool writer::undoTo(std::size_t mark) {
    while (m_changes.size() > mark) {
        const change& last = m_changes.back();
        if (!undoOne(last) || !cut(m_starts.back()))
            return false;
        if (last.what == kind::moved)
            followMove(last.other, last.path);
        m_changes.pop_back();
        m_starts.pop_back();
    }
    return true;
}

bool writer::cut(std::size_t size) {
    m_size = size;
    return ::ftruncate(m_file, static_cast<off_t>(size)) == 0
           || refuseAt(L"cannot write", journalPath(m_root, m_name), files::reason(errno));
}

// The journal is closed first: what was set aside must not be looked for when it is gone.
void writer::end() {
    m_isEnded = true;
    if (m_size > longEnough || !write(endLine)) { // cutting it needs no room
        m_isEnded = ::ftruncate(m_file, 0) == 0;
        m_size = 0;
    }
    m_id.clear();
    std::error_code ignored;
    for (const auto& done : std::exchange(m_changes, {}))
        if (done.what == kind::aside)
            fs::remove_all(done.other, ignored);
    m_starts.clear();
    m_written.clear();
}

void writer::leave() {
    if (m_file >= 0)
        ::close(std::exchange(m_file, -1));
}

remains::remains(fs::path root, std::wstring name, int lockedFile)
    : m_root(std::move(root)), m_name(std::move(name)), m_file(lockedFile) {
    read();
}

remains::remains(remains&& other) noexcept
    : m_root(std::move(other.m_root)), m_name(std::move(other.m_name)),
      m_file(std::exchange(other.m_file, -1)), m_id(std::move(other.m_id)),
      m_changes(std::move(other.m_changes)), m_starts(std::move(other.m_starts)) {}

remains::~remains() {
    if (m_file >= 0)
        ::close(m_file);
}

// The last line may be cut short: its operation was not begun.
void remains::read() {
    const std::string text = contentOf(m_file);
    std::size_t start = 0;
    for (auto end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
        const auto line = std::string_view(text).substr(start, end - start);
        const bool isStart = line.starts_with("T\t");
        if (isStart || line == "E") { // the end of the one before may not have been noted
            m_id = ts::strconv::fromUtf8(isStart ? line.substr(2) : "");
            m_changes.clear();
            m_starts.clear();
        } else if (line.size() > 2 && line[1] == '\t') {
            m_changes.push_back(changeOf(m_root, line));
            m_starts.push_back(start);
        }
        start = end + 1;
    }
}

bool remains::undo() {
    for (; !m_changes.empty(); m_changes.pop_back(), m_starts.pop_back()) {
        if (!undoOne(m_changes.back()))
            return false;
        if (::ftruncate(m_file, static_cast<off_t>(m_starts.back())) != 0)
            return refuseAt(L"cannot write", journalPath(m_root, m_name), files::reason(errno));
    }
    return true;
}

void remains::removeEmptied() const {
    for (const auto& done : m_changes)
        if (done.what == kind::aside || done.what == kind::moved)
            removeEmptyFolders(m_root, done.path.parent_path());
}

// A journal that stays must not be undone once more: others may change the files again.
bool remains::drop() {
    const bool isEmpty = ::ftruncate(m_file, 0) == 0;
    std::error_code ignored;
    fs::remove_all(pendingFolder(m_root) / ts::strconv::toUtf8(m_name), ignored);
    std::error_code code;
    fs::remove(journalPath(m_root, m_name), code);
    fs::remove(pendingFolder(m_root), ignored);
    return isEmpty || !code
           || refuseAt(L"cannot remove",
                       journalPath(m_root, m_name),
                       ts::strconv::fromUtf8(code.message()));
}

std::vector<remains> abandoned(const fs::path& root) {
    std::vector<remains> found;
    std::error_code code;
    for (fs::directory_iterator i(pendingFolder(root), code), end; !code && i != end;
         i.increment(code)) {
        if (i->path().extension() != journalExtension)
            continue;
        int file = ::open(i->path().c_str(), O_RDWR | O_CLOEXEC);
        if (file < 0)
            file = ::open(i->path().c_str(), O_RDONLY | O_CLOEXEC); // its undoing may tell why
        if (file >= 0 && ::flock(file, LOCK_EX | LOCK_NB) == 0)
            found.emplace_back(root, files::wide(i->path().stem()), file);
        else if (file >= 0)
            ::close(file);
    }
    if (found.empty()) // empty, of a program killed before it made its journal
        static_cast<void>(::rmdir(pendingFolder(root).c_str()));
    return found;
}

void removeEmptyFolders(const fs::path& root, fs::path folder) {
    std::error_code code;
    while (!folder.lexically_relative(root).empty() && folder != root
           && *folder.lexically_relative(root).begin() != ".." && fs::remove(folder, code))
        folder = folder.parent_path();
}

} // namespace changeJournal
