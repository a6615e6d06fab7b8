#include "NORLEX_host.h"
#include "NORLEX_selection.h"
#include "exchange/exported_wells.h"
#include "tests/exchange/las_fixture.h"

#include <algorithm>

namespace {

class ContainerExportTest : public LasTest {
protected:
    void makeWell(const NORLEX_wellDescription& names) {
        ASSERT_TRUE(NORLEX_well::create(db(), names)) << lastError();
    }
    void makeLog(const NORLEX_wellDescription& names,
                 const NORLEX_propDescription& prop,
                 const std::vector<NORLEX_logSample>& samples) {
        ASSERT_TRUE(NORLEX_wellProperty::createLAS(
            db(), NORLEX_well::getID(db(), names), prop, L"made", samples))
            << lastError();
    }
    void makeWellWithLog(const NORLEX_wellDescription& names) {
        makeWell(names);
        makeLog(names, gr, {{10, 90, 1}, {10.5, 89.5, 2}, {11, 89, 3.25}});
    }

    [[nodiscard]] std::shared_ptr<NORLEX_selection> everyWell() const {
        return std::make_shared<NORLEX_selection>(L"all", container->getContDescription());
    }

    bool exportAll(bool exact = false) {
        return container->exportLAS(everyWell(), out, exact, results);
    }

    // What the export of the well itself writes of all its logs.
    std::string writtenAlone(const NORLEX_wellDescription& names, bool exact) {
        NORLEX_well well(db(), names);
        std::vector<NORLEX_propDescription> listed;
        well.getPropertyList(listed);
        std::vector<std::unique_ptr<NORLEX_wellProperty>> logs;
        std::vector<NORLEX_wellProperty*> borrowed;
        for (const auto& prop : listed)
            if (auto log = well.openProperty(prop); log->getType() == NORLEX_dataTypeLog)
                borrowed.push_back(logs.emplace_back(std::move(log)).get());
        const auto path = folder / L"alone.las";
        if (exact)
            EXPECT_TRUE(well.exportLASExact(path, borrowed)) << lastError();
        else
            well.exportLAS(path, borrowed);
        return temp_folder::read(path);
    }

    const NORLEX_propDescription gr{L"GR", L"LAS"};
    std::wstring out;
    std::vector<NORLEX_exportedWell> results;

    void SetUp() override {
        LasTest::SetUp();
        out = folder / L"made/out"; // neither is there
    }
};

// Stops the work once it has been asked as often.
class stopAfter final : public NORLEX_progressSink {
public:
    explicit stopAfter(int wells) : m_left(wells) {}
    void begin(const std::wstring&, std::uint64_t) override {}
    void advance(std::uint64_t) override {}
    void end() override {}
    bool isStopped() override { return m_left-- == 0; }

private:
    int m_left;
};

} // namespace

TEST_F(ContainerExportTest, namesFilesSoThatNoneMeetsAnother) {
    // by work object, field and name
    const struct {
        NORLEX_wellDescription well;
        const wchar_t* file;
    } cases[] = {
        {{L"", L"", L"A"}, L"A.las"},                 // the whole name of a well without a field
        {{L"O", L"F", L".."}, L"%2E%2E.las"},         // leaves no folder
        {{L"O", L"F", L"O-F-a"}, L"O-F-a.las"},       // its own name goes first
        {{L"O", L"F", L"a"}, L"O-F-a-2.las"},         // which is taken by the one before
        {{L"O", L"F", L"b"}, L"b.las"},               // one of its name
        {{L"O", L"F", L"x/y"}, L"x%2Fy.las"},         // no folder
        {{L"O", L"G", L"a"}, L"O-G-a.las"},           // three bear "a"
        {{L"O", L"G", L"Ж"}, L"O-G-Ж.las"},           // two, in any case of letters
        {{L"O", L"G", L"ж"}, L"O-G-ж-2.las"},         // whose whole names are one, too
        {{L"O", L"H", std::wstring(238, L'w')}, L""}, // has no logs, but bears the name
        {{L"O", L"I", std::wstring(238, L'w')}, L""}, // whose whole name is too long; see below
    };
    for (const auto& c : cases)
        c.well.field == L"H" ? makeWell(c.well) : makeWellWithLog(c.well);
    ASSERT_TRUE(exportAll()) << lastError();
    ASSERT_EQ(results.size(), std::size(cases));
    std::vector<std::wstring> expected;
    for (std::size_t i = 0; i < results.size(); ++i) {
        const std::string where = ts::strconv::toUtf8(cases[i].well.name);
        EXPECT_EQ(results[i].well, cases[i].well) << where;
        if (cases[i].well.field == L"H") {
            EXPECT_EQ(results[i].path, L"");
            EXPECT_NE(results[i].reason, L"");
            continue;
        }
        const std::wstring name =
            cases[i].well.field == L"I" ? std::wstring(238, L'w') + L".las" : cases[i].file;
        EXPECT_EQ(results[i].path, out + L"/" + name) << where;
        EXPECT_EQ(results[i].reason, L"") << where;
        expected.push_back(out + L"/" + name);
    }
    std::sort(expected.begin(), expected.end());
    auto written = files::listTree(folder / L"made");
    std::sort(written.begin(), written.end());
    EXPECT_EQ(written, expected);
}

