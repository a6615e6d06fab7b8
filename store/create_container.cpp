#include "store/create_container.h"

#include "NORLEX_contDescription.h"
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "store/connection.h"
#include "store/container_settings.h"
#include "store/journal.h"
#include "store/plot_templates.h"
#include "store/replaced_container.h"
#include "store/schema.h"
#include "store/stored_version.h"

using namespace sqlText;

namespace store {

namespace {

bool connectNew(odbc_database& db, const NORLEX_contDescription& description) {
    const std::wstring& path = description.path;
    const std::wstring folder = files::folderOf(path);
    const std::wstring what = sql(L"cannot create ", path, L": ");
    if (description.type == 1 && !folder.empty() && !files::isFolder(folder))
        return refuse(sql(what, L"there is no folder ", folder));
    if (!connection::open(db, description))
        return refuse(sql(what, db.last_error(), L"; a place that may be written is needed"));
    const int version = upgrade::storedVersion(db);
    return version == 0
           || refuse(
               sql(what, L"the database holds a container of version ", key(version), L" already"));
}

bool createTables(odbc_database& db) {
    transaction tables(&db);
    return tables.isOpen() && schema::create(db, schema::containerTables()) && tables.commit();
}

bool insertVersion(odbc_database& db) {
    return db.exec(sql(
        L"INSERT INTO base_version (id, version, UUID, create_date, update_date, create_user, update_user) VALUES (1,",
        key(schema::currentVersion),
        L", ",
        audit::created(db),
        L")"));
}

bool standardContent(odbc_database& db) {
    return createTables(db) && insertVersion(db) && schema::createIndexes(db)
           && plotTemplates::install(db) && NORLEX_propTemplate::create(&db)
           && containerSettings::setProjection(db, containerSettings::defaultProjection);
}

// One transaction around the steps: a server, where no file can be removed, is left as it was, too.
bool build(const NORLEX_contDescription& description,
           const std::function<bool(odbc_database&)>& fill) {
    odbc_database db;
    if (!connectNew(db, description))
        return false;
    transaction whole(&db);
    if (!whole.isOpen() || !fill(db) || !whole.commit())
        return false;
    connection::issuePragmas(db);
    journal::add(db, journal::containerObject, eventAction::create, L"");
    journal::close(db);
    return true;
}

} // namespace

bool createContainer(const NORLEX_contDescription& description) {
    return createWith(description, standardContent);
}

bool createWith(const NORLEX_contDescription& description,
                const std::function<bool(odbc_database&)>& fill) {
    if (!connection::isUsable(description))
        return false;
    replacedContainer old(description);
    if (!old.setAside())
        return false;
    const bool done = build(description, fill);
    if (done)
        old.discard();
    else
        old.restore();
    return done;
}

} // namespace store
