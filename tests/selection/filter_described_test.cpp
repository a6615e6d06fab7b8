// The data filter against its definition, one statement for each well, on random data and trees.
#include "tests/selection/filter_fixture.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <tuple>

namespace {

// The evaluation as it is defined: one statement for each well.
class described {
public:
    explicit described(odbc_database* db) : m_db(db) {}

    static std::wstring leaf(const filterCondition& c) {
        static const std::map<int, std::pair<std::wstring, std::wstring>> numeric = {
            {7, {L"' AND CAST( replace(val.value ,',','.') as REAL) > ", L""}},
            {8, {L"' AND CAST( replace(val.value ,',','.') as REAL)  >= ", L""}},
            {9, {L"' AND CAST( replace(val.value ,',','.') as REAL)  < ", L""}},
            {10, {L"' AND CAST( replace(val.value ,',','.') as REAL)  <= ", L""}},
            {5, {L"' AND CAST( replace(val.value ,',','.') as REAL)  = ", L""}},
            {6, {L"' AND CAST( replace(val.value ,',','.') as REAL)  <> ", L""}},
        };
        static const std::map<int, std::pair<std::wstring, std::wstring>> texts = {
            {5, {L"' AND val.value = '", L"'"}},
            {6, {L"' AND val.value <> '", L"'"}},
            {7, {L"' AND val.value > '", L"'"}},
            {8, {L"' AND val.value >= '", L"'"}},
            {9, {L"' AND val.value < '", L"'"}},
            {10, {L"' AND val.value <= '", L"'"}},
            {11, {L"' AND val.value LIKE '%", L"%'"}},
            {12, {L"' AND val.value NOT LIKE '%", L"%'"}},
            {13, {L"' AND val.value LIKE '", L"%'"}},
            {14, {L"' AND val.value LIKE '%", L"'"}},
        };
        std::wstring operand = c.strParam;
        std::wstring out = L"(property.name = '" + c.prop.name + L"' AND property.p_group = '"
                           + c.prop.group + L"' AND field.name = '" + c.field;
        if (c.operation == 3 || c.operation == 4)
            return out
                   + (c.operation == 3 ? L"' AND val.value IS NULL)"
                                       : L"' AND val.value IS NOT NULL)");
        const bool isNumber = c.field == L"num" && numeric.contains(c.operation);
        const auto& [before, behind] = (isNumber ? numeric : texts).at(c.operation);
        if (isNumber)
            std::ranges::replace(operand, L',', L'.');
        return out + before + operand + behind + L")";
    }

    static std::wstring text(const conditionTree& tree) {
        std::wstring out = L"(";
        for (std::size_t i = 0; i < tree.children().size(); ++i) {
            const auto& child = *tree.children()[i];
            out += child.value.isEndCondition ? leaf(child.value) : text(child);
            if (i + 1 < tree.children().size())
                out += child.value.isAnd ? L" AND " : L" OR ";
        }
        return out + L")";
    }

    // With keys that points and layers share, every row carries the record of the other kind too:
    // `isShared` counts rows that differ in that alone as one, and sorts them by their own record.
    std::vector<NORLEX_wellFilterDepths> evaluate(const conditionTree& tree, bool isShared) const {
        const std::wstring blanks(31, L' ');
        const std::wstring conditions = L" AND " + text(tree);
        std::vector<NORLEX_wellFilterDepths> out;
        const auto wells = m_db->query(L"SELECT w_id FROM well_base ORDER BY name");
        std::vector<std::wstring> ids;
        while (wells && wells->next())
            ids.push_back(wells->get_text(0));
        for (const auto& id : ids) {
            NORLEX_wellFilterDepths found{id, {}};
            std::set<std::tuple<bool, double, double, std::wstring>> distinct;
            const auto rows = m_db->query(
                L"SELECT distinct depth_abs, bot_abs, top_abs, base_template.name from property"
                + blanks + L"LEFT JOIN field on property.pr_id = field.pr_id" + blanks
                + L"LEFT JOIN base_template ON property.bt_id = base_template.bt_id" + blanks
                + L"LEFT JOIN val on field.f_id = val.f_id" + blanks
                + L"LEFT JOIN point_data ON val.obj_id = point_data.obj_id" + blanks
                + L"LEFT JOIN interval_data ON val.obj_id = interval_data.obj_id WHERE property.w_id = "
                + id + conditions
                + L" AND val.obj_id IS NOT NULL ORDER BY depth_abs desc, bot_abs desc, top_abs desc");
            EXPECT_NE(rows, nullptr) << ts::strconv::toUtf8(m_db->last_error());
            while (rows && rows->next()) {
                const auto name = rows->get_text(3);
                const bool isPoint = name.starts_with(L"Points");
                if (!isPoint && !name.starts_with(L"Layers"))
                    continue;
                const double first = rows->get_double(isPoint ? 0 : 1);
                const double second = rows->get_double(isPoint ? 0 : 2);
                if (!isShared)
                    found.depths.emplace_back(first, second);
                distinct.emplace(!isPoint, -first, -second, name);
            }
            if (isShared)
                for (const auto& [kind, first, second, name] : distinct)
                    found.depths.emplace_back(-first, -second);
            if (!found.depths.empty())
                out.push_back(std::move(found));
        }
        return out;
    }

private:
    odbc_database* m_db;
};

class randomData {
public:
    explicit randomData(unsigned int seed) : m_random(seed) {}

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    std::optional<std::wstring> value() {
        static const std::vector<std::wstring> values = {
            L"", L"0.25", L"0,25", L"1", L"10", L"-3", L"1e1", L"sand", L"silt", L"песок", L"it's"};
        const auto i = static_cast<std::size_t>(below(static_cast<int>(values.size()) + 1));
        return i < values.size() ? std::optional(values[i]) : std::nullopt;
    }

