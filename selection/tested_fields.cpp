#include "selection/tested_fields.h"

#include "NORLEX_fieldType.h"
#include "odbc_database.h"
#include "platform/sql_text.h"

using namespace sqlText;
using conditionText::comparison;

namespace {

std::wstring list(const std::set<std::wstring>& texts) {
    std::wstring out;
    for (const auto& text : texts)
        out += (out.empty() ? L"" : L",") + text;
    return out;
}

} // namespace

testedFields::field testedFields::fieldOf(const filterCondition& condition) {
    return {plainName(condition.prop.name),
            plainName(condition.prop.group),
            plainName(condition.field)};
}

testedFields::testedFields(odbc_database& db,
                           const std::vector<const filterCondition*>& conditions) {
    std::set<std::wstring> names;
    for (const auto* condition : conditions) {
        m_fields.insert(fieldOf(*condition));
        names.insert(quotedName(condition->prop.name));
    }
    const auto rows = db.query(sql(
        L"SELECT DISTINCT property.name, property.p_group, field_template.name, field_template.type FROM property CROSS JOIN field_template WHERE field_template.bt_id = property.bt_id AND property.name IN (",
        list(names),
        L")"));
    while (rows && rows->next()) {
        const field found{rows->get_text(0), rows->get_text(1), rows->get_text(2)};
        const auto kind = fieldType_getType(rows->get_text(3)) == NORLEX_fieldTypeNumeric
                              ? comparison::number
                              : comparison::text;
        if (m_fields.contains(found))
            if (const auto [known, isNew] = m_kinds.emplace(found, kind);
                !isNew && known->second != kind)
                known->second = comparison::either;
    }
}

comparison testedFields::kindOf(const filterCondition& condition) const {
    const auto found = m_kinds.find(fieldOf(condition));
    return found == m_kinds.end() ? comparison::text : found->second;
}

std::wstring testedFields::restriction() const {
    std::set<std::wstring> names, fields;
    for (const auto& [name, group, ownField] : m_fields) {
        names.insert(quoted(name));
        fields.insert(sql(L"(", quoted(name), L", ", quoted(group), L", ", quoted(ownField), L")"));
    }
    // The names once more by themselves: properties are passed over before their fields are read.
    return sql(L"property.name IN (",
               list(names),
               L") AND (property.name, property.p_group, field.name) IN (VALUES ",
               list(fields),
               L")");
}
