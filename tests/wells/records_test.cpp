// Points and intervals: how they are written, read, changed and removed.
#include "tests/wells/well_fixture.h"

#include "globalEventObserver.h"

#include <limits>

namespace {

constexpr double unknown = NORLEX_unknownDepth;

class RecordTest : public WellTest {
protected:
    // A vertical well of altitude 1000: the absolute depth is 1000 minus the measured one.
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        w = std::make_unique<NORLEX_well>(db(), names);
        ASSERT_TRUE(w->setAltitude(1000)) << lastError();
        markers = w->createPropertyPtr(NORLEX_dataTypeMarker, {L"M", L"G"});
        layers = w->createPropertyPtr(NORLEX_dataTypeInterval, {L"I", L"G"});
        ASSERT_TRUE(markers && layers) << lastError();
    }

    // "top bot topAbs botAbs value1|value2; " of every record, in order.
    static std::wstring shown(NORLEX_wellProperty& property) {
        std::wstring out;
        const auto records = property.getRecords();
        for (std::size_t i = 0; i < records.size(); ++i) {
            const auto& r = records[i];
            for (const double depth : {r.top, r.bot, r.topAbs, r.botAbs})
                out += sqlText::number(depth) + L" ";
            out += property.getValue(0, i) + L"|" + property.getValue(1, i) + L"; ";
        }
        return out;
    }

    std::unique_ptr<NORLEX_well> w;
    std::unique_ptr<NORLEX_wellProperty> markers;
    std::unique_ptr<NORLEX_wellProperty> layers;
};

} // namespace

TEST_F(RecordTest, depthsAreCompletedOrderedAndRounded) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    struct {
        const char* where;
        double top, bot, topAbs, botAbs;
        const wchar_t* stored; // empty: refused
    } const cases[] = {
        {"both systems", 1400, 1500, -400, -500, L"1400 1500 -400 -500"},
        {"swapped", 1500, 1400, -500, -400, L"1400 1500 -400 -500"},
        {"measured only", 1500, 1400, unknown, unknown, L"1400 1500 -400 -500"},
        {"absolute only", unknown, unknown, -500, -400, L"1400 1500 -400 -500"},
        {"an end in each system", unknown, 1500, -400, unknown, L"1400 1500 -400 -500"},
        {"the other end in each", 1400, unknown, unknown, -500, L"1400 1500 -400 -500"},
        {"rounded", 10.004, 20.006, unknown, unknown, L"10 20.01 990 979.99"},
        {"no thickness", 10, 10, unknown, unknown, L"10 10 990 990"},
        {"top unknown in both", unknown, 20, unknown, 980, L""},
        {"bottom unknown in both", 10, unknown, 990, unknown, L""},
        {"NaN", nan, 20, unknown, unknown, L""},
        {"infinite", 10, infinite, unknown, unknown, L""},
        {"the missing value", 10, 20, NORLEX_missingValue, unknown, L""},
        {"beyond the mark", 10, 3e6, unknown, unknown, L""},
        {"computed beyond the mark", 10, -1999999, unknown, unknown, L"-1999999 10 1000 990"},
    };
    for (const auto& c : cases) {
        const bool isStored = *c.stored != 0;
        EXPECT_EQ(layers->createPlastCommit(c.top, c.bot, c.topAbs, c.botAbs, {L"a", L"b"}),
                  isStored)
            << c.where << ": " << lastError();
        EXPECT_EQ(row(L"SELECT top, bot, top_abs, bot_abs FROM interval_data ORDER BY obj_id DESC"),
                  isStored ? c.stored : L"")
            << c.where;
        EXPECT_EQ(cell(L"SELECT count(*) FROM val"), isStored ? L"2" : L"0") << c.where;
        for (const auto& record : std::vector(layers->getRecords()))
            ASSERT_TRUE(layers->removeGeometry(record.obj_id)) << lastError();
    }
    ASSERT_TRUE(markers->createPointCommit(unknown, -400, {L"a", L"b"})) << lastError();
    EXPECT_EQ(row(L"SELECT depth, depth_abs, type FROM point_data"), L"1400 -400 0");
    EXPECT_FALSE(markers->createPointCommit(unknown, unknown, {L"a", L"b"}));
    EXPECT_FALSE(markers->createPointCommit(1, unknown, {L"a"})) << "a value is missing";
    EXPECT_FALSE(markers->createPlastCommit(1, 2, unknown, unknown, {L"a", L"b"})) << "points";
    EXPECT_FALSE(layers->createPointCommit(1, unknown, {L"a", L"b"})) << "intervals";
    EXPECT_FALSE(NORLEX_wellProperty(db(), markers->getID(), nullptr)
                     .createPointCommit(1, unknown, {L"a", L"b"}))
        << "no survey";
    EXPECT_EQ(cell(L"SELECT count(*) FROM point_data"), L"1");
    ASSERT_TRUE(markers->removeField(L"Описание"));
    EXPECT_FALSE(markers->removeField(L"Название")) << "the record would be lost";
    const auto images = w->createPropertyPtr(NORLEX_dataTypeRastr, {L"R", L""});
    EXPECT_FALSE(images->createPlastCommit(1, 2, unknown, unknown, {})) << "no field to find it by";
}

