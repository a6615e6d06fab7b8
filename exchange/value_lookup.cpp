#include "exchange/value_lookup.h"

#include "platform/last_error.h"
#include "tableReader.h"

#include <vector>

bool valueLookup::read(const std::wstring& path) {
    tableRW::tableReader reader;
    if (!reader.open(path, {}))
        return false;
    std::vector<std::wstring> cells;
    while (reader.next(cells)) {
        const std::wstring place =
            L"line " + std::to_wstring(reader.lineNumber()) + L" of \"" + path + L"\"";
        if (cells.size() < 2)
            return refuse(place + L" has one cell; a code and its value are expected");
        const auto [known, isNew] = m_values.try_emplace(cells[0], cells[1]);
        if (!isNew && known->second != cells[1])
            return refuse(place + L" gives the code \"" + cells[0] + L"\" the value \"" + cells[1]
                          + L"\", an earlier one \"" + known->second + L"\"");
    }
    if (reader.isBroken())
        return false;
    return !m_values.empty() || refuse(L"the table of codes \"" + path + L"\" is empty");
}

const std::wstring* valueLookup::find(const std::wstring& code) const {
    const auto found = m_values.find(code);
    return found == m_values.end() ? nullptr : &found->second;
}