// Nor does it need the survey: the depths along the hole are stored.
TEST_F(ContainerExportTest, writesWhatTheExportOfTheWellWrites) {
    const NORLEX_wellDescription one{L"O", L"F", L"1", 0};
    makeWellWithLog(one);
    makeLog(one, {L"DT", L"B"}, {{10, 90, 7.125}, {10.25, 89.75, NORLEX_missingValue}});
    makeLog(one, {L"BK", L"A"}, {{10.1, 89.9, 5}, {10.3, 89.7, -0.1}});
    makeLog(one, {L"SP", L"B"}, {});
    const NORLEX_wellDescription two{L"O", L"F", L"2", 0};
    makeWellWithLog(two);
    NORLEX_well well(db(), one);
    ASSERT_TRUE(well.createProperty(NORLEX_dataTypeLog, {L"EMPTY", L"B"})); // without samples
    ASSERT_TRUE(well.createProperty(NORLEX_dataTypeMarker, {L"M", L"A"}));
    const struct {
        NORLEX_wellDescription well;
        NORLEX_propDescription log;
        const wchar_t* key;
        std::wstring value;
    } attributes[] = {
        {one, gr, L"UNITS", L"API"},
        {one, {L"DT", L"B"}, L"UNITS", L"us/ft"},
        {one, {L"DT", L"B"}, L"WELL.COMP", L"\x1FThe Company\x1FOf DT"},
        {one, gr, L"WELL.COMP", L"\x1FNot shown\x1FOf GR"}, // the first log's stands
        {one, gr, L"PARAM.BHT", L"DEGC\x1Fhot\x1Fof the bottom"},
        {one, gr, L"CURVE.GR", L"API\x1Fits code\x1F"},
        {two, gr, L"UNITS", L"GAPI"},
        {two, gr, L"WELL.SRVC", L"\x1FThe Service\x1F"},
    };
    for (const auto& a : attributes)
        ASSERT_TRUE(log(a.well, a.log)->setAttribute(a.key, a.value)) << lastError();
    for (const bool exact : {false, true}) {
        const std::string first = writtenAlone(one, exact);
        ASSERT_NE(first.find("The Company"), std::string::npos);
        const std::string second = writtenAlone(two, exact);
        ASSERT_NE(second.find("The Service"), std::string::npos);
        ASSERT_TRUE(exportAll(exact)) << lastError();
        EXPECT_EQ(temp_folder::read(out + L"/1.las"), first) << exact;
        EXPECT_EQ(temp_folder::read(out + L"/2.las"), second) << exact;
    }
}

// A well with more logs than are read at once, between others.
TEST_F(ContainerExportTest, readsManyLogsInPortions) {
    const NORLEX_wellDescription first{L"", L"", L"a", 0};
    const NORLEX_wellDescription large{L"", L"", L"b", 0};
    const NORLEX_wellDescription last{L"", L"", L"d", 0};
    makeWellWithLog(first);
    makeWell(large);
    makeWell({L"", L"", L"c"});
    makeWellWithLog(last);
    ASSERT_TRUE(log(last, gr)->setAttribute(L"UNITS", L"API")) << lastError();
    std::wstring rows = L"INSERT INTO property (w_id, bt_id, name, p_group) VALUES ";
    const std::wstring bearer = L"(" + std::to_wstring(NORLEX_well::getID(db(), large)) + L", "
                                + cell(L"SELECT bt_id FROM property") + L", 'L";
    for (int i = 0; i < 5001; ++i)
        rows += (i == 0 ? L"" : L",") + bearer + std::to_wstring(i) + L"', 'LAS')";
    ASSERT_TRUE(db()->exec(rows)) << lastError();
    EXPECT_FALSE(exportAll());
    ASSERT_EQ(results.size(), 4U);
    EXPECT_NE(results[1].reason.find(L"no two samples"), std::wstring::npos) << "without files";
    EXPECT_EQ(results[2].reason, L"the well has no logs");
    EXPECT_EQ(temp_folder::read(out + L"/a.las"), writtenAlone(first, false));
    EXPECT_EQ(temp_folder::read(out + L"/d.las"), writtenAlone(last, false));
    EXPECT_NE(temp_folder::read(out + L"/d.las").find("API"), std::string::npos);
}

