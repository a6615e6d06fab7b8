#include "exchange/table_writer.h"

#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/strconv.h"

#include <algorithm>

namespace {

constexpr std::size_t bufferSize = std::size_t{1} << 16;
constexpr wchar_t byteOrderMark = L'\xFEFF';

bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

bool needsQuotes(std::wstring_view cell, std::wstring_view special) {
    return !cell.empty()
           && (cell.find_first_of(special) != std::wstring_view::npos || isBlank(cell.front())
               || isBlank(cell.back()));
}

// Encodings that lack characters.
bool isNarrow(ts::strconv::encodings encoding) {
    using enum ts::strconv::encodings;
    return encoding != utf8 && encoding != utf16le && encoding != utf16be && encoding != utf32le
           && encoding != utf32be;
}

} // namespace

bool tableWriter::accepts(char separator, ts::strconv::encodings encoding) {
    if (separator != ';' && separator != ',' && separator != '\t')
        return refuse(L"the separator of a table is \";\", \",\" or a tab");
    return encoding != ts::strconv::detect || refuse(L"a table needs an encoding to be written in");
}

tableWriter::tableWriter(std::FILE* file,
                         char separator,
                         ts::strconv::encodings encoding,
                         style wanted)
    : m_file(file), m_separator(static_cast<wchar_t>(separator)), m_encoding(encoding),
      m_special(L"\"\r\n"), m_lineEnd(wanted == style::table ? L"\r\n" : L"\n") {
    m_special += wanted == style::table ? std::wstring(L";,\t") : std::wstring(1, m_separator);
    if (!isNarrow(encoding) && encoding != ts::strconv::utf8)
        m_bytes = ts::strconv::encode({&byteOrderMark, 1}, encoding);
}

void tableWriter::add(std::wstring_view cell) {
    if (!m_isRowEmpty)
        m_row += m_separator;
    m_isRowEmpty = false;
    if (!needsQuotes(cell, m_special)) {
        m_row += cell;
        return;
    }
    m_row += L'"';
    for (const wchar_t c : cell)
        m_row.append(c == L'"' ? 2 : 1, c);
    m_row += L'"';
}

void tableWriter::add(double number) {
    const std::string digits = numbers::shortest(number);
    add(std::wstring(digits.begin(), digits.end()));
}

bool tableWriter::endRow() {
    m_row += m_lineEnd;
    const std::string bytes = ts::strconv::encode(m_row, m_encoding);
    if (isNarrow(m_encoding) && ts::strconv::decode(bytes, m_encoding) != m_row) {
        const auto name = ts::strconv::name(m_encoding);
        m_row.resize(m_row.size() - m_lineEnd.size());
        return refuse(L"the row \"" + m_row + L"\" has characters that "
                      + std::wstring(name.begin(), name.end()) + L" lacks; utf-8 has all");
    }
    m_bytes += bytes;
    m_row.clear();
    m_isRowEmpty = true;
    return m_bytes.size() < bufferSize || flush();
}

bool tableWriter::finish() {
    return flush();
}

bool tableWriter::flush() {
    const bool done = files::put(m_file, m_bytes);
    m_bytes.clear();
    return done;
}
