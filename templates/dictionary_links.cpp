// Which field of a property is bound to which dictionary.
#include "NORLEX_dictionary.h"
#include "eventMsgDescription.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "templates/dictionary_news.h"
#include "templates/template_queries.h"

#include <optional>

using namespace sqlText;
using dictionaryNews::shown;

namespace {

// Of the name of the dictionary that a field is bound to: null when that was deleted.
std::wstring boundName(const NORLEX_propDescription& prop, const std::wstring& field) {
    return sql(
        L"SELECT dict_main.name AS name FROM dict_link LEFT JOIN dict_main ON dict_main.dict_id = dict_link.dict_id WHERE dict_link.p_group = ",
        quoted(prop.group),
        L" AND dict_link.prop = ",
        quoted(prop.name),
        L" AND field = ",
        quoted(field));
}

std::wstring
ofField(const std::wstring& group, const std::wstring& prop, const std::wstring& field) {
    return sql(quoted(group), L" AND prop = ", quoted(prop), L" AND field = ", quoted(field));
}

// Whether the field of the property is among the bindings.
bool isBound(odbc_database& db, const NORLEX_propDescription& prop, const std::wstring& field) {
    const auto rows = db.query(L"SELECT p_group, prop, field from dict_link");
    while (rows && rows->next())
        if (rows->get_text(0) == prop.group && rows->get_text(1) == prop.name
            && rows->get_text(2) == field)
            return true;
    return false;
}

// Bound already: right when it is to this dictionary.
bool isBoundTo(odbc_database& db,
               const NORLEX_propDescription& prop,
               const std::wstring& field,
               const std::wstring& dictionary) {
    const auto bound = NORLEX_dictionary::getDictFromLink(&db, prop, field);
    return bound == dictionary
           || refuse(shown(prop, field)
                     + (bound.empty() ? L" is bound to a dictionary that was deleted"
                                      : L" is bound to the dictionary \"" + bound + L"\"")
                     + L"; remove that binding first");
}

bool areNames(const NORLEX_propDescription& prop, const std::wstring& field) {
    return (!numbers::trimmed(prop.name).empty() && !numbers::trimmed(field).empty())
           || refuse(L"a dictionary is bound to a property and a field of it; a name is empty");
}

// 0 and refused without a dictionary of the name.
std::int64_t keyOf(odbc_database& db, const std::wstring& dictionary) {
    const auto id = templateQueries::counter(
        &db, sql(L"SELECT dict_id from dict_main WHERE name = ", quoted(dictionary)));
    if (id == 0)
        refuseMissing(&db, L"there is no dictionary \"" + dictionary + L"\"");
    return id;
}

std::optional<NORLEX_dict_link> readLink(odbc_database& db, std::uint32_t linkId) {
    const auto rows =
        db.query(sql(L"SELECT p_group, prop, field FROM dict_link WHERE link_id = ", key(linkId)));
    if (rows && rows->next())
        return NORLEX_dict_link{
            {rows->get_text(1), rows->get_text(0)}, rows->get_text(2), std::wstring()};
    refuseMissing(&db, sql(L"there is no binding with the key ", key(linkId)));
    return std::nullopt;
}

} // namespace

std::uint32_t NORLEX_dictionary::getDictID(odbc_database* db,
                                           const std::wstring& group,
                                           const std::wstring& prop,
                                           const std::wstring& field) {
    return static_cast<std::uint32_t>(templateQueries::counter(
        db, sql(L"SELECT dict_id FROM dict_link WHERE p_group = ", ofField(group, prop, field))));
}

std::uint32_t NORLEX_dictionary::getLinkID(odbc_database* db,
                                           const std::wstring& group,
                                           const std::wstring& prop,
                                           const std::wstring& field) {
    return static_cast<std::uint32_t>(templateQueries::counter(
        db, sql(L"SELECT link_id FROM dict_link WHERE p_group = ", ofField(group, prop, field))));
}

