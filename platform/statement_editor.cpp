#include "platform/statement_editor.h"

#include "platform/ascii.h"

#include <algorithm>

statement_editor::statement_editor(std::string_view text)
    : m_text(text), m_tokens(sqlTokens::split(text)) {}

sqlTokens::kind statement_editor::type(std::size_t index) const {
    return index < m_tokens.size() ? m_tokens[index].type : sqlTokens::kind::sign;
}

std::string_view statement_editor::word(std::size_t index) const {
    if (index >= m_tokens.size())
        return {};
    return m_text.substr(m_tokens[index].begin, m_tokens[index].end - m_tokens[index].begin);
}

bool statement_editor::is(std::size_t index, std::string_view text) const {
    return ascii::equal(word(index), text);
}

bool statement_editor::isAny(std::size_t index,
                             std::initializer_list<std::string_view> words) const {
    return std::ranges::any_of(words, [&](std::string_view one) { return is(index, one); });
}

bool statement_editor::isName(std::size_t index) const {
    return index < m_tokens.size()
           && (type(index) == sqlTokens::kind::word || type(index) == sqlTokens::kind::quotedName);
}

std::size_t statement_editor::partner(std::size_t index) const {
    return index < m_tokens.size() ? std::min(m_tokens[index].partner, m_tokens.size())
                                   : m_tokens.size();
}

std::size_t statement_editor::following(std::size_t index) const {
    return is(index, "(") ? std::min(partner(index) + 1, m_tokens.size()) : index + 1;
}

void statement_editor::replace(std::size_t first, std::size_t last, std::string_view with) {
    m_edits.push_back({m_tokens[first].begin, m_tokens[last].end, std::string(with)});
}

void statement_editor::remove(std::size_t first, std::size_t end) {
    m_edits.push_back({m_tokens[first].begin, m_tokens[end].begin, {}});
}

void statement_editor::append(std::size_t index, std::string_view text) {
    m_edits.push_back({m_tokens[index].end, m_tokens[index].end, std::string(text)});
}

std::string statement_editor::result() {
    // Of two at one place, the earlier one stays in front: what was put inside a parenthesis comes
    // before what was put behind it.
    std::ranges::stable_sort(m_edits, {}, [](const edit& one) { return one.begin; });
    std::string out;
    out.reserve(m_text.size() + 16 * m_edits.size());
    std::size_t at = 0;
    for (const auto& one : m_edits) {
        if (one.begin < at)
            continue; // inside something that was replaced
        out.append(m_text, at, one.begin - at);
        out += one.with;
        at = one.end;
        // two literals without a blank between them would be one
        if (one.with.ends_with('\'') && at < m_text.size() && m_text[at] == '\'')
            out += ' ';
    }
    return out.append(m_text, at);
}
