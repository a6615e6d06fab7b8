// Look-ups over all templates: the static operations of NORLEX_propTemplate that change nothing.
#include "NORLEX_propTemplate.h"
#include "platform/sql_text.h"
#include "templates/template_queries.h"

#include <algorithm>

using namespace sqlText;
using templateQueries::text;
using templateQueries::texts;

namespace {

// Templates of the types for which `isWanted` holds.
template <typename Predicate>
std::vector<std::wstring> ofTypes(odbc_database* db, Predicate isWanted) {
    std::vector<std::wstring> types;
    for (int type = NORLEX_dataTypeMarker; type <= NORLEX_dataTypeVDMAvg; ++type)
        if (isWanted(static_cast<NORLEX_dataType>(type)))
            types.push_back(quoted(getDataTypeEnum(static_cast<NORLEX_dataType>(type))));
    std::wstring list;
    for (const auto& type : types)
        list += (list.empty() ? L"" : L",") + type;
    return texts(
        db, sql(L"SELECT name FROM base_template WHERE type IN(", list, L") ORDER BY name, type"));
}

bool isCopied(NORLEX_dataType type) {
    return NORLEX_propTemplate::isImportable(type) && type != NORLEX_dataTypeBorder;
}

std::vector<NORLEX_dataType> typesOf(const std::vector<std::wstring>& storedNames) {
    std::vector<NORLEX_dataType> types;
    types.reserve(storedNames.size());
    for (const auto& name : storedNames)
        types.push_back(getDataTypeByEnum(name));
    return types;
}

// Of a property of a well.
std::wstring propertyColumn(odbc_database* db,
                            const wchar_t* column,
                            std::uint32_t wellId,
                            const NORLEX_propDescription& prop) {
    return text(
        db,
        sql(L"SELECT base_template.",
            column,
            L" FROM property LEFT JOIN base_template ON property.bt_id = base_template.bt_id WHERE property.name = ",
            quotedName(prop.name),
            L" AND property.p_group = ",
            quotedName(prop.group),
            L" AND property.w_id = ",
            key(wellId)));
}

} // namespace

bool NORLEX_propTemplate::isExist(odbc_database* db, const std::wstring& name) {
    return !texts(db, sql(L"SELECT name FROM base_template WHERE name = ", quoted(name))).empty();
}

bool NORLEX_propTemplate::isEqual(odbc_database* db,
                                  const std::wstring& name,
                                  const std::wstring& otherName) {
    return isEqual(db, name, db, otherName);
}

bool NORLEX_propTemplate::isEqual(odbc_database* db,
                                  const std::wstring& name,
                                  odbc_database* otherDb,
                                  const std::wstring& otherName) {
    const NORLEX_propTemplate one(db, name);
    const NORLEX_propTemplate other(otherDb, otherName);
    const auto fields = one.getFieldList();
    const auto others = other.getFieldList();
    return one.isOK() && other.isOK() && one.getType() == other.getType()
           && std::equal(
               fields.begin(),
               fields.end(),
               others.begin(),
               others.end(),
               [](const auto& a, const auto& b) { return a.name == b.name && a.type == b.type; });
}

std::uint32_t NORLEX_propTemplate::getID(odbc_database* db, const std::wstring& name) {
    return static_cast<std::uint32_t>(templateQueries::counter(
        db, sql(L"SELECT bt_id FROM base_template WHERE name = ", quoted(name))));
}

std::wstring NORLEX_propTemplate::getName(odbc_database* db, std::uint32_t templateId) {
    return text(db, sql(L"SELECT name FROM base_template WHERE bt_id = ", key(templateId)));
}

std::wstring NORLEX_propTemplate::getName(odbc_database* db,
                                          std::uint32_t wellId,
                                          const NORLEX_propDescription& prop) {
    return propertyColumn(db, L"name", wellId, prop);
}

std::wstring NORLEX_propTemplate::getDBType(odbc_database* db, const std::wstring& name) {
    return text(db, sql(L"SELECT type FROM base_template WHERE name = ", quoted(name)));
}

NORLEX_dataType NORLEX_propTemplate::getType(odbc_database* db, const std::wstring& name) {
    return getDataTypeByEnum(getDBType(db, name));
}

NORLEX_dataType NORLEX_propTemplate::getType(odbc_database* db, std::uint32_t templateId) {
    return getDataTypeByEnum(
        text(db, sql(L"SELECT type FROM base_template WHERE bt_id = ", key(templateId))));
}

NORLEX_dataType NORLEX_propTemplate::getType(odbc_database* db,
                                             std::uint32_t wellId,
                                             const NORLEX_propDescription& prop) {
    return getDataTypeByEnum(propertyColumn(db, L"type", wellId, prop));
}

std::vector<std::wstring> NORLEX_propTemplate::getTemplateList(odbc_database* db) {
    return texts(db, L"SELECT name FROM base_template ORDER BY name, type");
}

std::vector<std::wstring>
NORLEX_propTemplate::getTemplateList(odbc_database* db, const std::vector<std::uint32_t>& wells) {
    return texts(
        db,
        sql(L"SELECT distinct base_template.name from base_template LEFT JOIN property ON base_template.bt_id = property.bt_id WHERE property.w_id IN(",
            keyList(wells),
            L") ORDER BY base_template.name"));
}

std::vector<std::wstring> NORLEX_propTemplate::getTemplateListForType(odbc_database* db,
                                                                      NORLEX_dataType type) {
    return texts(db,
                 sql(L"SELECT name FROM base_template WHERE type = ",
                     quoted(getDataTypeEnum(type)),
                     L" ORDER BY name"));
}

std::vector<std::wstring> NORLEX_propTemplate::getTemplateGroupLoadList(odbc_database* db) {
    return ofTypes(db, isGroupLoad);
}

std::vector<std::wstring> NORLEX_propTemplate::getTemplateImportList(odbc_database* db) {
    return ofTypes(db, isImportable);
}

std::vector<std::wstring> NORLEX_propTemplate::getTemplateCopyList(odbc_database* db) {
    return ofTypes(db, isCopied);
}

std::vector<NORLEX_dataType> NORLEX_propTemplate::getSimpleTypeList(odbc_database* db) {
    auto types = typesOf(texts(db, L"SELECT DISTINCT type FROM base_template"));
    std::erase_if(types, [](auto type) { return !isCreatable(type); });
    std::sort(types.begin(), types.end());
    return types;
}

std::vector<NORLEX_dataType> NORLEX_propTemplate::getExistTypeList(odbc_database* db) {
    auto types = typesOf(texts(
        db,
        L"SELECT distinct(base_template.type) FROM property LEFT JOIN base_template ON property.bt_id = base_template.bt_id ORDER BY base_template.type"));
    std::erase(types, NORLEX_dataTypeUnknown); // of a property whose template is gone
    return types;
}