// As another program may do while an export is under way.
TEST_F(ContainerExportTest, findsTheSamplesOfWhatIsRenamedInTheMeantime) {
    makeWellWithLog({L"", L"", L"a"});
    std::vector<NORLEX_wellDescription> wells;
    NORLEX_well::getWellList(db(), wells);
    exported_wells chosen(*db(), wells);
    std::vector<exportedLogs::source> logs;
    ASSERT_TRUE(chosen.open() && chosen.next(logs)) << lastError();
    ASSERT_EQ(logs.size(), 1U);
    NORLEX_well well(db(), wells.front());
    ASSERT_TRUE(well.rename({L"O", L"F", L"b"}) && well.renameProperty(gr, {L"GR2", L"LAS"}))
        << lastError();
    std::vector<NORLEX_logSample> read;
    EXPECT_TRUE(logs.front().read(read)) << lastError();
    EXPECT_EQ(read.size(), 3U);
    ASSERT_TRUE(well.removeProperty({L"GR2", L"LAS"}));
    EXPECT_TRUE(logs.front().read(read) && read.empty());
}

TEST_F(ContainerExportTest, aFileThatCannotBeWrittenKeepsNoOtherBack) {
    makeWellWithLog({L"", L"", L"a"});
    makeWellWithLog({L"", L"", L"b"});
    makeWell({L"", L"", L"c"});
    makeLog({L"", L"", L"c"}, gr, {{10, 90, 1}}); // no step
    makeWellWithLog({L"", L"", L"d"});
    ASSERT_TRUE(files::makeFolder(out + L"/b.las"));
    folder.write(L"made/out/c.las", "old");
    EXPECT_FALSE(exportAll());
    EXPECT_TRUE(NORLEX_lastError().starts_with(L"2 of the files cannot be written; the first is"
                                               L" of the well b: "))
        << lastError();
    ASSERT_EQ(results.size(), 4U);
    for (const auto& result : results)
        EXPECT_EQ(result.reason.empty(), result.well.name == L"a" || result.well.name == L"d")
            << ts::strconv::toUtf8(result.well.name);
    EXPECT_TRUE(files::isFile(out + L"/a.las") && files::isFile(out + L"/d.las"));
    EXPECT_EQ(temp_folder::read(out + L"/c.las"), "old");
    EXPECT_FALSE(exportAll(true)); // exactly, one sample is enough
    EXPECT_EQ(results[2].reason, L"");
    EXPECT_NE(results[1].reason, L"");
}

TEST_F(ContainerExportTest, stopsBetweenTwoWells) {
    for (const wchar_t* name : {L"a", L"b", L"c"})
        makeWellWithLog({L"", L"", name});
    NORLEX_setProgressSink(std::make_shared<stopAfter>(2));
    EXPECT_FALSE(exportAll());
    NORLEX_setProgressSink(nullptr);
    EXPECT_EQ(NORLEX_lastError(), L"the export was stopped after 2 of 3 wells");
    EXPECT_EQ(results.size(), 2U);
    EXPECT_EQ(files::list(out).size(), 2U);
}

TEST_F(ContainerExportTest, refusesWhatItCannotBegin) {
    makeWellWithLog({L"", L"", L"a"});
    results.resize(3);
    EXPECT_FALSE(container->exportLAS(nullptr, out, false, results));
    EXPECT_TRUE(results.empty() && !files::isFolder(out));
    folder.write(L"file", "x");
    for (const std::wstring& path : {std::wstring(), folder / L"file"}) {
        EXPECT_FALSE(container->exportLAS(everyWell(), path, false, results));
        EXPECT_TRUE(results.empty() && !NORLEX_lastError().empty());
    }
    auto none = std::make_shared<NORLEX_selection>(L"", container->getContDescription(), true);
    EXPECT_TRUE(container->exportLAS(none, out, false, results)) << lastError();
    EXPECT_TRUE(results.empty());
}
