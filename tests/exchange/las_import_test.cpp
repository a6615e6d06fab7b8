#include "tests/exchange/las_fixture.h"

#include "globalEventObserver.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double none = NORLEX_missingValue;

// Measured depth, absolute depth and value of each sample.
std::vector<NORLEX_logSample> list(const std::vector<double>& numbers) {
    std::vector<NORLEX_logSample> out;
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3)
        out.push_back({numbers[i], numbers[i + 1], numbers[i + 2]});
    return out;
}

bool hasSamples(const std::vector<NORLEX_logSample>& have,
                const std::vector<NORLEX_logSample>& want) {
    return std::equal(
        have.begin(), have.end(), want.begin(), want.end(), [](const auto& a, const auto& b) {
            return std::abs(a.depth - b.depth) < 1e-12 && std::abs(a.depthAbs - b.depthAbs) < 1e-9
                   && a.value == b.value;
        });
}

} // namespace

class LasImportTest : public LasTest {
protected:
    std::wstring simple(const std::string& name, const std::string& rows = "1 10\n2 20\n") {
        return las(L"in.las",
                   "WELL. " + name + " : name\nFLD. F : field\n",
                   "DEPT.M : d\nGR.GAPI : gamma\n",
                   rows);
    }
};

// Altitude 100 and no survey: the absolute depth is 100 minus the measured one. A foot is 0.3048 m.
TEST_F(LasImportTest, storesSortedMetresWithAbsoluteDepths) {
    struct {
        const char* where;
        const char* depthUnit;
        const char* rows;
        std::vector<NORLEX_logSample> want;
    } const cases[] = {
        {"as it stands", "M", "1 10\n2 20\n", list({1, 99, 10, 2, 98, 20})},
        {"feet", "ft", "10 1\n20 2\n", list({3.048, 96.952, 1, 6.096, 93.904, 2})},
        {"feet in brackets", "[FEET]", "10 1\n", list({3.048, 96.952, 1})},
        {"no length at all", "S", "1 10\n", list({1, 99, 10})},
        {"upwards", "M", "3 30\n2 20\n1 10\n", list({1, 99, 10, 2, 98, 20, 3, 97, 30})},
        {"upwards, a depth twice", "M", "2 1\n2 2\n1 3\n", list({1, 99, 3, 2, 98, 1, 2, 98, 2})},
        {"mixed", "M", "2 1\n3 2\n1 3\n2 4\n", list({1, 99, 3, 2, 98, 1, 2, 98, 4, 3, 97, 2})},
        {"null, close to it, and not",
         "M",
         "1 -999.25\n2 -999.249995\n3 -999.2499\n",
         list({1, 99, none, 2, 98, none, 3, 97, -999.2499})},
        {"above the reference: the altitude", "M", "-1 5\n", list({-1, 100, 5})},
    };
    NORLEX_lasImportOptions options;
    options.onExisting = NORLEX_onExisting::replace;
    for (const auto& c : cases) {
        const auto path = las(L"in.las",
                              "WELL. W : n\nEKB.M 100 : kb\n",
                              std::string("DEPT.") + c.depthUnit + " : d\nGR.GAPI : gamma\n",
                              c.rows);
        const auto result = import(path, options);
        ASSERT_TRUE(result.ok) << c.where << ": " << ts::strconv::toUtf8(result.error);
        EXPECT_TRUE(hasSamples(samples(result.well, {L"GR", L"LAS"}), c.want)) << c.where;
        EXPECT_EQ(log(result.well, {L"GR", L"LAS"})->getAttribute(L"DEPTH_UNIT"),
                  ts::strconv::fromUtf8(c.depthUnit))
            << c.where;
    }
}

TEST_F(LasImportTest, findsTheWellByWhatTheFileSays) {
    struct {
        const char* where;
        const char* lines;
        const wchar_t* optionField;
        const wchar_t* field;
        const wchar_t* name;
    } const cases[] = {
        {"WELL and FLD", "WELL. 7 : n\nFLD. F : f\n", L"", L"F", L"7"},
        {"the option's field", "WELL. 8 : n\nFLD. F : f\n", L"G", L"G", L"8"},
        {"no WELL: UWI", "UWI. 100/01 : id\n", L"", L"", L"100/01"},
        {"an empty WELL: API", "WELL. : n\nAPI. 42 : id\n", L"", L"", L"42"},
        {"nothing: the file's stem", "", L"", L"", L"in put"},
        {"an apostrophe and a tab", "WELL. 'a\tb' : n\n", L"", L"", L"ab"},
        {"only apostrophes", "WELL. '' : n\nUWI. u : id\n", L"", L"", L"u"},
    };
    for (const auto& c : cases) {
        NORLEX_lasImportOptions options;
        options.workObject = L"WO";
        options.field = c.optionField;
        const auto path = las(L"in put.las", c.lines, "DEPT.M : d\nGR. : g\n", "1 1\n");
        const auto result = import(path, options);
        ASSERT_TRUE(result.ok) << c.where << ": " << ts::strconv::toUtf8(result.error);
        EXPECT_TRUE(result.wellCreated) << c.where;
        const NORLEX_wellDescription want{L"WO", c.field, c.name};
        EXPECT_TRUE(result.well == want) << c.where;
        EXPECT_EQ(NORLEX_well::getID(db(), want), result.well.wellId) << c.where;
        options.group = L"again";
        const auto again = import(path, options);
        EXPECT_TRUE(again.ok && !again.wellCreated && again.well.wellId == result.well.wellId)
            << c.where;
    }
}

