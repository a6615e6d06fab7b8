// Properties copied, turned into others and loaded from tables.
#include "tests/wells/well_fixture.h"

#include "tableReader.h"

namespace {

constexpr double unknown = NORLEX_unknownDepth;

class CopyTest : public WellTest {
protected:
    // W-1 stands at 1000, W-2 at 500; both are vertical.
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(NORLEX_well::create(db(), secondNames));
        first = std::make_unique<NORLEX_well>(db(), names);
        second = std::make_unique<NORLEX_well>(db(), secondNames);
        ASSERT_TRUE(first->setAltitude(1000) && second->setAltitude(500)) << lastError();
    }

    // "top botAbs value; " of every record
    static std::wstring shown(NORLEX_well& well, const NORLEX_propDescription& prop) {
        const auto property = well.openProperty(prop);
        std::wstring out;
        for (std::size_t i = 0; property && i < property->getRecords().size(); ++i)
            out += sqlText::number(property->getRecords()[i].top) + L" "
                   + sqlText::number(property->getRecords()[i].botAbs) + L" "
                   + property->getValue(0, i) + L"; ";
        return out;
    }

    [[nodiscard]] bool copy(const NORLEX_propDescription& from,
                            const NORLEX_propDescription& to,
                            NORLEX_db_prop_merge merge,
                            NORLEX_dataDirection direction = NORLEX_dataDirectionMeasured) {
        return NORLEX_wellProperty::copy(
            db(), first->getID(), from, second->getID(), to, merge, direction);
    }

    const NORLEX_wellDescription secondNames{L"O", L"F", L"W-2", 0};
    std::unique_ptr<NORLEX_well> first;
    std::unique_ptr<NORLEX_well> second;
};

} // namespace

TEST_F(CopyTest, recordsKeepOneDepthSystemAndTakeTheOtherFromTheSurvey) {
    const NORLEX_propDescription prop(L"P", L"G");
    auto source = first->createPropertyPtr(NORLEX_dataTypeMarker, prop);
    ASSERT_TRUE(
        source->createField(L"extra", NORLEX_fieldTypeNumeric, false)
        && source->prepareBulk(std::vector<NORLEX_bulkRow>{
            {.top = 10, .values = {L"a", L"", L"1"}}, {.top = 20, .values = {L"b", L"", L"2"}}})
        && source->setBorderType(0, 3) && source->setAttribute(L"UNITS", L"m")
        && source->setLink(0, source->getRecords()[1].obj_id, L"b.jpg", L"")
        && NORLEX_wellProperty::setComment(db(), source->getID(), L"why"))
        << lastError();
    ASSERT_TRUE(NORLEX_wellProperty::copy(
        db(), first->getID(), second->getID(), prop, false, NORLEX_dataDirectionMeasured))
        << lastError();
    EXPECT_EQ(shown(*second, prop), L"10 490 a; 20 480 b; ");
    const auto made = second->openProperty(prop);
    EXPECT_EQ(made->getValue(2, 1), L"2") << "a field that its template does not have";
    EXPECT_EQ(made->getRecords()[0].flag, 3);
    EXPECT_EQ(made->getAttribute(L"UNITS") + made->getComment(), L"mwhy");
    EXPECT_EQ(made->getLinks(0, made->getRecords()[1].obj_id).size(), 1U);
    EXPECT_FALSE(NORLEX_wellProperty::copy(
        db(), first->getID(), second->getID(), prop, false, NORLEX_dataDirectionAbsolute))
        << "it is there";
    ASSERT_TRUE(NORLEX_wellProperty::copy(
        db(), first->getID(), second->getID(), prop, true, NORLEX_dataDirectionAbsolute));
    EXPECT_EQ(shown(*second, prop), L"-490 990 a; -480 980 b; ");
    ASSERT_TRUE(source->updateValue(0, 1, L"c"));
    ASSERT_TRUE(copy(prop, prop, NORLEX_db_prop_merge_skip));
    EXPECT_EQ(shown(*second, prop), L"-490 990 a; -480 980 b; ");
    ASSERT_TRUE(copy(prop, prop, NORLEX_db_prop_merge_merge, NORLEX_dataDirectionAbsolute));
    EXPECT_EQ(shown(*second, prop), L"-490 990 a; -480 980 b; -480 980 c; ") << "a is known";
    ASSERT_TRUE(NORLEX_wellProperty::copy(db(),
                                          first->getID(),
                                          prop,
                                          first->getID(),
                                          {L"P", L"H"},
                                          NORLEX_db_prop_merge_merge,
                                          NORLEX_dataDirectionMeasured));
    EXPECT_EQ(shown(*first, {L"P", L"H"}), L"10 990 a; 20 980 c; ") << "to another group";
    const auto before = everything();
    EXPECT_FALSE(NORLEX_wellProperty::copy(db(),
                                           first->getID(),
                                           prop,
                                           first->getID(),
                                           prop,
                                           NORLEX_db_prop_merge_replace,
                                           NORLEX_dataDirectionMeasured))
        << "onto itself";
    EXPECT_FALSE(copy({L"none", L""}, prop, NORLEX_db_prop_merge_replace));
    ASSERT_TRUE(second->createProperty(NORLEX_dataTypeInterval, {L"I", L""}));
    EXPECT_FALSE(copy(prop, {L"I", L""}, NORLEX_db_prop_merge_merge)) << "of another template";
}