bool NORLEX_dictionary::createLink(odbc_database* db,
                                   const NORLEX_propDescription& prop,
                                   const std::wstring& field,
                                   const std::wstring& dictionary) {
    if (!templateQueries::isOpen(db) || !areNames(prop, field))
        return false;
    transaction edited(db);
    if (!edited.isOpen())
        return false;
    const auto id = keyOf(*db, dictionary);
    if (id == 0)
        return false;
    if (isBound(*db, prop, field))
        return isBoundTo(*db, prop, field, dictionary) && edited.commit();
    if (!db->exec(sql(
            L"INSERT INTO dict_link (p_group, prop, field, dict_id, UUID, create_date, update_date, create_user, update_user) VALUES (",
            quoted(prop.group),
            L", ",
            quoted(prop.name),
            L", ",
            quoted(field),
            L", ",
            key(id),
            L", ",
            audit::created(*db),
            L")")))
        return false;
    dictionaryNews::note(*db, eventAction::update, dictionary + L" <- " + shown(prop, field));
    dictionaryNews::link(*db, prop, field, dictionary);
    return edited.commit();
}

bool NORLEX_dictionary::deleteLink(odbc_database* db,
                                   const NORLEX_propDescription& prop,
                                   const std::wstring& field) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction edited(db);
    if (!edited.isOpen())
        return false;
    if (getLinkID(db, prop.group, prop.name, field) == 0)
        return edited.commit(); // nor may there be such a table
    const auto dictionary = getDictFromLink(db, prop, field);
    if (!db->exec(
            sql(L"DELETE FROM dict_link WHERE p_group = ", ofField(prop.group, prop.name, field))))
        return false;
    dictionaryNews::note(*db, eventAction::update, dictionary + L" </- " + shown(prop, field));
    dictionaryNews::link(*db, prop, field, dictionary);
    return edited.commit();
}

bool NORLEX_dictionary::updateLink(odbc_database* db,
                                   std::uint32_t linkId,
                                   const std::wstring& dictionary,
                                   const std::wstring& group,
                                   const std::wstring& prop,
                                   const std::wstring& field) {
    const NORLEX_propDescription target(prop, group);
    if (!templateQueries::isOpen(db) || !areNames(target, field))
        return false;
    transaction edited(db);
    if (!edited.isOpen())
        return false;
    const auto before = readLink(*db, linkId);
    const auto id = before ? keyOf(*db, dictionary) : 0;
    if (id == 0)
        return false;
    if (const auto other = getLinkID(db, group, prop, field); other != 0 && other != linkId)
        return refuse(shown(target, field) + L" has a binding of its own; remove that first");
    if (!db->exec(sql(L"UPDATE dict_link SET dict_id = ",
                      key(id),
                      L", p_group = ",
                      quoted(group),
                      L", prop = ",
                      quoted(prop),
                      L", field = ",
                      quoted(field),
                      L" WHERE link_id = ",
                      key(linkId)))
        || !updateEditTimeLink(db, linkId))
        return false;
    dictionaryNews::note(*db, eventAction::update, dictionary + L" <- " + shown(target, field));
    if (before->property != target || before->field != field)
        dictionaryNews::link(*db, before->property, before->field, dictionary);
    dictionaryNews::link(*db, target, field, dictionary);
    return edited.commit();
}

bool NORLEX_dictionary::isLinkExist(odbc_database* db,
                                    const NORLEX_propDescription& prop,
                                    const std::wstring& field) {
    return !templateQueries::texts(db, boundName(prop, field)).empty();
}

std::wstring NORLEX_dictionary::getDictFromLink(odbc_database* db,
                                                const NORLEX_propDescription& prop,
                                                const std::wstring& field) {
    return templateQueries::text(db, boundName(prop, field));
}

void NORLEX_dictionary::getLinkList(odbc_database* db, std::vector<NORLEX_dict_link>& links) {
    links.clear();
    const auto rows =
        db == nullptr
            ? nullptr
            : db->query(
                // two blanks after ON are part of the text
                L"SELECT dict_link.prop AS prop, dict_link.p_group AS gr, dict_link.field AS field, dict_main.name AS name FROM dict_link LEFT JOIN dict_main ON  dict_main.dict_id = dict_link.dict_id"
                L" ORDER BY dict_link.link_id");
    while (rows && rows->next())
        links.push_back(
            {{rows->get_text(0), rows->get_text(1)}, rows->get_text(2), rows->get_text(3)});
}
