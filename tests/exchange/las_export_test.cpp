#include "tests/exchange/las_fixture.h"

#include "NORLEX_lasfileExt.h"

#include <algorithm>
#include <cmath>

namespace {

// UTF-8 to windows-1251, for ASCII and the Russian letters: U+0410 … U+044F are 0xC0 … 0xFF.
std::string cyrillic(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        if (lead < 0x80) {
            out += text[i];
            continue;
        }
        const unsigned code =
            ((lead & 0x1FU) << 6) | (static_cast<unsigned char>(text[++i]) & 0x3FU);
        out += static_cast<char>(code - 0x410 + 0xC0);
    }
    return out;
}

constexpr double none = NORLEX_missingValue;

} // namespace

class LasExportTest : public LasTest {
protected:
    void SetUp() override {
        LasTest::SetUp();
        ASSERT_TRUE(NORLEX_well::create(db(), named));
        well = std::make_unique<NORLEX_well>(db(), named);
        ASSERT_TRUE(well->isOK());
    }

    NORLEX_wellProperty* add(const std::wstring& name,
                             const std::wstring& comment,
                             const std::vector<std::pair<double, double>>& depthsAndValues) {
        std::vector<NORLEX_logSample> list;
        for (const auto& [depth, value] : depthsAndValues)
            list.push_back({depth, -depth, value});
        EXPECT_TRUE(
            NORLEX_wellProperty::createLAS(db(), well->getID(), {name, L"A"}, comment, list))
            << lastError();
        return logs.emplace_back(well->openProperty({name, L"A"})).get();
    }

    NORLEX_wellProperty* addEvery(const std::wstring& name, double top, double step, int count) {
        std::vector<std::pair<double, double>> list;
        for (int i = 0; i < count; ++i)
            list.emplace_back(top + step * i, i);
        return add(name, L"", list);
    }

    std::string exported(const std::vector<NORLEX_wellProperty*>& list) {
        const std::wstring path = folder / L"out.las";
        static_cast<void>(files::removeFile(path));
        well->exportLAS(path, list);
        return files::isFile(path) ? temp_folder::read(path) : "no file";
    }

    const NORLEX_wellDescription named{L"Запад", L"Южное", L"7-бис"};
    std::unique_ptr<NORLEX_well> well;
    std::vector<std::unique_ptr<NORLEX_wellProperty>> logs;
};

// By hand. The longest value of the well block is "ООО Недра", 9 characters. PS begins at 100.05:
// row 100.0 is above it, row 100.1 is the middle of 10 and 20, the others have a missing sample
// below or above them. Row 100.4 would be below the bottom.
TEST_F(LasExportTest, writesTheseBytes) {
    auto* const gk =
        add(L"GK", L"Гамма", {{100.0, 1.0}, {100.1, none}, {100.2, 2.5}, {100.3, -0.0004}});
    auto* const ps =
        add(L"PS", L"", {{100.05, 10.0}, {100.15, 20.0}, {100.25, none}, {100.35, 5.0}});
    ASSERT_TRUE(gk->setAttribute(L"UNITS", L"мкР/ч"));
    ASSERT_TRUE(ps->setAttribute(L"UNITS", L"mV"));
    ASSERT_TRUE(gk->setAttribute(L"WELL.COMP",
                                 L"\x1FООО Недра\x1F"
                                 L"Company"));
    ASSERT_TRUE(ps->setAttribute(L"WELL.COMP",
                                 L"\x1Fother\x1F"
                                 L"taken already"));
    ASSERT_TRUE(ps->setAttribute(L"WELL.STRT",
                                 L"F\x1F"
                                 L"1\x1F"
                                 L"taken already"));
    ASSERT_TRUE(ps->setAttribute(L"PARAM.BHT",
                                 L"C\x1F"
                                 L"85.5\x1FЗабойная"));
    EXPECT_EQ(exported({gk, ps}),
              cyrillic("~Version Information\n"
                       "#-----------------------------------------\n"
                       "VERS.                 2.0:    CWLS Log ASCII Standard - Version 2.0\n"
                       "WRAP.NO : One Lines per Depth Step\n"
                       "~Well Information Block\n"
                       "STRT.М    100.00 : Начальная глубина\n"
                       "STOP.М    100.35 : Конечная глубина\n"
                       "STEP.М      0.10 : Шаг квантования\n"
                       "NULL.  -99999.0 : Код отсутствия\n"
                       "WELL.     7-бис : Наименование скважины\n"
                       "FLD.     Южное : Наименование площади\n"
                       "COMP. ООО Недра : Company\n"
                       "#-----------------------------------------\n"
                       "~Curve Information Block\n"
                       "# MNEM.UNIT                   API CODE   CURVE DESCRIPTION \n"
                       "DEPT.\n"
                       "GK.мкР/ч   : Гамма\n"
                       "PS.mV   : \n"
                       "#-----------------------------------------\n"
                       "~Parameter Information\n"
                       "# MNEM.UNIT                     VALUE       DESCRIPTION \n"
                       "#-----------------------------------------\n"
                       "BHT.C 85.5 : Забойная\n"
                       "#-----------------------------------------\n"
                       "~ASCII Log Data\n"
                       "100.0      1.000      -99999.0      \n"
                       "100.1      -99999.0      15.000      \n"
                       "100.2      2.500      -99999.0      \n"
                       "100.3      -0.000      -99999.0      \n"));
}