    filterCondition leaf() {
        static const std::vector<std::wstring> texts = {L"", L"s", L"sand", L"0", L"1", L"ок"};
        static const std::vector<std::wstring> numbers = {L"0,25", L"1", L"-3", L"0", L"10.0"};
        filterCondition out;
        out.isEndCondition = true;
        out.operation = 3 + below(12);
        out.prop = {L"P" + std::to_wstring(below(4)), L"G"};
        out.field = below(2) == 0 ? L"text" : L"num";
        const auto& operands =
            out.field == L"num" && out.operation >= 5 && out.operation <= 10 ? numbers : texts;
        out.strParam = operands[static_cast<std::size_t>(below(static_cast<int>(operands.size())))];
        out.isAnd = below(3) == 0;
        return out;
    }

    void grow(conditionTree& tree, int levels) {
        for (int children = 1 + below(4); children > 0; --children) {
            if (levels == 0 || below(3) != 0)
                tree.addChild(leaf());
            else {
                filterCondition group;
                group.isAnd = below(3) == 0;
                grow(tree.addChild(group), levels - 1);
            }
        }
    }

private:
    std::mt19937 m_random;
};

using FilterDescribedTest = FilterTest;

TEST_F(FilterDescribedTest, yieldsWhatOneStatementForEachWellYields) {
    makeTemplate(NORLEX_dataTypeMarker, L"Points too", NORLEX_fieldTypeNumeric);
    makeTemplate(NORLEX_dataTypeColumn, L"Layers too", NORLEX_fieldTypeNumeric);
    makeTemplate(NORLEX_dataTypeLog, L"Samples", NORLEX_fieldTypeNumeric);
    constexpr const wchar_t* templates[] = {
        pointTemplate, layerTemplate, L"Points too", L"Layers too", L"Samples"};
    for (const bool isShared : {false, true}) {
        const unsigned int seed = isShared ? 41 : 42;
        randomData random(seed);
        transaction whole(db());
        for (const auto* table : {L"well_base", L"property", L"field", L"val"})
            run(std::wstring(L"DELETE FROM ") + table);
        for (int i = 0; i < 60; ++i) {
            addPoint(i + (isShared ? 1000 : 2000), -random.below(8));
            addLayer(i + (isShared ? 1000 : 3000), -20 - random.below(8), -10 - random.below(8));
        }
        for (int well = 1; well <= 5; ++well) {
            addWell(well, std::wstring(1, static_cast<wchar_t>(L'Z' - well)));
            for (int property = 0; property < 4; ++property) {
                const auto* const ofTemplate = templates[random.below(5)];
                const int first = isShared                                   ? 1000
                                  : std::wstring_view(ofTemplate)[0] == L'P' ? 2000
                                                                             : 3000;
                const auto [text, number] =
                    addProperty(well, L"P" + std::to_wstring(property), ofTemplate);
                for (int i = 0; i < 12; ++i)
                    addValue(random.below(2) == 0 ? text : number,
                             random.value(),
                             first + random.below(60));
            }
        }
        ASSERT_TRUE(whole.commit());
        std::size_t found = 0;
        for (int round = 0; round < 150; ++round) {
            if (round == 50) {
                ASSERT_TRUE(container->createSearchIndexes());
            } else if (round == 100) {
                ASSERT_TRUE(container->updateStatistics());
            }
            conditionTree tree;
            random.grow(tree, 3);
            const auto expected = described(db()).evaluate(tree, isShared);
            ASSERT_EQ(hits(tree), spelled(expected))
                << "seed " << seed << ", round " << round << ": "
                << ts::strconv::toUtf8(described::text(tree));
            found += expected.empty() ? 0U : 1U;
        }
        EXPECT_GT(found, 75U); // most trees find something
        ASSERT_TRUE(container->dropSearchIndexes());
    }
}

} // namespace
