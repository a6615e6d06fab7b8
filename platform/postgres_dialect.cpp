#include "platform/postgres_dialect.h"

#include "platform/ascii.h"
#include "platform/sql_tokens.h"
#include "platform/statement_editor.h"

#include <algorithm>

namespace postgresDialect {

namespace {

using sqlTokens::kind;

// One statement, rule by rule. A rule looks at the token `i` and what stands around it.
class adapter {
public:
    adapter(statement_editor& text, std::size_t end) : m(text), m_end(end) {
        for (std::size_t i = 0; i < m_end; ++i) {
            m_namesAttachments = m_namesAttachments || m.is(i, "file_link");
            m_namesJournal = m_namesJournal || m.is(i, "log_table");
        }
    }

    void run() {
        if (m.isAny(0, {"CREATE", "ALTER"}))
            for (std::size_t i = 2; i < m_end; ++i)
                columnType(i);
        if (m.is(0, "UPDATE"))
            emptyNumbers();
        for (std::size_t i = 0; i < m_end; ++i) {
            if (m.type(i) != kind::word)
                continue;
            call(i);
            emptyList(i);
            subquery(i);
            pattern(i);
            renamed(i);
            order(i);
        }
    }

private:
    // A name behind another is a type: "depth REAL NOT NULL". REAL would keep 7 digits only, and
    // text would be sorted by the rules of the server's language instead of by code points.
    void columnType(std::size_t i) {
        if (!m.isName(i - 1) || m.isAny(i - 1, {"ADD", "COLUMN"}) || m.is(i - 2, "."))
            return;
        if (m.is(i, "REAL"))
            m.replace(i, i, "DOUBLE PRECISION");
        else if (m.is(i, "TEXT") && !m.is(i + 1, "COLLATE"))
            m.append(i, " COLLATE \"C\"");
    }

    // "bottom = ''": a column of numbers takes no empty text; NULL reads back as empty.
    void emptyNumbers() {
        if (!m.is(1, "well_base"))
            return;
        for (std::size_t i = 2; i < m_end && !m.is(i, "WHERE"); i = m.following(i))
            if (m.isAny(i, {"altitude", "bottom", "x", "y"}) && m.is(i + 1, "=")
                && m.word(i + 2) == "''")
                m.replace(i + 2, i + 2, "NULL");
    }

    void call(std::size_t i) {
        if (!m.is(i + 1, "(") || (i > 0 && m.is(i - 1, ".")))
            return;
        const std::size_t close = m.partner(i + 1);
        if (m.is(i, "count") && close == i + 2)
            m.append(i + 1, "*");
        else if (m.is(i, "lower")) // the server's own may know Latin letters only
            m.replace(i, i, "wellsql.lower");
        else if (m.is(i, "CAST") && close < m_end && close > i + 4 && m.is(close - 2, "AS")
                 && m.isAny(close - 1, {"numeric", "REAL"})) {
            // By its leading number, or 0: the server's own fails on one text that is no number.
            m.replace(i, i + 1, "wellsql.num((");
            m.replace(close - 2, close - 1, ")::text");
        }
    }

    // True and false for a NULL too, as the local engine has it.
    void emptyList(std::size_t i) {
        if (!m.is(i, "IN") || !m.is(i + 1, "(") || !m.is(i + 2, ")"))
            return;
        if (i > 0 && m.is(i - 1, "NOT"))
            m.replace(i - 1, i + 2, "<> ALL('{}')");
        else
            m.replace(i, i + 2, "= ANY('{}')");
    }

    // A query that stands for a table has to have a name.
    void subquery(std::size_t i) {
        if (!m.isAny(i, {"FROM", "JOIN"}) || !m.is(i + 1, "(") || !m.is(i + 2, "SELECT"))
            return;
        const std::size_t close = m.partner(i + 1);
        const bool hasName = m.isName(close + 1)
                             && !m.isAny(close + 1,
                                         {"WHERE",
                                          "ORDER",
                                          "GROUP",
                                          "HAVING",
                                          "LIMIT",
                                          "OFFSET",
                                          "UNION",
                                          "ON",
                                          "JOIN",
                                          "LEFT",
                                          "INNER",
                                          "CROSS",
                                          "RIGHT",
                                          "FULL",
                                          "USING",
                                          "EXCEPT",
                                          "INTERSECT"});
        if (close < m_end && !hasName)
            m.append(close,
                     m_subqueries++ == 0 ? " AS t_" : " AS t_" + std::to_string(m_subqueries));
    }

