#include "NORLEX_tableImport.h"

#include "NORLEX_host.h"
#include "globalEventObserver.h"
#include "tests/exchange/table_fixture.h"
#include "tests/support/content_snapshot.h"
#include "tests/support/every_failure.h"

#include <functional>

using optionsOf = std::function<void(NORLEX_tableImportOptions&)>;

// Absolute depth is altitude minus depth: 100 - 10 in A, 50 - 10 in B; the other A stands at 0.
TEST_F(TableTest, rowsGoToTheirWellsInAnyOrder) {
    const auto result = load("A missing;;;\n", points());
    EXPECT_FALSE(result.ok);
    NORLEX_tableImportOptions options = points();
    options.rows.hasHeader = true;
    options.wellColumn = {0, L"borehole"}; // no case of letters
    options.depth = {0, L"MD"};
    options.fields.front().column = {0, L"Name"};
    const auto loaded = load("Borehole;MD;Name;Text\n"
                             "O/F/A;10;one;\"x;y\"\n"
                             "B;10,5;two\n"
                             "O/F/A;20;three;z;more\n"
                             " O/G\\/H/A ;5;four;\n",
                             options);
    ASSERT_TRUE(loaded.ok) << lastError();
    EXPECT_EQ(records(a, tops), L"10/90 one x;y; 20/80 three z; ");
    EXPECT_EQ(records(b, tops), L"10.5/39.5 two ; ");
    EXPECT_EQ(records(otherA, tops), L"5/-5 four ; ");
    EXPECT_EQ(loaded.report.rows, 4U);
    EXPECT_EQ(loaded.report.taken, 4U);
    EXPECT_EQ(loaded.wells, 3U);
    EXPECT_EQ(loaded.created, 3U);
}

TEST_F(TableTest, depthsOfEitherSystemMakePointsAndIntervals) {
    struct {
        const char* where;
        const char* text;
        const wchar_t* templateName;
        optionsOf columns;
        const wchar_t* expected; // in the well A
    } const cases[] = {
        {"absolute points",
         "90;n\n",
         L"Маркер",
         [](auto& o) { o.depthAbs = column(1); },
         L"10/90 n ; "},
        {"both systems, one of them empty here and there",
         "10;90;n\n;80;m\n30;;k\n",
         L"Маркер",
         [](auto& o) {
             o.depth = column(1);
             o.depthAbs = column(2);
             o.fields.front().column = column(3);
         },
         L"10/90 n ; 20/80 m ; 30/70 k ; "},
        {"intervals, upside down",
         "30;20;n\n",
         L"Интервал",
         [](auto& o) {
             o.top = column(1);
             o.bot = column(2);
             o.fields.front().column = column(3);
         },
         L"20-30/80-70 n ; "},
        {"absolute intervals",
         "80;70;n\n",
         L"Колонка",
         [](auto& o) {
             o.topAbs = column(1);
             o.botAbs = column(2);
             o.fields.front().column = column(3);
         },
         L"20-30/80-70 n ; "},
    };
    for (const auto& c : cases) {
        NORLEX_tableImportOptions options = points();
        options.templateName = c.templateName;
        options.property.name = ts::strconv::fromUtf8(c.where);
        options.wellColumn = {};
        options.well = a;
        options.depth = {};
        options.fields = {{L"Название", column(2), {}}};
        c.columns(options);
        EXPECT_TRUE(load(c.text, options).ok) << c.where << ": " << lastError();
        EXPECT_EQ(records(a, options.property), c.expected) << c.where;
    }
}

