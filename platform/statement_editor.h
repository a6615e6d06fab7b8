// Changes at the tokens of an SQL text, made all at once at the end.
#pragma once

#include "platform/sql_tokens.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// An index behind the last token is allowed everywhere: there is nothing there, which is no word.
class statement_editor {
public:
    explicit statement_editor(std::string_view text);

    [[nodiscard]] std::size_t count() const { return m_tokens.size(); }
    [[nodiscard]] sqlTokens::kind type(std::size_t index) const;
    [[nodiscard]] std::string_view word(std::size_t index) const; // empty where there is nothing
    [[nodiscard]] bool is(std::size_t index, std::string_view word) const; // without case
    [[nodiscard]] bool isAny(std::size_t index,
                             std::initializer_list<std::string_view> words) const;
    [[nodiscard]] bool isName(std::size_t index) const; // a word or a quoted name
    // The other half of a parenthesis; count() where there is none.
    [[nodiscard]] std::size_t partner(std::size_t index) const;
    // The token behind `index`, a whole pair of parentheses being one step.
    [[nodiscard]] std::size_t following(std::size_t index) const;

    void replace(std::size_t first, std::size_t last, std::string_view with); // both included
    void remove(std::size_t first, std::size_t end);       // up to where the token `end` begins
    void append(std::size_t index, std::string_view text); // behind the token
    [[nodiscard]] std::string result();

private:
    struct edit {
        std::size_t begin;
        std::size_t end;
        std::string with;
    };

    std::string_view m_text;
    std::vector<sqlTokens::token> m_tokens;
    std::vector<edit> m_edits;
};
