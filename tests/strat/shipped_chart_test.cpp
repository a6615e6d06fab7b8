// The chart that is shipped with the program.
#include "tests/strat/small_chart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

using smallChart::identified;
using smallChart::shown;
using strategraphy::element;
using strategraphy::raw_data;
using strategraphy::statoTable;
using ts::strconv::fromUtf8;
using ts::strconv::toUtf8;

namespace {

constexpr NORLEX_taxonType levels[] = {NORLEX_taxonAkrotema,
                                       NORLEX_taxonEonotema,
                                       NORLEX_taxonSubEonotema,
                                       NORLEX_taxonEratema,
                                       NORLEX_taxonSystem,
                                       NORLEX_taxonSeries,
                                       NORLEX_taxonSubSeries,
                                       NORLEX_taxonStage};

class ShippedChartTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(chart.isOK()); }

    const std::wstring path = fromUtf8(WELLDB_SOURCE_DIR "/data/strategraphy/strato_base.csv");
    const statoTable chart{path};
};

// The rows that hold a unit.
std::set<std::size_t> rowsOf(const std::vector<raw_data>& rows, const element& unit) {
    const auto* const level = std::find(std::begin(levels), std::end(levels), unit.type);
    const auto field = 2 * static_cast<std::size_t>(level - std::begin(levels));
    std::set<std::size_t> out;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i][field] == unit.index)
            out.insert(i);
    return out;
}

} // namespace

TEST_F(ShippedChartTest, everyLineIsARow) {
    const std::string text = temp_folder::read(path);
    ASSERT_TRUE(text.ends_with("\n"));
    std::istringstream in(text);
    std::size_t count = 0;
    for (std::string line; std::getline(in, line); ++count)
        EXPECT_EQ(std::count(line.begin(), line.end(), ';'), 15) << line;
    EXPECT_EQ(chart.getRawDataList().size(), count);
    // charts and data of users are often in windows-1251
    const std::wstring wide = fromUtf8(text);
    using namespace ts::strconv;
    EXPECT_EQ(decode(encode(wide, windows1251), windows1251), wide);
}

TEST_F(ShippedChartTest, indexesAndNamesAreUniqueAndNoExpressions) {
    std::map<std::wstring, std::wstring> known; // text by unit
    for (const auto level : levels)
        for (const auto& unit : chart.getElements(level))
            for (const auto& text : {unit.index, unit.name}) {
                EXPECT_EQ(known.emplace(text, unit.index).first->second, unit.index);
                EXPECT_EQ(text.find_first_of(L"{}+-;"), std::wstring::npos) << toUtf8(text);
                EXPECT_NE(text, L"");
                EXPECT_EQ(identified(chart, toUtf8(text)), toUtf8(unit.index));
            }
    EXPECT_EQ(known.size(), 2U * 186U);
}

// A unit's rows are neighbours, it has one name, and lies in one unit of each level above it.
TEST_F(ShippedChartTest, unitsLieWithinEachOtherInOrder) {
    const auto& rows = chart.getRawDataList();
    for (const auto level : levels)
        for (const auto& unit : chart.getElements(level)) {
            const auto own = rowsOf(rows, unit);
            EXPECT_EQ(*own.rbegin() - *own.begin() + 1, own.size()) << toUtf8(unit.index);
            for (const std::size_t row : own)
                EXPECT_EQ(rows[row][static_cast<std::size_t>(
                              std::find(rows[row].begin(), rows[row].end(), unit.index)
                              - rows[row].begin() + 1)],
                          unit.name);
            std::map<NORLEX_taxonType, int> above;
            for (const auto& other : unit.related)
                if (other.type < unit.type) {
                    EXPECT_EQ(++above[other.type], 1) << toUtf8(unit.index);
                }
            if (level > NORLEX_taxonEonotema) {
                EXPECT_NE(chart.findElement(unit, NORLEX_taxonEonotema), nullptr);
            }
        }
    for (const auto& stage : chart.getUIYarusList()) {
        const auto* const series = chart.findElement(stage, NORLEX_taxonSeries);
        const auto* const system = chart.findElement(stage, NORLEX_taxonSystem);
        ASSERT_TRUE(series != nullptr && system != nullptr) << toUtf8(stage.index);
        EXPECT_NE(chart.findElement(stage, NORLEX_taxonEratema), nullptr);
        EXPECT_TRUE(stage.index.starts_with(system->index)) << toUtf8(stage.index);
        if (system->index != L"Q") {
            EXPECT_TRUE(stage.index.starts_with(series->index)) << toUtf8(stage.index);
        }
    }
}

