#include "selection/value_condition.h"

#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "selection/text_match.h"

#include <algorithm>
#include <cmath>

using namespace sqlText;

namespace valueCondition {

namespace {

const wchar_t* numericSign(NORLEX_filterOperation operation) {
    switch (operation) {
    case NORLEX_filterGreater:
        return L" > ";
    case NORLEX_filterGreaterEqual:
        return L" >= ";
    case NORLEX_filterLess:
        return L" < ";
    case NORLEX_filterLessEqual:
        return L" <= ";
    default:
        return nullptr;
    }
}

} // namespace

std::optional<std::wstring> operandNumber(std::wstring_view operand) {
    std::wstring text(operand);
    std::ranges::replace(text, L',', L'.');
    if (const auto value = numbers::toDouble(text); value && std::isfinite(*value))
        return number(*value);
    refuse(sql(L"\"", operand.substr(0, 80), L"\" is no number: numbers are compared here"));
    return std::nullopt;
}

std::optional<std::wstring> text(std::wstring_view column,
                                 NORLEX_filterOperation operation,
                                 std::wstring_view operand,
                                 bool ignoreCase) {
    if (const wchar_t* const sign = numericSign(operation)) {
        const auto value = operandNumber(operand);
        return value ? std::optional(sql(L" CAST(", column, L" as numeric)", sign, *value))
                     : std::nullopt;
    }
    switch (operation) {
    case NORLEX_filterEmpty:
        return sql(column, L" = ''");
    case NORLEX_filterNotEmpty:
        return sql(column, L" <> ''");
    case NORLEX_filterEqual:
    case NORLEX_filterNotEqual:
    case NORLEX_filterContains:
    case NORLEX_filterNotContains:
    case NORLEX_filterBeginsWith:
    case NORLEX_filterEndsWith:
        return textMatch::condition(column, operation, operand, ignoreCase);
    default:
        refuse(L"there is no comparison number " + std::to_wstring(operation)
               + L" of values; 3 to 14 are known");
        return std::nullopt;
    }
}

} // namespace valueCondition
