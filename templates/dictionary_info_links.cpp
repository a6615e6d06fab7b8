// Which key of the well information is bound to which dictionary.
#include "NORLEX_dictionary.h"
#include "eventMsgDescription.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "templates/dictionary_news.h"
#include "templates/template_queries.h"

#include <optional>

using namespace sqlText;

namespace {

// The key of a row of the table; 0 and refused when there is none.
std::int64_t infoKeyOf(odbc_database& db, const std::wstring& infoKey) {
    const auto id = templateQueries::counter(
        &db, sql(L"SELECT i_id FROM well_info_struct WHERE key = ", quoted(infoKey)));
    if (id == 0)
        refuseMissing(&db, L"the well information has no key \"" + infoKey + L"\"");
    return id;
}

std::int64_t dictionaryOf(odbc_database& db, const std::wstring& name) {
    const auto id = NORLEX_dictionary::getDictID(&db, name);
    if (id == 0)
        refuseMissing(&db, L"there is no dictionary \"" + name + L"\"");
    return id;
}

bool isBound(odbc_database& db, std::int64_t infoId) {
    return templateQueries::counter(
               &db, sql(L"SELECT link_id FROM dict_info_link WHERE i_id = ", key(infoId)))
           != 0;
}

void tell(odbc_database& db, const std::wstring& infoKey, const std::wstring& comment) {
    dictionaryNews::note(db, eventAction::update, comment);
    dictionaryNews::infoKey(db, infoKey);
}

// Binds a key to a dictionary, both of which exist, by `change`, which answers false where it
// fails, and nothing where the binding stands already.
template <typename Change>
bool bind(odbc_database* db,
          const std::wstring& infoKey,
          const std::wstring& dictionary,
          Change change) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction edited(db);
    if (!edited.isOpen())
        return false;
    const auto infoId = infoKeyOf(*db, infoKey);
    const auto id = infoId != 0 ? dictionaryOf(*db, dictionary) : 0;
    if (id == 0)
        return false;
    const std::optional<bool> isDone = change(infoId, id);
    if (isDone == false)
        return false;
    if (isDone)
        tell(*db, infoKey, dictionary + L" <- " + infoKey);
    return edited.commit();
}

} // namespace

bool NORLEX_dictionary::createInfoLink(odbc_database* db,
                                       const std::wstring& infoKey,
                                       const std::wstring& dictionary) {
    return bind(db, infoKey, dictionary, [&](auto infoId, auto id) -> std::optional<bool> {
        if (!isBound(*db, infoId))
            return db->exec(sql(L"INSERT INTO dict_info_link (i_id, dict_id) VALUES (",
                                key(infoId),
                                L", ",
                                key(id),
                                L")"));
        if (getDictIDFromInfoKey(db, infoKey) == id)
            return std::nullopt;
        return refuse(L"the key \"" + infoKey
                      + L"\" is bound to another dictionary; remove that binding first");
    });
}

bool NORLEX_dictionary::deleteInfoLink(odbc_database* db, const std::wstring& infoKey) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction edited(db);
    if (!edited.isOpen())
        return false;
    const auto infoId = infoKeyOf(*db, infoKey);
    if (infoId == 0)
        return false;
    if (!db->exec(sql(L"DELETE FROM dict_info_link WHERE i_id = ", key(infoId))))
        return false;
    if (db->affected_rows() != 0)
        tell(*db, infoKey, L"</- " + infoKey);
    return edited.commit();
}

bool NORLEX_dictionary::updateInfoLink(odbc_database* db,
                                       const std::wstring& infoKey,
                                       const std::wstring& dictionary) {
    return bind(db, infoKey, dictionary, [&](auto infoId, auto id) -> std::optional<bool> {
        if (!db->exec(sql(
                L"UPDATE dict_info_link SET dict_id = ", key(id), L" WHERE i_id = ", key(infoId))))
            return false;
        return db->affected_rows() != 0
               || refuse(L"the key \"" + infoKey + L"\" is bound to no dictionary");
    });
}

bool NORLEX_dictionary::isInfoLinkExist(odbc_database* db, const std::wstring& infoKey) {
    return getInfoLinkID(db, infoKey) != 0;
}

// Both tables have a column `link_id`.
std::uint32_t NORLEX_dictionary::getInfoLinkID(odbc_database* db, const std::wstring& infoKey) {
    return static_cast<std::uint32_t>(templateQueries::counter(
        db,
        sql(L"SELECT dict_info_link.link_id FROM dict_info_link LEFT JOIN well_info_struct ON dict_info_link.i_id = well_info_struct.i_id WHERE key = ",
            quoted(infoKey))));
}

std::uint32_t NORLEX_dictionary::getDictIDFromInfoKey(odbc_database* db,
                                                      const std::wstring& infoKey) {
    return static_cast<std::uint32_t>(templateQueries::counter(
        db,
        sql(L"SELECT dict_id FROM dict_info_link LEFT JOIN well_info_struct ON well_info_struct.i_id = dict_info_link.i_id WHERE well_info_struct.key = ",
            quoted(infoKey))));
}

std::wstring NORLEX_dictionary::getDictFromLink(odbc_database* db, const std::wstring& infoKey) {
    return templateQueries::text(
        db,
        sql(L"SELECT dict_main.name FROM dict_main LEFT JOIN dict_info_link ON dict_info_link.dict_id = dict_main.dict_id\t\tLEFT JOIN well_info_struct ON well_info_struct.i_id = dict_info_link.i_id WHERE well_info_struct.key = ",
            quoted(infoKey)));
}

void NORLEX_dictionary::getLinkList(odbc_database* db, std::vector<NORLEX_dict_infoLink>& links) {
    links.clear();
    const auto rows =
        db == nullptr
            ? nullptr
            : db->query(
                L"SELECT dict_main.name, well_info_struct.key FROM dict_info_link LEFT JOIN dict_main ON dict_main.dict_id = dict_info_link.dict_id LEFT JOIN well_info_struct ON well_info_struct.i_id = dict_info_link.i_id"
                L" ORDER BY dict_info_link.link_id");
    while (rows && rows->next())
        links.push_back({rows->get_text(0), rows->get_text(1)});
}
