// Data made from data, in a container.
#include "tests/derived/log_text.h"
#include "tests/wells/well_fixture.h"

#include "NORLEX_propTemplate.h"
#include "globalEventObserver.h"

#include <cmath>

namespace {

const NORLEX_propDescription gr(L"GR", L"LAS");
const NORLEX_propDescription made(L"made", L"G");

class DerivedTest : public WellTest {
protected:
    // Altitude 100, from 100 down leaning 60 degrees: a metre along the hole is 0.5 down.
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(m_well.emplace(db(), names).setAltitude(100));
        ASSERT_TRUE(w().loadInclFromData({station(0, 0, 0), station(100, 60, 0)}, true));
    }

    NORLEX_well& w() { return *m_well; }

    void
    addLog(const NORLEX_propDescription& prop, const char* samples, const wchar_t* units = L"") {
        ASSERT_TRUE(
            NORLEX_wellProperty::createLAS(db(), w().getID(), prop, L"", logText::log(samples)))
            << lastError();
        if (*units != 0) {
            ASSERT_TRUE(w().openProperty(prop)->setAttribute(L"UNITS", units));
        }
    }

    // Records whose second field, the description, is the value; "-" is no number.
    void addRecords(NORLEX_dataType type, const NORLEX_propDescription& prop, const char* pieces) {
        auto property = w().createPropertyPtr(type, prop);
        ASSERT_TRUE(property) << lastError();
        std::vector<NORLEX_bulkRow> rows;
        for (const auto& piece : logText::pieces(pieces)) {
            NORLEX_bulkRow row;
            row.top = piece.span.top;
            row.bot = piece.span.bot;
            const std::string value = logText::number(piece.value);
            row.values = {L"record", std::wstring(value.begin(), value.end())};
            rows.push_back(row);
        }
        ASSERT_TRUE(property->prepareBulk(rows)) << lastError();
    }

    // The samples of a log.
    std::string samplesOf(const NORLEX_propDescription& prop) {
        std::vector<NORLEX_logSample> samples;
        auto property = w().openProperty(prop);
        return property && property->getSamples(samples) ? logText::shown(samples) : lastError();
    }

    // Depths and values of records: "10..20 (100..90): GR, from 5; …"
    std::string recordsOf(const NORLEX_propDescription& prop) {
        auto property = w().openProperty(prop);
        if (!property)
            return lastError();
        std::string out;
        const auto& records = property->getRecords();
        for (std::size_t i = 0; i < records.size(); ++i) {
            const auto& r = records[i];
            out += (i == 0 ? "" : "; ") + logText::number(r.top) + ".." + logText::number(r.bot)
                   + " (" + logText::number(r.topAbs) + ".." + logText::number(r.botAbs) + "):";
            for (std::size_t f = 0; f < property->getFields().size(); ++f)
                out += (f == 0 ? " " : ", ") + ts::strconv::toUtf8(property->getValue(f, i));
        }
        return out;
    }

    const std::wstring text =
        L"\u041e\u043f\u0438\u0441\u0430\u043d\u0438\u0435"; // the second field

private:
    std::optional<NORLEX_well> m_well;
};

} // namespace

TEST_F(DerivedTest, aLogOfALogKeepsItsUnitAndSaysHowItWasMade) {
    addLog(gr, "3:9 2:5 1:1", L"API"); // falling depths come in order
    struct {
        std::function<bool(const NORLEX_propDescription&)> make;
        const char* samples;
        const wchar_t* description;
    } const cases[] = {
        {[&](const auto& to) { return w().windowFilter(gr, NORLEX_windowMean, 2, to); },
         "1:3 2:5 3:7",
         L"mean of GR, window 2 m"},
        {[&](const auto& to) { return w().windowFilter(gr, NORLEX_windowMedian, 0.5, to); },
         "1:1 2:5 3:9",
         L"median of GR, window 0.5 m"},
        {[&](const auto& to) { return w().propSimplify(gr, 0.25, to); },
         "1:1 3:9",
         L"GR simplified, tolerance 0.25"},
        {[&](const auto& to) {
             return w().joinLas({gr, gr}, NORLEX_lasOverlapMean, to);
         },
         "1:1 2:5 3:9",
         L"LAS / GR, LAS / GR joined, overlap mean"},
    };
    for (const auto& c : cases) {
        NORLEX_propDescription to(c.description, L"G");
        ASSERT_TRUE(c.make(to)) << lastError();
        EXPECT_EQ(samplesOf(to), c.samples);
        const auto log = w().openProperty(to);
        EXPECT_EQ(log->getComment(), c.description);
        EXPECT_EQ(log->getAttribute(L"UNITS"), L"API");
        std::vector<NORLEX_logSample> samples;
        ASSERT_TRUE(log->getSamples(samples));
        EXPECT_EQ(samples.front().depthAbs, -1.0) << "as the log has it";
    }
}

