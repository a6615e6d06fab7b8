#include "platform/sqlite_statements.h"

#include "platform/ascii.h"
#include "platform/numbers.h"
#include "platform/sql_tokens.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

namespace sqliteShape {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

using sqlTokens::isWordCharacter;

class splitter {
public:
    explicit splitter(std::string_view text)
        : m_text(text), m_isChange(text.starts_with("INSERT ") || text.starts_with("UPDATE ")) {}

    std::optional<parts> run() {
        m_out.shape.reserve(m_text.size());
        while (m_at < m_text.size())
            if (!takeOne())
                return std::nullopt;
        return std::move(m_out);
    }

private:
    [[nodiscard]] char following(std::size_t offset) const {
        return m_at + offset < m_text.size() ? m_text[m_at + offset] : '\0';
    }

    bool takeOne() {
        const char c = m_text[m_at];
        if (c == '\'')
            return takeText();
        const bool isSigned = (c == '-' || c == '+') && isDigit(following(1));
        if (isDigit(c) || (isSigned && isValuePlace()))
            return takeNumber();
        if (isWordCharacter(c))
            return takeWord();
        // A parameter would shift those made here; inside the others a quote begins no literal.
        const bool isComment =
            (c == '-' && following(1) == '-') || (c == '/' && following(1) == '*');
        if (isComment || std::string_view("?\"`[").find(c) != std::string_view::npos)
            return false;
        copy(1);
        if (c != ' ' && c != '\n')
            m_before = c;
        return true;
    }

    // Where a literal is a value for certain. In the list of a query it might be the number of a
    // column to order by, and elsewhere a name, a limit or a part of a type.
    [[nodiscard]] bool isValuePlace() const {
        return m_before == '=' || m_before == '<' || m_before == '>'
               || (m_isChange && (m_before == '(' || m_before == ','));
    }

    void copy(std::size_t count) {
        m_out.shape.append(m_text, m_at, count);
        m_at += count;
    }

    template <typename Value>
    void bind(Value value, std::size_t end) {
        m_out.literals.emplace_back(std::move(value));
        m_out.shape += '?';
        m_at = end;
        m_before = '?';
    }

    bool leave(std::size_t end) {
        m_out.isWhole = false;
        copy(end - m_at);
        m_before = '?';
        return true;
    }

    bool takeText() {
        std::string value;
        std::size_t at = m_at + 1;
        for (;;) {
            const std::size_t quote = m_text.find('\'', at);
            if (quote == std::string_view::npos)
                return false;
            value.append(m_text, at, quote - at);
            at = quote + 1;
            if (at == m_text.size() || m_text[at] != '\'')
                break;
            value += '\'';
            ++at;
        }
        if (!isValuePlace())
            return leave(at);
        bind(std::move(value), at);
        return true;
    }

    bool takeNumber() {
        const char* const from = m_text.data() + m_at + (m_text[m_at] == '+' ? 1 : 0);
        const char* const end = m_text.data() + m_text.size();
        std::int64_t whole = 0;
        double real = 0;
        const auto [afterWhole, wholeError] = std::from_chars(from, end, whole);
        const auto [after, error] = std::from_chars(from, end, real);
        const auto stop = static_cast<std::size_t>(after - m_text.data());
        const bool isWord = after != end && isWordCharacter(*after); // 0x1F
        if (error != std::errc() || isWord || !isValuePlace()) {
            m_out.isWhole = false;
            copy(1);
            return takeWord(); // the rest of it, as far as it reads as a word
        }
        if (afterWhole == after && wholeError != std::errc())
            return leave(stop);
        if (afterWhole == after)
            bind(whole, stop);
        else
            bind(real, stop);
        return true;
    }

    bool takeWord() {
        std::size_t end = m_at;
        while (end < m_text.size() && isWordCharacter(m_text[end]))
            ++end;
        if (end < m_text.size() && m_text[end] == '\'')
            return false; // x'00', a blob
        if (ascii::equal(m_text.substr(m_at, end - m_at), "SELECT"))
            m_isChange = false; // its lists are those of a query
        copy(end - m_at);
        m_before = 'a';
        return true;
    }

