#include "selection/condition_chain.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace conditionChain {

namespace {

// Conditions of a chain that stand side by side.
constexpr std::size_t widest = 30;

piece enclosed(piece part) {
    part.text.insert(part.text.begin(), L'(');
    part.text += L')';
    ++part.stack;
    return part;
}

// The last one has its left neighbours and the word on the parser's stack; the first one stands
// below all operators of the chain.
piece side(std::list<piece>& parts, std::size_t count, const wchar_t* word) {
    piece out = std::move(parts.front());
    parts.pop_front();
    for (; count > 1; --count) {
        const piece& next = parts.front();
        out.text.append(word).append(next.text);
        out.stack = std::max(out.stack, next.stack + 2);
        out.depth = std::max(out.depth, next.depth) + 1;
        parts.pop_front();
    }
    return out;
}

} // namespace

bool piece::isTooDeep() const {
    return stack > deepestStack || depth > deepestOperators;
}

operand::operand(std::wstring condition) {
    push({std::move(condition), conditionStack, conditionDepth});
}

void operand::push(piece part) {
    measure(part);
    m_parts.push_back(std::move(part));
}

void operand::measure(const piece& part) {
    m_largest.stack = std::max(m_largest.stack, part.stack);
    m_largest.depth = std::max(m_largest.depth, part.depth);
}

void operand::enclose(join word) {
    const bool isBare = word == join::any; // "and" binds closer
    piece whole = std::move(*this).spelled();
    *this = operand(isBare ? std::move(whole) : enclosed(std::move(whole)));
}

void operand::add(operand next, join word) {
    if (isEmpty())
        return void(*this = std::move(next));
    if (next.isEmpty())
        return;
    if (m_join != join::none && m_join != word)
        enclose(word);
    if (next.m_join != join::none && next.m_join != word)
        next.enclose(word);
    m_join = word;
    measure(next.m_largest);
    m_parts.splice(m_parts.end(), next.m_parts);
}

piece operand::spelled() && {
    const wchar_t* const word = m_join == join::any ? L" OR " : L" AND ";
    while (m_parts.size() > widest) {
        std::list<piece> groups;
        while (!m_parts.empty())
            groups.push_back(enclosed(side(m_parts, std::min(m_parts.size(), widest), word)));
        m_parts = std::move(groups);
    }
    return side(m_parts, m_parts.size(), word);
}

void siblings::add(operand next, bool isAnd) {
    if (next.isEmpty())
        return;
    if (!m_isAnd)
        m_runs.add(std::exchange(m_run, {}), operand::join::any);
    m_run.add(std::move(next), operand::join::all);
    m_isAnd = isAnd;
}

operand siblings::whole() && {
    m_runs.add(std::move(m_run), operand::join::any);
    return std::move(m_runs);
}

} // namespace conditionChain
