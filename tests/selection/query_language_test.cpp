#include "NORLEX_lastError.h"
#include "NORLEX_queryText.h"
#include "tests/selection/query_cases.h"
#include "tests/selection/selection_fixture.h"

namespace {

using QueryLanguageTest = SelectionTest;

TEST_F(QueryLanguageTest, findsTheWellsThatTheTextTells) {
    struct textCase {
        const wchar_t* text;
        const wchar_t* wells;
    };
    const textCase cases[] = {
        {L"type = log", L"e"},
        {L"type = log and group = \"LAS\" and not exists survey", L"e"},
        {L"TYPE != marker and Property = Core", L"abcf"},
        {L"type = interval", L"abcf"},
        {L"property != Core", L"degh"},
        {L"exists property Core and not exists template Core", L""},
        {L"group != LAS", L"abcdfgh"},
        {L"template = \"Core\" and exists coordinates", L"a"},
        {L"exists altitude or exists survey and exists elements", L"g"}, // read from the left
        {L"exists elements and exists survey or exists altitude", L"abg"},
        {L"exists passport", L"abc"},
        {L"exists passport and exists velocity", L"c"},
        {L"exists passport Category or exists drilling", L"abc"},
        {L"passport Category contains plor", L"a"},
        {L"passport Category > 10", L"b"},
        {L"meta OPERATOR = \"Север\"", L"f"},
        {L"meta OPERATOR not contains \"вер 2\"", L"fg"},
        {L"not exists meta OPERATOR", L"bcdeh"},
        {L"meta OPERATOR is empty", L"g"},
        {L"meta OPERATOR is  not\tempty", L"af"},
        {L"Lab/Core.por>0,1", L"a"},
        {L"Lab/Core.por >= 0.1 and Lab / Core . por < 0.25", L"b"},
        {L"Lab/Core.name contains \"ПЕСОК\" ignoring case", L"ab"},
        {L"Lab/Core.name begins with песок", L"b"},
        {L"Lab/Core.\"name\" ends with мелкий", L"b"},
        {L"exists Lab/Core.lit", L"ab"},
        {L"Lab/Core.lit = \"Clay 50%\"", L"b"},
        {L"Tops.name = Кровля", L"d"},
        {L"exists Lab/Core from -60 to -50", L"b"},
        {L"not exists Lab/Core from -60 to -50", L"acdefgh"},
        {L"exists GK from 0 to 100", L""}, // the log is in a group
        {L"exists LAS/GK from 0 to 100", L"e"},
        {L"picked", L"ac"},
        {L"not picked and exists data", L"bdefg"},
        {L"created = 2020-01-01", L"a"},
        {L"changed > \"2020-01-01 00:00:00\"", L"b"},
        {L"changed of Lab/Core = 2021-05-05", L"a"},
        {L"changed of property < 2021-05-05", L"bcdefg"},
        {L"created > today", L""},
        {L"created <= today", L"abcdefgh"},
    };
    for (const auto& one : cases) {
        const std::string where = ts::strconv::toUtf8(one.text);
        std::vector<NORLEX_query> queries;
        ASSERT_TRUE(NORLEX_parseSelectionText(one.text, queries)) << where << ": " << lastError();
        NORLEX_selection some = selection();
        some.addGeomWells(wells(L"ac"));
        for (const auto& query : queries)
            some.addFilter(query);
        EXPECT_EQ(sorted(names(some)), one.wells) << where;

        std::vector<NORLEX_query> again;
        ASSERT_TRUE(NORLEX_parseSelectionText(NORLEX_selectionText(queries), again)) << where;
        EXPECT_EQ(again, queries) << ts::strconv::toUtf8(NORLEX_selectionText(queries));
    }
}

TEST_F(QueryLanguageTest, writesEveryQueryThatHasAText) {
    const queryCases cases;
    int written = 0;
    for (auto one : cases.all()) {
        if (one.query.prop.group == L"of any group")
            one.query.prop.group.clear();
        const std::wstring text = NORLEX_selectionText({one.query});
        if (text.empty())
            continue;
        ++written;
        std::vector<NORLEX_query> read;
        ASSERT_TRUE(NORLEX_parseSelectionText(text, read)) << lastError();
        EXPECT_EQ(found(read.front()), one.wells) << ts::strconv::toUtf8(text);
    }
    // all but a property by number 12, one without a name, a kind that is none, a time by number 2
    EXPECT_EQ(static_cast<std::size_t>(written), cases.all().size() - 4);
}

TEST(QueryTextTest, quotesWhatIsNoBareWord) {
    for (const auto* name : {L"and",
                             L"Survey",
                             L"data",
                             L"a b",
                             L"a\"b",
                             L"a/b.c",
                             L"",
                             L"(",
                             L"К1",
                             L"x-1",
                             L"'",
                             L"created"}) {
        NORLEX_query query;
        query.operationType = NORLEX_filterTypeValue;
        query.operation = NORLEX_filterEqual;
        query.prop = {name, name};
        query.fldName = *name == 0 ? L"f" : name;
        query.value = name;
        const std::wstring text = NORLEX_selectionText({query});
        std::vector<NORLEX_query> read;
        ASSERT_TRUE(NORLEX_parseSelectionText(text, read)) << ts::strconv::toUtf8(text);
        EXPECT_EQ(read, std::vector{query}) << ts::strconv::toUtf8(text);
    }
}

TEST(QueryTextTest, saysWhereItWentWrong) {
    struct wrong {
        bool isFilter;
        const wchar_t* text;
        int column;
        const wchar_t* message;
    };
    const wrong cases[] = {
        {false, L"", 1, L"a property is expected"},
        {false, L"type", 5, L"= or != is expected"},
        {false, L"type = las", 8, L"marker, interval"},
        {false, L"type = log and", 15, L"a property is expected"},
        {false, L"type = log exists survey", 12, L"\"and\" or \"or\""},
        {false, L"(type = log)", 2, L"no parentheses"},
        {false, L"not type = log", 5, L"\"not\" stands before"},
        {false, L"group = \"LAS", 9, L"not closed"},
        {false, L"Lab/Core.por > ", 16, L"a value"},
        {false, L"Lab/Core.por ~ 5", 14, L"a comparison"},
        {false, L"Lab/Core = 5", 10, L"the field of a property"},
        {false, L"Lab/.por = 5", 5, L"the name of a property"},
        {false, L"exists Lab/Core", 16, L"\"from\""},
        {false, L"exists Lab/Core from deep to 5", 22, L"an absolute depth"},
        {false, L"exists Lab/Core from 1 5", 24, L"\"to\""},
        {false, L"exists Lab/Core from inf to 5", 22, L"an absolute depth"},
        {false, L"created contains 5", 9, L"a time is compared"},
        {false, L"A.b = c ignoring me", 18, L"\"case\""},
        {true, L"", 1, L"a property"},
        {true, L"(A.b = 1", 9, L"not closed"},
        {true, L"A.b = 1)", 9, L"not opened"},
        {true, L"A.b = 1 A.b = 2", 9, L"\"and\" or \"or\""},
        {true, L"A.b = 1 and ()", 14, L"a property"},
        {true, L"not A.b = 1", 5, L"\"exists\" is expected"},
        {true, L"A = 1", 3, L"the field"},
        {true, L"A.\"\" = 1", 6, L"an empty name"},
        {false, L"A.\"\" = 1", 6, L"an empty name"},
    };
    for (const auto& one : cases) {
        const std::string where = ts::strconv::toUtf8(one.text);
        std::vector<NORLEX_query> queries(1);
        TreeNode<filterCondition> tree;
        tree.addChild({});
        EXPECT_FALSE(one.isFilter ? NORLEX_parseFilterText(one.text, tree)
                                  : NORLEX_parseSelectionText(one.text, queries))
            << where;
        const std::wstring& said = NORLEX_lastError();
        EXPECT_NE(said.find(L"column " + std::to_wstring(one.column) + L":"), std::wstring::npos)
            << where << ": " << ts::strconv::toUtf8(said);
        EXPECT_NE(said.find(one.message), std::wstring::npos)
            << where << ": " << ts::strconv::toUtf8(said);
        EXPECT_EQ(queries.size() + tree.children().size(), 2U) << where;
    }
}

TEST(QueryTextTest, filtersKeepTheirTree) {
    const wchar_t* const texts[] = {
        L"Core/Plug.por > 0.2",
        L"Plug.por > 0,2 and Plug.lit = sand or Plug.lit = silt",
        L"(A.b = 1 or A.b = 2) and (A.c is empty or (A.d not contains \"x y\" and exists A.e))",
        L"((A.b begins with x)) or not exists A.c and A.b ends with \")\"",
    };
    for (const auto* text : texts) {
        TreeNode<filterCondition> tree;
        ASSERT_TRUE(NORLEX_parseFilterText(text, tree)) << ts::strconv::toUtf8(NORLEX_lastError());
        EXPECT_EQ(NORLEX_filterText(tree), text);
    }
    TreeNode<filterCondition> tree;
    ASSERT_TRUE(NORLEX_parseFilterText(texts[1], tree));
    ASSERT_EQ(tree.children().size(), 3U);
    EXPECT_TRUE(tree.children()[0]->value.isAnd);
    EXPECT_FALSE(tree.children()[1]->value.isAnd);
    EXPECT_EQ(tree.children()[0]->value.strParam, L"0,2");
    EXPECT_EQ(tree.children()[0]->parent(), &tree);

    const std::wstring deep = std::wstring(10000, L'(') + L"A.b = 1" + std::wstring(10000, L')');
    ASSERT_TRUE(NORLEX_parseFilterText(deep, tree));
    EXPECT_EQ(NORLEX_filterText(tree), deep);
}

} // namespace
