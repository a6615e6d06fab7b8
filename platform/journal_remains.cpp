#include "platform/journal_remains.h"

#include "platform/files.h"
#include "platform/strconv.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <utility>

namespace fs = std::filesystem;

namespace changeJournal {

namespace {

std::string contentOf(int file) {
    std::string text;
    char buffer[4096];
    for (ssize_t got = 0; (got = ::read(file, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

} // namespace

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
        if (!changeJournal::undo(m_changes.back()))
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
    fs::remove_all(keptFolder(m_root, m_name), ignored);
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

} // namespace changeJournal
