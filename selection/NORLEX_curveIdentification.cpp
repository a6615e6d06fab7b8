#include "NORLEX_curveIdentification.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/module_path.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "platform/transaction.h"
#include "wells/query.h"

using namespace sqlText;

namespace {

std::wstring named(const std::wstring& name) {
    return L"\"" + name + L"\"";
}

std::vector<NORLEX_curveDescription> readCurves(odbc_database* db, const std::wstring& statement) {
    std::vector<NORLEX_curveDescription> out;
    const auto rows = db != nullptr ? db->query(statement) : nullptr;
    while (rows && rows->next())
        out.push_back({rows->get_text(0),
                       rows->get_text(1),
                       rows->get_text(2),
                       rows->get_text(3),
                       rows->get_text(4),
                       rows->get_text(5)});
    return out;
}

std::vector<NORLEX_curveDescription> withMnemonic(odbc_database* db, const std::wstring& name) {
    return readCurves(
        db,
        sql(L"SELECT method_id, mnemonic, common_units, rus_units, comment, type FROM LAS_methods "
            L"WHERE lower(mnemonic) = ",
            quoted(ts::strconv::lower(name))));
}

std::vector<NORLEX_curveDescription> withSynonym(odbc_database* db, const std::wstring& name) {
    return readCurves(
        db,
        sql(L"SELECT LAS_methods.method_id, LAS_methods.mnemonic, LAS_methods.common_units, "
            L"LAS_methods.rus_units, LAS_methods.comment, LAS_methods.type FROM LAS_methods LEFT "
            L"JOIN las_method_synonyms ON LAS_methods.method_id = las_method_synonyms.Method_id "
            L"WHERE Syn_name = ",
            quoted(name)));
}

bool hasSynonym(odbc_database& db, const std::wstring& name) {
    return query::counter(
               &db,
               sql(L"SELECT count(*) FROM las_method_synonyms WHERE Syn_name = ", quoted(name)))
           > 0;
}

// What look-ups would find under the name already: a second synonym, or a mnemonic, which goes
// before synonyms.
bool isFree(odbc_database& db, const std::wstring& name) {
    const auto same = withMnemonic(&db, name);
    if (!same.empty())
        return refuse(L"the name " + named(name) + L" cannot be a synonym: it is the mnemonic "
                      + same.front().mnemonic);
    if (!hasSynonym(db, name))
        return true;
    const auto owner = withSynonym(&db, name);
    return refuse(L"the synonym " + named(name) + L" is in the catalogue already, of the curve "
                  + (owner.empty() ? L"that was removed" : owner.front().mnemonic));
}

bool isName(const std::wstring& name) {
    return !numbers::trimmed(name).empty()
           || refuse(L"a synonym needs a name; " + named(name) + L" is none");
}

// The key of a curve of the catalogue; 0 for any other, having said so.
std::int64_t keyOf(odbc_database& db, const NORLEX_curveDescription& curve) {
    const auto id = query::counter(
        &db, sql(L"SELECT method_id FROM LAS_methods WHERE method_id = ", quoted(curve.method_id)));
    if (id == 0)
        refuse(L"the curve " + named(curve.mnemonic) + L" with the number " + named(curve.method_id)
               + L" is not in the catalogue");
    return id;
}

bool isThere(odbc_database& db, const std::wstring& synonym) {
    return hasSynonym(db, synonym)
           || refuse(L"the synonym " + named(synonym) + L" is not in the catalogue");
}

bool refuseChange(const odbc_database& db) {
    return refuse(L"the catalogue of curves " + files::wide(db.get_connection_string())
                  + L" cannot be changed: " + db.last_error());
}

// A file that may be written to in a folder that may not is found out here.
bool write(odbc_database& db, const std::wstring& statement) {
    return db.exec(statement) || refuseChange(db);
}

// Runs a change in a transaction of its own, in which nobody else adds the same name.
template <typename Change>
bool edit(odbc_database* db, Change change) {
    if (db == nullptr)
        return refuse(L"the catalogue of curves is not open; its file LAS_methods.db is needed");
    transaction whole(db);
    return whole.isOpen() ? change(*db) && whole.commit() : refuseChange(*db);
}

std::unique_ptr<odbc_database> openCatalogue(const std::wstring& path) {
    if (!files::isFile(path)) { // connecting would make one
        refuse(L"the catalogue of curves " + path + L" was not found");
        return nullptr;
    }
    auto db = std::make_unique<odbc_database>();
    if (!db->connect(files::native(path).native()) || !db->exec(L"PRAGMA case_sensitive_like=ON"))
        return nullptr;
    return db;
}

} // namespace

