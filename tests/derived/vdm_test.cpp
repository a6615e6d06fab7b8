// Velocity-depth models made of a well's data, and shown as data.
#include "derived/sonic_times.h"
#include "tests/derived/log_text.h"
#include "tests/support/every_failure.h"
#include "tests/wells/well_fixture.h"

#include "NORLEX_propTemplate.h"

namespace {

const NORLEX_propDescription sonic(L"DT", L"LAS");
const NORLEX_propDescription tops(L"Tops", L"");
const std::wstring text = L"Описание";

class BuiltModelTest : public WellTest {
protected:
    // Altitude 100 and a vertical hole.
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(m_well.emplace(db(), names).setAltitude(100)) << lastError();
    }

    NORLEX_well& w() { return *m_well; }

    void addSonic(const char* samples, const wchar_t* units) {
        static_cast<void>(w().removeProperty(sonic));
        auto log = logText::log(samples); // absolute depths from altitude 0
        for (auto& sample : log)
            sample.depthAbs += 100;
        ASSERT_TRUE(NORLEX_wellProperty::createLAS(db(), w().getID(), sonic, L"", log)
                    && w().openProperty(sonic)->setAttribute(L"UNITS", units))
            << lastError();
    }

    // Markers at measured depths with their times in the second field.
    void addTops(const std::vector<std::pair<double, std::wstring>>& times) {
        static_cast<void>(w().removeProperty(tops));
        std::vector<NORLEX_bulkRow> rows;
        for (const auto& [depth, time] : times)
            rows.push_back({.top = depth, .values = {L"top", time}});
        const auto property = w().createPropertyPtr(NORLEX_dataTypeMarker, tops);
        ASSERT_TRUE(property && property->prepareBulk(rows)) << lastError();
    }

    std::string model() {
        std::vector<vdm_data> points;
        w().getVDM()->getList(points);
        return logText::joined(points, [](const auto& p) {
            return numbers::shortest(p.depth) + ":" + numbers::fixed(p.time, 4);
        });
    }

    std::string velocities(const NORLEX_propDescription& prop) {
        const auto property = w().openProperty(prop);
        if (!property)
            return lastError();
        std::string out;
        for (std::size_t i = 0; i < property->getRecords().size(); ++i) {
            const auto& r = property->getRecords()[i];
            out += (out.empty() ? "" : " ") + numbers::shortest(r.top) + ".."
                   + numbers::shortest(r.bot) + ":" + ts::strconv::toUtf8(property->getValue(0, i));
        }
        return out;
    }

    failing::statements faults;

private:
    std::optional<NORLEX_well> m_well;
};

NORLEX_VDMcreateOptions tie(double depth, double time, double maxGap = 10.0, double step = 0.0) {
    NORLEX_VDMcreateOptions out;
    out.tieDepth = depth;
    out.tieTime = time;
    out.maxGap = maxGap;
    out.step = step;
    return out;
}

} // namespace

// By hand: 500 us/m over 10 m are 5 ms one way and 10 ms there and back; between 500 and 300 us/m
// the mean, 400, makes 8 ms.
TEST_F(BuiltModelTest, aSonicLogIsIntegratedFromTheTiePoint) {
    struct {
        const char* where;
        const char* samples; // measured depths; absolute ones are 100 minus those
        const wchar_t* units;
        NORLEX_VDMcreateOptions options;
        const char* expected;
    } const cases[] = {
        {"from the first sample",
         "100:500 110:500 120:300",
         L"us/m",
         tie(0, 80),
         "100:0.0000 0:-80.0000 -10:-90.0000 -20:-98.0000"},
        {"from inside, 450 us/m there",
         "100:500 110:400 120:400",
         L"µs/m",
         tie(-5, 80),
         "100:0.0000 -5:-80.0000 -10:-84.2500 -20:-92.2500"},
        {"from above the log",
         "100:500 110:500",
         L"USEC/M",
         tie(4, 80),
         "100:0.0000 4:-80.0000 0:-84.0000 -10:-94.0000"},
        {"feet: 152.4 are 500",
         "100:152.4 110:152.4",
         L"US/F",
         tie(0, 80),
         "100:0.0000 0:-80.0000 -10:-90.0000"},
        {"bridged with the last value",
         "100:500 105:- 110:0 115:300 125:300",
         L"us/m",
         tie(0, 80, 15),
         "100:0.0000 0:-80.0000 -15:-95.0000 -25:-101.0000"},
        {"nothing at both ends",
         "90:- 100:500 110:500 120:-",
         L"us/m",
         tie(0, 80),
         "100:0.0000 0:-80.0000 -10:-90.0000"},
        {"fewer points",
         "100:500 104:500 108:500 112:500 114:500",
         L"us/m",
         tie(0, 80, 10, 5),
         "100:0.0000 0:-80.0000 -8:-88.0000 -14:-94.0000"},
        {"at the head", "0:500 10:500", L"us/m", tie(100, 0), "100:0.0000 90:-10.0000"},
    };
    for (const auto& c : cases) {
        addSonic(c.samples, c.units);
        EXPECT_TRUE(w().VDMimport_fromSonic(sonic, c.options)) << c.where << ": " << lastError();
        EXPECT_EQ(model(), c.expected) << c.where;
    }
    NORLEX_VDMcreateOptions oneWay = tie(0, 0.04);
    oneWay.oneWay = oneWay.seconds = true;
    oneWay.units = L"us / m";
    addSonic("100:500 110:500", L"s");
    ASSERT_TRUE(w().VDMimport_fromSonic(sonic, oneWay)) << lastError();
    EXPECT_EQ(model(), "100:0.0000 0:-80.0000 -10:-90.0000");
}

