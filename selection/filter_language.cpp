// Data filters as people type them.
#include "NORLEX_queryText.h"
#include "selection/query_words.h"

#include <utility>
#include <vector>

using queryWords::fieldReference;
using node = TreeNode<filterCondition>;

namespace {

// exists REF | "not" "exists" REF | REF comparison
bool readLeaf(textScanner& in, filterCondition& leaf) {
    leaf.isEndCondition = true;
    const bool isNot = in.take(L"not");
    const bool isExistence = in.take(L"exists");
    if (isNot && !isExistence)
        return in.fail(L"\"exists\" is expected here; other comparisons have opposites of their "
                       L"own: !=, <=, \"not contains\"");
    fieldReference reference;
    if (!queryWords::readReference(in, reference))
        return false;
    if (!reference.hasField)
        return in.fail(L"\".\" and the field of a property are expected here");
    leaf.prop = reference.prop;
    leaf.field = reference.field;
    auto operation = isNot ? NORLEX_filterNotExists : NORLEX_filterExists;
    if (!isExistence && !queryWords::readComparison(in, operation, leaf.strParam))
        return false;
    leaf.operation = operation;
    return true;
}

// Parentheses may be nested to any depth, so the open group is kept instead of calls.
bool readTree(textScanner& in, node& root) {
    node* group = &root;
    for (;;) {
        while (in.takeSign(L"("))
            group = &group->addChild({});
        filterCondition leaf;
        if (!readLeaf(in, leaf))
            return false;
        node* last = &group->addChild(leaf);
        while (in.takeSign(L")")) {
            if (group == &root)
                return in.fail(L"the parenthesis before this was not opened");
            last = group;
            group = group->parent();
        }
        last->value.isAnd = !in.isNext(L"or");
        if (!in.take(L"and") && !in.take(L"or"))
            break;
    }
    if (!in.isAtEnd())
        return in.fail(L"\"and\" or \"or\" is expected here");
    return group == &root || in.fail(L"a parenthesis is not closed");
}

std::wstring textOf(const filterCondition& leaf) {
    const std::wstring field = queryWords::spelled(leaf.prop, leaf.field);
    if (leaf.operation == NORLEX_filterExists)
        return L"exists " + field;
    if (leaf.operation == NORLEX_filterNotExists)
        return L"not exists " + field;
    return field + L" "
           + queryWords::spelled(static_cast<NORLEX_filterOperation>(leaf.operation),
                                 leaf.strParam);
}

} // namespace

bool NORLEX_parseFilterText(std::wstring_view text, TreeNode<filterCondition>& tree) {
    node read;
    textScanner in(text);
    if (!readTree(in, read))
        return false;
    tree.takeChildren(read);
    return true;
}

std::wstring NORLEX_filterText(const TreeNode<filterCondition>& tree) {
    struct place {
        const node* group;
        std::size_t next;
    };
    std::wstring out;
    std::vector<place> open{{&tree, 0}};
    while (!open.empty()) {
        auto& [group, next] = open.back();
        const auto& children = group->children();
        if (next == children.size()) {
            open.pop_back();
            if (!open.empty())
                out += L")";
            continue;
        }
        if (next > 0)
            out += children[next - 1]->value.isAnd ? L" and " : L" or ";
        const node& child = *children[next++];
        if (child.value.isEndCondition) {
            out += textOf(child.value);
        } else {
            out += L"(";
            open.push_back({&child, 0});
        }
    }
    return out;
}
