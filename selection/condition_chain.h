// Conditions joined by "and" and "or" into one text that the engines' parsers take.
//
// A parser's memory grows with parentheses that are open at a time, and with the operands of a
// chain: so groups get parentheses only where precedence asks for them, and a long chain is split
// into groups of groups.
#pragma once

#include <list>
#include <string>

namespace conditionChain {

struct piece {
    std::wstring text;
    int stack = 0; // symbols that a parser holds while it is inside
    int depth = 0; // levels of operators
    [[nodiscard]] bool isTooDeep() const;
};

// The local engine's parser holds 100 symbols and takes 1,000 levels of operators, and the
// statement around the conditions has its part of both; a server takes more.
inline constexpr int deepestStack = 80;
inline constexpr int deepestOperators = 900;
// What one condition may take.
inline constexpr int conditionStack = 14;
inline constexpr int conditionDepth = 6;

// One condition, or several joined by one word; nothing without any.
class operand {
public:
    enum class join { none, all, any };

    operand() = default;
    explicit operand(std::wstring condition);

    [[nodiscard]] bool isEmpty() const { return m_parts.empty(); }
    // Whether a part of it is too deep already.
    [[nodiscard]] bool isTooDeep() const { return m_largest.isTooDeep(); }

    // Joins `next` behind what is there. Either may be nothing.
    void add(operand next, join word);
    // The text without parentheses around it, and what it takes.
    [[nodiscard]] piece spelled() &&;

private:
    explicit operand(piece part) { push(std::move(part)); }
    void push(piece part);
    void measure(const piece& part);
    void enclose(join word); // becomes one part of a chain joined by `word`

    join m_join = join::none;
    std::list<piece> m_parts; // a list: chains of thousands grow at either end
    piece m_largest;          // without text: the most that a part takes
};

// Siblings, joined from left to right with the precedence of "and".
class siblings {
public:
    // `isAnd` joins to the sibling behind. Nothing is skipped together with its word.
    void add(operand next, bool isAnd);
    [[nodiscard]] operand whole() &&;

private:
    operand m_run; // joined by "and"
    operand m_runs;
    bool m_isAnd = true;
};

} // namespace conditionChain
