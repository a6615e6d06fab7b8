#include "tests/exchange/las_fixture.h"

#include "NORLEX_lasfileExt.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

constexpr double none = NORLEX_missingValue;

bool sameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

} // namespace

class LasExactTest : public LasTest {
protected:
    void SetUp() override {
        LasTest::SetUp();
        ASSERT_TRUE(NORLEX_well::create(db(), named));
        well = std::make_unique<NORLEX_well>(db(), named);
        ASSERT_TRUE(well->isOK());
    }

    NORLEX_wellProperty* add(const std::wstring& name,
                             const std::vector<std::pair<double, double>>& depthsAndValues) {
        std::vector<NORLEX_logSample> list;
        for (const auto& [depth, value] : depthsAndValues)
            list.push_back({depth, well->getIncl()->getAbs(depth), value});
        EXPECT_TRUE(
            NORLEX_wellProperty::createLAS(db(), well->getID(), {name, L"A"}, L"remark", list))
            << lastError();
        return logs.emplace_back(well->openProperty({name, L"A"})).get();
    }

    // Exports all logs, imports them into the group B, and compares every sample.
    void roundTrip(const char* where) {
        std::vector<NORLEX_wellProperty*> list;
        for (const auto& one : logs)
            list.push_back(one.get());
        const std::wstring path = folder / L"exact.las";
        ASSERT_TRUE(well->exportLASExact(path, list)) << where << ": " << lastError();
        NORLEX_lasImportOptions options;
        options.workObject = named.workObject;
        options.group = L"B";
        options.onExisting = NORLEX_onExisting::replace;
        const auto result = import(path, options);
        ASSERT_TRUE(result.ok) << where << ": " << ts::strconv::toUtf8(result.error);
        EXPECT_FALSE(result.wellCreated) << where;
        EXPECT_EQ(result.skippedCount, 0U) << where;
        for (const auto* const one : list)
            expectSame(samples(named, {one->getName(), L"A"}),
                       samples(named, {one->getName(), L"B"}),
                       std::string(where) + ", log " + ts::strconv::toUtf8(one->getName()));
    }

    static void expectSame(const std::vector<NORLEX_logSample>& a,
                           const std::vector<NORLEX_logSample>& b,
                           const std::string& where) {
        ASSERT_EQ(a.size(), b.size()) << where;
        for (std::size_t i = 0; i < a.size(); ++i) {
            EXPECT_TRUE(sameBits(a[i].depth, b[i].depth)) << where << ", sample " << i;
            EXPECT_TRUE(sameBits(a[i].depthAbs, b[i].depthAbs)) << where << ", sample " << i;
            EXPECT_TRUE(sameBits(a[i].value, b[i].value)) << where << ", sample " << i;
        }
    }

    const NORLEX_wellDescription named{L"Запад", L"~A: юг", L" 12:3"};
    std::unique_ptr<NORLEX_well> well;
    std::vector<std::unique_ptr<NORLEX_wellProperty>> logs;
};

TEST_F(LasExactTest, comesBackToTheLastBit) {
    ASSERT_TRUE(well->setAltitude(127.35));
    add(L"GK",
        {
            {1000.1, 0.1},
            {1000.1524, 1.0 / 3.0},
            {1000.3048, none},
            {1000.3048, -0.0},
            {1000.4572, 5e-324},
            {1000.61, 1.7e308},
            {1000.7624, -std::numeric_limits<double>::max()},
            {1000.9, -999.250001}, // as good as -999.25 to a reader
        });
    roundTrip("one log");
    // Values that a usual null value would hide.
    add(L"DS", {{1000.1, -999.25}, {1000.2, -999.250001}, {1000.3, -9999.25}, {1000.4, none}});
    roundTrip("two depth columns");
    add(L"every second", {{1000.1, none}, {1000.3048, 1.0}, {1000.4572, none}, {1000.7624, 2.0}});
    add(L"nothing but gaps", {{999.0, none}, {1000.2, none}, {1001.0, none}});
    add(L"above", {{-5.0, 1.0}, {0.0, 2.0}, {1e-9, 3.0}});
    roundTrip("samples without a value beside rows without a sample");
}