TEST_F(ShippedChartTest, thePhanerozoicIsComplete) {
    EXPECT_EQ(shown(chart.getElements(NORLEX_taxonAkrotema)), "AR PR");
    EXPECT_EQ(shown(chart.getElements(NORLEX_taxonEonotema)), "AR1 AR2 PR1 PR2 FZ");
    EXPECT_EQ(shown(chart.getElements(NORLEX_taxonEratema)),
              "LP1 LP2 LP3 KR1 KR2 RF1 RF2 RF3 PZ MZ KZ");
    EXPECT_EQ(shown(chart.getElements(NORLEX_taxonSystem)), "V Є O S D C P T J K Pg N Q");
    // series and stages of each system, as the general scale has them
    const struct {
        const wchar_t* system;
        std::size_t series;
        std::size_t stages;
    } cases[] = {
        {L"V", 2, 0},
        {L"Є", 3, 10},
        {L"O", 3, 7},
        {L"S", 2, 7},
        {L"D", 3, 7},
        {L"C", 3, 7},
        {L"P", 3, 9},
        {L"T", 3, 7},
        {L"J", 3, 12},
        {L"K", 2, 12},
        {L"Pg", 3, 9},
        {L"N", 2, 8},
        {L"Q", 4, 1},
    };
    for (const auto& c : cases) {
        std::vector<element> below;
        chart.fillTaxonRangeDown(*chart.identifySingle(c.system), below);
        const auto count = [&](NORLEX_taxonType level) {
            return static_cast<std::size_t>(std::count_if(
                below.begin(), below.end(), [&](const auto& unit) { return unit.type == level; }));
        };
        EXPECT_EQ(count(NORLEX_taxonSeries), c.series) << toUtf8(c.system);
        EXPECT_EQ(count(NORLEX_taxonStage), c.stages) << toUtf8(c.system);
    }
}

TEST_F(ShippedChartTest, expressionsOfDailyWork) {
    struct {
        const char* text;
        const char* units;
    } const cases[] = {
        {"D3fm-C1t", "D3fm C1t"},
        {"D2-C1t", "D2ef D2zv D3f D3fm C1t"},
        {"J{1-3}", "J1 J2 J3"},
        {"V2-Є1t", "V2 Є1t"},
        {"RF-V", "RF1 RF2 RF3 V"},
        {"PR-Є", "KR1 KR2 RF1 RF2 RF3 V Є"},
        {"S1w-D1l", "S1sh S1gm S2g S2lf S2p D1l"},
        {"K2-Q", "K2 Pg1 Pg2 Pg3 N1 N2 QG QE QNP QH"},
        {"N2p-QI", "N2p Qgl QE1 QE2 QI"},
        {"Q{I-IV}", "QI QII QIII QIV"},
        {"Нижний {девон+мел}", "D1 K1"},
        {"Пермская - Триасовая", "P T"},
        {"C{1-2} + P1ar", "C1 C2 P1ar"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(identified(chart, c.text), c.units) << c.text;
}

// Whatever the ends, each row between them is within exactly one unit of the range, and none of
// these reaches beyond them.
TEST_F(ShippedChartTest, rangesAreWithoutGapsAndOverlaps) {
    const auto& rows = chart.getRawDataList();
    std::vector<element> units;
    std::map<std::wstring, std::set<std::size_t>> rowsBy;
    for (const auto level : levels)
        for (const auto& unit : chart.getElements(level)) {
            units.push_back(unit);
            rowsBy[unit.index] = rowsOf(rows, unit);
        }
    for (std::size_t i = 0; i < units.size(); ++i)
        for (std::size_t k = i; k < units.size(); k += 5) {
            std::vector<element> between;
            chart.addRange(units[k], units[i], between);
            std::vector<std::size_t> covered;
            for (const auto& unit : between)
                covered.insert(covered.end(), rowsBy[unit.index].begin(), rowsBy[unit.index].end());
            const auto& one = rowsBy[units[i].index];
            const auto& other = rowsBy[units[k].index];
            std::vector<std::size_t> expected;
            for (std::size_t row = std::min(*one.begin(), *other.begin());
                 row <= std::max(*one.rbegin(), *other.rbegin());
                 ++row)
                expected.push_back(row);
            EXPECT_EQ(covered, expected)
                << toUtf8(units[k].index) << " and " << toUtf8(units[i].index);
        }
}
