// Files attached to single values of a property: the table `prop_link`.
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "wells/names.h"
#include "wells/property_state.h"
#include "wells/query.h"

using namespace sqlText;

namespace {

// "… WHERE obj_id = 1 AND fld_id = 2"
std::wstring ofValue(std::int64_t obj_id, std::int64_t fieldId) {
    return sql(L" WHERE obj_id = ", key(obj_id), L" AND fld_id = ", key(fieldId));
}

} // namespace

bool NORLEX_wellProperty::setLink(std::size_t field,
                                  std::int64_t obj_id,
                                  const std::wstring& file,
                                  const std::wstring& comment) {
    refresh();
    const std::int64_t fieldId = fieldKey(field);
    if (fieldId == 0 || !isOwn(obj_id))
        return false;
    if (plainName(file).empty())
        return refuse(L"the name of the attached file is empty; a file is expected");
    for (const auto& link : getLinks(field, obj_id))
        if (link.file == plainName(file))
            return refuse(L"the file " + file + L" is attached to this value already");
    return editRecords(
        [&] {
            return m_db->exec(
                sql(L"INSERT INTO prop_link (obj_id, fld_id, file_name, comment) VALUES (",
                    key(obj_id),
                    L", ",
                    key(fieldId),
                    L", ",
                    quotedName(file),
                    L", ",
                    quotedName(comment),
                    L")"));
        },
        true);
}

std::vector<NORLEX_propLink> NORLEX_wellProperty::getLinks(std::size_t field, std::int64_t obj_id) {
    refresh();
    std::vector<NORLEX_propLink> out;
    const std::int64_t fieldId = m_state->ok ? fieldKey(field) : 0;
    const auto rows = fieldId != 0 ? m_db->query(sql(L"SELECT file_name, comment FROM prop_link",
                                                     ofValue(obj_id, fieldId)))
                                   : nullptr;
    while (rows && rows->next())
        out.push_back({rows->get_text(0), rows->get_text(1)});
    return out;
}

// `statement` changes the link of a file, which must be there.
bool NORLEX_wellProperty::editLink(std::size_t field,
                                   std::int64_t obj_id,
                                   const std::wstring& file,
                                   const std::wstring& statement) {
    refresh();
    const std::int64_t fieldId = fieldKey(field);
    if (fieldId == 0 || !isOwn(obj_id))
        return false;
    return editRecords(
        [&] {
            if (!m_db->exec(sql(
                    statement, ofValue(obj_id, fieldId), L" AND file_name =", quotedName(file))))
                return false;
            return m_db->affected_rows() != 0
                   || refuse(L"no file " + file + L" is attached to this value");
        },
        true);
}

bool NORLEX_wellProperty::delLink(std::size_t field,
                                  std::int64_t obj_id,
                                  const std::wstring& file) {
    return editLink(field, obj_id, file, L"DELETE FROM prop_link");
}

bool NORLEX_wellProperty::setCommentLink(std::size_t field,
                                         std::int64_t obj_id,
                                         const std::wstring& file,
                                         const std::wstring& comment) {
    return editLink(
        field, obj_id, file, sql(L"UPDATE prop_link SET comment = ", quotedName(comment)));
}
