// The fields that conditions test.
#pragma once

#include "selection/condition_text.h"

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

class odbc_database;

class testedFields {
public:
    testedFields(odbc_database& db, const std::vector<const filterCondition*>& conditions);

    // By the templates of the properties of that name and group, in whatever wells; as text where
    // no well has the property, or its template has no such field.
    [[nodiscard]] conditionText::comparison kindOf(const filterCondition& condition) const;

    // What every row that meets a condition meets too, without looking at its value: with it, only
    // values of these fields are read.
    [[nodiscard]] std::wstring restriction() const;

private:
    using field = std::tuple<std::wstring, std::wstring, std::wstring>; // name, group, field
    static field fieldOf(const filterCondition& condition);

    std::set<field> m_fields;
    std::map<field, conditionText::comparison> m_kinds;
};
