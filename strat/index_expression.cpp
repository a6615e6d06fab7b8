#include "strat/index_expression.h"

#include "platform/numbers.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace indexExpression {

namespace {

constexpr std::wstring_view separators = L"-+";
constexpr std::wstring_view marks = L"-+{}";

bool isSeparator(wchar_t c) {
    return separators.find(c) != std::wstring_view::npos;
}

bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

// Removes closing braces that close nothing, and tells where the other braces close: `pair` of an
// opening one, the end of the text where it is not closed.
std::wstring balanced(std::wstring_view text, std::vector<std::size_t>& pair) {
    std::wstring out;
    std::vector<std::size_t> open;
    for (const wchar_t c : text) {
        if (c == L'}') {
            if (open.empty())
                continue;
            pair[open.back()] = out.size();
            open.pop_back();
        }
        if (c == L'{')
            open.push_back(out.size());
        out += c;
        pair.push_back(0);
    }
    for (const std::size_t brace : open)
        pair[brace] = out.size();
    return out;
}

// Whether text or another group stands right before a position.
bool touchesBefore(std::wstring_view text, std::size_t position) {
    while (position > 0 && isBlank(text[position - 1]))
        --position;
    return position > 0 && text[position - 1] != L'{' && !isSeparator(text[position - 1]);
}

bool touchesBehind(std::wstring_view text, std::size_t position) {
    while (position < text.size() && isBlank(text[position]))
        ++position;
    return position < text.size() && text[position] != L'}' && !isSeparator(text[position]);
}

// Removes the braces that nothing touches: they change nothing, and may hold any number of pieces.
std::wstring withoutPlainGroups(std::wstring_view given) {
    std::vector<std::size_t> pair;
    const std::wstring text = balanced(given, pair);
    std::vector<bool> isPlain(text.size() + 1);
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == L'{' && !touchesBefore(text, i) && !touchesBehind(text, pair[i] + 1))
            isPlain[i] = isPlain[pair[i]] = true;
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (!isPlain[i])
            out += text[i];
    return out;
}

struct part {
    std::wstring text;
    wchar_t separator = L'+'; // before it
    bool isVoid = false;      // names nothing, whatever is written to it
};

// A sequence that is being read, of the whole text or within a brace.
struct level {
    std::vector<part> done;
    std::vector<part> term{part{}}; // the one behind the last separator

    void append(std::wstring_view text);
    void append(const std::vector<part>& group);
    void endTerm(wchar_t separator);
};

void joinText(part& to, std::wstring_view text) {
    to.isVoid = to.isVoid || to.text.size() + text.size() > longestPiece;
    if (to.isVoid)
        to.text.clear();
    else
        to.text += text;
}

void level::append(std::wstring_view text) {
    for (auto& p : term)
        joinText(p, text);
}

void level::append(const std::vector<part>& group) {
    std::vector<part> product;
    if (term.size() * group.size() > mostPieces) {
        term = {part{{}, term.front().separator, true}};
        return;
    }
    for (const auto& before : term)
        for (std::size_t i = 0; i < group.size(); ++i) {
            product.push_back(before);
            if (i > 0)
                product.back().separator = group[i].separator;
            product.back().isVoid = before.isVoid || group[i].isVoid;
            joinText(product.back(), group[i].text);
        }
    term = std::move(product);
}

void level::endTerm(wchar_t separator) {
    done.insert(
        done.end(), std::make_move_iterator(term.begin()), std::make_move_iterator(term.end()));
    term = {part{{}, separator, false}};
}

// The parts of a group, without the blanks at their ends.
std::vector<part> closed(level& group) {
    group.endTerm(L'+');
    for (auto& p : group.done) {
        p.text = numbers::trimmed(std::wstring_view(p.text));
        p.isVoid = p.isVoid || p.text.empty();
    }
    return std::move(group.done);
}

std::vector<part> parsed(std::wstring_view text) {
    std::vector<level> open(1);
    const auto close = [&] {
        const auto group = closed(open.back());
        open.pop_back();
        open.back().append(group);
    };
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t end = std::min(text.find_first_of(marks, i), text.size());
        open.back().append(text.substr(i, end - i));
        if (end < text.size()) {
            if (text[end] == L'{')
                open.emplace_back();
            else if (text[end] == L'}')
                close();
            else
                open.back().endTerm(text[end]);
        }
        i = end + 1;
    }
    while (open.size() > 1)
        close();
    return closed(open.back());
}

} // namespace

std::wstring withoutBraces(std::wstring_view text) {
    if (text.find_first_of(L"{}") == std::wstring_view::npos)
        return std::wstring(text);
    std::wstring out;
    bool isFirst = true;
    for (const auto& p : parsed(withoutPlainGroups(text))) {
        if (!isFirst)
            out += p.separator;
        out += p.text;
        isFirst = false;
    }
    return out;
}

std::vector<piece> split(std::wstring_view text) {
    std::vector<piece> out;
    bool isRange = false;
    for (;;) {
        const std::size_t end = text.find_first_of(separators);
        out.push_back({std::wstring(numbers::trimmed(text.substr(0, end))), isRange});
        if (end == std::wstring_view::npos)
            return out;
        isRange = text[end] == L'-';
        text.remove_prefix(end + 1);
    }
}

} // namespace indexExpression
