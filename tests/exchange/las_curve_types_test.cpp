#include "tests/exchange/las_fixture.h"
#include "tests/support/curve_catalogue.h"

#include <cstdlib>

// The catalogue is the test's own while it imports; containers are made with the shipped data.
class LasCurveTypesTest : public LasTest {
protected:
    void SetUp() override {
        LasTest::SetUp();
        if (IsSkipped())
            return;
        curveCatalogue::make(catalogue,
                             {{1, L"GR", L"gamma", {L"ГК", L"Gam"}},
                              {2, L"T_2", L"time", {}},
                              {3, L"T", L"temperature", {}},
                              {4, L"ODD", L"", {}}});
        setenv("WELLDB_DATA", files::native(folder / L"data").c_str(), 1);
    }
    void TearDown() override {
        unsetenv("WELLDB_DATA");
        LasTest::TearDown();
    }

    std::wstring file(const std::vector<std::string>& curves, const std::string& well = "W") {
        std::string lines = "DEPT.M : d\n";
        std::string row = "1";
        for (const auto& curve : curves) {
            lines += curve + ". : c\n";
            row += " 5";
        }
        return las(L"in.las", "WELL. " + well + " : n\n", lines, row + "\n");
    }

    [[nodiscard]] std::wstring type(const std::wstring& log,
                                    const std::wstring& group = L"LAS",
                                    const std::wstring& well = L"W") {
        const auto opened = this->log({L"", L"", well}, {log, group});
        return opened ? opened->getAttribute(L"TYPE") : L"no log";
    }

    const std::wstring catalogue = folder / L"data/strategraphy/LAS_methods.db";
};

TEST_F(LasCurveTypesTest, knownCurvesHaveTheCataloguesType) {
    ASSERT_TRUE(
        import(file({"GR", "gr", "ГК", "гк", "GAM", "Gam", "T", "t", "T_2", "T_", "_2"})).ok)
        << lastError();
    struct {
        const char* where;
        const wchar_t* log;
        const wchar_t* type;
    } const cases[] = {
        {"a mnemonic", L"GR", L"gamma"},
        {"a second curve in another case", L"gr_2", L"gamma"},
        {"a synonym", L"ГК", L"gamma"},
        {"a synonym in another case, the second of its name", L"гк_2", L""},
        {"a synonym in another case", L"GAM", L""},
        {"a synonym of two cases", L"Gam_2", L"gamma"},
        {"a name that is another's with a number", L"T", L"temperature"},
        {"its second, by the file's own mnemonic", L"t_2", L"temperature"},
        {"a mnemonic that ends like a number", L"T_2_2", L"time"},
        {"no number behind the line", L"T_", L""},
        {"nothing before it", L"_2", L""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(type(c.log), c.type) << c.where;
    EXPECT_EQ(cell(L"SELECT count(*) FROM meta WHERE key = 'TYPE'"), L"7")
        << "a curve that is not known has no attribute, not an empty one";
}

TEST_F(LasCurveTypesTest, theCatalogueIsReadOnceForAllFiles) {
    NORLEX_lasImport importer(db(), {});
    ASSERT_TRUE(importer.importFile(file({"GR", "ODD"}, "A")).ok) << lastError();
    ASSERT_TRUE(files::removeFile(catalogue));
    ASSERT_TRUE(importer.importFile(file({"ГК"}, "B")).ok) << lastError();
    EXPECT_EQ(type(L"GR", L"LAS", L"A") + type(L"ГК", L"LAS", L"B"), L"gammagamma");
    EXPECT_EQ(cell(L"SELECT count(*) FROM meta WHERE key = 'TYPE'"), L"2") << "no type is none";
}

TEST_F(LasCurveTypesTest, withoutACatalogueFilesAreImportedWithoutTypes) {
    ASSERT_TRUE(files::removeFile(catalogue));
    const auto result = import(file({"GR"}));
    EXPECT_TRUE(result.ok && result.error.empty()) << lastError();
    EXPECT_EQ(lastError(), "") << "and nothing is left to read as a failure";
    EXPECT_EQ(type(L"GR"), L"");
    EXPECT_EQ(log({L"", L"", L"W"}, {L"GR", L"LAS"})->getAttribute(L"NULL"), L"-999.25");
}

TEST_F(LasCurveTypesTest, anExactExportGivesTheSameTypesAgain) {
    ASSERT_TRUE(import(file({"GR", "GR", "ГК", "X"})).ok) << lastError();
    NORLEX_well well(db(), {L"", L"", L"W"});
    std::vector<std::unique_ptr<NORLEX_wellProperty>> logs;
    std::vector<NORLEX_wellProperty*> listed;
    for (const auto* const name : {L"GR", L"GR_2", L"ГК", L"X"}) {
        logs.push_back(well.openProperty({name, L"LAS"}));
        ASSERT_TRUE(logs.back()) << lastError();
        listed.push_back(logs.back().get());
    }
    const auto out = folder / L"out.las";
    ASSERT_TRUE(well.exportLASExact(out, listed)) << lastError();
    EXPECT_EQ(temp_folder::read(out).find("gamma"), std::string::npos) << "no entry of the header";
    NORLEX_lasImportOptions options;
    options.group = L"again";
    ASSERT_TRUE(import(out, options).ok) << lastError();
    for (const auto* const name : {L"GR", L"GR_2", L"ГК", L"X"})
        EXPECT_EQ(type(name, L"again"), type(name)) << ts::strconv::toUtf8(name);
    EXPECT_EQ(type(L"GR_2", L"again"), L"gamma");
}
