#include "store/connection.h"

#include "NORLEX_contDescription.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"

#include <mutex>
#include <set>
#include <system_error>

using namespace sqlText;

namespace connection {

namespace {

struct openFiles {
    std::mutex mutex;
    std::multiset<std::wstring> paths;
};

openFiles& opened() {
    static openFiles files;
    return files;
}

// One spelling for the ways to write a path.
std::wstring spelling(const std::wstring& path) {
    std::error_code code;
    return files::wide(std::filesystem::absolute(files::native(path), code).lexically_normal());
}

} // namespace

bool isUsable(const NORLEX_contDescription& description) {
    constexpr int local = 1;
    constexpr int server = 2;
    const std::wstring& path = description.path;
    if (path.empty())
        return refuse(L"the container's path is empty: a \".well2\" file is expected");
    if (description.type != local && description.type != server)
        return refuse(sql(path,
                          L": the description's type ",
                          key(description.type),
                          L" is neither 1 (local file) nor 2 (server)"));
    if (files::extensionOf(path) != localExtension)
        return refuse(sql(path, L": the extension must be exactly \".well2\", in lower case"));
    if (description.type == local && description.connection != path)
        return refuse(sql(path,
                          L": the connection of a local container is its own path, not \"",
                          description.connection,
                          L"\""));
    if (description.type == server && description.connection.empty())
        return refuse(sql(path, L": the server description has no \"Database\" line"));
    return true;
}

bool open(odbc_database& db, const NORLEX_contDescription& description) {
    db.set_file_container_path(description.fileContainerPath);
    db.set_identity(description.path);
    return description.type == 1 ? db.connect(files::native(description.path).string())
                                 : db.connect(description.getConnectionString());
}

void issuePragmas(odbc_database& db) {
    static_cast<void>(db.exec(L"PRAGMA cache_size=50000"));
    static_cast<void>(db.exec(L"PRAGMA page_size=8192"));
    static_cast<void>(db.exec(L"PRAGMA synchronous=NORMAL"));
    static_cast<void>(db.exec(L"PRAGMA case_sensitive_like=ON"));
}

openMark::openMark(const std::wstring& path) : m_path(spelling(path)) {
    const std::lock_guard lock(opened().mutex);
    opened().paths.insert(m_path);
}

openMark::~openMark() {
    const std::lock_guard lock(opened().mutex);
    opened().paths.erase(opened().paths.find(m_path));
}

bool isUnused(const NORLEX_contDescription& description) {
    odbc_database db;
    const bool isOpen = open(db, description);
    if (!isOpen && db.last_error().find(L"locked") == std::wstring::npos)
        return true;
    static_cast<void>(isOpen && db.exec(L"PRAGMA busy_timeout=1000"));
    if (isOpen && db.exec(L"BEGIN EXCLUSIVE"))
        return db.exec(L"ROLLBACK");
    return refuse(sql(L"cannot replace ",
                      description.path,
                      L": it is in use or may not be written (",
                      db.last_error(),
                      L")"));
}

bool isOpenHere(const std::wstring& path) {
    const std::lock_guard lock(opened().mutex);
    return opened().paths.contains(spelling(path));
}

} // namespace connection
