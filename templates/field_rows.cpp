#include "templates/field_rows.h"

#include "odbc_database.h"
#include "platform/sql_text.h"

using namespace sqlText;

namespace fieldRows {

std::vector<NORLEX_fieldDescr> read(odbc_database* db, const std::wstring& query) {
    std::vector<NORLEX_fieldDescr> fields;
    const auto rows = db != nullptr ? db->query(query) : nullptr;
    while (rows && rows->next()) {
        NORLEX_fieldDescr field;
        field.name = rows->get_text(0);
        field.type = fieldType_getType(rows->get_text(1));
        field.ds_type = fieldType_getDSType(field.type);
        field.prec = rows->get_int(2);
        field.short_name = rows->get_text(3);
        fields.push_back(std::move(field));
    }
    return fields;
}

bool insert(odbc_database& db, std::int64_t templateId, const NORLEX_fieldDescr& field) {
    const bool isNumeric = field.type == NORLEX_fieldTypeNumeric;
    return db.exec(
        sql(L"INSERT INTO field_template(bt_id, name, type, is_base, prec, short_name) VALUES (",
            key(templateId),
            L", ",
            quotedName(field.name),
            L",",
            quoted(fieldType_getBaseEnum(field.type)),
            L", 0, ",
            isNumeric ? key(field.prec) : L"NULL",
            L", ",
            quotedName(field.short_name),
            L")"));
}

} // namespace fieldRows