TEST_F(DerivedTest, aLogOfRecordsIsAtEvenSteps) {
    addRecords(NORLEX_dataTypeColumn, {L"C", L""}, "1..2:10 2..3:- 98..102:20");
    ASSERT_TRUE(w().makeLogFromData({L"C", L""}, text, 49, made)) << lastError();
    EXPECT_EQ(samplesOf(made), "49:- 98:20"); // the first multiple below the top at 1 is 49
    EXPECT_EQ(w().openProperty(made)->getComment(), text + L" of C, step 49 m");
    addRecords(NORLEX_dataTypeMarker, {L"M", L""}, "90..90:10 100..100:- 110..110:20");
    ASSERT_TRUE(w().makeLogFromData({L"M", L""}, text, 10, {L"of points", L""})) << lastError();
    EXPECT_EQ(samplesOf({L"of points", L""}), "90:10 100:15 110:20");
    std::vector<NORLEX_logSample> samples;
    ASSERT_TRUE(w().openProperty({L"of points", L""})->getSamples(samples));
    EXPECT_NEAR(samples[2].depthAbs, -5.0, 1e-9) << "the survey's";
}

TEST_F(DerivedTest, markersAndIntervalsHaveTheDepthsOfTheSurvey) {
    addLog(gr, "90:0 110:100 130:0");
    ASSERT_TRUE(w().makeMarkerFromLAS(gr, 75, NORLEX_crossingBoth, made)) << lastError();
    EXPECT_EQ(recordsOf(made),
              "105..105 (-2.5..-2.5): GR > 75, 105.00; 115..115 (-7.5..-7.5): GR < 75, 115.00");

    NORLEX_intervalOptions from;
    from.from = 75;
    ASSERT_TRUE(w().createIntervalsFromProp(gr, L"", from, {L"of log", L""})) << lastError();
    EXPECT_EQ(recordsOf({L"of log", L""}), "105..115 (-2.5..-7.5): GR, from 75");

    NORLEX_intervalOptions to;
    to.to = 15.5;
    to.minThickness = 2;
    addRecords(NORLEX_dataTypeInterval, {L"I", L""}, "1..2:15.5 2..3:1 3..9:16 9..9.5:1 20..30:-");
    ASSERT_TRUE(w().createIntervalsFromProp({L"I", L""}, text, to, {L"of intervals", L""}));
    EXPECT_EQ(recordsOf({L"of intervals", L""}), "1..3 (99..97): I, to 15.5");
    to.maxGap = 6;
    ASSERT_TRUE(w().createIntervalsFromProp({L"I", L""}, text, to, {L"over gaps", L""}));
    EXPECT_EQ(recordsOf({L"over gaps", L""}), "1..9.5 (99..90.5): I, to 15.5");

    addRecords(NORLEX_dataTypeMarker, {L"P", L""}, "10..10:1 14..14:2 20..20:99");
    ASSERT_TRUE(w().createIntervalsFromProp({L"P", L""}, text, to, {L"of points", L""}));
    EXPECT_EQ(recordsOf({L"of points", L""}), "10..17 (90..83): P, to 15.5");
}

// In 2..8 each sample stands for 2 m and those at the ends for 1 m: (2*1 + 4*2 + 6*2 + 8*1) / 6.
TEST_F(DerivedTest, aStatisticGoesIntoAFieldOfTheIntervals) {
    addLog(gr, "0:0 2:2 4:4 6:6 8:8 10:-");
    addRecords(NORLEX_dataTypeColumn, {L"C", L""}, "0..1:1 2..8:2 9..20:3");
    int changes = 0;
    const auto heard =
        globalEventObserver::callback([&](const eventMsgDescription&) { ++changes; });
    const auto subscription = std::make_shared<globalEventObserver::callback>(heard);
    globalEventObserver::Instance().subscribe(subscription);
    ASSERT_TRUE(w().calcAttributeToColumn(gr, {L"C", L""}, L"GR mean", NORLEX_statisticMean))
        << lastError();
    EXPECT_EQ(changes, 1) << "one for all values";
    EXPECT_EQ(recordsOf({L"C", L""}),
              "0..1 (100..99): record, 1, 0; 2..8 (98..92): record, 2, 5; "
              "9..20 (91..80): record, 3, ");
    EXPECT_EQ(w().openProperty({L"C", L""})->getFields()[2].type, NORLEX_fieldTypeNumeric);
    // again, into the field that is there now
    ASSERT_TRUE(w().calcAttributeToColumn(gr, {L"C", L""}, L"GR mean", NORLEX_statisticMax));
    EXPECT_EQ(recordsOf({L"C", L""}),
              "0..1 (100..99): record, 1, 0; 2..8 (98..92): record, 2, 8; "
              "9..20 (91..80): record, 3, ");
    EXPECT_EQ(cell(L"SELECT count(*) FROM val"), L"9");
}