// A hole that goes level and up again: only new depths count.
TEST(SonicTimesTest, passOverWhatIsNoWayDown) {
    const NORLEX_logSample samples[] = {
        {0, 0, 500}, {10, -10, 500}, {20, -10, 900}, {30, -5, 900}, {40, -20, 500}};
    const auto points = sonicTimes::integrated(samples, {.maxGap = 10});
    ASSERT_TRUE(points.has_value());
    EXPECT_EQ(points->size(), 3U);
    EXPECT_DOUBLE_EQ(points->back().time, -20.0);
}

TEST_F(BuiltModelTest, markersHaveTimes) {
    struct {
        const char* where;
        std::vector<std::pair<double, std::wstring>> times;
        const char* expected; // "" when refused
        const char* line;
    } const cases[] = {
        {"in any order",
         {{200, L"120,5"}, {150, L"60"}, {170, L""}},
         "100:0.0000 -50:-60.0000 -100:-120.5000",
         ""},
        {"time that does not grow",
         {{150, L"60"}, {200, L"60"}},
         "",
         "the two-way time 60 ms at the absolute depth -100 is not greater than 60 ms at -50"},
        {"no number", {{150, L"soon"}}, "", "the time of the marker at the absolute depth -50 is"},
        {"no times", {{150, L""}}, "", "no marker has a time"},
    };
    for (const auto& c : cases) {
        addTops(c.times);
        ASSERT_TRUE(w().clearVDM());
        EXPECT_EQ(w().VDMimport_fromMarkers(tops, text, {}), *c.line == 0) << c.where;
        EXPECT_TRUE(*c.line == 0 || lastError().starts_with(c.line)) << c.where << lastError();
        EXPECT_EQ(model(), *c.line == 0 ? c.expected : "100:0.0000") << c.where;
    }
    EXPECT_FALSE(w().VDMimport_fromMarkers(tops, L"none", {}));
    addSonic("1:1", L"us/m");
    EXPECT_FALSE(w().VDMimport_fromMarkers(sonic, text, {})) << "no points";
}

// By hand: 100 m in 50 ms one way are 2000 m/s, the next 100 m in 25 ms 4000 m/s; all of it 200 m
// in 75 ms.
TEST_F(BuiltModelTest, velocitiesAreIntervalsThatAreMadeAnew) {
    const NORLEX_propDescription interval(L"Vi", L"V");
    const NORLEX_propDescription average(L"Va", L"V");
    EXPECT_FALSE(w().VDMmakeIntervalVelocity(interval)) << "no model";
    EXPECT_TRUE(NORLEX_propTemplate::getTemplateListForType(db(), NORLEX_dataTypeVDMAvg).empty());
    ASSERT_TRUE(w().VDMimport_fromPoints({{L"", 0, -100}, {L"", -100, -150}}));
    ASSERT_TRUE(w().VDMmakeIntervalVelocity(interval) && w().VDMmakeAverageVelocity(average))
        << lastError();
    EXPECT_EQ(velocities(interval), "0..100:2000.00 100..200:4000.00");
    EXPECT_EQ(velocities(average), "0..100:2000.00 100..200:2666.67");
    EXPECT_EQ(w().openProperty(interval)->getFields()[0].name, L"Значение");
    const std::int64_t id = w().openProperty(interval)->getID();
    ASSERT_TRUE(w().VDMimport_fromPoints({{L"", 0, -50}, {L"", -10, -50}}));
    ASSERT_TRUE(w().VDMmakeIntervalVelocity(interval)) << lastError();
    EXPECT_EQ(velocities(interval), "0..100:4000.00 100..110:") << "two points at one time";
    EXPECT_EQ(w().openProperty(interval)->getID(), id);
    EXPECT_EQ(model(), "100:0.0000 0:-50.0000 -10:-50.0000") << "stays";
    EXPECT_FALSE(w().VDMmakeIntervalVelocity(average)) << "of another kind";
    EXPECT_EQ(cell(L"SELECT count(*) FROM interval_data"), L"4");
    ASSERT_TRUE(w().removeProperty(average));
    EXPECT_EQ(model(), "100:0.0000") << "the model goes with what shows it";
}