// Version 1.2 has the data behind the colon and a label before it.
TEST_F(LasImportTest, readsTheWellNameOfVersion12) {
    const auto path = folder.write(L"old.las",
                                   "~V\nVERS. 1.2 : v\nWRAP. NO : w\n~W\nNULL. -999.25 : n\n"
                                   "WELL.  WELL: ANY #12\nFLD.  FIELD: NORTH\n"
                                   "~C\nDEPT.M : d\nGR. : g\n~A\n1 1\n");
    const auto result = import(path);
    ASSERT_TRUE(result.ok) << lastError();
    EXPECT_EQ(result.well.name, L"ANY #12");
    EXPECT_EQ(result.well.field, L"NORTH");
}

TEST_F(LasImportTest, takesPositionAndAltitudeOfANewWell) {
    struct {
        const char* where;
        const char* lines;
        double x;
        double y;
        double altitude;
    } const cases[] = {
        {"nothing", "", 0, 0, 0},
        {"metres", "XCOORD.M 500.5 : x\nYCOORD.M 600 : y\nEKB.M 12.5 : kb\n", 500.5, 600, 12.5},
        {"an elevation in feet", "KB.FT 100 : kb\n", 0, 0, 30.48},
        {"the reference before the ground", "EGL.M 90 : g\nEREF.M 95 : r\n", 0, 0, 95},
        {"the ground where nothing else is", "EGL.M 90 : g\nEKB.M : kb\n", 0, 0, 90},
        {"an absent value", "EKB.M -999.25 : kb\nGL.M 3 : g\n", 0, 0, 3},
        {"no unit of length", "ELEV.OHMM 90 : e\n", 0, 0, 0},
        {"half a pair", "X. 5 : x\nEASTING. 1 : e\nNORTHING. 2 : n\n", 1, 2, 0},
        {"decimal degrees", "LATI.DEG 34.5 : la\nLONG.DEG -102.25 : lo\n", -102.25, 34.5, 0},
        {"degrees and minutes", "LATI.DEG 53 42' 18\" : la\nLONG.DEG 04 36' : lo\n", 0, 0, 0},
        {"degrees behind coordinates", "LAT. 1 : a\nLON. 2 : o\nX. 3 : x\nY. 4 : y\n", 3, 4, 0},
    };
    int number = 0;
    for (const auto& c : cases) {
        const auto path = las(L"in.las",
                              "WELL. W" + std::to_string(++number) + " : n\n" + c.lines,
                              "DEPT.M : d\nGR. : g\n",
                              "1 1\n");
        const auto result = import(path);
        ASSERT_TRUE(result.ok) << c.where << ": " << ts::strconv::toUtf8(result.error);
        EXPECT_DOUBLE_EQ(NORLEX_well::getXCoord(db(), result.well), c.x) << c.where;
        EXPECT_DOUBLE_EQ(NORLEX_well::getYCoord(db(), result.well), c.y) << c.where;
        EXPECT_DOUBLE_EQ(NORLEX_well::getAltitude(db(), result.well), c.altitude) << c.where;
    }
    // A well that is there keeps its own.
    ASSERT_TRUE(NORLEX_well::setPosition(db(), {L"", L"", L"W2"}, 1.0, 2.0));
    NORLEX_lasImportOptions options;
    options.group = L"again";
    ASSERT_TRUE(
        import(
            las(L"in.las", "WELL. W2 : n\nX. 8 : x\nY. 9 : y\n", "DEPT.M : d\nGR. : g\n", "1 1\n"),
            options)
            .ok);
    EXPECT_EQ(NORLEX_well::getXCoord(db(), {L"", L"", L"W2"}), 1.0);
}