TEST_F(DerivedTest, oreIsNamedByItsMean) {
    addRecords(NORLEX_dataTypeInterval, {L"assays", L""}, "0..1:5 1..1.5:1 1.5..3:6 3..9:0.1");
    ASSERT_TRUE(NORLEX_wellProperty::createOreInterval(
        db(), w().getID(), {L"assays", L""}, text, made, {3, 1, 0.5}))
        << lastError();
    // (5 * 1 + 1 * 0.5 + 6 * 1.5) / 3
    EXPECT_EQ(recordsOf(made), "0..3 (100..97): 4.83, mean 4.8333 over 3.00 m");
    addLog(gr, "0:0.0034 1:0.0034 2:0.001");
    ASSERT_TRUE(NORLEX_wellProperty::createOreInterval(
        db(), w().getID(), gr, L"", {L"poor", L""}, {0.002, 0, 0}));
    EXPECT_EQ(recordsOf({L"poor", L""}), "0..1.5 (100..98.5): 0.0034, mean 0.003400 over 1.50 m");
}

TEST_F(DerivedTest, aDataSetOfALogGetsItsTemplateWhereThereIsNone) {
    addLog(gr, "1:0.1 2:- 3:1e-7");
    ASSERT_TRUE(NORLEX_propTemplate::getTemplateListForType(db(), NORLEX_dataTypeSerial).empty());
    for (const auto* name : {L"first", L"second"}) {
        ASSERT_TRUE(NORLEX_wellProperty::createSerialFromLAS(db(), w().getID(), gr, {name, L""}))
            << lastError();
        EXPECT_EQ(recordsOf({name, L""}), "1..1 (-1..-1): 0.1; 3..3 (-3..-3): 1e-07");
    }
    EXPECT_EQ(NORLEX_propTemplate::getTemplateListForType(db(), NORLEX_dataTypeSerial).size(), 1U);
    // and such a set makes a log again
    ASSERT_TRUE(w().makeLogFromData(
        {L"first", L""}, w().openProperty({L"first", L""})->getFields()[0].name, 3, made));
    EXPECT_EQ(samplesOf(made), "3:1e-07");
}

