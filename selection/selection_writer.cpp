// Queries as the text that reads back as them.
#include "NORLEX_queryText.h"
#include "platform/sql_text.h"
#include "selection/query_words.h"
#include "selection/selection_words.h"

#include <algorithm>

using namespace queryWords;

namespace selectionWords {

std::wstring dataTypeList() {
    std::wstring out;
    for (const auto& one : dataTypes)
        out += (out.empty() ? L"" : L", ") + std::wstring(one.word);
    return out;
}

} // namespace selectionWords

namespace {

bool isExistence(const NORLEX_query& query) {
    return query.operation == NORLEX_filterExists || query.operation == NORLEX_filterNotExists;
}

std::wstring exists(const NORLEX_query& query, const std::wstring& what) {
    if (what.empty() || !isExistence(query))
        return {};
    return (query.operation == NORLEX_filterExists ? L"exists " : L"not exists ") + what;
}

std::wstring equals(const NORLEX_query& query, const wchar_t* subject, const std::wstring& name) {
    if (name.empty() || !isExistence(query))
        return {};
    return std::wstring(subject) + (query.operation == NORLEX_filterExists ? L" = " : L" != ")
           + name;
}

template <typename Words, typename Type>
std::wstring wordOf(const Words& words, Type type) {
    const auto known = std::ranges::find_if(words, [&](const auto& w) { return w.type == type; });
    return known == words.end() ? std::wstring() : std::wstring(known->word);
}

std::wstring ofProperty(const NORLEX_query& query) {
    if (query.prop.name.empty())
        return query.prop.group.empty() ? L""
                                        : equals(query, L"group", spelledName(query.prop.group));
    return equals(query, L"property", spelledName(query.prop.name));
}

std::wstring ofTemplate(const NORLEX_query& query) {
    if (!query.templateName.empty())
        return equals(query, L"template", spelledName(query.templateName));
    return equals(
        query,
        L"type",
        wordOf(selectionWords::dataTypes, static_cast<NORLEX_dataType>(query.propTemplateType)));
}

std::wstring ofEntry(const NORLEX_query& query, const wchar_t* subject) {
    const std::wstring entry = std::wstring(subject) + L" " + spelledName(query.fldName);
    if (isExistence(query))
        return exists(query, entry);
    const std::wstring comparison = spelled(query.operation, query.value);
    return comparison.empty() ? comparison : entry + L" " + comparison;
}

std::wstring ofValue(const NORLEX_query& query) {
    if (query.fldName.empty())
        return {};
    const std::wstring field = spelled(query.prop, query.fldName);
    if (isExistence(query))
        return exists(query, field);
    const std::wstring comparison = spelled(query.operation, query.value);
    if (comparison.empty())
        return {};
    return field + L" " + comparison + (query.caseSensetive ? L"" : L" ignoring case");
}

std::wstring ofWindow(const NORLEX_query& query) {
    return exists(query,
                  sqlText::sql(spelled(query.prop, L""),
                               L" from ",
                               sqlText::number(query.fromDepth),
                               L" to ",
                               sqlText::number(query.toDepth)));
}

std::wstring ofTime(const NORLEX_query& query) {
    if (query.operation < NORLEX_filterEqual || query.operation > NORLEX_filterLessEqual)
        return {};
    std::wstring out = query.datetimeType == 0 ? L"created" : L"changed";
    if (query.datetimeObject != 0)
        out += L" of " + (query.prop.name.empty() ? L"property" : spelled(query.prop, L""));
    return out + L" " + spelled(query.operation, query.value.empty() ? L"today" : query.value);
}

std::wstring textOf(const NORLEX_query& query) {
    switch (query.operationType) {
    case NORLEX_filterTypeProperty:
        return ofProperty(query);
    case NORLEX_filterTypeValue:
        return ofValue(query);
    case NORLEX_filterTypeMeta:
        return ofEntry(query, L"meta");
    case NORLEX_filterTypeGeometry:
        return isExistence(query)
                   ? query.operation == NORLEX_filterExists ? L"picked" : L"not picked"
                   : L"";
    case NORLEX_filterTypePassport:
        return ofEntry(query, L"passport");
    case NORLEX_filterTypeWellInfo:
        return exists(query, wordOf(selectionWords::wellData, query.wellInfoType));
    case NORLEX_filterTypeWindow:
        return ofWindow(query);
    case NORLEX_filterTypeTemplate:
        return ofTemplate(query);
    case NORLEX_filterTypeTime:
        return ofTime(query);
    default:
        return {};
    }
}

} // namespace

std::wstring NORLEX_selectionText(const std::vector<NORLEX_query>& queries) {
    std::wstring out;
    for (const auto& query : queries) {
        const std::wstring one = textOf(query);
        if (one.empty())
            return {};
        if (!out.empty())
            out += query.isLinkAnd ? L" and " : L" or ";
        out += one;
    }
    return out;
}