TEST_F(LasImportTest, keepsTheHeaderAsAttributes) {
    const auto path = folder.write(L"in.las",
                                   "~V\nVERS. 2.0 : v\nWRAP. NO : w\n~W\nNULL. -9999.0 : n\n"
                                   "WELL. W : name\nCOMP. Nedra : company\n~P\nBHT.C 85 : t\n"
                                   "~C\nDEPT.FT : d\nGR.GAPI 45 : gamma\nGR.API : second\n"
                                   "~A\n1 1 2\n");
    const auto result = import(path);
    ASSERT_TRUE(result.ok) << lastError();
    EXPECT_EQ(result.created, 2U);
    const auto gr = log(result.well, {L"GR", L"LAS"});
    ASSERT_TRUE(gr);
    EXPECT_EQ(gr->getComment(), L"gamma");
    EXPECT_EQ(gr->getAttribute(L"UNITS"), L"GAPI");
    EXPECT_EQ(gr->getAttribute(L"NULL"), L"-9999");
    EXPECT_EQ(gr->getAttribute(L"DEPTH_UNIT"), L"FT");
    const auto wellEntries = gr->getAttributeWellList();
    ASSERT_EQ(wellEntries.size(), 3U);
    EXPECT_EQ(wellEntries[2].mnemonic + wellEntries[2].value + wellEntries[2].description,
              L"COMPNedracompany");
    const auto paramEntries = gr->getAttributeParamList();
    ASSERT_EQ(paramEntries.size(), 1U);
    EXPECT_EQ(paramEntries[0].mnemonic + paramEntries[0].unit + paramEntries[0].value, L"BHTC85");
    EXPECT_EQ(log(result.well, {L"GR_2", L"LAS"})->getComment(), L"second");
}

TEST_F(LasImportTest, existingLogsFailAreSkippedOrReplaced) {
    ASSERT_TRUE(import(simple("W")).ok) << lastError();
    const auto path = las(
        L"two.las", "WELL. W : n\nFLD. F : f\n", "DEPT.M : d\nGR. : new\nSP. : sp\n", "1 11 5\n");
    struct {
        NORLEX_onExisting mode;
        bool dryRun;
        bool ok;
        std::size_t created;
        double gr; // first value of GR afterwards
        bool sp;   // whether SP is there afterwards
    } const cases[] = {
        {NORLEX_onExisting::fail, true, false, 0, 10, false},
        {NORLEX_onExisting::fail, false, false, 0, 10, false},
        {NORLEX_onExisting::skip, true, true, 1, 10, false},
        {NORLEX_onExisting::replace, true, true, 2, 10, false},
        {NORLEX_onExisting::skip, false, true, 1, 10, true},
        {NORLEX_onExisting::replace, false, true, 2, 11, true},
    };
    const NORLEX_wellDescription named{L"", L"F", L"W"};
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto& c = cases[i];
        NORLEX_lasImportOptions options;
        options.onExisting = c.mode;
        options.dryRun = c.dryRun;
        const auto result = import(path, options);
        EXPECT_EQ(result.ok, c.ok) << i;
        EXPECT_EQ(result.created, c.created) << i;
        EXPECT_EQ(result.existing, i == std::size(cases) - 1 ? 2U : 1U) << i;
        EXPECT_EQ(result.error.empty(), c.ok) << i;
        EXPECT_EQ(samples(named, {L"GR", L"LAS"}).front().value, c.gr) << i;
        NORLEX_well well(db(), named);
        EXPECT_EQ(well.isPropertyExist({L"SP", L"LAS"}), c.sp) << i;
        EXPECT_EQ(storedFiles(), c.sp ? 2U : 1U) << i;
    }
    EXPECT_EQ(cell(L"SELECT count(*) FROM field WHERE pr_id NOT IN (SELECT pr_id FROM property)"),
              L"0");
}

TEST_F(LasImportTest, dryRunWritesNothing) {
    NORLEX_lasImportOptions options;
    options.dryRun = true;
    const auto result = import(simple("W", "1 10\nx y\n2 20\n"), options);
    EXPECT_TRUE(result.ok && result.wellCreated) << lastError();
    EXPECT_EQ(result.created, 1U);
    EXPECT_EQ(result.rows, 2U);
    EXPECT_EQ(result.skippedCount, 1U);
    EXPECT_EQ(container->getWellCount(), 0);
    EXPECT_EQ(storedFiles(), 0U);
}