    // A backslash is a sign like any other in a pattern.
    void pattern(std::size_t i) {
        if (!m.is(i, "LIKE"))
            return;
        bool mayEscape = false;
        std::size_t last = i;
        do {
            ++last; // an operand, of which there are several with "||" between them
            mayEscape = mayEscape || m.type(last) != kind::literal
                        || m.word(last).find('\\') != std::string_view::npos;
            while (m.is(last + 1, "."))
                last += 2;
            if (m.type(last) == kind::word && m.is(last + 1, "("))
                ++last;
            if (m.is(last, "("))
                last = m.partner(last);
        } while (m.is(last + 1, "||") && ++last < m_end);
        if (last < m_end && mayEscape && !m.is(last + 1, "ESCAPE"))
            m.append(last, " ESCAPE ''");
    }

    // Names that the server keeps for itself, or does not have.
    void renamed(std::size_t i) {
        if (m_namesAttachments && m.is(i, "rowid"))
            m.replace(i, i, "id");
        else if (m_namesJournal && m.is(i, "user"))
            m.replace(i, i, "\"user\"");
    }

    // NULLs first where the order rises and last where it falls, as the local engine has it.
    void order(std::size_t i) {
        if (!m.is(i, "ORDER") || !m.is(i + 1, "BY"))
            return;
        std::size_t first = i + 2;
        for (std::size_t at = first; first < m_end; at = m.following(at)) {
            const bool isEnd = at >= m_end
                               || m.isAny(at,
                                          {")",
                                           "LIMIT",
                                           "OFFSET",
                                           "UNION",
                                           "EXCEPT",
                                           "INTERSECT",
                                           "ROWS",
                                           "RANGE",
                                           "FOR"});
            if (!isEnd && !m.is(at, ","))
                continue;
            item(i, first, at);
            if (isEnd)
                return;
            first = at + 1;
        }
    }

    // One item of an ORDER BY at `by`, the tokens from `first` up to `end`.
    void item(std::size_t by, std::size_t first, std::size_t end) {
        if (end <= first || m.is(end - 2, "NULLS"))
            return;
        if (m.is(end, ",") && end == first + 1 && isFixedByCondition(by, first))
            m.remove(first, end + 1);
        else
            m.append(end - 1, m.is(end - 1, "DESC") ? " NULLS LAST" : " NULLS FIRST");
    }

    // "SELECT distinct(field) … WHERE work_object = 'A' ORDER BY work_object, field": the server
    // refuses to sort distinct rows by what they do not hold; here it is the same in all of them.
    [[nodiscard]] bool isFixedByCondition(std::size_t by, std::size_t name) const {
        std::size_t from = by;
        while (from > 0 && !m.is(from, "FROM"))
            --from;
        std::size_t select = from;
        while (select > 0 && !m.is(select, "SELECT"))
            --select;
        if (!m.is(select + 1, "DISTINCT"))
            return false;
        for (std::size_t i = select; i < from; ++i)
            if (m.is(i, m.word(name)))
                return false;
        for (std::size_t i = from; i < by; ++i)
            if (m.is(i, m.word(name)) && m.is(i + 1, "=") && m.type(i + 2) == kind::literal)
                return true;
        return false;
    }