TEST_F(RecordTest, textsAreStoredExactlyButForApostrophes) {
    const std::wstring texts[] = {L"",
                                  L"it's; 'quoted'",
                                  L"a\r\nb\tc",
                                  L"Глина серая",
                                  L"\U0001F6E2 50%_\\",
                                  std::wstring(1 << 20, L'я'),
                                  L"');DELETE FROM val;--",
                                  L"1,5"};
    std::vector<NORLEX_bulkRow> rows;
    for (const auto& text : texts) {
        ASSERT_TRUE(layers->createPlastCommit(1, 2, unknown, unknown, {text, L"at once"}));
        ASSERT_TRUE(layers->createPlastData(1, 2, unknown, unknown, {text, L"in memory"}));
        rows.push_back({1, 2, unknown, unknown, {text, L"bulk"}});
    }
    ASSERT_TRUE(layers->commit(true) && layers->prepareBulk(rows)) << lastError();
    NORLEX_wellProperty again(db(), layers->getID(), w->getIncl());
    ASSERT_EQ(again.getRecords().size(), 3 * std::size(texts));
    for (std::size_t i = 0; i < again.getRecords().size(); ++i) // by key, all at one depth
        EXPECT_EQ(again.getValue(0, i), sqlText::plainName(texts[i % std::size(texts)])) << i;
    ASSERT_TRUE(again.updateValue(1, 3, L"it's \U0001F6E2"));
    EXPECT_EQ(layers->getValue(1, 3), L"its \U0001F6E2") << "the other object sees it";
    EXPECT_EQ(again.getNumber(0, 7), 1.5);
    EXPECT_EQ(again.getNumber(0, 3), std::nullopt);
}

TEST_F(RecordTest, recordsComeShallowestFirstAndValuesInFieldOrder) {
    ASSERT_TRUE(layers->prepareBulk(std::vector<NORLEX_bulkRow>{
        {300, 400, unknown, unknown, {L"c", L"3"}},
        {100, 200, unknown, unknown, {L"a", L"1"}},
        {100, 150, unknown, unknown, {L"b", L"2"}},
    })) << lastError();
    EXPECT_EQ(shown(*layers), L"100 200 900 800 a|1; 100 150 900 850 b|2; 300 400 700 600 c|3; ");
    EXPECT_EQ(layers->getValue(2, 0) + layers->getValue(0, 3), L"") << "past the ends";
    // a value that an older program did not write, and one of a record that is gone
    ASSERT_TRUE(db()->exec(L"DELETE FROM val WHERE value = 'a'")
                && db()->exec(L"DELETE FROM interval_data WHERE top = 300"));
    NORLEX_wellProperty again(db(), layers->getID(), w->getIncl());
    EXPECT_EQ(shown(again), L"100 200 900 800 |1; 100 150 900 850 b|2; ");
}

TEST_F(RecordTest, singleRecordsAreChangedAndRemoved) {
    // the same key, name and group in another well, and as an interval here
    ASSERT_TRUE(NORLEX_well::create(db(), {L"O", L"F", L"W-2", 0}));
    NORLEX_well other(db(), {L"O", L"F", L"W-2", 0});
    auto namesake = other.createPropertyPtr(NORLEX_dataTypeInterval, {L"M", L"G"});
    ASSERT_TRUE(namesake->createPlastCommit(1, 2, unknown, unknown, {L"keep", L"keep"}));
    for (const double depth : {10.0, 20.0, 30.0})
        ASSERT_TRUE(markers->createPointCommit(depth, unknown, {sqlText::number(depth), L""}));
    const auto second = markers->getRecords()[1].obj_id;
    ASSERT_TRUE(markers->updateDepth(second, 5, unknown)) << lastError();
    EXPECT_EQ(shown(*markers), L"5 5 995 995 20|; 10 10 990 990 10|; 30 30 970 970 30|; ");
    ASSERT_TRUE(markers->updateDepth(second, unknown, 975)) << "by the absolute depth";
    EXPECT_EQ(
        row(L"SELECT depth, depth_abs FROM point_data WHERE obj_id = " + sqlText::key(second)),
        L"25 975");
    EXPECT_FALSE(markers->updateDepth(second, unknown, unknown));
    EXPECT_FALSE(markers->updateDepth(99, 1, 1)) << "no such record";
    ASSERT_TRUE(markers->setBorderType(0, 7));
    EXPECT_EQ(markers->getRecords()[0].flag, 7);
    EXPECT_EQ(cell(L"SELECT type FROM point_data WHERE depth = 10"), L"7");
    EXPECT_FALSE(markers->setBorderType(0, 256) || markers->setBorderType(3, 1)
                 || layers->setBorderType(0, 1));
    EXPECT_FALSE(markers->updateValue(2, 0, L"x") || markers->updateValue(0, 3, L"x"));
    ASSERT_TRUE(markers->setLink(0, second, L"core's.jpg", L"photo"));
    EXPECT_FALSE(markers->setLink(0, second, L"cores.jpg", L"again"));
    ASSERT_TRUE(markers->setCommentLink(0, second, L"cores.jpg", L"new"));
    EXPECT_FALSE(markers->delLink(1, second, L"cores.jpg")) << "of another field";
    ASSERT_EQ(markers->getLinks(0, second).size(), 1U);
    EXPECT_EQ(markers->getLinks(0, second)[0].comment, L"new");
    const auto first = markers->getRecords()[0].obj_id; // 1, as that of the namesake
    EXPECT_FALSE(markers->removeGeometryByID({first, 99}));
    ASSERT_TRUE(markers->removeGeometryByID({first, second})) << lastError();
    EXPECT_EQ(shown(*markers), L"30 30 970 970 30|; ");
    EXPECT_EQ(shown(*namesake), L"1 2 -1 -2 keep|keep; ");
    EXPECT_EQ(cell(L"SELECT count(*) FROM prop_link"), L"0");
    EXPECT_EQ(cell(L"SELECT count(*) FROM val"), L"4");
}

