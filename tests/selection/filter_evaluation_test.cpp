#include "NORLEX_logSample.h"
#include "NORLEX_selection.h"
#include "tests/selection/filter_fixture.h"

namespace {

class FilterEvaluationTest : public FilterTest {
protected:
    [[nodiscard]] std::shared_ptr<NORLEX_selection> chosen(const std::vector<int>& wells) const {
        auto out = std::make_shared<NORLEX_selection>(
            L"s", NORLEX_wellContainer::makeDescription(folder / L"wells.well2"), true);
        for (const int well : wells)
            out->addWell({L"O", L"F", L"W" + std::to_wstring(well), 0});
        return out;
    }
};

// Points before intervals, the shallowest first; a record found by both of its values once, and one
// depth once for each template that has it there.
TEST_F(FilterEvaluationTest, hitsComeByDepthAndEachOnce) {
    makeTemplate(NORLEX_dataTypeMarker, L"Points too", NORLEX_fieldTypeNumeric);
    makeTemplate(NORLEX_dataTypeLog, L"Samples", NORLEX_fieldTypeNumeric);
    addWell(1, L"W");
    const double depths[] = {-7, 5.5, -7, 1e-9};
    const auto points = addProperty(1, L"P", pointTemplate);
    for (int record = 1; record <= 4; ++record) {
        addPoint(record, depths[record - 1]);
        addValue(points.first, L"x", record);
        addValue(points.second, L"1", record);
    }
    addValue(addProperty(1, L"Q", L"Points too").first, L"x", 1);
    const auto layers = addProperty(1, L"L", layerTemplate);
    addLayer(1, -9, -8);
    addLayer(2, -4, -3);
    addLayer(3, -9, -6);
    addLayer(4, -4, -3);
    for (int record = 1; record <= 4; ++record)
        addValue(layers.first, L"x", record);
    addValue(addProperty(1, L"S", L"Samples").first, L"x", 1);
    addValue(points.first, L"x", 99); // of a record that is gone
    addValue(layers.first, L"x", 99);

    conditionTree tree;
    for (const auto* property : {L"P", L"Q", L"L", L"S"})
        tree.addChild(condition(property, L"text", NORLEX_filterEqual, L"x"));
    tree.addChild(condition(L"P", L"num", NORLEX_filterEqual, L"1"));
    auto own = filter(tree);
    std::vector<NORLEX_wellFilterDepths> wells;
    ASSERT_TRUE(own.getInfoForFilterConditions(wells)) << lastError();
    EXPECT_EQ(spelled(wells), "1: 5.5 5.5; 1e-09 1e-09; -7 -7; -7 -7; -4 -3; -9 -6; -9 -8\n");
    EXPECT_EQ(own.getDepthsCount(), 7);
}

TEST_F(FilterEvaluationTest, conditionsOnTwoFieldsFindNothingTogether) {
    addWell(1, L"W");
    const auto fields = addProperty(1, L"P", pointTemplate);
    addPoint(1, -1);
    addValue(fields.first, L"sand", 1);
    addValue(fields.second, L"0.3", 1);
    for (const bool isAnd : {false, true}) {
        conditionTree tree;
        tree.addChild(condition(L"P", L"text", NORLEX_filterEqual, L"sand", isAnd));
        tree.addChild(condition(L"P", L"num", NORLEX_filterGreater, L"0.2"));
        EXPECT_EQ(hits(tree), isAnd ? "" : "1: -1 -1\n");
    }
}

TEST_F(FilterEvaluationTest, wellsAreThoseOfTheSelectionInItsOrder) {
    makeThreeWells();
    conditionTree tree;
    tree.addChild(condition(L"P", L"text", NORLEX_filterNotEqual, L"2"));
    const struct {
        std::shared_ptr<NORLEX_selection> selection;
        const char* found;
    } cases[] = {
        {nullptr, "1: -1 -1\n3: -1 -1\n"},
        {chosen({1, 2, 3}), "1: -1 -1\n3: -1 -1\n"},
        {chosen({3, 2, 1}), "3: -1 -1\n1: -1 -1\n"},
        {chosen({3, 7}), "3: -1 -1\n"}, // there is no W7
        {chosen({2}), ""},
        {chosen({}), ""},
    };
    for (const auto& c : cases) {
        NORLEX_dataFilter own(std::shared_ptr<NORLEX_wellContainer>(container.get(), [](auto*) {}),
                              c.selection,
                              &tree);
        std::vector<NORLEX_wellFilterDepths> wells = {{L"old", {}}};
        ASSERT_TRUE(own.getInfoForFilterConditions(wells)) << lastError();
        EXPECT_EQ(spelled(wells), c.found);
    }
}

TEST_F(FilterEvaluationTest, columnsLimitHitsToTheirIntervals) {
    makeThreeWells();
    addLayer(9, -11, -5);
    addValue(addProperty(2, L"M", layerTemplate).first, L"2", 9);
    conditionTree tree;
    for (const auto* property : {L"P", L"L", L"M"})
        tree.addChild(condition(property, L"text", NORLEX_filterGreaterEqual, L"2"));
    const NORLEX_filterColumn points{{L"P", L"G"}, L"text"};
    const NORLEX_filterColumn layers{{L"L", L"G"}, L"text"};
    const NORLEX_filterColumn others{{L"M", L"G"}, L"num"};
    const NORLEX_filterColumn unknown{{L"L", L"other"}, L"text"};
    const struct {
        std::vector<NORLEX_filterColumn> columns;
        const char* found;
    } cases[] = {
        {{layers}, "2: -12 -10\n3: -12 -10\n"},
        {{points, unknown}, ""},
        {{others}, "2: -11 -5\n"},
        {{layers, others, layers}, "2: -11 -5; -12 -10\n3: -12 -10\n"},
        {{}, ""},
    };
    for (const auto& c : cases) {
        std::vector<NORLEX_wellFilterDepths> wells = {{L"old", {}}};
        auto own = filter(tree);
        ASSERT_TRUE(own.getInfoForFilterConditionsWithColumns(wells, c.columns)) << lastError();
        EXPECT_EQ(spelled(wells), c.found);
    }
}

// Hits: the points of "P" and the layers of "L". Columns: numbers of points "A" and of layers "B".
TEST_F(FilterEvaluationTest, tableHasTheNumberOfEachColumnAtEachHit) {
    addWell(1, L"V");
    addWell(2, L"W");
    const auto points = addProperty(2, L"P", pointTemplate);
    const auto layers = addProperty(2, L"L", layerTemplate);
    for (const int depth : {5, 20, 30, 31}) {
        addPoint(depth, -depth);
        addValue(points.first, L"x", depth);
    }
    addLayer(1, -30, -10);
    addLayer(2, -50, -40);
    addLayer(3, -80, -70);
    for (const int record : {1, 2, 3})
        addValue(layers.first, L"x", record);

    const auto a = addProperty(2, L"A", pointTemplate).second;
    const std::pair<int, const wchar_t*> ofPoints[] = {{9, L"1"},
                                                       {11, L"no number"},
                                                       {12, L"2,5"},
                                                       {20, L"3"},
                                                       {30, L"4"},
                                                       {60, L"5"},
                                                       {86, L"6"}};
    for (const auto& [depth, number] : ofPoints) {
        addPoint(100 + depth, -depth);
        addValue(a, number, 100 + depth);
    }
    const auto b = addProperty(2, L"B", layerTemplate).second;
    const struct {
        int record;
        double bottom, top;
        const wchar_t* number;
    } ofLayers[] = {{201, -19, -6, L"10"},  // holds no hit and no middle
                    {202, -30, -20, L"20"}, // adjoins the next one at -30
                    {203, -60, -30, L"30"},
                    {204, -44, -31, L"40"}, // inside of it, and above the middle of the second hit
                    {205, -60, -30, L"99"},
                    {206, -74, -65, L"50"}, // these two miss the middle of the third hit
                    {207, -85, -76, L"60"}};
    for (const auto& layer : ofLayers) {
        addLayer(layer.record, layer.bottom, layer.top);
        addValue(b, layer.number, layer.record);
    }
    conditionTree tree;
    tree.addChild(condition(L"P", L"text", NORLEX_filterExists, L""));
    tree.addChild(condition(L"L", L"text", NORLEX_filterExists, L""));
    auto own = filter(tree);
    std::vector<std::vector<double>> table = {{1}};
    ASSERT_TRUE(own.getGeneralTableForColumns({{{L"A", L"G"}, L"num"},
                                               {{L"B", L"G"}, L"num"},
                                               {{L"A", L"G"}, L"text"},
                                               {{L"none", L"G"}, L"num"}},
                                              table))
        << lastError();
    constexpr double none = NORLEX_missingValue;
    const std::vector<std::vector<double>> expected = {
        {2, -5, -5, none, none, none, none},
        {2, -20, -20, 3, 20, none, none},
        {2, -30, -30, 4, 20, none, none}, // the shallower of two layers that meet
        {2, -31, -31, none, 30, none, none},
        {2, -30, -10, 2.5, 20, none, none}, // the point at -11 has no number
        {2, -50, -40, none, 30, none, none},
        {2, -80, -70, none, none, none, none},
    };
    EXPECT_EQ(table, expected);
    EXPECT_EQ(own.getDepthsCount(), 7);
    ASSERT_TRUE(own.getGeneralTableForColumns({}, table)) << lastError();
    EXPECT_EQ(table.size(), 7U);
    EXPECT_EQ(table.front(), (std::vector<double>{2, -5, -5}));
}

TEST_F(FilterEvaluationTest, whatCannotBeEvaluatedIsRefused) {
    makeThreeWells();
    std::vector<NORLEX_wellFilterDepths> wells = {{L"old", {}}};
    std::vector<std::vector<double>> table = {{1}};
    conditionTree tree;
    const auto refused = [&](NORLEX_dataFilter own, const wchar_t* reason) {
        EXPECT_FALSE(own.getInfoForFilterConditions(wells));
        EXPECT_TRUE(wells.empty());
        EXPECT_FALSE(own.getInfoForFilterConditionsWithColumns(wells, {}));
        EXPECT_FALSE(own.getGeneralTableForColumns({}, table));
        EXPECT_TRUE(table.empty());
        EXPECT_NE(NORLEX_lastError().find(reason), std::wstring::npos) << lastError();
    };
    refused(filter(tree), L"no conditions");
    tree.addChild(group());
    refused(filter(tree), L"no conditions");
    tree.addChild(condition(L"P", L"text", 15, L""));
    refused(filter(tree), L"number 15");
    tree.removeChild(1);
    tree.addChild(condition(L"P", L"text", NORLEX_filterExists, L""));
    refused({nullptr, nullptr, &tree}, L"no open container");
    auto own = filter(tree);
    own.reloadTree(nullptr);
    refused(own, L"reloadTree");
    tree.addChild(condition(L"P", L"text", NORLEX_filterEqual, std::wstring(L"a\0b", 3)));
    refused(filter(tree), L"refuses"); // no database text holds it
    tree.removeChild(2);
    own.reloadTree(&tree);
    EXPECT_TRUE(own.getInfoForFilterConditions(wells));
    EXPECT_EQ(own.getDepthsCount(), 3);
    run(L"DROP TABLE interval_data");
    refused(own, L"interval_data");
}

} // namespace
