#include "platform/sql_tokens.h"

#include <algorithm>

namespace sqlTokens {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

class splitter {
public:
    explicit splitter(std::string_view text) : m_text(text) {}

    std::vector<token> run() {
        while (skipBlanks())
            take();
        return std::move(m_tokens);
    }

private:
    // False at the end of the text.
    bool skipBlanks() {
        while (m_at < m_text.size()) {
            const std::string_view rest = m_text.substr(m_at);
            if (isBlank(rest.front()))
                ++m_at;
            else if (rest.starts_with("--"))
                skipTo(rest.find('\n'), 1);
            else if (rest.starts_with("/*"))
                skipTo(rest.find("*/", 2), 2);
            else
                return true;
        }
        return false;
    }
    void skipTo(std::size_t offset, std::size_t length) {
        m_at = offset == std::string_view::npos ? m_text.size() : m_at + offset + length;
    }

    void take() {
        const char c = m_text[m_at];
        if (c == '\'')
            add(kind::literal, literalEnd(m_text, m_at));
        else if (c == '"')
            add(kind::quotedName, std::min(m_text.find('"', m_at + 1), m_text.size() - 1) + 1);
        else if (isDigit(c))
            add(kind::number, endOf(m_text, true));
        else if (isWordCharacter(c))
            add(kind::word, endOf(m_text, false));
        else
            takeSign(c);
    }

    [[nodiscard]] std::size_t endOf(std::string_view text, bool isNumber) const {
        std::size_t end = m_at;
        while (end < text.size() && (isWordCharacter(text[end]) || (isNumber && text[end] == '.')))
            ++end;
        return end;
    }

    void takeSign(char c) {
        const bool isChain = c == '|' && m_text.substr(m_at).starts_with("||");
        add(kind::sign, m_at + (isChain ? 2 : 1));
        const std::size_t index = m_tokens.size() - 1;
        if (c == '(') {
            m_open.push_back(index);
        } else if (c == ')' && !m_open.empty()) {
            m_tokens[index].partner = m_open.back();
            m_tokens[m_open.back()].partner = index;
            m_open.pop_back();
        }
    }

    void add(kind type, std::size_t end) {
        m_tokens.push_back({type, m_at, end, none});
        m_at = end;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::vector<token> m_tokens;
    std::vector<std::size_t> m_open; // parentheses that are not closed yet
};

} // namespace

bool isWordCharacter(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'
           || static_cast<unsigned char>(c) >= 0x80;
}

std::size_t literalEnd(std::string_view text, std::size_t at) {
    while (at + 1 < text.size()) {
        const std::size_t quote = text.find('\'', at + 1);
        if (quote == std::string_view::npos)
            break;
        if (quote + 1 == text.size() || text[quote + 1] != '\'')
            return quote + 1;
        at = quote + 1; // a quote written twice
    }
    return text.size();
}

std::vector<token> split(std::string_view text) {
    return splitter(text).run();
}

} // namespace sqlTokens
