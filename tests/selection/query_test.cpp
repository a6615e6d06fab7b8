#include "platform/sql_text.h"
#include "tests/selection/query_cases.h"
#include "tests/selection/selection_fixture.h"

#include <random>

namespace {

using QueryTest = SelectionTest;

std::string told(const NORLEX_query& query) {
    return ts::strconv::toUtf8(query.getName() + L" [" + std::to_wstring(query.operationType) + L"/"
                               + std::to_wstring(query.operation) + L"]");
}

TEST_F(QueryTest, findsItsWells) {
    const queryCases cases;
    for (const auto& one : cases.all())
        EXPECT_EQ(found(one.query), one.wells) << told(one.query);
}

TEST_F(QueryTest, unknownNumbersFindNothing) {
    EXPECT_EQ(found(make(static_cast<NORLEX_filterType>(0), 1)), L"");
    EXPECT_EQ(found(make(static_cast<NORLEX_filterType>(10), 1)), L"");
    NORLEX_query query = make(NORLEX_filterTypeValue, 15);
    query.prop = {L"Core", L"Lab"};
    query.fldName = L"name";
    EXPECT_EQ(found(query), L"");
}

// A set is a text of letters here.
std::wstring common(const std::wstring& a, const std::wstring& b) {
    std::wstring out;
    std::ranges::set_intersection(a, b, std::back_inserter(out));
    return out;
}
std::wstring either(const std::wstring& a, const std::wstring& b) {
    std::wstring out;
    std::ranges::set_union(a, b, std::back_inserter(out));
    return out;
}
std::wstring less(const std::wstring& a, const std::wstring& b) {
    std::wstring out;
    std::ranges::set_difference(a, b, std::back_inserter(out));
    return out;
}

TEST_F(QueryTest, chainsAreFoldedFromTheLeftThenInvertedThenMendedByHand) {
    const queryCases cases;
    std::mt19937 random(20261123);
    const auto upTo = [&](std::size_t n) { return random() % n; };
    const auto letters = [&] {
        std::wstring out;
        for (const wchar_t c : std::wstring(L"abcdefgh"))
            if (upTo(4) == 0)
                out += c;
        return out;
    };
    for (int round = 0; round < 300; ++round) {
        NORLEX_selection chain = selection();
        chain.addGeomWells(wells(L"ac"));
        std::wstring expected;
        std::string text;
        const std::size_t length = upTo(6);
        for (std::size_t i = 0; i < length; ++i) {
            queryCase one = cases.all()[upTo(cases.all().size())];
            one.query.isLinkAnd = upTo(2) == 0;
            chain.addFilter(one.query);
            expected = i == 0                ? one.wells
                       : one.query.isLinkAnd ? common(expected, one.wells)
                                             : either(expected, one.wells);
            text += (one.query.isLinkAnd ? "and " : "or ") + told(one.query) + "\n";
        }
        const bool invert = upTo(2) == 0;
        chain.setInvertResult(invert);
        if (length == 0)
            expected = L"abcdefgh";
        else if (invert)
            expected = less(L"abcdefgh", expected);
        const bool custom = upTo(5) == 0;
        chain.setCustom(custom);
        if (custom)
            expected.clear();
        const std::wstring added = letters();
        const std::wstring removed = less(letters(), added);
        chain.addWells(wells(added));
        for (const auto& one : wells(removed))
            chain.delWell(one);
        EXPECT_EQ(sorted(names(chain)), less(either(expected, added), removed))
            << "round " << round << "\n"
            << text << (invert ? "inverted " : "") << (custom ? "custom" : "");
        EXPECT_EQ(chain.getWellCount(), names(chain).size());
    }
}

// Each as value, key, field, property, group, template and time, by every operation: nothing but
// the rows that hold the text itself is found, and the tables stand as before.
TEST_F(QueryTest, operandsStayOperands) {
    const std::wstring longText(100000, L'я');
    const std::wstring hostile[] = {L"'",
                                    L"''",
                                    L"' OR '1'='1",
                                    L"'; DELETE FROM well_base; --",
                                    L"%",
                                    L"_",
                                    L"100%_",
                                    L"\\",
                                    L"a\\'b",
                                    L"x') OR (1=1",
                                    L"/*",
                                    L"--",
                                    L"\"",
                                    L"$1 ? :a @b",
                                    L"ЁЖ",
                                    L"ёж",
                                    L"\U0001F600",
                                    L"a\nb",
                                    longText};
    ASSERT_TRUE(db()->exec(L"DELETE FROM val WHERE f_id = 1022"));
    for (const auto& text : hostile) {
        ASSERT_TRUE(db()->exec(sqlText::sql(
            L"UPDATE val SET value = ", sqlText::quoted(text), L" WHERE f_id = 1012")));
        ASSERT_TRUE(db()->exec(sqlText::sql(L"UPDATE meta SET value = ",
                                            sqlText::quoted(text),
                                            L" WHERE obj_id = 1 AND key = 'OPERATOR'")));
        ASSERT_TRUE(db()->exec(sqlText::sql(
            L"UPDATE well_info_values SET value = ", sqlText::quoted(text), L" WHERE w_id = 1")));
        const std::string where = ts::strconv::toUtf8(text.substr(0, 40));
        for (int operation = 1; operation <= 14; ++operation) {
            const bool finds =
                operation == 5 || operation == 11 || operation == 13 || operation == 14;
            NORLEX_query query = make(NORLEX_filterTypeValue, operation);
            query.prop = {L"Core", L"Lab"};
            query.fldName = L"name";
            query.value = text;
            const std::wstring byValue = found(query);
            query.caseSensetive = false;
            const std::wstring byLetters = found(query);
            query.operationType = NORLEX_filterTypeMeta;
            query.fldName = L"OPERATOR";
            const std::wstring byMeta = found(query);
            query.operationType = NORLEX_filterTypePassport;
            query.fldName = L"Category";
            const std::wstring byPassport = found(query);
            if (finds) {
                EXPECT_EQ(byValue, L"a") << where << operation;
                EXPECT_EQ(byLetters, L"a") << where << operation;
                EXPECT_EQ(byMeta, L"a") << where << operation;
                EXPECT_EQ(byPassport, L"a") << where << operation;
            } else if (operation == 12 || operation == 6) {
                EXPECT_EQ(byValue.find(L'a'), std::wstring::npos) << where << operation;
                EXPECT_EQ(byMeta.find(L'a'), std::wstring::npos) << where << operation;
                EXPECT_EQ(byPassport.find(L'a'), std::wstring::npos) << where << operation;
            } else if (operation >= 7 && operation <= 10) {
                EXPECT_EQ(byValue + byMeta + byPassport, L"") << where << operation;
            }
        }
        for (const auto type : {NORLEX_filterTypeProperty,
                                NORLEX_filterTypeValue,
                                NORLEX_filterTypeMeta,
                                NORLEX_filterTypePassport,
                                NORLEX_filterTypeWindow,
                                NORLEX_filterTypeTemplate,
                                NORLEX_filterTypeTime}) {
            NORLEX_query query = make(type, NORLEX_filterExists);
            query.prop = {text, text};
            query.templateName = query.fldName = query.value = text;
            EXPECT_EQ(found(query), L"") << where << type;
        }
    }
    EXPECT_EQ(cell(L"SELECT count(*) FROM well_base"), L"8");
    EXPECT_EQ(cell(L"SELECT count(*) FROM val"), L"10");
}

} // namespace
