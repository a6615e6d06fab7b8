// Prepared statements of one connection, kept for texts that come again.
//
// Statements reach the driver as whole texts, and most of the time of a short one would be its
// parsing. A text is therefore taken apart into its shape and the literals that stand where a value
// does, "UPDATE t SET a = 'x' WHERE id = 5" into "UPDATE t SET a = ? WHERE id = ?" with 'x' and 5.
// One statement is prepared for a shape, and the literals are bound to it.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace sqliteShape {

using literal = std::variant<std::int64_t, double, std::string>;

struct parts {
    std::string shape;
    std::vector<literal> literals;
    bool isWhole = true; // no literal was left in the shape
};

// Nothing for a text that is better left alone: with comments, quoted names or parameters.
[[nodiscard]] std::optional<parts> split(std::string_view text);

} // namespace sqliteShape

class sqlite_statements : public std::enable_shared_from_this<sqlite_statements> {
public:
    struct finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using handle = std::unique_ptr<sqlite3_stmt, finalizer>;

    // A statement in use. It is reset, and goes back to be used again, when this is destroyed.
    class lease {
    public:
        lease() = default;
        lease(handle statement, std::string shape, std::weak_ptr<sqlite_statements> owner);
        ~lease();
        lease(lease&&) = default;
        lease& operator=(lease&&) = delete;

        [[nodiscard]] sqlite3_stmt* get() const { return m_statement.get(); }
        explicit operator bool() const { return m_statement != nullptr; }

    private:
        handle m_statement;
        std::string m_shape; // empty: not to be kept
        std::weak_ptr<sqlite_statements> m_owner;
    };

    explicit sqlite_statements(sqlite3* db) : m_db(db) {}

    // Ready to be stepped. Empty when the engine refuses the text, which its error tells, and when
    // there is text behind the end of the statement (`hasMore`) or no statement at all.
    [[nodiscard]] lease take(std::string_view text, bool& hasMore);

private:
    [[nodiscard]] handle prepare(std::string_view text, bool& hasMore) const;

    sqlite3* m_db;
    std::unordered_map<std::string, handle> m_kept; // by shape
    std::size_t m_keptSize = 0;                     // bytes of the shapes
};
