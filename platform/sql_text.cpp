#include "platform/sql_text.h"

#include "platform/numbers.h"

#include <algorithm>

namespace sqlText {

namespace {
std::wstring widened(const std::string& digits) {
    return {digits.begin(), digits.end()};
}
} // namespace

std::wstring key(std::int64_t value) {
    return std::to_wstring(value);
}

std::wstring fixed(double value, int decimals) {
    return widened(numbers::fixed(value, decimals));
}

std::wstring number(double value) {
    return widened(numbers::shortest(value));
}

std::wstring quoted(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size() + 2);
    out += L'\'';
    for (const wchar_t c : text)
        out.append(c == L'\'' ? 2 : 1, c);
    out += L'\'';
    return out;
}

std::wstring plainName(std::wstring_view text) {
    std::wstring plain{text};
    std::erase(plain, L'\'');
    return plain;
}

std::wstring quotedName(std::wstring_view text) {
    return quoted(plainName(text));
}

} // namespace sqlText
