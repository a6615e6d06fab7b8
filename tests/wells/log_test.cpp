#include "tests/wells/well_fixture.h"

#include "platform/sql_text.h"
#include "wells/log_records.h"
#include "wells/sample_file.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace {
const NORLEX_propDescription gr(L"GR", L"LAS");
}

// Altitude 100, from 100 down leaning 60 degrees: a metre along the hole is 0.5 down.
TEST_F(WellTest, aLogByAbsoluteDepthsGetsItsMeasuredOnes) {
    auto w = well();
    ASSERT_TRUE(w.setAltitude(100));
    ASSERT_TRUE(w.loadInclFromData({station(0, 0, 0), station(100, 60, 0)}, true));
    const double nan = std::nan("");
    ASSERT_TRUE(NORLEX_wellProperty::createLAS(
        db(), w.getID(), gr, {50, 0, -10}, {1, nan, NORLEX_missingValue}, w.getIncl()))
        << lastError();
    auto log = w.openProperty(gr);
    EXPECT_EQ(log->getComment(), L"create by formula");
    std::vector<NORLEX_logSample> samples;
    ASSERT_TRUE(log->getSamples(samples));
    ASSERT_EQ(samples.size(), 3U);
    const double expected[] = {50, 100, 120}; // 10 below 0 are 20 along the hole
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(samples[i].depth, expected[i], 1e-9) << i;
    EXPECT_EQ(samples[2].depthAbs, -10.0);
    EXPECT_EQ(samples[1].value, NORLEX_missingValue) << "a value that is not a number";
    EXPECT_EQ(log->getMinValue(), 1.0);
    EXPECT_EQ(log->getMaxValue(), 1.0);
    // the first double of a sample is the measured depth
    const std::string bytes = temp_folder::read(samplePath(gr));
    double first = 0.0;
    std::memcpy(&first, bytes.data() + 100, sizeof first);
    EXPECT_NEAR(first, 50.0, 1e-9);
}

TEST_F(WellTest, refusedLogsLeaveNothing) {
    auto w = well();
    const auto id = w.getID();
    auto* incl = w.getIncl();
    const auto before = everything();
    const double nan = std::nan("");
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<double> two = {1, 2};
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(db(), id, gr, L"", two, {1}, incl));
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(db(), id, gr, L"", {1, nan}, two, incl));
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(db(), id, gr, L"", {1, -infinity}, two, incl));
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(db(), id, gr, L"", two, two, nullptr));
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(db(), id, gr, L"", {{nan, 1, 1}}));
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(db(), id + 1, gr, L"", {{1, 1, 1}})) << "no well";
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(db(), id, {L"", L"G"}, L"", {{1, 1, 1}}));
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(nullptr, id, gr, L"", {{1, 1, 1}}));
    EXPECT_EQ(everything(), before);
    ASSERT_TRUE(NORLEX_wellProperty::createLAS(db(), id, gr, L"", {{1, 1, 1}}));
    const auto with = everything();
    EXPECT_FALSE(NORLEX_wellProperty::createLAS(db(), id, gr, L"", {{2, 2, 2}})) << "taken";
    EXPECT_EQ(everything(), with);
}

TEST_F(WellTest, commitRewritesTheSamples) {
    ASSERT_TRUE(makeLog(gr));
    auto w = well();
    auto log = w.openProperty(gr);
    ASSERT_TRUE(log->setSamples({{1, 99, 7}, {2, 98, std::nan("")}}));
    EXPECT_EQ(w.openProperty(gr)->getRecordCount(), 3U) << "not written yet";
    EXPECT_EQ(log->getRecordCount(), 2U);
    ASSERT_TRUE(log->commit(false)) << lastError();
    double smallest = 0.0;
    double largest = 0.0;
    ASSERT_TRUE(w.openProperty(gr)->getRange(smallest, largest));
    EXPECT_EQ(largest, 7.0);
    EXPECT_FALSE(log->setSamples({{std::nan(""), 1, 1}}));
    EXPECT_EQ(log->getRecordCount(), 2U) << "what was refused is not kept";

    // a file of the older layout gets its range with the first commit
    std::string old(4 + 24, '\0');
    old[0] = 1;
    ASSERT_TRUE(files::put(files::openWrite(samplePath(gr)).get(), old));
    EXPECT_FALSE(log->getRange(smallest, largest));
    EXPECT_EQ(log->getMinValue(), 0.0);
    ASSERT_TRUE(log->commit(false));
    EXPECT_TRUE(log->getRange(smallest, largest));
    EXPECT_EQ(log->getRecordCount(), 1U);

    // a transaction around it takes the old samples back
    {
        transaction outer(db());
        ASSERT_TRUE(outer.isOpen() && log->setSamples({}) && log->commit(false));
        EXPECT_EQ(w.openProperty(gr)->getRecordCount(), 0U);
    }
    EXPECT_EQ(w.openProperty(gr)->getRecordCount(), 1U);
}

