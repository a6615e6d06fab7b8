#include "NORLEX_wellContainer.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction_files.h"
#include "pwdHolder.h"
#include "store/connection.h"
#include "store/create_container.h"
#include "store/journal.h"
#include "store/schema.h"
#include "store/upgrade.h"

using namespace sqlText;

static_assert(NORLEX_wellContainer::currentVersion == schema::currentVersion);

class NORLEX_wellContainer::openFile : public connection::openMark {
public:
    using openMark::openMark;
};

namespace {

// What can be told of a description without connecting.
bool isReachable(const NORLEX_contDescription& description) {
    const std::wstring& path = description.path;
    if (!path.empty() && !files::isFile(path))
        return refuse(sql(L"cannot open ", path, L": there is no such file"));
    return connection::isUsable(description);
}

bool connectExisting(odbc_database& db, const NORLEX_contDescription& description) {
    return connection::open(db, description)
           || refuse(sql(L"cannot open ", description.path, L": ", db.last_error()));
}

} // namespace

NORLEX_wellContainer::NORLEX_wellContainer(const NORLEX_contDescription& description) {
    if (!openContainer(description))
        m_db.reset();
}

NORLEX_wellContainer::~NORLEX_wellContainer() {
    if (m_db)
        journal::close(*m_db);
}

bool NORLEX_wellContainer::openContainer(const NORLEX_contDescription& description) {
    if (!isReachable(description))
        return false;
    m_db = std::make_unique<odbc_database>();
    return connectTo(description);
}

// On failure the connection is closed and nothing of the description is kept.
bool NORLEX_wellContainer::connectTo(const NORLEX_contDescription& description) {
    bool done = connectExisting(*m_db, description);
    if (done) {
        m_description = description;
        connection::issuePragmas(*m_db);
        // Only a container knows which of the changes that a killed program left are committed.
        done =
            upgrade::isSupported(*m_db, description) && m_db->files().recover() && updateVersion();
    }
    if (done) {
        if (description.type == 1) // a server's description is a text that anybody may read
            m_openFile = std::make_unique<openFile>(description.path);
        return true;
    }
    m_db->disconnect();
    m_description = {};
    return false;
}

bool NORLEX_wellContainer::create(const NORLEX_contDescription& description) {
    return store::createContainer(description);
}

bool NORLEX_wellContainer::isContCanOpen(const NORLEX_contDescription& description) {
    odbc_database db;
    return isReachable(description) && connectExisting(db, description)
           && upgrade::isSupported(db, description);
}

bool NORLEX_wellContainer::updateVersion() {
    return m_db ? upgrade::bringUpToDate(*m_db, m_description) : refuse(L"the container is closed");
}

bool NORLEX_wellContainer::updateConnectionPath(const std::wstring& newPath) {
    if (!isOK())
        return refuse(sql(L"cannot move to ", newPath, L": the container is closed"));
    if (m_db->in_transaction())
        return refuse(sql(L"cannot move to ", newPath, L": a transaction is open, end it first"));
    NORLEX_contDescription description = makeDescription(newPath);
    description.tag = m_description.tag;
    // A pair that is still to be asked for shows when the server refuses the connection.
    static_cast<void>(pwdHolder::Instance().fill(description));
    if (!isReachable(description))
        return false;
    m_openFile.reset();
    journal::close(*m_db);
    m_db->disconnect();
    return connectTo(description);
}