TEST_F(RecordTest, aWrongRowOfABulkNamesItselfAndNothingIsWritten) {
    const std::vector<NORLEX_bulkRow> wrong = {{1, 2, unknown, unknown, {L"a", L"b"}},
                                               {unknown, 2, unknown, unknown, {L"a", L"b"}}};
    const auto before = everything();
    EXPECT_FALSE(layers->prepareBulk(wrong));
    EXPECT_NE(lastError().find("row 2"), std::string::npos) << lastError();
    EXPECT_FALSE(layers->prepareBulk({{1, 2, unknown, unknown, {L"a"}}}));
    EXPECT_FALSE(layers->prepareBulkPow(
        10, {{1, {L"a", L"b"}}, {0, {L"a", L"b"}}}, NORLEX_dataDirectionMeasured));
    EXPECT_FALSE(markers->prepareBulk({1, 2}, {L"a"}, NORLEX_dataDirectionMeasured));
    EXPECT_FALSE(NORLEX_wellProperty::createDataBulk(db(),
                                                     {{wellId(), {L"new", L""}}},
                                                     {{.values = {L"", L""}, .target = 1}},
                                                     NORLEX_dataTypeMarker));
    EXPECT_EQ(everything(), before);
    ASSERT_TRUE(layers->prepareBulkPow(
        990, {{5, {L"a", L"1"}}, {2.5, {L"b", L"2"}}}, NORLEX_dataDirectionAbsolute));
    EXPECT_EQ(shown(*layers), L"10 15 990 985 a|1; 15 17.5 985 982.5 b|2; ");
    ASSERT_TRUE(NORLEX_wellProperty::createDataBulk(
        db(),
        {{wellId(), {L"M", L"G"}}, {wellId(), {L"new", L""}}},
        {{.top = 1, .values = {L"old", L""}}, {.top = 2, .values = {L"new", L""}, .target = 1}},
        NORLEX_dataTypeMarker))
        << lastError();
    EXPECT_EQ(markers->getValue(0, 0) + w->openProperty({L"new", L""})->getValue(0, 0), L"oldnew");
    EXPECT_FALSE(NORLEX_wellProperty::createDataBulk(
        db(), {{wellId(), {L"M", L"G"}}}, {}, NORLEX_dataTypeInterval))
        << "of another type";
}

TEST_F(RecordTest, aSurveyMovesEveryDependentDepthAndTellsOfIt) {
    ASSERT_TRUE(markers->createPointCommit(200, unknown, {L"m", L""}));
    ASSERT_TRUE(layers->createPlastCommit(100, 200, unknown, unknown, {L"i", L""}));
    ASSERT_TRUE(makeLog({L"GR", L""})); // absolute depths that are not this well's
    NORLEX_well second(db(), names);
    auto held = second.openProperty({L"I", L"G"});
    EXPECT_EQ(shown(*held), L"100 200 900 800 i|; ");
    std::wstring told;
    const auto listener = std::make_shared<globalEventObserver::callback>(
        [&](const eventMsgDescription& m) { told += m.property.name + std::to_wstring(m.kind); });
    globalEventObserver::Instance().subscribe(listener);
    // 60 degrees from 100 m on: each metre along the hole is half a metre deeper
    ASSERT_TRUE(w->loadInclFromData({station(100, 60, 0), station(300, 60, 0)}, false))
        << lastError();
    EXPECT_EQ(told, L"GR2I2M21") << "by group and name, then the well";
    EXPECT_EQ(shown(*held), L"100 200 900 850 i|; ");
    EXPECT_EQ(row(L"SELECT depth, depth_abs FROM point_data"), L"200 850");
    EXPECT_DOUBLE_EQ(second.getIncl()->getAbs(200), 850) << "the other well object follows";
    told.clear();
    ASSERT_TRUE(w->setAltitude(1010));
    EXPECT_EQ(told, L"GR2I2M21");
    ASSERT_TRUE(held->createPlastCommit(unknown, unknown, 860, 810, {L"j", L""}));
    EXPECT_EQ(cell(L"SELECT top FROM interval_data WHERE bot_abs = 810"), L"200");
}