TEST_F(DerivedTest, refusalsLeaveTheWellAsItWas) {
    addLog(gr, "0:0 1:1 2:0", L"API");
    addLog({L"other", L""}, "0:0 1:1", L"V");
    addRecords(NORLEX_dataTypeColumn, {L"C", L""}, "0..1:1");
    addRecords(NORLEX_dataTypeColumn, {L"words", L""}, "0..1:-");
    addRecords(NORLEX_dataTypeMarker, {L"P", L""}, "1..1:1");
    const NORLEX_propDescription c(L"C", L"");
    const NORLEX_propDescription points(L"P", L"");
    const NORLEX_propDescription none(L"none", L"");
    const double nan = std::nan("");
    const auto interval = [](double from, double to, double thickness, double gap) {
        return NORLEX_intervalOptions{from, to, thickness, gap};
    };
    const auto ore = [&](const NORLEX_propDescription& source,
                         const std::wstring& field,
                         const NORLEX_oreOptions& options,
                         const NORLEX_propDescription& to) {
        return NORLEX_wellProperty::createOreInterval(
            db(), w().getID(), source, field, to, options);
    };
    const auto serial = [&](const NORLEX_propDescription& log, const NORLEX_propDescription& to) {
        return NORLEX_wellProperty::createSerialFromLAS(db(), w().getID(), log, to);
    };
    struct {
        const char* where;
        std::function<bool()> make;
        const char* line; // the refusal begins so
    } const cases[] = {
        {"no source",
         [&] { return w().windowFilter(none, NORLEX_windowMean, 1, made); },
         "the well has no property none"},
        {"no log",
         [&] { return w().windowFilter(c, NORLEX_windowMean, 1, made); },
         "the property C is no log"},
        {"window 0",
         [&] { return w().windowFilter(gr, NORLEX_windowMean, 0, made); },
         "the window of a filter is 0; a finite number greater than 0"},
        {"window nan",
         [&] { return w().windowFilter(gr, NORLEX_windowMean, nan, made); },
         "the window of a filter is nan"},
        {"kind",
         [&] { return w().windowFilter(gr, static_cast<NORLEX_windowKind>(2), 1, made); },
         "the kind of a filter is 2; 0 to 1 is expected"},
        {"result exists",
         [&] { return w().windowFilter(gr, NORLEX_windowMean, 1, c); },
         "the well"},
        {"tolerance", [&] { return w().propSimplify(gr, -1, made); }, "the tolerance"},
        {"simplified exists", [&] { return w().propSimplify(gr, 1, gr); }, "the well"},
        {"cutoff",
         [&] { return w().makeMarkerFromLAS(gr, nan, NORLEX_crossingBoth, made); },
         "the cutoff of a log is nan"},
        {"markers exist",
         [&] { return w().makeMarkerFromLAS(gr, 1, NORLEX_crossingBoth, points); },
         "the well"},
        {"one run",
         [&] { return w().joinLas({gr}, NORLEX_lasOverlapMean, made); },
         "runs to be joined: 1"},
        {"units",
         [&] {
             return w().joinLas({gr, {L"other", L""}}, NORLEX_lasOverlapMean, made);
         },
         "the unit of other is \"V\", that of LAS / GR \"API\""},
        {"joined exists",
         [&] {
             return w().joinLas({gr, gr}, NORLEX_lasOverlapMean, gr);
         },
         "the well"},
        {"step", [&] { return w().makeLogFromData(c, text, 0, made); }, "the step of a log is 0"},
        {"tiny step", [&] { return w().makeLogFromData(c, text, 1e-9, made); }, "a step of 1e-09"},
        {"field",
         [&] { return w().makeLogFromData(c, L"?", 1, made); },
         "the property C has no field"},
        {"words",
         [&] {
             return w().makeLogFromData({L"words", L""}, text, 1, made);
         },
         "no value of the field"},
        {"of a log",
         [&] { return w().makeLogFromData(gr, L"", 1, made); },
         "the property LAS / GR holds neither points nor intervals"},
        {"log exists", [&] { return w().makeLogFromData(c, text, 1, gr); }, "the well"},
        {"points",
         [&] { return w().calcAttributeToColumn(gr, points, L"F", NORLEX_statisticMean); },
         "the property P holds no intervals"},
        {"field of texts",
         [&] { return w().calcAttributeToColumn(gr, c, text, NORLEX_statisticMean); },
         "the field"},
        {"field without a name",
         [&] { return w().calcAttributeToColumn(gr, c, L"'", NORLEX_statisticMean); },
         "the name of a field is empty"},
        {"statistic",
         [&] { return w().calcAttributeToColumn(gr, c, L"F", static_cast<NORLEX_statistic>(7)); },
         "the statistic is 7"},
        {"range",
         [&] { return w().createIntervalsFromProp(gr, L"", interval(2, 1, 0, 0), made); },
         "values from 2 to 1 are none"},
        {"thickness",
         [&] { return w().createIntervalsFromProp(gr, L"", interval(0, 1, -1, 0), made); },
         "the smallest thickness of an interval is -1"},
        {"gap",
         [&] { return w().createIntervalsFromProp(gr, L"", interval(0, 1, 0, nan), made); },
         "the largest gap"},
        {"intervals of none",
         [&] { return w().createIntervalsFromProp(none, L"", {}, made); },
         "the well has no property none"},
        {"intervals exist",
         [&] { return w().createIntervalsFromProp(gr, L"", {}, c); },
         "the well"},
        {"ore cutoff",
         [&] {
             return ore(c, text, {nan, 0, 0}, made);
         },
         "the cutoff of ore is nan"},
        {"ore of points",
         [&] {
             return ore(points, text, {0, 0, 0}, made);
         },
         "the property P holds points"},
        {"ore exists",
         [&] {
             return ore(c, text, {0, 0, 0}, c);
         },
         "the well"},
        {"data set of none", [&] { return serial(none, made); }, "the well has no property none"},
        {"data set exists", [&] { return serial(gr, c); }, "the well"},
    };
    const auto before = everything();
    const auto templates = cell(L"SELECT count(*) FROM base_template");
    for (const auto& one : cases) {
        EXPECT_FALSE(one.make()) << one.where;
        EXPECT_TRUE(lastError().starts_with(one.line)) << one.where << ": " << lastError();
        EXPECT_EQ(everything(), before) << one.where;
    }
    EXPECT_EQ(cell(L"SELECT count(*) FROM base_template"), templates) << "made for the data set";
}