TEST_F(TableTest, wellsMayBeTheValuesOfAnAttribute) {
    ASSERT_TRUE(NORLEX_well(db(), a).setAttribute(L"SitID", L"102496"));
    ASSERT_TRUE(NORLEX_well(db(), b).setAttribute(L"SitID", L"twin"));
    ASSERT_TRUE(NORLEX_well(db(), otherA).setAttribute(L"SitID", L"twin"));
    auto options = points();
    options.wellAttribute = L"SitID";
    options.rows.keepGoodRows = true;
    const auto loaded = load("102496;10;n\ntwin;10;n\nA;10;n\n", options);
    ASSERT_TRUE(loaded.ok) << lastError();
    EXPECT_EQ(records(a, tops), L"10/90 n ; ");
    ASSERT_EQ(loaded.report.errors.size(), 2U);
    EXPECT_EQ(loaded.report.errors[0].reason, L"2 wells are \"twin\"");
    EXPECT_EQ(loaded.report.errors[1].reason, L"there is no well \"A\"");
    options.wellAttribute = L"UWI";
    EXPECT_EQ(load("102496;10;n\n", options).error, L"no well has the attribute \"UWI\"");
}

TEST_F(TableTest, codesBecomeValues) {
    auto options = points();
    options.fields[0].lookup =
        folder.write(L"codes.txt", "Code\tName\n1000\tтоп\n2000\t\"a\tb\"\n");
    options.fields[1].column = column(3); // the same column, as it stands
    ASSERT_TRUE(load("B;10;1000\nB;20; 2000 \nB;30;\n", options).ok) << lastError();
    EXPECT_EQ(records(b, tops), L"10/40 топ 1000; 20/30 a\tb 2000; 30/20  ; ");

    const auto unknown = load("B;40;1000\nB;50;7\n", options);
    EXPECT_FALSE(unknown.ok);
    ASSERT_EQ(unknown.report.errors.size(), 1U);
    EXPECT_EQ(unknown.report.errors[0].reason,
              L"column 3: the code \"7\" is not in the table of codes");
    EXPECT_EQ(cell(L"SELECT count(*) FROM point_data"), L"3");

    for (const auto& [text, reason] : {std::pair{"1;a\n1;b\n", L"gives the code"},
                                       {"1\n", L"has one cell"},
                                       {"1;\"a\n", L"not closed"},
                                       {"", L"is empty"}}) {
        options.fields[0].lookup = folder.write(L"codes.txt", text);
        EXPECT_NE(load("B;40;1\n", options).error.find(reason), std::wstring::npos) << text;
    }
}

TEST_F(TableTest, badRowsAreNamedAndLeaveNothing) {
    const std::string table = "B;10;good\n"
                              "\"B\nx\";20\n" // two lines: no such well
                              "B;deep;n\n"
                              "B;;n\n"
                              "A;10;n\n"
                              ";10;n\n"
                              "B;3000000;n\n"
                              "B;30;good too\n";
    const auto before = contentSnapshot::take(*container);
    const auto refused = load(table, points());
    EXPECT_FALSE(refused.ok);
    EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
    EXPECT_EQ(refused.report.rows, 8U);
    EXPECT_EQ(refused.report.taken, 0U);
    EXPECT_EQ(refused.report.badCount, 6U);
    EXPECT_NE(refused.error.find(L"6 of 8 rows"), std::wstring::npos) << lastError();
    const std::tuple<unsigned, unsigned, const wchar_t*> expected[] = {
        {2, 2, L"there is no well \"B\nx\""},
        {3, 4, L"\"deep\" is no number"},
        {4, 5, L"unknown in both depth systems"},
        {5, 6, L"2 wells are \"A\""},
        {6, 7, L"the row names no well"},
        {7, 8, L"is no depth"},
    };
    ASSERT_EQ(refused.report.errors.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const auto& [row, line, reason] = expected[i];
        const auto& error = refused.report.errors[i];
        EXPECT_EQ(error.row, row);
        EXPECT_EQ(error.line, line);
        EXPECT_NE(error.reason.find(reason), std::wstring::npos)
            << ts::strconv::toUtf8(error.reason);
    }

    auto options = points();
    options.rows.keepGoodRows = true;
    options.rows.skipWithoutDepth = true;
    const auto kept = load(table, options);
    EXPECT_TRUE(kept.ok) << lastError();
    EXPECT_EQ(kept.report.taken, 2U);
    EXPECT_EQ(kept.report.badCount, 5U);
    EXPECT_EQ(kept.report.passedOver, 1U);
    EXPECT_EQ(records(b, tops), L"10/40 good ; 30/20 good too ; ");
}

