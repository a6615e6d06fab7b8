// The tree of conditions that a data filter evaluates.
#pragma once

#include "NORLEX_filterKinds.h"
#include "NORLEX_propDescription.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// One node: a condition on a field of a property, or a group of nodes in parentheses.
struct filterCondition {
    int operation = NORLEX_filterExists; // a NORLEX_filterOperation
    NORLEX_propDescription prop;
    std::wstring field;
    std::wstring strParam;       // the operand as it was typed
    bool isAnd = true;           // joined to the sibling that follows by "and", not "or"
    bool isEndCondition = false; // a condition; false: the children are the operands
};

[[nodiscard]] inline bool operator==(const filterCondition& a, const filterCondition& b) {
    return a.operation == b.operation && a.prop == b.prop && a.field == b.field
           && a.strParam == b.strParam && a.isAnd == b.isAnd
           && a.isEndCondition == b.isEndCondition;
}

// A value, its children in order, and the node above. A node owns its children, so that a tree
// cannot contain itself; it stays where it is, since they point at it.
template <typename T>
class TreeNode {
public:
    TreeNode() = default;
    explicit TreeNode(T ownValue) : value(std::move(ownValue)) {}
    ~TreeNode() { clear(); }
    TreeNode(const TreeNode&) = delete;
    TreeNode& operator=(const TreeNode&) = delete;

    T value{};

    [[nodiscard]] TreeNode* parent() const { return m_parent; }
    [[nodiscard]] const std::vector<std::unique_ptr<TreeNode>>& children() const {
        return m_children;
    }

    TreeNode& addChild(T childValue) {
        m_children.push_back(std::make_unique<TreeNode>(std::move(childValue)));
        m_children.back()->m_parent = this;
        return *m_children.back();
    }

    void removeChild(std::size_t index) {
        m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(index));
    }

    // Takes the children of another node, in the place of its own.
    void takeChildren(TreeNode& other) {
        auto taken = std::exchange(other.m_children, {});
        clear();
        m_children = std::move(taken);
        for (const auto& child : m_children)
            child->m_parent = this;
    }

    // Level by level: a tree of any depth goes without deep calls.
    void clear() {
        auto doomed = std::exchange(m_children, {});
        while (!doomed.empty()) {
            auto below = std::exchange(doomed.back()->m_children, {});
            doomed.pop_back();
            for (auto& node : below)
                doomed.push_back(std::move(node));
        }
    }

private:
    TreeNode* m_parent = nullptr;
    std::vector<std::unique_ptr<TreeNode>> m_children;
};