    std::string_view m_text;
    bool m_isChange; // so far
    std::size_t m_at = 0;
    char m_before = 'a'; // the last sign; 'a' for a word, '?' for a literal
    parts m_out;
};

} // namespace

std::optional<parts> split(std::string_view text) {
    return splitter(text).run();
}

} // namespace sqliteShape

namespace {

constexpr std::size_t mostKept = 256'000;   // bytes of all shapes; what is prepared takes ten times
constexpr std::size_t longestKept = 40'000; // bytes of a shape
constexpr std::size_t longestSplit = 100'000;

// Others are rare, and pragmas may act as they are prepared.
bool mayComeAgain(std::string_view text) {
    using namespace std::string_view_literals;
    return std::ranges::any_of(std::array{"INSERT "sv,
                                          "SELECT "sv,
                                          "UPDATE "sv,
                                          "DELETE "sv,
                                          "BEGIN "sv,
                                          "COMMIT"sv,
                                          "SAVEPOINT "sv,
                                          "RELEASE "sv},
                               [&](std::string_view word) { return text.starts_with(word); });
}

bool bindAll(sqlite3_stmt* statement, const std::vector<sqliteShape::literal>& literals) {
    int place = 0;
    for (const auto& value : literals) {
        ++place;
        int code = SQLITE_OK;
        if (const auto* whole = std::get_if<std::int64_t>(&value))
            code = sqlite3_bind_int64(statement, place, *whole);
        else if (const auto* real = std::get_if<double>(&value))
            code = sqlite3_bind_double(statement, place, *real);
        else if (const auto* text = std::get_if<std::string>(&value))
            code = sqlite3_bind_text64(
                statement, place, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
        if (code != SQLITE_OK)
            return false;
    }
    return true;
}

} // namespace

sqlite_statements::lease::lease(handle statement,
                                std::string shape,
                                std::weak_ptr<sqlite_statements> owner)
    : m_statement(std::move(statement)), m_shape(std::move(shape)), m_owner(std::move(owner)) {}

sqlite_statements::lease::~lease() {
    const auto owner = m_statement && !m_shape.empty() ? m_owner.lock() : nullptr;
    if (!owner)
        return;
    sqlite3_reset(m_statement.get());
    sqlite3_clear_bindings(m_statement.get());
    if (owner->m_keptSize > mostKept) {
        owner->m_kept.clear(); // those in use come back again
        owner->m_keptSize = 0;
    }
    const std::size_t size = m_shape.size();
    if (owner->m_kept.try_emplace(std::move(m_shape), std::move(m_statement)).second)
        owner->m_keptSize += size;
}

sqlite_statements::lease sqlite_statements::take(std::string_view text, bool& hasMore) {
    hasMore = false;
    auto parts =
        text.size() <= longestSplit && mayComeAgain(text) ? sqliteShape::split(text) : std::nullopt;
    if (parts && parts->isWhole && parts->shape.size() <= longestKept) {
        handle statement;
        if (auto kept = m_kept.extract(parts->shape)) {
            statement = std::move(kept.mapped());
            m_keptSize -= parts->shape.size();
        } else
            statement = prepare(parts->shape, hasMore);
        if (statement && bindAll(statement.get(), parts->literals))
            return {std::move(statement), std::move(parts->shape), weak_from_this()};
    }
    // As it stands, so that a refusal speaks of the text that was given.
    return {prepare(text, hasMore), {}, {}};
}

sqlite_statements::handle sqlite_statements::prepare(std::string_view text, bool& hasMore) const {
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    sqlite3_prepare_v3(
        m_db, text.data(), static_cast<int>(text.size()), SQLITE_PREPARE_PERSISTENT, &raw, &tail);
    handle statement(raw);
    const std::string_view rest(tail, text.size() - static_cast<std::size_t>(tail - text.data()));
    hasMore = statement && !numbers::trimmed(rest).empty();
    return hasMore ? nullptr : std::move(statement);
}
