#include "selection/text_scanner.h"

#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"

#include <algorithm>

namespace {

bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

bool isOfWord(wchar_t c) {
    const auto code = static_cast<char32_t>(c);
    return code >= 0x80 || (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'z')
           || (c >= L'A' && c <= L'Z') || c == L'_' || c == L'-';
}

bool isOfOperand(wchar_t c) {
    return !isBlank(c) && c != L'(' && c != L')' && c != L'"';
}

} // namespace

void textScanner::skipBlanks() {
    while (m_at < m_text.size() && isBlank(m_text[m_at]))
        ++m_at;
}

bool textScanner::isAtEnd() {
    skipBlanks();
    return m_at == m_text.size();
}

std::wstring_view textScanner::wordAhead() {
    skipBlanks();
    std::size_t end = m_at;
    while (end < m_text.size() && isOfWord(m_text[end]))
        ++end;
    return m_text.substr(m_at, end - m_at);
}

bool textScanner::isNext(std::wstring_view keyword) {
    const std::wstring_view word = wordAhead();
    return word.size() == keyword.size() && ts::strconv::lower(word) == keyword;
}

bool textScanner::take(std::wstring_view keyword) {
    if (!isNext(keyword))
        return false;
    m_at += keyword.size();
    return true;
}

bool textScanner::takeSign(std::wstring_view sign) {
    skipBlanks();
    if (m_text.substr(m_at, sign.size()) != sign)
        return false;
    m_at += sign.size();
    return true;
}

bool textScanner::isQuoteNext() {
    skipBlanks();
    return m_at < m_text.size() && m_text[m_at] == L'"';
}

std::optional<std::wstring> textScanner::quotedText() {
    std::wstring out;
    for (std::size_t i = m_at + 1; i < m_text.size(); ++i) {
        if (m_text[i] != L'"') {
            out += m_text[i];
        } else if (i + 1 < m_text.size() && m_text[i + 1] == L'"') {
            out += L'"';
            ++i;
        } else {
            m_at = i + 1;
            return out;
        }
    }
    fail(L"the quote that opens here is not closed");
    return std::nullopt;
}

std::optional<std::wstring> textScanner::name(std::wstring_view what) {
    if (isQuoteNext())
        return quotedText();
    const std::wstring_view word = wordAhead();
    if (word.empty()) {
        fail(sqlText::sql(what, L" is expected here; names with other signs stand in quotes"));
        return std::nullopt;
    }
    m_at += word.size();
    return std::wstring(word);
}

std::optional<std::wstring> textScanner::operand() {
    if (isQuoteNext())
        return quotedText();
    std::size_t end = m_at;
    while (end < m_text.size() && isOfOperand(m_text[end]))
        ++end;
    if (end == m_at) {
        fail(L"a value to compare with is expected here");
        return std::nullopt;
    }
    const std::wstring_view text = m_text.substr(m_at, end - m_at);
    m_at = end;
    return std::wstring(text);
}

bool textScanner::fail(std::wstring_view message) const {
    const std::size_t at = std::min(m_text.find_first_not_of(L" \t\r\n", m_at), m_text.size());
    return refuse(sqlText::sql(L"the query, column ", std::to_wstring(at + 1), L": ", message));
}
