#include "selection/condition_text.h"
#include "selection/text_match.h"
#include "tests/selection/filter_fixture.h"

#include <algorithm>
#include <set>

using conditionText::comparison;

namespace {

// What users and files may hold, and what databases give a meaning.
std::vector<std::wstring> hostileTexts() {
    std::wstring controls;
    for (wchar_t c = 1; c < L' '; ++c)
        controls += c;
    return {L"",
            L" ",
            L"0.25",
            L"0,25",
            L"-3",
            L"it's",
            L"''",
            L"'; DROP TABLE val;--",
            L"' OR '1'='1",
            L"x') OR (1=1",
            L"%",
            L"_",
            L"\\",
            L"50%",
            L"a_b",
            L"a%b\\",
            L"a-b",
            L"axb",
            L"\"quoted\"",
            L"песок",
            L"ПЕСОК",
            L"Песок мелкий",
            L"ё",
            L"\U0001F6E2",
            L"oil \U0001F6E2 well",
            L"?",
            L"$1 :name @x {fn now()}",
            L"/* note */ -- rest",
            controls,
            L"a\nb",
            std::wstring(100'000, L'x'),
            std::wstring(100'000, L'%'),
            std::wstring(9'999, L'ж') + L"_",
            std::wstring(10'001, L'ж')};
}

bool holds(const std::wstring& value, int operation, const std::wstring& operand) {
    switch (operation) {
    case NORLEX_filterExists:
        return !value.empty();
    case NORLEX_filterNotExists:
        return value.empty();
    case NORLEX_filterEmpty:
        return false; // NULL alone, and no value here is
    case NORLEX_filterNotEmpty:
        return true;
    case NORLEX_filterEqual:
        return value == operand;
    case NORLEX_filterNotEqual:
        return value != operand;
    case NORLEX_filterGreater:
        return value > operand;
    case NORLEX_filterGreaterEqual:
        return value >= operand;
    case NORLEX_filterLess:
        return value < operand;
    case NORLEX_filterLessEqual:
        return value <= operand;
    case NORLEX_filterContains:
        return value.find(operand) != std::wstring::npos;
    case NORLEX_filterNotContains:
        return value.find(operand) == std::wstring::npos;
    case NORLEX_filterBeginsWith:
        return value.starts_with(operand);
    default:
        return value.ends_with(operand);
    }
}

class ConditionTextTest : public FilterTest {
protected:
    // The texts as values of the field "text" of one property, each at a depth of its own, and a
    // NULL at depth 1.
    void store(const std::vector<std::wstring>& texts) {
        transaction whole(db());
        ASSERT_TRUE(whole.isOpen());
        addWell(1, L"W");
        const auto [text, number] = addProperty(1, L"P", pointTemplate);
        int record = 1;
        for (const auto& value : texts) {
            addPoint(record, -record);
            addValue(text, value, record++);
        }
        addPoint(record, 1);
        addValue(text, std::nullopt, record);
        ASSERT_TRUE(whole.commit());
    }
};

std::wstring brief(const std::wstring& text) {
    return text.substr(0, 20) + L" (" + std::to_wstring(text.size()) + L")";
}

TEST_F(ConditionTextTest, operandsAreTakenLiterally) {
    const auto texts = hostileTexts();
    store(texts);
    for (int operation = NORLEX_filterExists; operation <= NORLEX_filterEndsWith; ++operation)
        for (const auto& operand : texts) {
            std::vector<NORLEX_wellFilterDepths> wells;
            conditionTree tree;
            tree.addChild(condition(L"P", L"text", operation, operand));
            ASSERT_TRUE(filter(tree).getInfoForFilterConditions(wells)) << lastError();
            depthList expected;
            if (operation == NORLEX_filterNotExists || operation == NORLEX_filterEmpty)
                expected.emplace_back(1, 1);
            for (std::size_t i = 0; i < texts.size(); ++i)
                if (holds(texts[i], operation, operand))
                    expected.emplace_back(-double(i) - 1, -double(i) - 1);
            EXPECT_EQ(wells.empty() ? depthList() : wells.front().depths, expected)
                << operation << " " << ts::strconv::toUtf8(brief(operand));
        }
    EXPECT_EQ(cell(L"SELECT count(*) FROM val"), std::to_wstring(texts.size() + 1));
}

// As a query of a selection has it: column and value in small letters.
TEST_F(ConditionTextTest, caseOfLettersIsIgnoredOnRequest) {
    store({L"Песок 50%", L"ПЕСОК 50%", L"песок", L"Sand_1", L"SAND_1", L"sandx1", L""});
    const struct {
        NORLEX_filterOperation operation;
        const wchar_t* operand;
        const wchar_t* found; // keys, by hand
    } cases[] = {{NORLEX_filterEqual, L"ПесоК", L"3"},
                 {NORLEX_filterNotEqual, L"SAND_1", L"1,2,3,6,7"},
                 {NORLEX_filterContains, L"ЕСо", L"1,2,3"},
                 {NORLEX_filterNotContains, L"ЕСо", L"4,5,6,7"},
                 {NORLEX_filterBeginsWith, L"SANd", L"4,5,6"},
                 {NORLEX_filterEndsWith, L"ОК", L"3"},
                 {NORLEX_filterContains, L"К 50%", L"1,2"},
                 {NORLEX_filterNotContains, L"К 50%", L"3,4,5,6,7"},
                 {NORLEX_filterBeginsWith, L"SAND_", L"4,5"},
                 {NORLEX_filterEndsWith, L"D_1", L"4,5"},
                 {NORLEX_filterContains, L"", L"1,2,3,4,5,6,7"},
                 {NORLEX_filterGreater, L"1", L""}};
    for (const auto& c : cases) {
        const auto text = textMatch::condition(L"val.value ", c.operation, c.operand, true);
        EXPECT_EQ(text.empty() ? L""
                               : all(L"SELECT obj_id FROM val WHERE " + text + L" ORDER BY obj_id"),
                  c.found)
            << c.operation << " " << ts::strconv::toUtf8(c.operand);
    }
}

// Numbers in either spelling; what is no number counts as its leading one, or 0.
TEST_F(ConditionTextTest, numericFieldsCompareNumbers) {
    addWell(1, L"W");
    const auto [text, number] = addProperty(1, L"P", pointTemplate);
    const wchar_t* const values[] = {L"0.25", L"0,25", L"10", L"9", L"-1e1", L"sand", L"", L"2 m"};
    for (int i = 1; i <= 8; ++i) {
        addPoint(i, -i);
        addValue(number, values[i - 1], i);
    }
    addPoint(9, -9);
    addValue(number, std::nullopt, 9);
    const struct {
        int operation;
        const wchar_t* operand;
        std::set<int> found;
    } cases[] = {{NORLEX_filterEqual, L"0,25", {1, 2}},
                 {NORLEX_filterEqual, L" +0.250 ", {1, 2}},
                 {NORLEX_filterNotEqual, L"0.25", {3, 4, 5, 6, 7, 8}},
                 {NORLEX_filterGreater, L"9", {3}},
                 {NORLEX_filterGreaterEqual, L"9", {3, 4}},
                 {NORLEX_filterLess, L"0", {5}},
                 {NORLEX_filterLessEqual, L"-10", {5}},
                 {NORLEX_filterEqual, L"0", {6, 7}},
                 {NORLEX_filterEqual, L"2", {8}},
                 {NORLEX_filterGreater, L"-1e300", {1, 2, 3, 4, 5, 6, 7, 8}},
                 {NORLEX_filterEmpty, L"", {9}},
                 {NORLEX_filterNotEmpty, L"", {1, 2, 3, 4, 5, 6, 7, 8}},
                 {NORLEX_filterExists, L"", {1, 2, 3, 4, 5, 6, 8}},
                 {NORLEX_filterNotExists, L"", {7, 9}},
                 {NORLEX_filterContains, L",", {2}}, // as it is written
                 {NORLEX_filterBeginsWith, L"-", {5}}};
    for (const auto& c : cases) {
        std::string expected;
        for (const int depth : c.found)
            expected += (expected.empty() ? "1: -" : "; -") + std::to_string(depth) + " -"
                        + std::to_string(depth);
        EXPECT_EQ(hits(condition(L"P", L"num", c.operation, c.operand)), expected + "\n")
            << c.operation << " " << ts::strconv::toUtf8(c.operand);
    }
    for (int operation = NORLEX_filterEqual; operation <= NORLEX_filterLessEqual; ++operation)
        for (const auto* operand : {L"",
                                    L"sand",
                                    L"1; DROP TABLE val",
                                    L"1 OR 1=1",
                                    L"nan",
                                    L"-inf",
                                    L"1e999",
                                    L"0x10"}) {
            ASSERT_EQ(hits(condition(L"P", L"num", operation, operand)), "refused") << operation;
            EXPECT_NE(NORLEX_lastError().find(L"\"" + std::wstring(operand) + L"\""),
                      std::wstring::npos)
                << lastError();
        }
}

// Where wells have a field of both kinds, an operand that is a number compares numbers.
TEST_F(ConditionTextTest, templatesMayDisagreeOnTheKindOfAField) {
    makeTemplate(NORLEX_dataTypeMarker, L"Words", NORLEX_fieldTypeString);
    const wchar_t* const templates[] = {pointTemplate, L"Words"};
    for (int well = 1; well <= 2; ++well) {
        addWell(well, L"W" + std::to_wstring(well));
        const auto fields = addProperty(well, L"P", templates[well - 1]);
        addPoint(well, -well);
        addValue(fields.second, well == 1 ? L"10" : L"9.5", well);
    }
    EXPECT_EQ(hits(condition(L"P", L"num", NORLEX_filterGreater, L"9")), "1: -1 -1\n2: -2 -2\n");
    EXPECT_EQ(hits(condition(L"P", L"num", NORLEX_filterGreater, L"9,7")), "1: -1 -1\n");
    EXPECT_EQ(hits(condition(L"P", L"num", NORLEX_filterLess, L"sand")), "1: -1 -1\n2: -2 -2\n");
}

TEST(ConditionSpellingTest, conditionsReadAsOneParenthesisedText) {
    const std::wstring field =
        L"(property.name = 'P' AND property.p_group = 'G' AND field.name = 'f' AND ";
    const filterCondition base{NORLEX_filterEqual, {L"P", L"G"}, L"f", L"0,5", true, true};
    const struct {
        int operation;
        const wchar_t* number;
        const wchar_t* text;
    } cases[] = {
        {3, L"val.value IS NULL", L"val.value IS NULL"},
        {4, L"val.value IS NOT NULL", L"val.value IS NOT NULL"},
        {5, L"CAST( replace(val.value ,',','.') as REAL)  = 0.5", L"val.value = '0,5'"},
        {6, L"CAST( replace(val.value ,',','.') as REAL)  <> 0.5", L"val.value <> '0,5'"},
        {7, L"CAST( replace(val.value ,',','.') as REAL) > 0.5", L"val.value > '0,5'"},
        {8, L"CAST( replace(val.value ,',','.') as REAL)  >= 0.5", L"val.value >= '0,5'"},
        {9, L"CAST( replace(val.value ,',','.') as REAL)  < 0.5", L"val.value < '0,5'"},
        {10, L"CAST( replace(val.value ,',','.') as REAL)  <= 0.5", L"val.value <= '0,5'"},
        {11, L"val.value LIKE '%0,5%'", L"val.value LIKE '%0,5%'"},
        {12, L"val.value NOT LIKE '%0,5%'", L"val.value NOT LIKE '%0,5%'"},
        {13, L"val.value LIKE '0,5%'", L"val.value LIKE '0,5%'"},
        {14, L"val.value LIKE '%0,5'", L"val.value LIKE '%0,5'"},
    };
    for (const auto& c : cases) {
        filterCondition one = base;
        one.operation = c.operation;
        EXPECT_EQ(conditionText::getCondString(one, comparison::number), field + c.number + L")");
        EXPECT_EQ(conditionText::getCondString(one, comparison::text), field + c.text + L")");
    }
    for (const int operation : {-1, 0, 15}) {
        filterCondition one = base;
        one.operation = operation;
        EXPECT_FALSE(conditionText::getCondString(one, comparison::text)) << operation;
    }
}

// A letter is a condition, "&" and "|" join, "()" is a group without conditions.
TEST(ConditionSpellingTest, groupsGetParenthesesWherePrecedenceAsksForThem) {
    const struct {
        const wchar_t* tree;
        const wchar_t* text;
    } cases[] = {
        {L"a", L"(a)"},
        {L"a|b&c|d", L"(a OR b AND c OR d)"},
        {L"a&(b|c)&d", L"(a AND (b OR c) AND d)"},
        {L"(a|b)&(c|d&e)", L"((a OR b) AND (c OR d AND e))"},
        {L"(((a)))|((b))", L"(a OR b)"},
        {L"a|(b|(c|d))", L"(a OR b OR c OR d)"},
        {L"a|(b&c)|d", L"(a OR b AND c OR d)"},
        {L"(a&b)&(c&d)", L"(a AND b AND c AND d)"},
        {L"a&()|b", L"(a AND b)"}, // the word behind a group goes with it
        {L"a|()&b", L"(a OR b)"},
        {L"()|(()&())|a", L"(a)"},
        {L"", nullptr},
        {L"(()&())", nullptr},
    };
    for (const auto& c : cases) {
        conditionTree root;
        conditionTree* at = &root;
        conditionTree* last = nullptr;
        for (const wchar_t sign : std::wstring_view(c.tree)) {
            if (sign == L'&' || sign == L'|')
                last->value.isAnd = sign == L'&';
            else if (sign == L'(')
                at = &at->addChild({});
            else if (sign == L')') {
                last = at;
                at = at->parent();
            } else
                last = &at->addChild(
                    {NORLEX_filterEmpty, {std::wstring(1, sign), L""}, L"", L"", true, true});
        }
        auto text = conditionText::getTreeRequestAsSQLWstring(
            root, [](const auto&) { return comparison::text; });
        // "(property.name = 'a' … IS NULL)" becomes "a".
        for (std::size_t from = 0; text && (from = text->find(L"(property", from)) != text->npos;)
            text->replace(from, text->find(L"NULL)") + 5 - from, 1, (*text)[from + 18]);
        EXPECT_EQ(text.value_or(L"refused"), c.text == nullptr ? L"refused" : c.text);
    }
}

} // namespace
