#include "exchange/column_search.h"

#include "platform/last_error.h"
#include "platform/strconv.h"

namespace columnSearch {

namespace {

std::wstring quote(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

std::wstring listed(const std::vector<std::wstring>& header) {
    constexpr std::size_t mostListed = 20;
    std::wstring out;
    for (std::size_t i = 0; i < header.size() && i < mostListed; ++i)
        out += (i == 0 ? L"" : L", ") + header[i];
    return header.size() > mostListed ? out + L", …" : out;
}

} // namespace

bool header::read(tableRW::tableReader& reader, bool hasHeader) {
    m_hasHeader = hasHeader;
    return !hasHeader || reader.next(m_cells)
           || (!reader.isBroken() && refuse(L"the table " + m_table + L" has no rows"));
}

bool header::find(const NORLEX_columnRef& column, const std::wstring& what, int& number) const {
    number = column.number;
    if (number == 0 && !column.header.empty())
        return findText(column.header, what, number);
    if (number < 0)
        return refuse(L"columns are counted from 1, but " + what + L" is to be column "
                      + std::to_wstring(number));
    if (m_hasHeader && static_cast<std::size_t>(number) > m_cells.size())
        return refuse(what + L" is to be column " + std::to_wstring(number) + L" of " + m_table
                      + L", whose header has " + std::to_wstring(m_cells.size()));
    return true;
}

bool header::findText(const std::wstring& text, const std::wstring& what, int& number) const {
    if (!m_hasHeader)
        return refuse(what + L" is to be the column " + quote(text)
                      + L", but the table has no header; a column's number is expected");
    using spelling = std::wstring (*)(std::wstring_view);
    for (const spelling as :
         {spelling([](std::wstring_view t) { return std::wstring(t); }), &ts::strconv::lower}) {
        int found = 0;
        for (std::size_t i = 0; i < m_cells.size(); ++i)
            if (as(m_cells[i]) == as(text)) {
                number = static_cast<int>(i) + 1;
                ++found;
            }
        if (found == 1)
            return true;
        if (found > 1)
            return refuse(what + L" is to be the column " + quote(text) + L", but "
                          + std::to_wstring(found) + L" columns of " + m_table
                          + L" bear it; a column's number is expected");
    }
    return refuse(what + L" is to be the column " + quote(text) + L", which " + m_table
                  + L" does not have; there are: " + listed(m_cells));
}

} // namespace columnSearch