TEST_F(LasExportTest, takesTheGridFromTheLogs) {
    auto* const fine = addEvery(L"fine", 10.0, 0.1, 11);
    auto* const coarse = addEvery(L"coarse", 10.0, 0.2, 6);
    auto* const deeper = addEvery(L"deeper", 10.6, 0.2, 6);
    auto* const up = addEvery(L"up", 20.0, -1.0, 5);
    const auto* const end = "~ASCII Log Data\n";
    struct {
        const char* where;
        std::vector<NORLEX_wellProperty*> list;
        long rows;
        const char* step;
    } const cases[] = {
        {"the first log's step, fine", {fine, coarse}, 11, "STEP.М     0.10 : "},
        {"the first log's step, coarse", {coarse, fine}, 6, "STEP.М     0.20 : "},
        {"from the first top to the last bottom", {coarse, deeper}, 9, "STEP.М     0.20 : "},
        {"upwards: the bottom is above the top", {up}, 0, "STEP.М    -1.00 : "},
        {"upwards, but with a deeper log", {up, fine}, 7, "STEP.М     1.00 : "},
    };
    // The last: top 10.0 (fine's), bottom 16.0 (up's last sample), step |-1|.
    for (const auto& c : cases) {
        const std::string text = exported(c.list);
        const auto data = text.find(end);
        ASSERT_NE(data, std::string::npos) << c.where << "\n" << text;
        EXPECT_EQ(std::count(text.begin() + static_cast<long>(data), text.end(), '\n') - 1, c.rows)
            << c.where;
        EXPECT_NE(text.find(cyrillic(c.step)), std::string::npos) << c.where << "\n" << text;
    }
}

TEST_F(LasExportTest, degenerateRangesLeaveNoFileOrFiveLines) {
    auto* const twins = add(L"twins", L"", {{5.0, 1.0}, {5.0, 2.0}, {6.0, 3.0}});
    auto* const single = add(L"single", L"", {{5.0, 1.0}});
    auto* const thin = add(L"thin", L"", {{5.001, 1.0}, {5.004, 2.0}});
    auto* const dense = add(L"dense", L"", {{5.0, 1.0}, {5.004, 2.0}, {7.0, 2.0}});
    auto* const endless = add(L"endless", L"", {{0.0, 1.0}, {0.01, 2.0}, {1e12, 2.0}});
    auto* const fine = addEvery(L"fine", 10.0, 0.1, 11);
    ASSERT_TRUE(well->createProperty(NORLEX_dataTypeLog, {L"new", L"A"})) << lastError();
    auto* const bare = logs.emplace_back(well->openProperty({L"new", L"A"})).get();
    struct {
        const char* where;
        std::vector<NORLEX_wellProperty*> list;
    } const without[] = {
        {"no log", {}},
        {"the first two samples share a depth", {twins}},
        {"one sample has no step", {single}},
        {"the first log has no sample", {bare, fine}},
        {"a step that rounds to 0", {dense}},
        {"more rows than any well has", {endless}},
        {"a missing log", {fine, nullptr}},
    };
    for (const auto& c : without) {
        EXPECT_EQ(exported(c.list), "no file") << c.where;
        EXPECT_NE(lastError(), "") << c.where;
    }
    EXPECT_EQ(exported({thin}),
              "~Version Information\n"
              "#-----------------------------------------\n"
              "VERS.                 2.0:    CWLS Log ASCII Standard - Version 2.0\n"
              "WRAP.NO : One Lines per Depth Step\n"
              "~Well Information Block\n");
    EXPECT_NE(exported({fine, bare}).find("10.0      0.000      -99999.0      \n"),
              std::string::npos)
        << "a log without samples takes no part in the range";
    EXPECT_EQ(lastError(), "");
}

// /dev/full takes no byte; the old file must survive whatever happens.
TEST_F(LasExportTest, failedWritesAreToldAndLeaveTheOldFile) {
    auto* const fine = addEvery(L"fine", 10.0, 0.1, 11);
    const std::wstring old = folder.write(L"old.las", "old");
    auto* const twins = add(L"twins", L"", {{5.0, 1.0}, {5.0, 2.0}});
    well->exportLAS(old, {twins});
    EXPECT_EQ(temp_folder::read(old), "old");
    well->exportLAS(folder / L"none/out.las", {fine});
    EXPECT_NE(lastError().find("none"), std::string::npos);
    EXPECT_FALSE(well->exportLASExact(folder / L"none/out.las", {fine}));
    EXPECT_FALSE(well->exportLASExact(old, {}));
}