TEST_F(BuiltModelTest, refusalsSayWhatWouldDo) {
    addSonic("100:500 130:500", L"us/m");
    const auto of = [](std::wstring units) {
        auto out = tie(0, 80, 50);
        out.units = std::move(units);
        return out;
    };
    struct {
        const char* where;
        NORLEX_VDMcreateOptions options;
        const char* line;
    } const cases[] = {
        {"gap", tie(0, 80, 29), "the log has no values from 0 to -30 (absolute depth), which is"},
        {"far above", tie(40, 80, 35), "the log has no values from 40 to 0"},
        {"below the log",
         tie(-30, 80, 50),
         "the tie point at -30 is not above the last value at -30"},
        {"above the head", tie(101, 80), "the absolute depth 101 is above the well head at 100"},
        {"no time", tie(0, 0, 50), "the two-way time 0 ms at the absolute depth 0 is not greater"},
        {"unit", of(L"gAPI"), "the unit of LAS / DT is \"gAPI\"; us/m or us/ft is expected"},
        {"length", of(L"us/in"), "the unit of LAS / DT"},
        {"tie", tie(std::nan(""), 80), "the depth of a tie point is nan"},
        {"gap below 0", tie(0, 80, -1), "the longest gap of a sonic log is -1"},
        {"step", tie(0, 80, 50, -1), "the step of a velocity model is -1"},
    };
    ASSERT_TRUE(w().VDMimport_fromPoints({{L"", 0, -100}}));
    for (const auto& c : cases) {
        EXPECT_FALSE(w().VDMimport_fromSonic(sonic, c.options)) << c.where;
        EXPECT_TRUE(lastError().starts_with(c.line)) << c.where << ": " << lastError();
        EXPECT_EQ(model(), "100:0.0000 0:-100.0000") << c.where;
    }
    addSonic("100:- 110:-5", L"us/m");
    EXPECT_FALSE(w().VDMimport_fromSonic(sonic, tie(0, 80)));
    EXPECT_FALSE(w().VDMimport_fromSonic(tops, tie(0, 80))) << "no such log";
}

TEST_F(BuiltModelTest, whateverFailsItStaysAsItWas) {
    addSonic("100:500 110:500", L"us/m");
    addTops({{150, L"60"}, {200, L"70"}});
    struct {
        const char* where;
        bool (*run)(NORLEX_well&);
    } const operations[] = {
        {"sonic", [](NORLEX_well& of) { return of.VDMimport_fromSonic(sonic, tie(0, 80)); }},
        {"markers", [](NORLEX_well& of) { return of.VDMimport_fromMarkers(tops, text, {}); }},
        {"velocities",
         [](NORLEX_well& of) {
             return of.VDMmakeAverageVelocity({L"V", L""});
         }},
        {"velocities anew",
         [](NORLEX_well& of) {
             return of.VDMmakeAverageVelocity({L"V", L""});
         }},
        {"velocities gone",
         [](NORLEX_well& of) {
             return of.removeProperty({L"V", L""});
         }},
    };
    for (const auto& o : operations) {
        const auto run = [&] {
            NORLEX_well of(db(), names);
            return of.isOK() && o.run(of);
        };
        failing::forEveryFailedQuery(*container, faults, o.where, run);
        failing::forEveryFailure(*container, faults, o.where, run);
        if (HasFatalFailure())
            return;
    }
    EXPECT_EQ(model(), "100:0.0000");
}