    statement_editor& m;
    std::size_t m_end;
    bool m_namesAttachments = false;
    bool m_namesJournal = false;
    int m_subqueries = 0;
};

std::string_view trimmedEnd(std::string_view text) {
    const auto last = text.find_last_not_of(" \t\r\n;");
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

// Whether a ";" stands outside of the literals.
bool hasSeparator(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        at = text.find_first_of(";'", at);
        if (at == std::string_view::npos)
            return false;
        if (text[at] == ';')
            return true;
        at = sqlTokens::literalEnd(text, at);
    }
    return false;
}

// Reads an INSERT word by word without splitting its rows.
class head {
public:
    explicit head(std::string_view text) : m_rest(text) {}

    std::string_view word() {
        skip();
        std::size_t end = 0;
        while (end < m_rest.size() && sqlTokens::isWordCharacter(m_rest[end]))
            ++end;
        return take(end);
    }
    bool is(std::string_view expected) { return ascii::equal(word(), expected); }
    std::string_view list() { // what stands between parentheses, if anything does
        skip();
        const auto close = m_rest.find(')');
        if (!m_rest.starts_with('(') || close == std::string_view::npos)
            return {};
        return take(close + 1).substr(1, close - 1);
    }

    [[nodiscard]] std::string_view rest() const { return m_rest; }

private:
    void skip() {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(" \t\n"), m_rest.size()));
    }
    std::string_view take(std::size_t count) {
        const auto out = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return out;
    }

    std::string_view m_rest;
};

} // namespace

bool insertion::names(std::string_view column) const {
    for (const auto& one : sqlTokens::split(columns))
        if (ascii::equal(columns.substr(one.begin, one.end - one.begin), column))
            return true;
    return false;
}

std::optional<insertion> insertionOf(std::string_view statement) {
    head text(statement);
    if (!text.is("INSERT") || !text.is("INTO"))
        return std::nullopt;
    insertion out;
    out.table = ascii::lowered(text.word());
    out.columns = text.list();
    out.hasRows = text.is("VALUES");
    out.isPlain = out.hasRows && !out.table.empty() && out.table != "log_table";
    return out;
}

bool isDefinition(std::string_view statement) {
    const std::string_view word = head(statement).word();
    return ascii::equal(word, "CREATE") || ascii::equal(word, "ALTER")
           || ascii::equal(word, "DROP");
}

std::string deletionOf(std::string_view statement) {
    head text(statement);
    return text.is("DELETE") && text.is("FROM") ? ascii::lowered(text.word()) : std::string();
}

std::optional<largestKey> largestKeyOf(std::string_view statement) {
    head text(statement);
    if (!text.is("SELECT") || !text.is("max"))
        return std::nullopt;
    largestKey out;
    out.key = ascii::lowered(text.list());
    const bool isKey = !out.key.empty() && std::ranges::all_of(out.key, sqlTokens::isWordCharacter);
    if (!isKey || !text.is("FROM"))
        return std::nullopt;
    out.table = ascii::lowered(text.word());
    const bool isAll = trimmedEnd(text.rest()).empty(); // no condition, nothing else
    return isAll && !out.table.empty() ? std::optional(out) : std::nullopt;
}

adapted adapt(std::string_view statement) {
    // Rows in great numbers are not split into tokens.
    if (const auto inserted = insertionOf(statement); inserted && inserted->isPlain) {
        const std::string_view text = trimmedEnd(statement);
        if (text.ends_with('\'') || text.ends_with(')'))
            return {hasSeparator(text) ? shape::several : shape::statement, std::string(text)};
    }
    statement_editor text(statement);
    std::size_t end = 0;
    while (end < text.count() && !text.is(end, ";"))
        ++end;
    if (end == 0)
        return {shape::empty, {}};
    for (std::size_t i = end; i < text.count(); ++i)
        if (!text.is(i, ";"))
            return {shape::several, {}};
    if (text.is(0, "PRAGMA"))
        return {shape::pragma, {}};
    adapter(text, end).run();
    const bool isEnded = end < text.count();
    for (std::size_t i = end; i < text.count(); ++i)
        text.replace(i, i, " "); // a blank, so that what stands around it does not become one sign
    std::string result = text.result();
    if (isEnded)
        result.resize(trimmedEnd(result).size());
    return {shape::statement, std::move(result)};
}

} // namespace postgresDialect
