// The field rows of properties.
#pragma once

#include "NORLEX_fieldDescr.h"
#include "NORLEX_fieldType.h"

#include <cstdint>
#include <string>
#include <vector>

class odbc_database;

namespace propertyFields {

struct row {
    std::int64_t fieldId = 0;
    std::wstring name;
    NORLEX_fieldType type = NORLEX_fieldTypeUnknown;
};

[[nodiscard]] std::vector<row> read(odbc_database& db, std::int64_t propertyId); // in key order

// One field, or all fields of a template, for a property that has none of them.
[[nodiscard]] bool
add(odbc_database& db, std::int64_t propertyId, const std::wstring& name, NORLEX_fieldType type);
[[nodiscard]] bool
addAll(odbc_database& db, std::int64_t propertyId, const std::vector<NORLEX_fieldDescr>& fields);

// Deletes a field with its values.
[[nodiscard]] bool remove(odbc_database& db, std::int64_t fieldId);

// Adds a field to a property, with an empty value for each of its geometry rows.
[[nodiscard]] bool addWithValues(odbc_database& db,
                                 std::int64_t propertyId,
                                 const std::wstring& name,
                                 NORLEX_fieldType type);

// The same for every property of a template that has no field of the name, in two statements
// however many there are.
[[nodiscard]] bool addToTemplate(odbc_database& db,
                                 std::int64_t templateId,
                                 const std::wstring& name,
                                 NORLEX_fieldType type);

// Fields of a name in every property of a template.
//
// Properties with records for which it is the only field.
[[nodiscard]] std::int64_t
dependentOn(odbc_database& db, std::int64_t templateId, const std::wstring& name);
// With their values and the files attached to those.
[[nodiscard]] bool
removeFromTemplate(odbc_database& db, std::int64_t templateId, const std::wstring& name);
// Refused where a property has a field of the new name of its own. Bindings to dictionaries follow.
[[nodiscard]] bool renameInTemplate(odbc_database& db,
                                    std::int64_t templateId,
                                    const std::wstring& oldName,
                                    const std::wstring& newName);
[[nodiscard]] bool setTypeInTemplate(odbc_database& db,
                                     std::int64_t templateId,
                                     const std::wstring& name,
                                     NORLEX_fieldType type);

} // namespace propertyFields