TEST_F(WellTest, otherKindsAndMissingFilesHaveNoSamples) {
    auto w = well();
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeMarker, {L"M", L""}));
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeLog, gr));
    ASSERT_TRUE(files::removeFile(samplePath(gr)));
    double range = 0.0;
    for (const auto& prop : {NORLEX_propDescription(L"M", L""), gr}) {
        auto property = w.openProperty(prop);
        std::vector<NORLEX_logSample> samples(1);
        EXPECT_FALSE(property->getSamples(samples));
        EXPECT_TRUE(samples.empty());
        EXPECT_EQ(property->commit(false), prop != gr) << "no file, or nothing to write";
        EXPECT_FALSE(property->getRange(range, range));
        EXPECT_EQ(property->getMaxValue(), 0.0);
        EXPECT_EQ(property->getRecordCount(), 0U);
        EXPECT_TRUE(property->recalcDepth()) << "nothing to compute";
    }
    EXPECT_FALSE(w.openProperty({L"M", L""})->setSamples({}));
    auto log = w.openProperty(gr);
    EXPECT_TRUE(log->setSamples({{1, 1, 1}}) && log->commit(true)) << "the first samples";
    EXPECT_EQ(log->getRecordCount(), 1U);
    NORLEX_wellProperty noSurvey(db(), log->getID(), nullptr);
    EXPECT_FALSE(noSurvey.recalcDepth());
}

TEST_F(WellTest, samplesAreCountedThoughALogHasNoRecords) {
    ASSERT_TRUE(makeLog(gr));
    auto w = well();
    const auto log = w.openProperty(gr);
    EXPECT_TRUE(log->getRecords().empty());
    EXPECT_EQ(log->getRecordCount(), 3U);
    ASSERT_TRUE(log->setSamples({{1, 1, 1}}));
    EXPECT_EQ(log->getRecordCount(), 1U);
}

TEST_F(WellTest, logsWithoutAValueHaveNoRange) {
    auto w = well();
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeLog, {L"new", L""}));
    const auto id = wellId();
    ASSERT_TRUE(NORLEX_wellProperty::createLAS(db(), id, {L"empty", L""}, L"", {}));
    ASSERT_TRUE(NORLEX_wellProperty::createLAS(
        db(), id, {L"missing", L""}, L"", {{1, -1, NORLEX_missingValue}, {2, -2, std::nan("")}}));
    const struct {
        const wchar_t* name;
        std::size_t samples;
    } logs[] = {{L"new", 0}, {L"empty", 0}, {L"missing", 2}};
    for (const auto& [name, count] : logs) {
        const auto log = w.openProperty({name, L""});
        std::vector<NORLEX_logSample> samples;
        EXPECT_TRUE(log->getSamples(samples)) << lastError();
        EXPECT_EQ(samples.size(), count) << name;
        double smallest = 5.0;
        double largest = 5.0;
        EXPECT_FALSE(log->getRange(smallest, largest)) << name;
        EXPECT_EQ(log->getMinValue(), 0.0) << name;
        EXPECT_EQ(log->getMaxValue(), 0.0) << name;
        // neither the log nor its copy lacks its file
        EXPECT_TRUE(NORLEX_wellProperty::copy(db(), id, {name, L""}, id, {name, L"copy"}, {}, {}));
    }
    std::vector<NORLEX_checkFinding> findings;
    EXPECT_TRUE(container->check(findings));
    EXPECT_TRUE(findings.empty());
}

TEST_F(WellTest, aMakerKnowsTheNamesItMadeItself) {
    ASSERT_TRUE(makeLog({L"old", L""}));
    {
        transaction edit(db());
        ASSERT_TRUE(edit.isOpen());
        logRecords::maker logs(*db(), wellId());
        ASSERT_TRUE(logs.isOK());
        const auto make = [&](const wchar_t* name) {
            logRecords::newLog log;
            log.description = {name, L"G"};
            log.comment = L"comment's";
            log.attributes.emplace_back(L"UNITS", L"m");
            log.attributes.emplace_back(L"WELL.X",
                                        L"\x1F"
                                        L"1\x1F");
            log.writeSamples = [](std::FILE* file) {
                return sampleFile::write(file, std::vector<NORLEX_logSample>(2));
            };
            return logs.create(log);
        };
        EXPECT_TRUE(logs.isTaken({L"old", L""}));
        EXPECT_FALSE(logs.isTaken({L"B", L"G"}));
        EXPECT_TRUE(make(L"B") && make(L"A") && make(L"C"));
        EXPECT_FALSE(make(L"A'"));
        EXPECT_TRUE(logs.isTaken({L"C", L"G"}));
        EXPECT_TRUE(edit.commit());
    }
    auto w = well();
    EXPECT_EQ(w.getPropertyCount(), 4);
    const auto log = w.openProperty({L"A", L"G"});
    EXPECT_EQ(log->getComment(), L"comment's");
    EXPECT_EQ(log->getAttribute(L"UNITS"), L"m");
    EXPECT_EQ(log->getAttributeWellList().size(), 1U);
    EXPECT_EQ(log->getFields().size(), 1U);
    EXPECT_EQ(log->getRecordCount(), 2U);
    EXPECT_FALSE(logRecords::maker(*db(), 999).isOK());
}