TEST_F(CopyTest, logsTakeTheirSamplesAlong) {
    const NORLEX_propDescription gr(L"GR", L"");
    ASSERT_TRUE(makeLog(gr) && copy(gr, gr, NORLEX_db_prop_merge_replace));
    std::vector<NORLEX_logSample> samples;
    ASSERT_TRUE(second->openProperty(gr)->getSamples(samples));
    ASSERT_EQ(samples.size(), 3U);
    EXPECT_EQ(samples[2].depthAbs, 470) << "500 above 30";
    ASSERT_TRUE(first->openProperty(gr)->getSamples(samples));
    samples = {{5, 0, 9}, {20, 0, 9}};
    auto source = first->openProperty(gr);
    ASSERT_TRUE(source->setSamples(samples) && source->commit(false)
                && copy(gr, gr, NORLEX_db_prop_merge_merge));
    ASSERT_TRUE(second->openProperty(gr)->getSamples(samples));
    ASSERT_EQ(samples.size(), 4U);
    EXPECT_EQ(samples[0].depth, 5);
    EXPECT_EQ(samples[2].value, 2.5) << "its own at 20 m";
}

TEST_F(CopyTest, intervalsAreDrawnBetweenPoints) {
    auto markers = first->createPropertyPtr(NORLEX_dataTypeMarker, {L"M", L""});
    ASSERT_TRUE(markers->prepareBulk(
        {30, 10, 20, 20}, {L"c", L"a", L"lost", L"b"}, NORLEX_dataDirectionMeasured));
    EXPECT_FALSE(markers->markerToColumn({L"C", L""}, 30)) << "no room below the last marker";
    EXPECT_FALSE(first->isPropertyExist({L"C", L""}));
    ASSERT_TRUE(markers->markerToColumn({L"C", L""}, 50)) << lastError();
    EXPECT_EQ(shown(*first, {L"C", L""}), L"10 980 a; 20 970 b; 30 950 c; ");
    ASSERT_TRUE(first->createProperty(NORLEX_dataTypeBorder, {L"Cor", L""}));
    for (
        const auto* statement :
        {L"INSERT INTO correlation (name) VALUES ('Cor')",
         L"INSERT INTO correlation_borders (cor_id, name, b_group) VALUES (1, 'top', 'x')",
         L"INSERT INTO correlation_borders (cor_id, name, b_group) VALUES (1, 'base', 'y')",
         L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs, type) VALUES (1, 2, 40, 960, 0)",
         L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs, type) VALUES (1, 1, 15, 985, 0)"})
        ASSERT_TRUE(db()->exec(statement)) << lastError();
    const auto borders = first->openProperty({L"Cor", L""});
    ASSERT_TRUE(borders->makeIntervalsFromBorders({L"Z", L""})) << lastError();
    EXPECT_EQ(shown(*first, {L"Z", L""}), L"15 960 top; ");
    EXPECT_EQ(first->openProperty({L"Z", L""})->getValue(1, 0), L"x");
    EXPECT_FALSE(markers->makeIntervalsFromBorders({L"Y", L""}));
    ASSERT_TRUE(borders->updateDepth(1, 41, unknown) && borders->removeGeometry(2)) << lastError();
    NORLEX_depthRange range;
    ASSERT_TRUE(first->getPropertyBordersRange({L"Cor", L""}, range));
    EXPECT_EQ(range.top + range.botAbs, 41 + 959);
    ASSERT_TRUE(first->getPropertyBaseDepthRange({L"C", L""}, range)
                && !first->getPropertyBaseDepthRange({L"Cor", L""}, range)
                && !first->getPropertySerialDepthRange({L"C", L""}, range)
                && first->getPropertyDepthRange({L"C", L""}, range));
    EXPECT_EQ(range.bot, 50);
}

