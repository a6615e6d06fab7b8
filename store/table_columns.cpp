#include "store/table_columns.h"

#include "platform/numbers.h"

namespace schema {

namespace {

column parse(std::wstring_view declaration) {
    const std::wstring_view words = numbers::trimmed(declaration);
    const auto blank = words.find(L' ');
    return {std::wstring(words.substr(0, blank)),
            blank != std::wstring_view::npos && words.substr(blank).starts_with(L" TEXT")};
}

// Declarations have neither commas nor parentheses inside.
void parseList(std::wstring_view list, std::vector<column>& out) {
    while (!list.empty()) {
        const auto end = list.find_first_of(L",)");
        if (!numbers::trimmed(list.substr(0, end)).empty())
            out.push_back(parse(list.substr(0, end)));
        list = end == std::wstring_view::npos || list[end] == L')' ? std::wstring_view()
                                                                   : list.substr(end + 1);
    }
}

} // namespace

std::vector<column> columnsOf(const table& made) {
    std::vector<column> out;
    const auto from = made.before.find(L'(');
    if (from == std::wstring_view::npos)
        return out;
    parseList(made.before.substr(from + 1), out);
    parseList(made.after, out);
    return out;
}

std::wstring columnList(const std::vector<column>& columns) {
    std::wstring out;
    for (const auto& one : columns)
        out += (out.empty() ? L"" : L", ") + one.name;
    return out;
}

} // namespace schema
