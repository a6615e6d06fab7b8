#include "derived/field_values.h"

#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "templates/property_fields.h"
#include "wells/announce.h"
#include "wells/property_records.h"

#include <algorithm>
#include <span>

using namespace sqlText;

namespace fieldValues {

namespace {

constexpr std::size_t rowsPerStatement = 500;

// The field's row, which may be of this very transaction.
std::optional<propertyFields::row>
find(odbc_database& db, std::int64_t propertyId, const std::wstring& name) {
    const auto fields = propertyFields::read(db, propertyId);
    const auto found = std::find_if(
        fields.begin(), fields.end(), [&](const auto& field) { return field.name == name; });
    return found == fields.end() ? std::nullopt : std::optional(*found);
}

// 0, with the last error set, where it cannot be written.
std::int64_t emptyField(odbc_database& db, std::int64_t propertyId, const std::wstring& name) {
    if (name.empty()) {
        refuse(L"the name of a field is empty; one character or more is expected");
        return 0;
    }
    auto field = find(db, propertyId, name);
    if (!field) {
        if (!propertyFields::add(db, propertyId, name, NORLEX_fieldTypeNumeric))
            return 0;
        field = find(db, propertyId, name);
        return field ? field->fieldId : 0;
    }
    if (field->type != NORLEX_fieldTypeNumeric) {
        refuse(L"the field \"" + name
               + L"\" is not numeric; a numeric field, or the name of a new one, is expected");
        return 0;
    }
    return db.exec(sql(L"DELETE FROM val WHERE f_id = ", key(field->fieldId))) ? field->fieldId : 0;
}

bool insert(odbc_database& db, std::int64_t field, std::span<const value> values) {
    std::wstring statement = L"INSERT INTO val (f_id, value, obj_id) VALUES ";
    for (const auto& [record, text] : values)
        statement += sql(L"(", key(field), L",", quotedName(text), L",", key(record), L"),");
    statement.pop_back();
    return db.exec(statement);
}

bool insertAll(odbc_database& db, std::int64_t field, std::span<const value> values) {
    while (!values.empty()) {
        const auto some = values.first(std::min(values.size(), rowsPerStatement));
        if (!insert(db, field, some))
            return false;
        values = values.subspan(some.size());
    }
    return true;
}

} // namespace

bool write(odbc_database& db,
           const NORLEX_wellDescription& well,
           const NORLEX_wellProperty& property,
           const std::wstring& name,
           const std::vector<value>& values) {
    transaction edit(&db);
    if (!edit.isOpen())
        return false;
    const std::int64_t field = emptyField(db, property.getID(), plainName(name));
    if (field == 0 || !insertAll(db, field, values)
        || !propertyRecords::touch(db, property.getID()))
        return false;
    const NORLEX_propDescription prop(property.getName(), property.getGroup());
    announce::afterCommit(db, [well, prop](auto& observer, const auto& container) {
        observer.updateDataProperty(0, container, well, prop);
    });
    return edit.commit();
}

} // namespace fieldValues
