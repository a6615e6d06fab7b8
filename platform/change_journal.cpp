#include "platform/change_journal.h"

#include "platform/files.h"
#include "platform/strconv.h"
#include "platform/uuid.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace fs = std::filesystem;

namespace changeJournal {

namespace {

constexpr const char* endLine = "E\n";
constexpr std::size_t longEnough = 1 << 20; // to be cut, in bytes

} // namespace

writer::writer(fs::path root) : m_root(std::move(root)) {}

writer::~writer() {
    remove();
}

void writer::remove() {
    if (m_file < 0)
        return;
    std::error_code ignored;
    fs::remove_all(keptFolder(m_root, m_name), ignored);
    fs::remove(journalPath(m_root, m_name), ignored);
    ::close(std::exchange(m_file, -1));
    fs::remove(pendingFolder(m_root), ignored); // stays while another's journal is in it
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
            if (!files::makeFolder(files::wide(keptFolder(m_root, m_name))))
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
    return keptFolder(m_root, m_name) / (std::to_string(++m_names) + ".new");
}

// Other than a new file, an old content is lost if power fails before its line is on disk: all are
// noted and flushed before the first one moves.
bool writer::setAside(std::span<const fs::path> paths) {
    const std::size_t first = m_changes.size();
    for (const auto& path : paths)
        if (!note({kind::aside,
                   path,
                   keptFolder(m_root, m_name) / (std::to_string(++m_names) + ".old")}))
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
        if (!undo(last) || !cut(m_starts.back()))
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

} // namespace changeJournal
