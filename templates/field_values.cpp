// The values that properties of a template hold in one of its fields.
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "templates/template_queries.h"

#include <algorithm>
#include <cmath>

using namespace sqlText;

namespace {

struct notNumbers {
    std::int64_t count = 0;
    std::int64_t first = 0; // key of the oldest value
};

bool isNumberOrEmpty(std::wstring_view value) {
    std::wstring text(numbers::trimmed(value));
    std::replace(text.begin(), text.end(), L',', L'.');
    const auto number = numbers::toDouble(text);
    return text.empty() || (number && std::isfinite(*number));
}

std::wstring fieldKeys(std::uint32_t templateId, const std::wstring& field) {
    return sql(L"SELECT f_id FROM field WHERE name = ",
               quoted(field),
               L" AND pr_id IN(SELECT pr_id FROM property WHERE bt_id = ",
               key(templateId),
               L")");
}

// Each text is looked at once, however many records have it.
bool findNotNumbers(odbc_database& db, const std::wstring& fields, notNumbers& found) {
    const auto rows = db.query(sql(L"SELECT value, count(*), min(v_id) FROM val WHERE f_id IN (",
                                   fields,
                                   L") GROUP BY value"));
    while (rows && rows->next()) {
        if (isNumberOrEmpty(rows->get_text(0)))
            continue;
        found.count += rows->get_counter(1);
        const auto oldest = rows->get_counter(2);
        found.first = found.first == 0 ? oldest : std::min(found.first, oldest);
    }
    return rows != nullptr;
}

// "the value "x" in the property G/P of the well O/F/W".
std::wstring placeOf(odbc_database& db, std::int64_t valueId) {
    const auto rows = db.query(sql(
        L"SELECT val.value, property.p_group, property.name, well_base.work_object, well_base.field, well_base.name FROM val INNER JOIN field ON field.f_id = val.f_id INNER JOIN property ON property.pr_id = field.pr_id LEFT JOIN well_base ON well_base.w_id = property.w_id WHERE val.v_id = ",
        key(valueId)));
    if (!rows || !rows->next())
        return L"a value";
    return sql(L"the value \"",
               rows->get_text(0),
               L"\" in the property ",
               rows->get_text(1),
               L"/",
               rows->get_text(2),
               L" of the well ",
               rows->get_text(3),
               L"/",
               rows->get_text(4),
               L"/",
               rows->get_text(5));
}

} // namespace

bool NORLEX_propTemplate::checkNumericFldData(const std::wstring& field,
                                              std::wstring& message) const {
    message.clear();
    notNumbers found;
    const std::wstring what = sql(L"the field \"", field, L"\" of the template \"", m_name, L"\" ");
    if (!m_ok || !isFieldExist(field))
        message = what + L"does not exist";
    else if (!findNotNumbers(*m_db, fieldKeys(m_id, field), found))
        message = what + L"cannot be read: " + m_db->last_error();
    else if (found.count != 0)
        message = sql(what,
                      L"has ",
                      key(found.count),
                      found.count == 1 ? L" value that is no number: "
                                       : L" values that are no numbers, first ",
                      placeOf(*m_db, found.first));
    return message.empty() || refuse(message);
}

std::int64_t NORLEX_propTemplate::numValues(const std::wstring& field) const {
    return templateQueries::counter(m_db,
                                    sql(L"SELECT count(*) FROM val WHERE value <> '' AND f_id IN (",
                                        fieldKeys(m_id, field),
                                        L")"));
}
