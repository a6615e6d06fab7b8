#include "selection/query_text.h"

#include "NORLEX_dataType.h"
#include "NORLEX_dictionary.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "selection/value_condition.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <optional>

using namespace sqlText;

namespace queryText {

namespace {

bool asksForExistence(const NORLEX_query& query) {
    return query.operation == NORLEX_filterExists || query.operation == NORLEX_filterNotExists;
}

// " AND " and the comparison, or nothing where existence alone is asked.
std::optional<std::wstring>
comparison(const NORLEX_query& query, const wchar_t* column, NORLEX_filterOperation operation) {
    if (asksForExistence(query))
        return std::wstring();
    const auto condition =
        valueCondition::text(column,
                             operation,
                             query.value,
                             query.operationType == NORLEX_filterTypeValue && !query.caseSensetive);
    return condition ? std::optional(L" AND " + *condition) : std::nullopt;
}

// The operation whose complement a negative one is.
NORLEX_filterOperation positive(NORLEX_filterOperation operation) {
    switch (operation) {
    case NORLEX_filterEmpty:
        return NORLEX_filterNotEmpty;
    case NORLEX_filterNotEqual:
        return NORLEX_filterEqual;
    case NORLEX_filterNotContains:
        return NORLEX_filterContains;
    default:
        return operation;
    }
}

// By name in any group; without a name, any property of the group.
std::wstring ofProperty(const NORLEX_query& query) {
    const bool isGroup = query.prop.name.empty() && !query.prop.group.empty();
    return sql(head,
               L" FROM property\tLEFT JOIN well_base ON property.w_id = well_base.w_id WHERE ",
               isGroup ? L"property.p_group = " : L"property.name = ",
               quotedName(isGroup ? query.prop.group : query.prop.name));
}

// By name; without a name, any template of the data type.
std::wstring ofTemplate(const NORLEX_query& query) {
    const std::wstring type = getDataTypeEnum(static_cast<NORLEX_dataType>(query.propTemplateType));
    const bool isType = query.templateName.empty() && !type.empty();
    return sql(
        head,
        L" FROM well_base LEFT JOIN property ON property.w_id = well_base.w_id LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE ",
        isType ? L"base_template.type = " : L"base_template.name = ",
        quoted(isType ? type : query.templateName));
}

// Keys of properties may be those of wells too, so the group of the entries decides.
std::wstring ofMeta(const NORLEX_query& query) {
    const auto condition = comparison(query, L"meta.value", query.operation);
    return condition ? sql(head,
                           L"FROM meta LEFT JOIN well_base ON well_base.w_id = meta.obj_id WHERE "
                           L"meta.key = ",
                           quoted(query.fldName),
                           *condition,
                           L" AND meta.m_group = 'well'")
                     : std::wstring();
}

std::wstring ofPassport(const NORLEX_query& query) {
    const auto condition = comparison(query, L"value", positive(query.operation));
    return condition ? sql(
               head,
               L" FROM well_base LEFT JOIN well_info_values ON well_base.w_id = well_info_values.w_id LEFT JOIN well_info_struct ON well_info_values.i_id = well_info_struct.i_id WHERE key = ",
               quoted(query.fldName),
               *condition)
                     : std::wstring();
}

// A code of a dictionary is compared by what it stands for.
std::wstring ofValue(odbc_database& db, const NORLEX_query& query) {
    const std::uint32_t dictionary =
        NORLEX_dictionary::getDictID(&db, query.prop.group, query.prop.name, query.fldName);
    const NORLEX_filterOperation operation =
        query.operation == NORLEX_filterNotContains ? NORLEX_filterContains : query.operation;
    const auto condition =
        comparison(query, dictionary == 0 ? L"val.value" : L"dict_values.value", operation);
    if (!condition)
        return {};
    std::wstring out = sql(
        head,
        L"FROM val LEFT JOIN field ON val.f_id = field.f_id LEFT JOIN property ON field.pr_id = property.pr_id LEFT JOIN well_base ON property.w_id = well_base.w_id ");
    if (dictionary != 0)
        out += L" LEFT JOIN dict_values ON val.value = dict_values.code ";
    out += sql(L" WHERE property.name = ",
               quotedName(query.prop.name),
               L" AND property.p_group = ",
               quotedName(query.prop.group),
               L" AND field.name = ",
               quoted(query.fldName));
    if (dictionary != 0)
        out += L" AND dict_values.dict_id = " + key(dictionary);
    return out + *condition;
}

// In order of NORLEX_filterWellType from its third on. Kinds of data count their rows.
// clang-format off
constexpr std::array<const wchar_t*, 9> countedKinds = {
    L"FROM well_base LEFT JOIN property ON property.w_id = well_base.w_id group by well_base.w_id having count(property.name)",
    L"FROM well_base LEFT JOIN inclinometry ON inclinometry.w_id = well_base.w_id group by well_base.w_id\thaving count(inclinometry.depth)",
    L"FROM well_base LEFT JOIN well_construction ON well_construction.w_id = well_base.w_id group by well_base.w_id having count(well_construction.from_dig)",
    L"FROM well_base LEFT JOIN construction ON construction.w_id = well_base.w_id group by well_base.w_id having count(construction.type)",
    L"FROM well_base LEFT JOIN well_drilling ON well_drilling.w_id = well_base.w_id group by well_base.w_id having count(well_drilling.from_depth)",
    L"FROM well_base LEFT JOIN file_link ON file_link.pr_id = well_base.w_id group by well_base.w_id having count(file_link.pr_id)",
    L"FROM well_base LEFT JOIN well_info_values ON well_info_values.w_id = well_base.w_id group by well_base.w_id having count(well_info_values.value)",
    L"FROM well_base LEFT JOIN vdm_data ON vdm_data.w_id = well_base.w_id group by well_base.w_id having count(vdm_data.depth)",
    L"FROM well_base LEFT JOIN property ON property.w_id = well_base.w_id LEFT JOIN base_template ON property.bt_id = base_template.bt_id WHERE base_template.type = 'NORLEX_dataTypeLog' GROUP BY well_base.w_id HAVING count(property.name)",
};
// clang-format on

// Wells without logs have no row that the statement of logs counts: they are its complement.
bool countsMissing(const NORLEX_query& query) {
    return query.operation != NORLEX_filterExists && query.wellInfoType != NORLEX_filterWellLogs;
}

std::wstring ofWellInfo(const NORLEX_query& query) {
    const bool exists = query.operation == NORLEX_filterExists;
    switch (query.wellInfoType) {
    case NORLEX_filterWellCoordinates:
        return sql(
            head, L"FROM well_base WHERE ", exists ? L" x <> 0 AND y <> 0" : L" x = 0 AND y = 0");
    case NORLEX_filterWellAltitude:
        return sql(head, L"FROM well_base WHERE ", exists ? L" altitude <> 0" : L" altitude = 0");
    default:
        break;
    }
    const auto kind = static_cast<std::size_t>(query.wellInfoType) - NORLEX_filterWellData;
    if (kind < countedKinds.size())
        return sql(head, countedKinds[kind], countsMissing(query) ? L" = 0" : L" <> 0");
    refuse(L"there is no kind of well data of number " + std::to_wstring(query.wellInfoType)
           + L"; 1 to 11 are known");
    return {};
}

// The start of the day, in the time that stamps are written in.
std::wstring today() {
    const std::chrono::year_month_day day(
        std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
    std::array<wchar_t, 32> text{};
    std::swprintf(text.data(),
                  text.size(),
                  L"%04d-%02u-%02u 00:00:00",
                  static_cast<int>(day.year()),
                  static_cast<unsigned int>(day.month()),
                  static_cast<unsigned int>(day.day()));
    return text.data();
}

// Whole hours from the reference to the stamp: equal means on that day.
const wchar_t* hours(NORLEX_filterOperation operation) {
    switch (operation) {
    case NORLEX_filterNotEqual:
        return L" NOT BETWEEN 0 AND 24";
    case NORLEX_filterGreater:
        return L" > 24";
    case NORLEX_filterGreaterEqual:
        return L" >= 0";
    case NORLEX_filterLess:
        return L" < 0";
    case NORLEX_filterLessEqual:
        return L" <= 24";
    default:
        return L" BETWEEN 0 AND 24";
    }
}

std::wstring ofTime(const NORLEX_query& query) {
    const bool isProperty = query.datetimeObject != 0;
    std::wstring out = sql(head,
                           isProperty ? L" FROM well_base LEFT JOIN property ON property.w_id = "
                                        L"well_base.w_id WHERE "
                                      : L" FROM well_base WHERE ");
    if (isProperty && !query.prop.name.empty())
        out += sql(L"property.name = ",
                   quotedName(query.prop.name),
                   L" AND property.p_group = ",
                   quotedName(query.prop.group),
                   L" AND ");
    return sql(out,
               L"(strftime('%s',",
               isProperty ? L"property." : L"well_base.",
               query.datetimeType == 0 ? L"create_date" : L"update_date",
               L") - strftime('%s', ",
               quoted(query.value.empty() ? today() : query.value),
               L"))/60/60",
               hours(query.operation));
}

} // namespace

std::wstring getQueryString(odbc_database& db, const NORLEX_query& query) {
    switch (query.operationType) {
    case NORLEX_filterTypeProperty:
        return ofProperty(query);
    case NORLEX_filterTypeValue:
        return ofValue(db, query);
    case NORLEX_filterTypeMeta:
        return ofMeta(query);
    case NORLEX_filterTypePassport:
        return ofPassport(query);
    case NORLEX_filterTypeWellInfo:
        return ofWellInfo(query);
    case NORLEX_filterTypeTemplate:
        return ofTemplate(query);
    case NORLEX_filterTypeTime:
        return ofTime(query);
    default:
        refuse(L"there is no statement of filter type " + std::to_wstring(query.operationType));
        return {};
    }
}

bool isComplement(const NORLEX_query& query) {
    switch (query.operationType) {
    case NORLEX_filterTypePassport:
        return query.operation == NORLEX_filterNotExists || query.operation == NORLEX_filterEmpty
               || query.operation == NORLEX_filterNotEqual
               || query.operation == NORLEX_filterNotContains;
    case NORLEX_filterTypeWellInfo:
        return query.operation != NORLEX_filterExists
               && query.wellInfoType == NORLEX_filterWellLogs;
    default:
        return query.operation == NORLEX_filterNotExists
               || (query.operation == NORLEX_filterNotContains
                   && query.operationType != NORLEX_filterTypeMeta);
    }
}

} // namespace queryText
