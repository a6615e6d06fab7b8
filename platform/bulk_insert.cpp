#include "platform/bulk_insert.h"

#include "platform/ascii.h"
#include "platform/numbers.h"
#include "platform/sql_tokens.h"

#include <algorithm>
#include <vector>

namespace bulkInsert {

namespace {

constexpr std::size_t longEnough = 2000; // bytes of a statement

bool isInteger(std::string_view type) {
    return type == "integer" || type == "bigint";
}

struct array {
    std::string type;
    std::string text; // what stands between its braces
};

std::optional<std::vector<array>> arraysFor(std::string_view columns, const columnTypes& types) {
    std::vector<array> out;
    for (const auto& one : sqlTokens::split(columns)) {
        if (one.type != sqlTokens::kind::word)
            continue; // a comma
        const auto found =
            types.find(ascii::lowered(columns.substr(one.begin, one.end - one.begin)));
        if (found == types.end())
            return std::nullopt;
        out.push_back({found->second, {}});
    }
    return out;
}

// Reads the rows value by value into the arrays.
class reader {
public:
    reader(std::string_view rows, std::vector<array>& arrays) : m_rest(rows), m_arrays(arrays) {}

    bool run() {
        do
            if (!takeRow())
                return false;
        while (takes(','));
        skip();
        return m_rest.empty();
    }

private:
    void skip() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \n"), m_rest.size())); }
    bool takes(char sign) {
        skip();
        if (!m_rest.starts_with(sign))
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    bool takeRow() {
        if (!takes('('))
            return false;
        for (std::size_t i = 0; i < m_arrays.size(); ++i) {
            if (i > 0 && !takes(','))
                return false;
            skip();
            if (!m_arrays[i].text.empty())
                m_arrays[i].text += ',';
            if (!(m_rest.starts_with('\'') ? takeText(m_arrays[i]) : takeWord(m_arrays[i])))
                return false;
        }
        return takes(')');
    }

    // An apostrophe stays doubled: the array is a literal, too.
    bool takeText(array& to) {
        const std::size_t end = sqlTokens::literalEnd(m_rest, 0);
        if (end < 2 || m_rest[end - 1] != '\'')
            return false;
        to.text += '"';
        for (const char c : m_rest.substr(1, end - 2)) {
            if (c == '"' || c == '\\')
                to.text += '\\';
            to.text += c;
        }
        to.text += '"';
        m_rest.remove_prefix(end);
        return true;
    }

    bool takeWord(array& to) {
        const auto end = std::min(m_rest.find_first_of(",) \n"), m_rest.size());
        const std::string_view word = m_rest.substr(0, end);
        if (!ascii::equal(word, "NULL")) {
            // A fraction is rounded where it stands alone, and refused in an array.
            const char* const signs = isInteger(to.type) ? "-0123456789" : "+-.0123456789eE";
            // What is not read whole, as 1-2, is an expression.
            const bool isNumber = numbers::toDouble(word)
                                  && (word[0] == '-' || (word[0] >= '0' && word[0] <= '9'))
                                  && word.find_first_not_of(signs) == std::string_view::npos;
            if (!isNumber || to.type == "text")
                return false; // as a text a number is spelled by the server
        }
        to.text += word;
        m_rest.remove_prefix(end);
        return true;
    }

    std::string_view m_rest;
    std::vector<array>& m_arrays;
};

} // namespace

bool isCandidate(std::string_view statement) {
    return statement.size() >= longEnough && statement.starts_with("INSERT INTO ");
}

std::optional<std::string>
asArrays(std::string_view statement, std::string_view columns, const columnTypes& types) {
    constexpr std::string_view values = "VALUES";
    const auto head = statement.find(values);
    auto arrays = arraysFor(columns, types);
    if (head == std::string_view::npos || !arrays || arrays->empty()
        || !reader(statement.substr(head + values.size()), *arrays).run())
        return std::nullopt;
    std::string out(statement.substr(0, head));
    out.reserve(statement.size() * 5 / 4);
    out += "SELECT * FROM unnest(";
    for (const auto& one : *arrays) {
        if (out.back() != '(')
            out += ',';
        out += "'{" + one.text + "}'::" + one.type + "[]";
    }
    return out + ")";
}

} // namespace bulkInsert
