#include "store/replaced_container.h"

#include "NORLEX_lastError.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/journaled_change.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/uuid.h"
#include "store/connection.h"
#include "store/plot_templates.h"
#include "store/stored_version.h"
#include "store/well_path.h"

#include <algorithm>
#include <array>
#include <string_view>

using namespace sqlText;

namespace {

// Read before anything connects: the engine cannot tell a foreign file from a damaged database.
bool isDatabase(const std::wstring& path) {
    constexpr std::string_view title("SQLite format 3\0", 16);
    std::array<char, 16> start{};
    const auto file = files::openRead(path);
    return file && std::fread(start.data(), 1, start.size(), file.get()) == start.size()
           && std::string_view(start.data(), start.size()) == title;
}

bool refuseUsed(const std::wstring& path, const std::wstring& reason) {
    return refuse(
        sql(L"cannot replace ", path, L": it is in use or may not be written (", reason, L")"));
}

std::vector<std::wstring> wellFolders(odbc_database& db) {
    std::vector<std::wstring> folders;
    const auto rows = db.query(L"SELECT work_object, field, name, w_id FROM well_base");
    while (rows && rows->next())
        folders.push_back(
            NORLEX_getWellPath(&db, {rows->get_text(0), rows->get_text(1), rows->get_text(2), 0}));
    return folders;
}

// What the failed one left must not be played back into the old file.
void removeEngineFiles(const std::wstring& path) {
    for (const wchar_t* suffix : {L"-journal", L"-wal", L"-shm"})
        static_cast<void>(files::removeFile(path + suffix));
}

} // namespace

replacedContainer::replacedContainer(const NORLEX_contDescription& description)
    : m_description(description), m_hadFolder(files::isFolder(description.fileContainerPath)) {}

bool replacedContainer::setAside() {
    m_plotTemplates = files::list(plotTemplates::folder(m_description.fileContainerPath));
    const std::wstring& path = m_description.path;
    if (m_description.type != 1 || !files::isFile(path))
        return true;
    if (connection::isOpenHere(path))
        return refuseUsed(path, L"it is open in this program");
    if (isDatabase(path) && !readOld())
        return false;
    const std::wstring aside = path + L".replaced~" + newUuid();
    if (!files::move(path, aside))
        return false;
    m_aside = aside;
    return true;
}

bool replacedContainer::readOld() {
    odbc_database db;
    if (!connection::isUnused(m_description))
        return false;
    m_wasContainer = connection::open(db, m_description) && upgrade::storedVersion(db) != 0;
    if (m_wasContainer)
        m_wellFolders = wellFolders(db);
    return true;
}

void replacedContainer::discard() {
    if (m_aside.empty())
        return;
    static_cast<void>(files::removeFile(m_aside));
    if (!m_wasContainer)
        return;
    for (const auto& folder : m_wellFolders)
        for (const auto& file : files::listTree(folder))
            if (files::extensionOf(file) == L".wpdb")
                removeWithFolders(file);
    // Half-done changes of the old container are not to be undone in the new one.
    static_cast<void>(files::removeTree(m_description.fileContainerPath + L"/.pending"));
}

void replacedContainer::restore() {
    std::wstring why = NORLEX_lastError();
    if (m_description.type == 1 && files::isFile(m_description.path)) {
        static_cast<void>(files::removeFile(m_description.path));
        removeEngineFiles(m_description.path);
    }
    if (!m_aside.empty() && !files::move(m_aside, m_description.path))
        why += sql(L"; what was ", m_description.path, L" is now ", m_aside);
    const std::wstring& folder = m_description.fileContainerPath;
    if (!m_hadFolder && !folder.empty())
        static_cast<void>(files::removeTree(folder));
    for (const auto& file : files::list(plotTemplates::folder(folder)))
        if (std::find(m_plotTemplates.begin(), m_plotTemplates.end(), file)
            == m_plotTemplates.end())
            removeWithFolders(file);
    removeEmptyFolders(plotTemplates::folder(folder));
    refuse(why);
}

// With the folders that it leaves empty, up to the file directory.
void replacedContainer::removeWithFolders(const std::wstring& file) const {
    static_cast<void>(files::removeFile(file));
    removeEmptyFolders(files::folderOf(file));
}

void replacedContainer::removeEmptyFolders(const std::wstring& folder) const {
    const auto bare = [](const std::wstring& path) {
        const auto whole = files::native(path);
        return whole.has_filename() ? whole : whole.parent_path();
    };
    if (!folder.empty())
        changeJournal::removeEmptyFolders(bare(m_description.fileContainerPath), bare(folder));
}
