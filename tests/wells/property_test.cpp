#include "tests/wells/well_fixture.h"

#include "NORLEX_propTemplate.h"

TEST_F(WellTest, aPropertyHasTheFieldsOfItsTemplate) {
    auto w = well();
    for (int type = NORLEX_dataTypeMarker; type <= NORLEX_dataTypeWorkConstruction; ++type) {
        const auto kind = static_cast<NORLEX_dataType>(type);
        const NORLEX_propDescription prop(L"P" + std::to_wstring(type), L"G'");
        ASSERT_TRUE(w.createProperty(kind, prop)) << type << lastError();
        EXPECT_FALSE(w.createProperty(kind, {prop.name, L"G"})) << "taken";
        const auto property = w.openProperty(prop);
        ASSERT_TRUE(property) << type;
        EXPECT_EQ(property->getType(), kind);
        EXPECT_EQ(property->getGroup(), L"G");
        std::vector<NORLEX_fieldDescr> expected;
        NORLEX_propTemplate::getBaseFldListForType(kind, expected);
        ASSERT_EQ(property->getFields().size(), expected.size()) << type;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(property->getFields()[i].name, expected[i].name) << type;
            EXPECT_EQ(property->getFields()[i].type, expected[i].type) << type;
        }
    }
    EXPECT_FALSE(w.createProperty(NORLEX_dataTypeSerial, {L"S", L""})) << "no standard template";
    EXPECT_FALSE(w.createPropertyFromTemplate(L"none", {L"S", L""}));
    EXPECT_FALSE(w.createProperty(NORLEX_dataTypeMarker, {L"'", L"G"})) << "no name";
    EXPECT_EQ(w.getPropertyCount(), 8);
    EXPECT_FALSE(NORLEX_wellProperty(db(), 12345, nullptr).isOK());
    EXPECT_FALSE(w.openProperty({L"absent", L""}));
    EXPECT_EQ(NORLEX_wellProperty::getDescr(db(), 1), NORLEX_propDescription(L"P1", L"G"));
}

TEST_F(WellTest, aNewFieldGetsACellInEveryRecord) {
    auto w = well();
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeMarker, {L"M", L""}));
    auto property = w.openProperty({L"M", L""});
    const auto fields = property->getFields().size();
    ASSERT_TRUE(db()->exec(L"INSERT INTO point_data (depth, depth_abs, type) VALUES (1, 2, 0)"));
    ASSERT_TRUE(db()->exec(L"INSERT INTO val (f_id, value, obj_id) VALUES ("
                           + std::to_wstring(property->getFields()[0].fieldId) + L", 'a', 1)"));
    ASSERT_TRUE(property->createField(L"New 'one'", NORLEX_fieldTypeNumeric, false)) << lastError();
    ASSERT_EQ(property->getFields().size(), fields + 1);
    EXPECT_EQ(property->getFields().back().name, L"New one");
    EXPECT_EQ(cell(L"SELECT count(*) FROM val"), L"2");
    EXPECT_FALSE(property->createField(L"New one", NORLEX_fieldTypeString, false));
    EXPECT_FALSE(property->createField(L"'", NORLEX_fieldTypeString, false));
    EXPECT_EQ(property->getRecordCount(), 1U);
    ASSERT_TRUE(property->removeField(L"New one"));
    EXPECT_EQ(property->getFields().size(), fields);
    EXPECT_EQ(cell(L"SELECT count(*) FROM val"), L"1");
    EXPECT_FALSE(property->removeField(L"New one"));
}

TEST_F(WellTest, attributesAreKeptExactly) {
    ASSERT_TRUE(makeLog({L"GR", L""}));
    auto w = well();
    auto property = w.openProperty({L"GR", L""});
    ASSERT_TRUE(property->createAttribute(L"UNITS", L"m'kR/h"));
    EXPECT_FALSE(property->createAttribute(L"UNITS", L"x"));
    EXPECT_EQ(property->getAttribute(L"UNITS"), L"m'kR/h");
    ASSERT_TRUE(property->updateAttribute(L"UNITS", L""));
    EXPECT_EQ(property->getAttribute(L"UNITS"), L"");
    EXPECT_FALSE(property->updateAttribute(L"absent", L"x"));
    ASSERT_TRUE(property->setAttribute(L"tool", L"a") && property->setAttribute(L"tool", L"b"));
    EXPECT_FALSE(property->updateKey(L"tool", L"UNITS")) << "taken";
    EXPECT_FALSE(property->updateKey(L"absent", L"x"));
    EXPECT_FALSE(property->setAttribute(L"", L"x"));
    ASSERT_TRUE(property->updateKey(L"tool", L"probe"));
    EXPECT_EQ(property->getAttributeList(), (std::vector<std::wstring>{L"UNITS", L"probe"}));
    EXPECT_EQ(property->getAttribute(L"probe"), L"b");
    EXPECT_TRUE(makeLog({L"SP", L""}));
    EXPECT_TRUE(w.openProperty({L"SP", L""})->getAttributeList().empty()) << "another property's";
}

TEST_F(WellTest, renamingAPropertyMovesItsSamples) {
    auto w = well();
    ASSERT_TRUE(makeLog({L"GR", L"LAS"}) && makeLog({L"SP", L"LAS"}));
    const auto id = NORLEX_wellProperty::getID(db(), w.getID(), {L"GR", L"LAS"});
    EXPECT_FALSE(w.renameProperty({L"GR", L"LAS"}, {L"SP", L"LAS"}));
    EXPECT_FALSE(w.renameProperty({L"absent", L"LAS"}, {L"X", L"LAS"}));
    EXPECT_FALSE(w.renameProperty({L"GR", L"LAS"}, {L"", L"LAS"}));
    EXPECT_TRUE(w.renameProperty({L"GR", L"LAS"}, {L"GR", L"LAS"}));
    auto opened = w.openProperty({L"GR", L"LAS"});
    ASSERT_TRUE(w.renameProperty({L"GR", L"LAS"}, {L"gr", L"new / group"})) << lastError();
    EXPECT_TRUE(opened->setSamples({}) && opened->commit(false)) << "opened before the rename";
    EXPECT_FALSE(files::isFile(samplePath({L"GR", L"LAS"})));
    const auto property = w.openProperty({L"gr", L"new / group"});
    ASSERT_TRUE(property);
    EXPECT_EQ(property->getID(), id);
    EXPECT_EQ(property->getRecordCount(), 0U);
    EXPECT_EQ(w.openProperty({L"SP", L"LAS"})->getRecordCount(), 3U);
    EXPECT_TRUE(opened->remove()) << lastError();
    EXPECT_EQ(w.getPropertyCount(), 1);
}

TEST_F(WellTest, commentsAreKeptExactly) {
    ASSERT_TRUE(makeLog({L"GR", L""}));
    const auto id = NORLEX_wellProperty::getID(db(), wellId(), {L"GR", L""});
    ASSERT_TRUE(NORLEX_wellProperty::setComment(db(), id, L"driller's log; \"raw\"\n№ 2"));
    EXPECT_EQ(well().openProperty({L"GR", L""})->getComment(), L"driller's log; \"raw\"\n№ 2");
    EXPECT_FALSE(NORLEX_wellProperty::setComment(db(), id + 1, L"x"));
}