TEST_F(LasImportTest, refusalsNameTheReasonAndLeaveNothing) {
    const std::string well = "WELL. W : n\n";
    const std::string curves = "DEPT.M :  d\nGR. : g\n";
    const std::string longName(300, 'n');
    const auto text = folder.write(L"a.las", "some text\n");
    const auto onlyDepth = las(L"b.las", well, "DEPT.M : d\n", "1\n2\n");
    const auto noRows = las(L"c.las", well, curves, "");
    const auto longWell = las(L"d.las", "WELL. " + longName + " : n\n", curves, "1 1\n");
    const auto longCurve = las(L"e.las", well, curves + longName + ". : g\n", "1 1 1\n");
    struct {
        const char* where;
        std::wstring path;
        const char* says;
    } const cases[] = {
        {"no file", folder / L"none.las", "none.las"},
        {"no log", text, "~"},
        {"only a depth", onlyDepth, "no curve"},
        {"a header alone", noRows, "no data rows"},
        {"a name that no folder can have", longWell, "240"},
        {"the second log's name", longCurve, "240"},
    };
    for (const auto& c : cases)
        for (const bool dryRun : {true, false}) {
            NORLEX_lasImportOptions options;
            options.dryRun = dryRun;
            const auto result = import(c.path, options);
            EXPECT_FALSE(result.ok) << c.where;
            const std::string error = ts::strconv::toUtf8(result.error);
            EXPECT_NE(error.find(c.says), std::string::npos) << c.where << ": " << error;
            EXPECT_EQ(error.find('\n'), std::string::npos) << c.where;
            EXPECT_EQ(container->getWellCount(), 0) << c.where;
            EXPECT_EQ(container->getPropertyCount(), 0) << c.where;
            EXPECT_EQ(storedFiles(), 0U) << c.where;
        }
    EXPECT_TRUE(import(simple("W")).ok) << "the container is usable afterwards: " << lastError();
    EXPECT_FALSE(NORLEX_lasImport(nullptr, {}).importFile(simple("W")).ok);
}

// Wherever in the file the failure is, a caller's own transaction survives it.
TEST_F(LasImportTest, failsAloneInsideACallersTransaction) {
    ASSERT_TRUE(container->beginTransaction());
    EXPECT_TRUE(import(simple("first")).ok) << lastError();
    EXPECT_FALSE(import(simple("first")).ok);
    EXPECT_TRUE(import(simple("second")).ok) << lastError();
    ASSERT_TRUE(container->endTransaction()) << lastError();
    EXPECT_EQ(container->getWellCount(), 2);
    EXPECT_EQ(storedFiles(), 2U);
}

TEST_F(LasImportTest, announcesAfterTheCommit) {
    std::vector<std::pair<int, int>> seen; // kind, action
    const auto subscriber =
        std::make_shared<globalEventObserver::callback>([&](const eventMsgDescription& message) {
            seen.emplace_back(message.kind, message.action);
            EXPECT_FALSE(db()->in_transaction());
        });
    globalEventObserver::Instance().subscribe(subscriber);
    ASSERT_TRUE(import(simple("W")).ok) << lastError();
    NORLEX_lasImportOptions options;
    options.group = L"again";
    ASSERT_TRUE(import(simple("W"), options).ok) << lastError();
    EXPECT_FALSE(import(simple("W")).ok);
    const std::vector<std::pair<int, int>> want = {{eventKind::well, eventAction::create},
                                                   {eventKind::property, eventAction::create},
                                                   {eventKind::property, eventAction::create},
                                                   {eventKind::well, eventAction::update}};
    EXPECT_EQ(seen, want);
}

// The samples are written beside the rows; a caller's transaction may read them before it ends.
TEST_F(LasImportTest, insideACallersTransactionSamplesAreReadAtOnce) {
    constexpr std::size_t rowCount = 60'000; // so that writing them takes longer than the rows
    constexpr int curveCount = 8;
    std::string curves = "DEPT.M :\n";
    std::string rows;
    for (int curve = 0; curve < curveCount; ++curve)
        curves += "C" + std::to_string(curve) + ". :\n";
    for (std::size_t row = 0; row < rowCount; ++row)
        rows += std::to_string(row) + " 1 2 3 4 5 6 7 8\n";
    ASSERT_TRUE(container->beginTransaction());
    const auto taken = import(las(L"wide.las", "WELL. 1 :\n", curves, rows));
    ASSERT_TRUE(taken.ok) << ts::strconv::toUtf8(taken.error);
    for (int curve = curveCount - 1; curve >= 0; --curve)
        EXPECT_EQ(samples(taken.well, {L"C" + std::to_wstring(curve), L"LAS"}).size(), rowCount);
    std::vector<NORLEX_checkFinding> findings;
    EXPECT_TRUE(container->check(findings));
    EXPECT_TRUE(findings.empty());
    container->rollbackTransaction();
    EXPECT_EQ(storedFiles(), 0U);
}