TEST_F(CopyTest, tablesAreTakenWholeOrWithoutTheirBadRows) {
    folder.write(L"t.csv",
                 "Кровля;Подошва;Имя;Пористость\n" // 1
                 "10,5;20;\"a;b\";0,25\n"          // 2
                 "x;20;c;1\n"                      // 3: no number
                 ";;nowhere;\n"                    // 4: no depths
                 "30;;d;1\n"                       // 5: no bottom
                 "\n"                              // an empty line is no row
                 "40;30;e\n"                       // 6: swapped; short
                 "1;2;f;much\n");                  // 7: no number in a numeric field
    auto template_ = first->createPropertyPtr(NORLEX_dataTypeInterval, {L"I", L""});
    ASSERT_TRUE(template_->createField(L"Por", NORLEX_fieldTypeNumeric, false));
    const NORLEX_tableColumns columns{
        .top = 1, .bot = 2, .fields = {{L"Название", 3}, {L"Por", 4}}};
    NORLEX_tableReport report;
    const auto load = [&](const NORLEX_tableColumns& wanted, const NORLEX_tableOptions& options) {
        tableRW::tableReader reader;
        return reader.open(folder / L"t.csv", {})
               && first->appendDataFromReader(reader, L"", {L"I", L""}, wanted, options, report);
    };
    EXPECT_FALSE(load(columns, {}));
    EXPECT_NE(lastError().find("row 3 (line 3)"), std::string::npos) << lastError();
    EXPECT_EQ(report.badCount, 4U);
    EXPECT_EQ(cell(L"SELECT count(*) FROM interval_data"), L"0");
    ASSERT_TRUE(load(columns, {.keepGoodRows = true, .skipWithoutDepth = true})) << lastError();
    EXPECT_EQ(report.rows, 6U);
    EXPECT_EQ(report.taken, 2U);
    EXPECT_EQ(report.passedOver, 1U);
    std::wstring bad;
    for (const auto& error : report.errors)
        bad += std::to_wstring(error.row) + L"/" + std::to_wstring(error.line) + L" ";
    EXPECT_EQ(bad, L"3/3 5/5 7/8 ");
    EXPECT_EQ(shown(*first, {L"I", L""}), L"10.5 980 a;b; 30 960 e; ");
    EXPECT_EQ(first->openProperty({L"I", L""})->getNumber(2, 0), 0.25);
    EXPECT_FALSE(load({.depth = 1, .fields = {}}, {})) << "no column for the depths of intervals";
    EXPECT_FALSE(load({.top = 1, .bot = 2, .fields = {{L"none", 3}}}, {}));
}

TEST_F(CopyTest, metadataOfAWellAndItsLogs) {
    const NORLEX_propDescription gr(L"GR", L"LAS");
    ASSERT_TRUE(makeLog(gr) && first->openProperty(gr)->setAttribute(L"UNITS", L"gAPI")
                && first->setAttribute(L"SitID", L"102496")
                && second->setAttribute(L"SitID", L"102497"));
    std::wstring found;
    for (const auto& entry : first->getDistinctLasMeta())
        found += entry.group + L" " + entry.key + L" " + entry.value + L"; ";
    EXPECT_EQ(found, L"property UNITS gAPI; well SitID 102496; ");
    EXPECT_EQ(NORLEX_well::getObjectList(db(), L"SitID", L"102497"),
              std::vector<std::uint32_t>{second->getID()});
    ASSERT_TRUE(first->renamePropertyGroupLAS(gr, L"Raw")) << lastError();
    EXPECT_EQ(first->openProperty({L"GR", L"Raw"})->getRecordCount(), 3U) << "with its file";
    EXPECT_EQ(NORLEX_wellProperty::getDataTypeStringByName(db(), first->getID(), {L"GR", L"Raw"}),
              L"NORLEX_dataTypeLog");
    EXPECT_TRUE(NORLEX_wellProperty::isExist(db(), names, {L"GR", L"Raw"}));
    EXPECT_EQ(NORLEX_well::compareWells(db(), first->getID(), second->getID()),
              L"altitude: 1000 and 500\nbottom: 30 and 0\nonly in the first: Raw / GR\n");
    EXPECT_NE(first->getInfoString().find(L"altitude 1000"), std::wstring::npos);
}
