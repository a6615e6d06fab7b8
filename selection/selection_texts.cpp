// What a selection and its queries tell people.
#include "NORLEX_query.h"
#include "NORLEX_selection.h"
#include "platform/sql_text.h"
#include "platform/string_table.h"

#include <array>
#include <cstddef>

namespace {

constexpr std::size_t wellsShown = 10;

void add(std::wstring& text, const std::wstring& part) {
    if (!part.empty())
        text += (text.empty() ? L"" : L" ") + part;
}

std::wstring named(const std::wstring& group, const std::wstring& name) {
    return group.empty() || name.empty() ? group + name : group + L"/" + name;
}

std::wstring inQuotes(const std::wstring& text) {
    return text.empty() ? text : L"\"" + text + L"\"";
}

std::wstring lineOf(unsigned int text, std::size_t count) {
    return stringTable::text(text) + L": " + std::to_wstring(count) + L"\n";
}

// What is looked for, without type and operation.
std::wstring subjectOf(const NORLEX_query& query) {
    switch (query.operationType) {
    case NORLEX_filterTypeGeometry:
        return {};
    case NORLEX_filterTypeWellInfo:
        return getWellFilterTypeName(query.wellInfoType);
    case NORLEX_filterTypeTemplate:
        return inQuotes(query.templateName);
    default:
        return inQuotes(named(named(query.prop.group, query.prop.name), query.fldName));
    }
}

bool hasOperand(const NORLEX_query& query) {
    return query.operation >= NORLEX_filterEqual
           && (query.operationType == NORLEX_filterTypeValue
               || query.operationType == NORLEX_filterTypeMeta
               || query.operationType == NORLEX_filterTypePassport
               || query.operationType == NORLEX_filterTypeTime);
}

} // namespace

std::wstring NORLEX_query::getName() const {
    std::wstring text = getFilterTypeName(operationType);
    text += text.empty() ? L"" : L":";
    add(text, subjectOf(*this));
    if (operationType == NORLEX_filterTypeWindow)
        add(text, sqlText::number(fromDepth) + L" … " + sqlText::number(toDepth));
    add(text, getFilterOperationName(operation));
    if (hasOperand(*this))
        add(text, L"\"" + value + L"\"");
    return text;
}

std::wstring NORLEX_selection::getFilterInfo() const {
    if (m_isCustom)
        return stringTable::text(stringTable::selectionByHand) + L"\n";
    if (queries().empty())
        return stringTable::text(stringTable::selectionAll) + L"\n";
    std::wstring text =
        m_isInverted ? stringTable::text(stringTable::selectionInverted) + L":\n" : L"";
    bool isFirst = true;
    for (const auto& query : queries()) {
        if (!isFirst)
            text += stringTable::text(query.isLinkAnd ? stringTable::selectionAnd
                                                      : stringTable::selectionOr)
                    + L" ";
        text += query.getName() + L"\n";
        isFirst = false;
    }
    return text;
}

std::wstring NORLEX_selection::getWellInfo() {
    refresh();
    std::wstring text = lineOf(stringTable::selectionWells, m_wells.size());
    for (std::size_t i = 0; i < m_wells.size() && i < wellsShown; ++i)
        text += named(named(m_wells[i].workObject, m_wells[i].field), m_wells[i].name) + L"\n";
    if (m_wells.size() > wellsShown)
        text += stringTable::text(stringTable::selectionMore) + L" "
                + std::to_wstring(m_wells.size() - wellsShown) + L"\n";
    return text;
}

std::wstring NORLEX_selection::getWellInfoFull() {
    refresh();
    std::wstring text = lineOf(stringTable::selectionWells, m_wells.size());
    for (const auto& well : m_wells)
        text += named(named(well.workObject, well.field), well.name) + L"\n";
    return text;
}

std::wstring NORLEX_selection::getDescription() {
    std::wstring text = m_name + L"\n" + getFilterInfo();
    if (!m_added.empty())
        text += lineOf(stringTable::selectionAdded, m_added.size());
    if (!m_deleted.empty())
        text += lineOf(stringTable::selectionRemoved, m_deleted.size());
    return text + getWellInfo();
}