// What lies behind a row that cannot be read is not known.
TEST_F(TableTest, aBrokenTableIsRefusedEvenInPart) {
    auto options = points();
    options.rows.keepGoodRows = true;
    EXPECT_FALSE(load("B;10;n\nB;20;\"open\n", options).ok);
    EXPECT_EQ(records(b, tops), L"none");
    EXPECT_FALSE(load("", options).ok);
    EXPECT_FALSE(load("nobody;1;n\n", options).ok);
}

TEST_F(TableTest, existingPropertiesAreExtendedReplacedOrRefused) {
    ASSERT_TRUE(load("B;10;old\n", points()).ok) << lastError();
    NORLEX_well well(db(), b);
    ASSERT_TRUE(well.openProperty(tops)->createField(L"Extra", NORLEX_fieldTypeNumeric, false));
    auto options = points();
    options.fields[1] = {L"Extra", column(4), {}};
    const auto appended = load("B;20;new;1,5\n", options);
    ASSERT_TRUE(appended.ok) << lastError(); // a field that only the property has
    EXPECT_EQ(appended.created, 0U);
    EXPECT_EQ(records(b, tops), L"10/40 old  ; 20/30 new  1.5; ");

    options.onExisting = NORLEX_onExistingData::fail;
    options.fields.pop_back();
    options.rows.keepGoodRows = true;
    const auto partly = load("B;30;n\nO/F/A;30;n\n", options);
    EXPECT_TRUE(partly.ok) << lastError();
    EXPECT_EQ(partly.report.badCount, 1U);
    EXPECT_EQ(records(a, tops), L"30/70 n ; ");

    options.onExisting = NORLEX_onExistingData::replace;
    EXPECT_TRUE(load("B;oops;n\nO/F/A;40;m\n", options).ok) << lastError();
    EXPECT_EQ(records(a, tops), L"40/60 m ; ");
    EXPECT_EQ(records(b, tops), L"10/40 old  ; 20/30 new  1.5; "); // no good row for it

    options = points();
    options.templateName = L"Интервал";
    options.depth = {};
    options.top = options.bot = column(2);
    const auto other = load("B;20;n\n", options);
    EXPECT_NE(other.error.find(L"of another kind"), std::wstring::npos) << lastError();
}

TEST_F(TableTest, columnsThatDoNotSuitAreRefusedBeforeAnyRow) {
    struct {
        const char* where;
        optionsOf change;
        const wchar_t* reason;
    } const cases[] = {
        {"no well", [](auto& o) { o.wellColumn = {}; }, L"needs a well"},
        {"no such well",
         [](auto& o) {
             o.well = {L"", L"", L"B", 0};
         },
         L"there is no well B"},
        {"no template", [](auto& o) { o.templateName = L"T"; }, L"no property template"},
        {"a log", [](auto& o) { o.templateName = L"Каротаж"; }, L"neither of points nor"},
        {"no fields at all",
         [](auto& o) {
             o.templateName = L"Растр";
             o.fields = {};
             o.depth = {};
             o.top = o.bot = column(2);
         },
         L"has no field; one is expected"},
        {"no depth", [](auto& o) { o.depth = {}; }, L"no column holds the depth"},
        {"no such field", [](auto& o) { o.fields[0].name = L"X"; }, L"has no field X"},
        {"no such column", [](auto& o) { o.depth = column(4); }, L"whose header has 3"},
        {"a negative column", [](auto& o) { o.depth = column(-1); }, L"counted from 1"},
        {"no such header",
         [](auto& o) {
             o.depth = {0, L"MD"};
         },
         L"there are: W, D, D"},
        {"a header twice",
         [](auto& o) {
             o.depth = {0, L"d"};
         },
         L"2 columns"},
        {"no header at all",
         [](auto& o) {
             o.rows.hasHeader = false;
             o.depth = {0, L"D"};
         },
         L"has no header"},
        {"no name", [](auto& o) { o.property.name = L"'"; }, L"name is empty"},
    };
    for (const auto& c : cases) {
        auto options = points();
        options.rows.hasHeader = true;
        options.fields.pop_back();
        c.change(options);
        const auto result = load("W;D;D\nB;10;n\n", options);
        EXPECT_NE(result.error.find(c.reason), std::wstring::npos)
            << c.where << ": " << ts::strconv::toUtf8(result.error);
        EXPECT_EQ(cell(L"SELECT count(*) FROM property"), L"0") << c.where;
    }
}

