#include "cli/column_list.h"

#include <algorithm>

namespace columnList {

namespace {

// Where the first `mark` without a backslash before it stands; the length when there is none.
std::size_t findPlain(std::wstring_view text, wchar_t mark) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == mark)
            return i;
        if (text[i] == L'\\')
            ++i;
    }
    return text.size();
}

std::wstring unescaped(std::wstring_view text) {
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\\' && i + 1 < text.size())
            ++i;
        out += text[i];
    }
    return out;
}

// Of up to nine digits; 0 for anything else.
int numberOf(std::wstring_view text) {
    int number = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9' || text.size() > 9)
            return 0;
        number = number * 10 + (c - L'0');
    }
    return number;
}

} // namespace

NORLEX_columnRef column(std::wstring_view text) {
    const int number = numberOf(text);
    return number != 0 ? NORLEX_columnRef{number, {}} : NORLEX_columnRef{0, unescaped(text)};
}

bool split(std::wstring_view text, std::pair<std::wstring, std::wstring>& out) {
    const std::size_t sign = findPlain(text, L'=');
    if (sign == 0 || sign + 1 >= text.size())
        return false;
    out = {unescaped(text.substr(0, sign)), std::wstring(text.substr(sign + 1))};
    return true;
}

bool parseOne(std::wstring_view part, entry& out) {
    std::pair<std::wstring, std::wstring> pieces;
    if (!split(part, pieces))
        return false;
    out = {pieces.first, column(pieces.second), part.front() == L'\\'};
    return true;
}

bool parse(std::wstring_view list, std::vector<entry>& entries) {
    for (bool isLast = false; !isLast;) {
        const std::size_t end = findPlain(list, L',');
        isLast = end == list.size();
        entries.emplace_back();
        if (!parseOne(list.substr(0, end), entries.back()))
            return false;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return true;
}

} // namespace columnList
