#include "selection/text_match.h"

#include "platform/sql_text.h"

using namespace sqlText;

namespace textMatch {

namespace {

// The local engine refuses patterns of more than 50,000 bytes.
constexpr std::size_t longestPattern = 10'000;

// Of the signs that a pattern gives a meaning, none; a backslash is one to some engines. The local
// engine's patterns take U+FFFE and U+FFFF for U+FFFD.
bool fitsPattern(std::wstring_view value) {
    return value.size() <= longestPattern
           && value.find_first_of(L"%_\\\uFFFD\uFFFE\uFFFF") == value.npos;
}

std::wstring literal(std::wstring_view text, bool ignoreCase) {
    return ignoreCase ? sql(L"lower(", quoted(text), L")") : quoted(text);
}

// Blanks at the end of a column stay outside of the call.
std::wstring side(std::wstring_view column, bool ignoreCase) {
    if (!ignoreCase)
        return std::wstring(column);
    const std::wstring_view name = column.substr(0, column.find_last_not_of(L' ') + 1);
    return sql(L"lower(", name, L")", column.substr(name.size()));
}

std::wstring byPattern(const std::wstring& column,
                       NORLEX_filterOperation operation,
                       std::wstring_view value,
                       bool ignoreCase) {
    switch (operation) {
    case NORLEX_filterBeginsWith:
        return sql(column, L" LIKE ", literal(sql(value, L"%"), ignoreCase));
    case NORLEX_filterEndsWith:
        return sql(column, L" LIKE ", literal(sql(L"%", value), ignoreCase));
    default:
        return sql(column,
                   operation == NORLEX_filterContains ? L" LIKE " : L" NOT LIKE ",
                   literal(sql(L"%", value, L"%"), ignoreCase));
    }
}

// The same without a pattern, for values that hold signs of one. A value longer than the column's
// is never its end: what substr() yields from a start before the text is shorter than the value.
std::wstring
bySigns(const std::wstring& column, NORLEX_filterOperation operation, const std::wstring& text) {
    switch (operation) {
    case NORLEX_filterBeginsWith:
        return sql(L"substr(", column, L", 1, length(", text, L")) = ", text);
    case NORLEX_filterEndsWith:
        return sql(
            L"substr(", column, L", length(", column, L") - length(", text, L") + 1) = ", text);
    default:
        return sql(L"replace(",
                   column,
                   L", ",
                   text,
                   operation == NORLEX_filterContains ? L", '') <> " : L", '') = ",
                   column);
    }
}

} // namespace

std::wstring condition(std::wstring_view column,
                       NORLEX_filterOperation operation,
                       std::wstring_view value,
                       bool ignoreCase) {
    const std::wstring left = side(column, ignoreCase);
    switch (operation) {
    case NORLEX_filterEqual:
        return sql(left, L" = ", literal(value, ignoreCase));
    case NORLEX_filterNotEqual:
        return sql(left, L" <> ", literal(value, ignoreCase));
    case NORLEX_filterContains:
    case NORLEX_filterNotContains:
    case NORLEX_filterBeginsWith:
    case NORLEX_filterEndsWith:
        return fitsPattern(value) ? byPattern(left, operation, value, ignoreCase)
                                  : bySigns(left, operation, literal(value, ignoreCase));
    default:
        return {};
    }
}

} // namespace textMatch
