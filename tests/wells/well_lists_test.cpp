#include "tests/wells/well_fixture.h"

namespace {

std::wstring joined(const std::vector<std::wstring>& texts) {
    std::wstring out;
    for (const auto& text : texts)
        out += text + L";";
    return out;
}

std::wstring joined(const std::vector<NORLEX_wellDescription>& wells) {
    std::wstring out;
    for (const auto& well : wells)
        out += well.workObject + L"/" + well.field + L"/" + well.name + L";";
    return out;
}

} // namespace

TEST_F(WellTest, listsAreOrderedByWorkObjectFieldAndName) {
    for (const auto& well : {NORLEX_wellDescription{L"O", L"F", L"W-0", 0},
                             {L"N", L"F", L"W-1", 0},
                             {L"O", L"E", L"W-1", 0},
                             {L"", L"", L"W-1", 0}})
        ASSERT_TRUE(NORLEX_well::create(db(), well));
    std::vector<std::wstring> texts = {L"left over"};
    NORLEX_well::getWorkObjectList(db(), texts);
    EXPECT_EQ(joined(texts), L";N;O;");
    NORLEX_well::getFieldList(db(), texts);
    EXPECT_EQ(joined(texts), L";E;F;");
    NORLEX_well::getFieldList(db(), L"O", texts);
    EXPECT_EQ(joined(texts), L"E;F;");

    std::vector<NORLEX_wellDescription> wells(3);
    NORLEX_well::getWellList(db(), wells);
    EXPECT_EQ(joined(wells), L"//W-1;N/F/W-1;O/E/W-1;O/F/W-0;O/F/W-1;");
    EXPECT_EQ(wells.back().wellId, wellId());
    NORLEX_well::getWellList(db(), L"F'", wells);
    EXPECT_EQ(joined(wells), L"N/F/W-1;O/F/W-0;O/F/W-1;");
    NORLEX_well::getWellList(db(), L"O", L"F", wells);
    EXPECT_EQ(joined(wells), L"O/F/W-0;O/F/W-1;");
    NORLEX_well::getWellList(nullptr, wells);
    EXPECT_TRUE(wells.empty());
}

TEST_F(WellTest, wellInfoCountsWhatEachWellHas) {
    const NORLEX_wellDescription other{L"O", L"F", L"W-2", 0};
    ASSERT_TRUE(NORLEX_well::create(db(), other));
    auto w = well();
    ASSERT_TRUE(w.setPosition(1, 2, 3) && w.setBottom(4));
    ASSERT_TRUE(w.loadInclFromData({station(5, 0, 0), station(6, 0, 0)}, true));
    ASSERT_TRUE(makeLog({L"GR", L""}) && makeLog({L"SP", L""}));
    std::vector<NORLEX_wellInfo> infos;
    NORLEX_well::getWellInfoList(db(), infos);
    ASSERT_EQ(infos.size(), 2U);
    EXPECT_EQ(infos[0].description, names);
    EXPECT_EQ(infos[0].x, 1.0);
    EXPECT_EQ(infos[0].y, 2.0);
    EXPECT_EQ(infos[0].altitude, 3.0);
    EXPECT_EQ(infos[0].bottom, 4.0);
    EXPECT_EQ(infos[0].properties, 2);
    EXPECT_EQ(infos[0].stations, 2) << "the synthetic station is not stored";
    EXPECT_EQ(infos[1].properties, 0);
    EXPECT_EQ(infos[1].stations, 0);
    EXPECT_FALSE(infos[1].bottom.has_value()) << "never set";
    ASSERT_TRUE(w.resetBottom());
    NORLEX_well::getWellInfoList(db(), infos);
    EXPECT_FALSE(infos[0].bottom.has_value()) << "reset";
    ASSERT_TRUE(w.setBottom(0));
    NORLEX_well::getWellInfoList(db(), infos);
    EXPECT_EQ(infos[0].bottom, 0.0) << "set to zero is set";
}

TEST_F(WellTest, propertiesAreListedByGroupAndName) {
    auto w = well();
    ASSERT_TRUE(makeLog({L"SP", L"LAS"}) && makeLog({L"GR", L"LAS"}) && makeLog({L"GR", L""}));
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeMarker, {L"Tops", L"Geo"}));
    ASSERT_TRUE(w.openProperty({L"GR", L"LAS"})->setAttribute(L"UNITS", L"GAPI"));
    std::vector<NORLEX_propDescription> list;
    w.getPropertyList(list);
    const std::vector<NORLEX_propDescription> expected = {
        {L"GR", L""}, {L"Tops", L"Geo"}, {L"GR", L"LAS"}, {L"SP", L"LAS"}};
    EXPECT_EQ(list, expected);
    EXPECT_EQ(w.getPropertyCount(), 4);
    EXPECT_EQ(NORLEX_well::getPropertyCount(db(), names), 4);

    std::vector<NORLEX_propertyInfo> infos;
    w.getPropertyInfoList(infos);
    ASSERT_EQ(infos.size(), 4U);
    EXPECT_EQ(infos[1].type, NORLEX_dataTypeMarker);
    EXPECT_EQ(infos[1].records, 0U);
    EXPECT_FALSE(infos[1].range.has_value());
    EXPECT_EQ(infos[2].unit, L"GAPI");
    EXPECT_EQ(infos[2].comment, L"made");
    EXPECT_EQ(infos[2].type, NORLEX_dataTypeLog);
    EXPECT_EQ(infos[2].records, 3U);
    EXPECT_EQ(infos[2].range->top, 10.0);
    EXPECT_EQ(infos[2].range->botAbs, 70.0);
    EXPECT_EQ(infos[3].unit, L"");

    std::vector<std::wstring> texts;
    w.getPropertyGroupList(texts);
    EXPECT_EQ(joined(texts), L"Geo;LAS;");
    w.getPropertyForGroup(L"", texts);
    EXPECT_EQ(joined(texts), L"GR;");
    EXPECT_TRUE(w.isPropertyExistAny(L"SP"));
    EXPECT_FALSE(w.isPropertyExist({L"SP", L""}));
    EXPECT_TRUE(NORLEX_wellProperty::isExistGroup(db(), w.getID(), L"Geo"));
    EXPECT_FALSE(NORLEX_wellProperty::isExistGroup(db(), w.getID() + 1, L"Geo"));

    NORLEX_depthRange range;
    EXPECT_TRUE(w.getPropertyLasDepthRange({L"GR", L"LAS"}, range));
    EXPECT_EQ(range.bot, 30.0);
    EXPECT_FALSE(w.getPropertyLasDepthRange({L"Tops", L"Geo"}, range));
    EXPECT_FALSE(w.getPropertyLasDepthRange({L"absent", L""}, range));
}
