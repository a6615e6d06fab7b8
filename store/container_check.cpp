#include "store/container_check.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "platform/transaction_files.h"
#include "store/container_relations.h"
#include "store/well_path.h"

#include <algorithm>
#include <set>

using namespace sqlText;

namespace containerCheck {

namespace {

constexpr std::wstring_view fileDirectory = L"file directory";

// The sample files that the logs' rows name.
bool namedSamples(odbc_database& db, std::set<std::wstring>& paths) {
    const auto rows = db.query(
        L"SELECT well_base.work_object, well_base.field, well_base.name, property.p_group, property.name FROM property, well_base, base_template WHERE well_base.w_id = property.w_id AND base_template.bt_id = property.bt_id AND base_template.type = 'NORLEX_dataTypeLog'");
    if (!rows)
        return refuse(sql(L"the logs cannot be listed: ", db.last_error()));
    while (rows->next()) {
        const NORLEX_wellDescription well{
            rows->get_text(0), rows->get_text(1), rows->get_text(2), 0};
        const std::wstring path =
            samplePathOf(NORLEX_getWellPath(&db, well), {rows->get_text(4), rows->get_text(3)});
        paths.insert(files::wide(files::native(path)));
    }
    return true;
}

bool samplesBelow(const odbc_database& db, std::set<std::wstring>& paths) {
    const std::wstring root = files::wide(files::native(NORLEX_getFilePath(db)));
    std::vector<std::wstring> all;
    if (!files::listTree(root, all))
        return false;
    for (const auto& path : all)
        if (files::extensionOf(path) == L".wpdb"
            && !path.substr(root.size()).starts_with(L".pending"))
            paths.insert(path);
    return true;
}

std::vector<std::wstring> without(const std::set<std::wstring>& all,
                                  const std::set<std::wstring>& some) {
    std::vector<std::wstring> out;
    std::set_difference(all.begin(), all.end(), some.begin(), some.end(), std::back_inserter(out));
    return out;
}

void addFiles(const wchar_t* kind,
              const std::vector<std::wstring>& paths,
              bool repairable,
              std::vector<NORLEX_checkFinding>& findings) {
    if (!paths.empty())
        findings.push_back({kind,
                            std::wstring(fileDirectory),
                            static_cast<std::int64_t>(paths.size()),
                            paths.front(),
                            repairable});
}

bool checkSamples(odbc_database& db, std::vector<NORLEX_checkFinding>& findings) {
    std::set<std::wstring> named;
    std::set<std::wstring> there;
    if (!namedSamples(db, named) || !samplesBelow(db, there))
        return false;
    addFiles(L"log without a sample file", without(named, there), false, findings);
    addFiles(L"sample file without a log", without(there, named), true, findings);
    return true;
}

bool removeSamples(odbc_database& db, std::vector<NORLEX_checkFinding>& removed) {
    std::set<std::wstring> named;
    std::set<std::wstring> there;
    if (!namedSamples(db, named) || !samplesBelow(db, there))
        return false;
    const auto orphans = without(there, named);
    addFiles(L"sample file without a log", orphans, true, removed);
    return db.files().remove(orphans);
}

} // namespace

bool checkEngine(odbc_database& db, std::vector<NORLEX_checkFinding>& findings) {
    if (db.is_server())
        return true;
    const auto rows = db.query(L"PRAGMA integrity_check");
    if (!rows)
        return refuse(sql(L"the database cannot be checked: ", db.last_error()));
    NORLEX_checkFinding damage{L"damage", L"database file", 0, {}, false};
    while (rows->next()) {
        if (rows->get_text(0) == L"ok")
            continue;
        if (damage.count++ == 0)
            damage.example = rows->get_text(0);
    }
    if (damage.count > 0)
        findings.push_back(damage);
    return true;
}

bool run(odbc_database& db, std::vector<NORLEX_checkFinding>& findings) {
    return checkEngine(db, findings) && containerRelations::find(db, findings)
           && checkSamples(db, findings);
}

bool repair(odbc_database& db, std::vector<NORLEX_checkFinding>& removed) {
    transaction whole(&db);
    return whole.isOpen() && containerRelations::removeOrphans(db, removed)
           && removeSamples(db, removed) && whole.commit();
}

} // namespace containerCheck