NORLEX_curveIdentification::NORLEX_curveIdentification()
    : NORLEX_curveIdentification(ts_options_get_main_module_path()
                                 + L"strategraphy/LAS_methods.db") {}

NORLEX_curveIdentification::NORLEX_curveIdentification(const std::wstring& path)
    : m_db(openCatalogue(path)) {}

NORLEX_curveIdentification::~NORLEX_curveIdentification() = default;

bool NORLEX_curveIdentification::isOK() const {
    return m_db != nullptr;
}

NORLEX_curveDescription NORLEX_curveIdentification::getCurve(const std::wstring& name) const {
    if (name.empty())
        return {};
    auto found = withMnemonic(m_db.get(), name);
    if (found.empty())
        found = withSynonym(m_db.get(), name);
    return found.empty() ? NORLEX_curveDescription() : found.front();
}

NORLEX_curveDescription NORLEX_curveIdentification::isSynonym(const std::wstring& name) const {
    return getCurve(name);
}

std::vector<NORLEX_curveDescription>
NORLEX_curveIdentification::getCurvesFromType(const std::wstring& type) const {
    return readCurves(
        m_db.get(),
        sql(L"SELECT method_id, mnemonic, common_units, rus_units, comment, type FROM LAS_methods "
            L"WHERE type = ",
            quoted(type)));
}

std::vector<NORLEX_curveDescription> NORLEX_curveIdentification::getAllCurves() const {
    return readCurves(
        m_db.get(),
        L"SELECT method_id, mnemonic, common_units, rus_units, comment, type FROM LAS_methods");
}

std::vector<std::wstring> NORLEX_curveIdentification::getTypeList() const {
    std::vector<std::wstring> out;
    query::texts(m_db.get(), L"SELECT DISTINCT type FROM LAS_methods ORDER BY type ASC", out);
    return out;
}

void NORLEX_curveIdentification::getSynonymList(
    std::vector<std::pair<std::wstring, std::wstring>>& synonyms) const {
    synonyms.clear();
    const auto rows =
        m_db ? m_db->query(
            L"SELECT LAS_methods.mnemonic, las_method_synonyms.Syn_name FROM las_method_synonyms "
            L"LEFT JOIN LAS_methods ON LAS_methods.method_id = las_method_synonyms.Method_id ORDER "
            L"BY LAS_methods.mnemonic")
             : nullptr;
    while (rows && rows->next())
        synonyms.emplace_back(rows->get_text(0), rows->get_text(1));
}

bool NORLEX_curveIdentification::addSynonym(const NORLEX_curveDescription& curve,
                                            const std::wstring& name) {
    return isName(name) && edit(m_db.get(), [&](odbc_database& db) {
               const std::int64_t id = keyOf(db, curve);
               return id != 0 && isFree(db, name)
                      && write(db,
                               sql(L"INSERT INTO las_method_synonyms (Method_id, Syn_name) "
                                   L"VALUES (",
                                   key(id),
                                   L", ",
                                   quoted(name),
                                   L")"));
           });
}

bool NORLEX_curveIdentification::editSynonym(const std::wstring& oldName,
                                             const std::wstring& newName) {
    return isName(newName) && edit(m_db.get(), [&](odbc_database& db) {
               return isThere(db, oldName) && (newName == oldName || isFree(db, newName))
                      && write(db,
                               sql(L"UPDATE las_method_synonyms SET Syn_name = ",
                                   quoted(newName),
                                   L" WHERE Syn_name = ",
                                   quoted(oldName)));
           });
}

bool NORLEX_curveIdentification::delSynonym(const std::wstring& name) {
    return edit(m_db.get(), [&](odbc_database& db) {
        return isThere(db, name)
               && write(db,
                        sql(L"DELETE FROM las_method_synonyms WHERE Syn_name = ", quoted(name)));
    });
}
