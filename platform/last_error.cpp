#include "platform/last_error.h"

#include "NORLEX_lastError.h"

#include <string_view>

namespace {

// A text of a million letters would bury what is said of it.
constexpr std::size_t longest = 1000;
constexpr std::size_t keptEnd = 300; // what would be accepted stands there

bool isControl(wchar_t c) {
    const auto code = static_cast<unsigned>(c);
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
}

// "\n", "\t" or "\u001b".
void appendControl(std::wstring& out, wchar_t c) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    if (c == L'\n' || c == L'\t' || c == L'\r') {
        out += c == L'\n' ? L"\\n" : c == L'\t' ? L"\\t" : L"\\r";
        return;
    }
    out += L"\\u";
    for (const unsigned shift : {12U, 8U, 4U, 0U})
        out += digits[static_cast<unsigned>(c) >> shift & 0xFU];
}

// Names that a line speaks of may hold anything, line ends among it.
std::wstring oneLine(std::wstring_view text) {
    std::wstring out;
    for (const wchar_t c : text)
        if (isControl(c))
            appendControl(out, c);
        else
            out += c;
    return out;
}

std::wstring shortened(const std::wstring& text) {
    return text.size() <= longest
               ? text
               : text.substr(0, longest - keptEnd) + L" … " + text.substr(text.size() - keptEnd);
}

std::wstring& line() {
    thread_local std::wstring text;
    return text;
}
} // namespace

const std::wstring& NORLEX_lastError() {
    return line();
}

bool refuse(const std::wstring& text) {
    line() = shortened(oneLine(text));
    return false;
}

keptReason::keptReason() : m_line(line()) {}

keptReason::~keptReason() {
    line() = m_line;
}
