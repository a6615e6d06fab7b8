// Dictionaries as a whole, and looking an entry up without loading the others.
#include "NORLEX_dictionary.h"
#include "eventMsgDescription.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "store/schema.h"
#include "templates/dictionary_news.h"
#include "templates/template_queries.h"

using namespace sqlText;

namespace {

// A server lets only the owner of a schema make tables, also those that are there.
bool hasTables(odbc_database& db) {
    return db.query(L"SELECT dict_id FROM dict_main WHERE dict_id = 0") != nullptr
           && db.query(L"SELECT v_id FROM dict_values WHERE v_id = 0") != nullptr
           && db.query(L"SELECT link_id FROM dict_link WHERE link_id = 0") != nullptr;
}

// Whether a dictionary may be given the name.
bool isFree(odbc_database& db, const std::wstring& name) {
    if (numbers::trimmed(name).empty())
        return refuse(L"a dictionary needs a name");
    return !NORLEX_dictionary::isExist(&db, name)
           || refuse(L"there is a dictionary \"" + name + L"\" already; another name is expected");
}

bool refuseUnknown(const odbc_database* db, const std::wstring& name) {
    return refuseMissing(db, L"there is no dictionary \"" + name + L"\"");
}

} // namespace

bool NORLEX_dictionary::createDBTables(odbc_database* db) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction made(db);
    return made.isOpen() && schema::create(*db, schema::dictionaryTables()) && made.commit();
}

bool NORLEX_dictionary::create(odbc_database* db, const std::wstring& name) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction made(db);
    if (!made.isOpen() || !isFree(*db, name) || (!hasTables(*db) && !createDBTables(db))
        || !db->exec(sql(
            L"INSERT INTO dict_main (name, UUID, create_date, update_date, create_user, update_user) VALUES (",
            quoted(name),
            L", ",
            audit::created(*db),
            L")")))
        return false;
    dictionaryNews::note(*db, eventAction::create, name);
    dictionaryNews::data(*db, name);
    return made.commit();
}

bool NORLEX_dictionary::isExist(odbc_database* db, const std::wstring& name) {
    return templateQueries::counter(db, sql(L"SELECT * FROM dict_main WHERE name = ", quoted(name)))
           != 0; // the first column is the key
}

bool NORLEX_dictionary::rename(odbc_database* db,
                               const std::wstring& oldName,
                               const std::wstring& newName) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction edited(db);
    if (!edited.isOpen())
        return false;
    if (!isExist(db, oldName))
        return refuseUnknown(db, oldName);
    if (oldName == newName)
        return edited.commit();
    if (!isFree(*db, newName)
        || !db->exec(sql(
            L"UPDATE dict_main SET name = ", quoted(newName), L" WHERE name = ", quoted(oldName)))
        || !updateEditTimeDict(db, newName))
        return false;
    dictionaryNews::note(*db, eventAction::rename, oldName + L" -> " + newName);
    dictionaryNews::data(*db, oldName);
    dictionaryNews::data(*db, newName);
    return edited.commit();
}

bool NORLEX_dictionary::deleteDict(odbc_database* db, const std::wstring& name) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction edited(db);
    if (!edited.isOpen())
        return false;
    const auto id = templateQueries::counter(
        db, sql(L"SELECT dict_id FROM dict_main WHERE name = ", quoted(name)));
    if (id == 0)
        return refuseUnknown(db, name);
    if (!db->exec(sql(L"DELETE FROM dict_values WHERE dict_id = ", key(id)))
        || !db->exec(sql(L"DELETE FROM dict_main WHERE name = ", quoted(name))))
        return false;
    dictionaryNews::note(*db, eventAction::remove, name);
    dictionaryNews::data(*db, name);
    return edited.commit();
}

// A server gives changed rows another place: the order is asked for here, and below.
void NORLEX_dictionary::getList(odbc_database* db, std::vector<std::wstring>& names) {
    names = templateQueries::texts(db, L"SELECT name FROM dict_main ORDER BY dict_id");
}

std::uint32_t NORLEX_dictionary::getDictID(odbc_database* db, const std::wstring& name) {
    return static_cast<std::uint32_t>(templateQueries::counter(
        db, sql(L"SELECT dict_id FROM dict_main WHERE name = ", quoted(name))));
}

std::wstring
NORLEX_dictionary::getValue(odbc_database* db, std::uint32_t dictId, const std::wstring& code) {
    return templateQueries::text(db,
                                 sql(L"SELECT value FROM dict_values WHERE dict_id = ",
                                     key(dictId),
                                     L" AND code = ",
                                     quoted(code),
                                     L" ORDER BY v_id"));
}

std::wstring
NORLEX_dictionary::getCode(odbc_database* db, std::uint32_t dictId, const std::wstring& value) {
    return templateQueries::text(db,
                                 sql(L"SELECT code FROM dict_values WHERE dict_id = ",
                                     key(dictId),
                                     L" AND value = ",
                                     quoted(value),
                                     L" ORDER BY v_id"));
}

std::wstring NORLEX_dictionary::getCodeByValue(odbc_database* db,
                                               const std::wstring& dictionary,
                                               const std::wstring& value) {
    return templateQueries::text(
        db,
        sql(L"SELECT dict_values.code FROM dict_values LEFT JOIN dict_main ON dict_main.dict_id = dict_values.dict_id WHERE dict_main.name = ",
            quoted(dictionary),
            L" AND dict_values.value = ",
            quoted(value),
            L" ORDER BY v_id"));
}

// The right sides are those of the row as it was, so that one statement exchanges them.
bool NORLEX_dictionary::swapData(odbc_database* db, const std::wstring& name) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction edited(db);
    if (!edited.isOpen())
        return false;
    const auto id = getDictID(db, name);
    if (id == 0)
        return refuseUnknown(db, name);
    if (!db->exec(
            sql(L"UPDATE dict_values SET value = code, code = value WHERE dict_id = ", key(id)))
        || !updateEditTimeDict(db, name))
        return false;
    dictionaryNews::data(*db, name);
    return edited.commit();
}

bool NORLEX_dictionary::updateEditTimeDict(odbc_database* db, const std::wstring& name) {
    return templateQueries::isOpen(db)
           && db->exec(
               sql(L"UPDATE dict_main SET ", audit::touched(*db), L" WHERE name = ", quoted(name)));
}

bool NORLEX_dictionary::updateEditTimeLink(odbc_database* db, std::uint32_t linkId) {
    return templateQueries::isOpen(db)
           && db->exec(sql(
               L"UPDATE dict_link SET ", audit::touched(*db), L" WHERE link_id = ", key(linkId)));
}