TEST_F(LasExactTest, namesThatAreNoMnemonicsComeBack) {
    for (const auto* const name : {L"ГК.1 (API)",
                                   L"#1",
                                   L"~A",
                                   L"a:b",
                                   L"a_b",
                                   L"A_B2",
                                   L"a_b_2",
                                   L" led ",
                                   L"100%",
                                   L"DEPT",
                                   L"CURVE 1 x NAME y",
                                   L"..",
                                   L"tab\there"})
        add(name, {{1.0, 1.0}, {2.0, none}});
    ASSERT_TRUE(logs.back()->setAttribute(L"UNITS", L"om m:~C"));
    ASSERT_TRUE(logs.back()->setAttribute(L"WELL.X~A", L"\x1F~A 1:2\x1Fx~A: y"));
    roundTrip("names");
}

TEST_F(LasExactTest, unsortedLogsAreWrittenByDepth) {
    add(L"up", {{30.0, 3.0}, {20.0, 2.0}, {10.0, 1.0}});
    add(L"mixed", {{30.0, 3.0}, {10.0, 1.0}, {30.0, 4.0}, {20.0, none}});
    const std::wstring path = folder / L"exact.las";
    ASSERT_TRUE(well->exportLASExact(path, {logs[0].get(), logs[1].get()})) << lastError();
    const std::string text = temp_folder::read(path);
    EXPECT_EQ(text.substr(text.find("~ASCII")),
              "~ASCII Log Data\n"
              "10 1 1\n"
              "20 2 -999.25\n"
              "30 3 3\n"
              "30 -999.25 4\n");
    EXPECT_NE(text.find("CURVE 2 mixed ROWS 2\n"), std::string::npos) << text;
    EXPECT_NE(text.find("STEP.M       0 : "), std::string::npos) << text;
}

// The header of the source file goes back out, its null value where it serves.
TEST_F(LasExactTest, keepsTheSourceFilesHeader) {
    const auto path = folder.write(L"in.las",
                                   "~V\nVERS. 2.0 : v\nWRAP. NO : w\n~W\nSTRT.M 1 : a\n"
                                   "NULL. -777.5 : null\nWELL. W1 : name\nFLD. F : field\n"
                                   "COMP. Nedra : company\n~P\nBHT.DEGC 85.5 : bottom\n"
                                   "~C\nDEPT.M : depth\nGR.GAPI 45 310 : gamma\nSP.MV : \n"
                                   "~A\n1 10 -777.5\n1.5 -777.5 3\n2 11 4\n");
    ASSERT_TRUE(import(path).ok) << lastError();
    const NORLEX_wellDescription source{L"", L"F", L"W1"};
    NORLEX_well sourceWell(db(), source);
    const auto gr = sourceWell.openProperty({L"GR", L"LAS"});
    const auto sp = sourceWell.openProperty({L"SP", L"LAS"});
    ASSERT_TRUE(gr && sp) << lastError();
    const std::wstring out = folder / L"out.las";
    ASSERT_TRUE(sourceWell.exportLASExact(out, {sp.get(), gr.get()})) << lastError();
    const std::string text = temp_folder::read(out);
    for (const char* const line : {"NULL. -777.5 : ",
                                   "COMP.  Nedra : company\n",
                                   "STEP.M    0.5 : ",
                                   "BHT.DEGC 85.5 : bottom\n",
                                   "GR.GAPI 45 310 : gamma\n",
                                   "\n1 -777.5 10\n1.5 3 -777.5\n2 4 11\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line << "in\n" << text;
    EXPECT_EQ(text.find("~Other"), std::string::npos) << text;
    ASSERT_TRUE(gr->setSamples({{1.0, -1.0, -777.5}}));
    ASSERT_TRUE(sourceWell.exportLASExact(out, {gr.get()})) << lastError();
    EXPECT_NE(temp_folder::read(out).find("NULL. -999.25 : "), std::string::npos)
        << "a sample has the source file's null value";
}
