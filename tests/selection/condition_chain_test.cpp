#include "selection/condition_text.h"
#include "tests/selection/filter_fixture.h"

#include <random>

namespace {

using ConditionChainTest = FilterTest;

// Chains of any length, in the precedence of "and" over "or".
TEST_F(ConditionChainTest, chainsMayBeLong) {
    makeThreeWells();
    std::mt19937 random(7);
    const auto oneOf = [&](int count) {
        return std::uniform_int_distribution<int>(1, count)(random) == 1;
    };
    for (const int length : {29, 30, 31, 901, 10'000}) {
        conditionTree tree;
        bool isRunMet = true, isMet = false;
        for (int i = 0; i < length; ++i) {
            const bool isTrue = oneOf(10);
            const bool isAnd = !oneOf(3);
            tree.addChild(
                condition(L"P", L"text", NORLEX_filterEqual, isTrue ? L"2" : L"no", isAnd));
            isRunMet = isRunMet && isTrue;
            if (!isAnd || i + 1 == length) {
                isMet = isMet || isRunMet;
                isRunMet = true;
            }
        }
        EXPECT_EQ(hits(tree), isMet ? "2: -1 -1\n" : "") << length;
        for (const auto& child : tree.children())
            child->value.isAnd = false;
        EXPECT_EQ(hits(tree), "2: -1 -1\n") << length;
    }
}

// Levels of groups, "and" and "or" in turn, with conditions before and behind the group.
void nest(conditionTree& tree, const filterCondition& leaf, int levels, int before, int behind) {
    conditionTree* at = &tree;
    for (int level = 0; level < levels; ++level) {
        filterCondition joined = leaf;
        filterCondition inner;
        joined.isAnd = inner.isAnd = level % 2 == 0;
        for (int i = 0; i < before; ++i)
            at->addChild(joined);
        conditionTree& below = at->addChild(inner);
        for (int i = 0; i < behind; ++i)
            at->addChild(joined);
        at = &below;
    }
    at->addChild(leaf);
}

// What is not refused must be taken by the engine.
TEST_F(ConditionChainTest, nestingIsRefusedBeforeTheEngineCannotTakeIt) {
    makeThreeWells();
    addLayer(50, -2, -1);
    addValue(addProperty(1, L"N", layerTemplate).second, L"5", 50);
    const filterCondition leaves[] = {
        condition(L"P", L"text", NORLEX_filterEqual, L"1"),
        condition(L"P", L"text", NORLEX_filterNotContains, L"%"),
        condition(L"P", L"text", NORLEX_filterEndsWith, L"\\"),
        condition(L"P", L"text", NORLEX_filterNotExists, L""),
        condition(L"N", L"num", NORLEX_filterLessEqual, L"5"),
    };
    const auto kind = [](const filterCondition& c) {
        return c.field == L"num" ? conditionText::comparison::number
                                 : conditionText::comparison::text;
    };
    for (const auto& leaf : leaves)
        for (const auto& [before, behind] :
             {std::pair(1, 0), std::pair(0, 1), std::pair(1, 1), std::pair(40, 40)}) {
            int levels = 0;
            for (bool isTaken = true; isTaken; levels += isTaken ? 1 : 0) {
                conditionTree tree;
                nest(tree, leaf, levels + 1, before, behind);
                isTaken = conditionText::getTreeRequestAsSQLWstring(tree, kind).has_value();
            }
            EXPECT_NE(NORLEX_lastError().find(L"nested too deeply"), std::wstring::npos);
            conditionTree tree;
            nest(tree, leaf, levels, before, behind);
            EXPECT_NE(hits(tree), "refused") << lastError();
            EXPECT_GE(levels, 12) << leaf.operation << " " << before << " " << behind;
        }
}

TEST_F(ConditionChainTest, treesMayBeNestedWithoutEnd) {
    makeThreeWells();
    constexpr int levels = 10'000;
    const auto leaf = condition(L"P", L"text", NORLEX_filterEqual, L"1");
    conditionTree single, turns, same;
    nest(single, leaf, levels, 0, 0);
    EXPECT_EQ(hits(single), "1: -1 -1\n"); // parentheses around one condition are none
    nest(turns, leaf, levels, 1, 0);
    EXPECT_EQ(hits(turns), "refused");
    conditionTree* at = &same;
    for (int i = 0; i < levels; ++i) { // all of them joined by "or"
        at->addChild(condition(L"P", L"text", NORLEX_filterEqual, i == levels / 2 ? L"3" : L"no"));
        at = &at->addChild(group());
    }
    at->addChild(leaf);
    EXPECT_EQ(hits(same), "1: -1 -1\n3: -1 -1\n");
}

} // namespace