TEST_F(TableTest, changesAreStampedJournalledAndAnnounced) {
    ASSERT_TRUE(load("B;10;n\n", points()).ok);
    ASSERT_TRUE(db()->exec(L"UPDATE property SET update_date = ''"));
    ASSERT_TRUE(db()->exec(L"UPDATE well_base SET update_date = ''"));
    std::wstring heard;
    const auto ears = std::make_shared<globalEventObserver::callback>([&](const auto& m) {
        heard += std::to_wstring(m.kind) + L"." + std::to_wstring(m.action) + L" " + m.well.name
                 + L" " + m.property.name + L"; ";
    });
    globalEventObserver::Instance().subscribe(ears);
    const std::size_t lines = journal::read(*db()).size();
    ASSERT_TRUE(load("B;20;n\nO/F/A;10;n\nB;30;n\n", points()).ok) << lastError();
    EXPECT_EQ(heard, L"2.4 B Tops; 2.1 A Tops; ");
    EXPECT_EQ(journal::read(*db()).size(), lines + 2);
    EXPECT_EQ(journal::read(*db()).back().comment, L"O / F / A: Tops");
    EXPECT_EQ(cell(L"SELECT count(*) FROM property WHERE update_date = ''"), L"0");
    EXPECT_EQ(all(L"SELECT field FROM well_base WHERE update_date = ''"), L"G/H");
}

TEST_F(TableTest, aStopLeavesNothing) {
    struct stopping : NORLEX_progressSink {
        std::uint64_t seen = 0;
        void begin(const std::wstring&, std::uint64_t) override {}
        void advance(std::uint64_t done) override { seen = done; }
        void end() override {}
        bool isStopped() override { return seen > 0; }
    };
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "B;" + std::to_string(i) + ";n;d\n";
    NORLEX_setProgressSink(std::make_shared<stopping>());
    const auto result = load(text, points());
    NORLEX_setProgressSink(nullptr);
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.error.find(L"stopped"), std::wstring::npos);
    EXPECT_EQ(records(b, tops), L"none");
    ASSERT_TRUE(load(text, points()).ok) << lastError(); // statements of hundreds of rows
    EXPECT_EQ(cell(L"SELECT count(*) FROM val"), L"40000");
    EXPECT_EQ(cell(L"SELECT count(*) FROM point_data WHERE depth_abs = 50 - depth"), L"20000");
}

namespace {

class TableFailureTest : public TableTest {
protected:
    failing::statements faults;
};

} // namespace

TEST_F(TableFailureTest, whateverFailsLeavesEverythingAsItWas) {
    const auto path = folder.write(L"failing.csv", "B;10;n\nO/F/A;10;n\n");
    auto options = points();
    for (const auto onExisting : {NORLEX_onExistingData::append, NORLEX_onExistingData::replace}) {
        options.onExisting = onExisting;
        const auto run = [&] { return NORLEX_tableImport(db(), options).importFile(path).ok; };
        failing::forEveryFailedQuery(*container, faults, "a table, query", run);
        failing::forEveryFailure(*container, faults, "a table", run);
    }
}
