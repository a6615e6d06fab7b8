#include "tests/wells/well_fixture.h"

TEST_F(WellTest, startsAtTheOriginAndIsFoundByItsTriple) {
    auto w = well();
    ASSERT_TRUE(w.isOK());
    EXPECT_EQ(w.getAltitude(), 0.0);
    EXPECT_EQ(w.getXCoord(), 0.0);
    EXPECT_EQ(w.getYCoord(), 0.0);
    EXPECT_EQ(w.getBottomBaseValue(), 0.0);
    EXPECT_EQ(w.getUUID().size(), 36U);
    EXPECT_EQ(w.getCreateDate().size(), 19U);
    EXPECT_EQ(w.getCreateUser(), db()->get_user());
    EXPECT_EQ(NORLEX_well(db(), w.getID()).getDescription(), names);
    EXPECT_EQ(NORLEX_well::getDescription(db(), w.getID()).wellId, w.getID());
    EXPECT_EQ(NORLEX_well::getWellNameByID(db(), w.getID()), L"W-1");
    EXPECT_EQ(NORLEX_well::getWellFieldByID(db(), w.getID()), L"F");
    EXPECT_EQ(NORLEX_well::getWellWorkObjectByID(db(), w.getID()), L"O");

    EXPECT_FALSE(NORLEX_well(db(), {L"O", L"F", L"W-2", 0}).isOK());
    EXPECT_FALSE(NORLEX_well(db(), w.getID() + 1).isOK());
    EXPECT_FALSE(NORLEX_well(nullptr, names).isOK());
}

TEST_F(WellTest, theTripleIsUniqueAndItsPartsAreNot) {
    EXPECT_FALSE(NORLEX_well::create(db(), names));
    EXPECT_NE(lastError().find("O / F / W-1"), std::string::npos);
    EXPECT_FALSE(NORLEX_well::create(db(), {L"O", L"F'", L"'W-1", 0})) << "apostrophes are dropped";
    EXPECT_TRUE(NORLEX_well::create(db(), {L"O", L"F2", L"W-1", 0}));
    EXPECT_TRUE(NORLEX_well::create(db(), {L"O2", L"F", L"W-1", 0}));
    EXPECT_TRUE(NORLEX_well::create(db(), {L"", L"", L"W-1", 0}));
    EXPECT_TRUE(NORLEX_well::create(db(), {L"O", L"F", L"w-1", 0}));
    EXPECT_EQ(container->getWellCount(), 5);
    EXPECT_FALSE(NORLEX_well::create(nullptr, names));
}

TEST_F(WellTest, renamingMovesRowsAndFiles) {
    struct {
        const char* where;
        NORLEX_wellDescription to;
    } const cases[] = {
        {"the name", {L"O", L"F", L"W-2", 0}},
        {"only the case", {L"O", L"F", L"w-2", 0}},
        {"name and field", {L"O", L"Field/2", L"W-3", 0}},
        {"the field, to none", {L"O", L"", L"W-3", 0}},
        {"all three", {L"Объект", L"Поле", L"Скв. 10", 0}},
        {"the same again", {L"Объект", L"Поле", L"Скв. 10", 0}},
        {"apostrophes alone", {L"Об'ъект", L"Поле", L"'Скв. 10'", 0}},
    };
    auto w = well();
    const auto id = w.getID();
    ASSERT_TRUE(makeLog({L"GR", L"LAS"}));
    std::wstring from = NORLEX_getWellPath(db(), id);
    for (const auto& c : cases) {
        ASSERT_TRUE(w.rename(c.to)) << c.where << lastError();
        const std::wstring to = NORLEX_getWellPath(db(), id);
        EXPECT_EQ(files::listTree(container->getFileContainerPath() + L"%2Epending").size(), 0U);
        EXPECT_TRUE(files::isFile(to + L"LAS/GR.wpdb")) << c.where;
        EXPECT_TRUE(to == from || !files::isFolder(from)) << c.where;
        from = to;
    }
    const auto now = w.getDescription();
    EXPECT_EQ(now.workObject, L"Объект");
    EXPECT_EQ(now.name, L"Скв. 10");
    EXPECT_FALSE(files::isFolder(NORLEX_getFieldPath(db(), L"O", L"F"))) << "it became empty";

    EXPECT_TRUE(w.setName(L"A"));
    EXPECT_TRUE(w.setFld(L"B"));
    EXPECT_TRUE(w.setName(L"C", L"D"));
    EXPECT_EQ(w.getDescription(), (NORLEX_wellDescription{L"Объект", L"D", L"C", 0}));
    EXPECT_TRUE(w.openProperty({L"GR", L"LAS"})->getRecordCount() == 3U);
}

TEST_F(WellTest, refusedRenamesLeaveEverythingAsItWas) {
    ASSERT_TRUE(NORLEX_well::create(db(), {L"O", L"F", L"taken", 0}));
    ASSERT_TRUE(makeLog({L"GR", L"LAS"}));
    // a folder that no well has, where the files would have to go
    ASSERT_TRUE(files::makeFolder(
        NORLEX_getWellPath(db(), NORLEX_wellDescription{L"O", L"F", L"folder", 0})));
    const auto before = everything();
    auto w = well();
    for (const auto* name : {L"taken", L"folder", L"", L"'"}) {
        EXPECT_FALSE(w.setName(name));
        EXPECT_EQ(w.getDescription(), names);
        EXPECT_EQ(everything(), before);
    }
    // an outer transaction that fails later takes the files back with the rows
    {
        transaction outer(db());
        ASSERT_TRUE(outer.isOpen() && w.setName(L"W-9"));
        EXPECT_FALSE(files::isFile(samplePathOf(NORLEX_getWellPath(db(), names), {L"GR", L"LAS"})));
    }
    EXPECT_EQ(w.getDescription(), names);
    EXPECT_EQ(everything(), before);
}

TEST_F(WellTest, editsStampTheWell) {
    ASSERT_TRUE(db()->exec(L"UPDATE well_base SET update_date = 'old', update_user = 'old'"));
    auto w = well();
    const auto isStamped = [&] {
        const bool stamped =
            w.getUpdateDate().size() == 19 && w.getUpdateUser() == db()->get_user();
        return db()->exec(L"UPDATE well_base SET update_date = 'old', update_user = 'old'")
               && stamped;
    };
    EXPECT_TRUE(w.setXCoord(1) && isStamped());
    EXPECT_TRUE(w.setAltitude(1) && isStamped());
    EXPECT_TRUE(w.resetBottom() && isStamped());
    EXPECT_TRUE(w.loadInclFromData({station(5, 1, 1)}, true) && isStamped());
    EXPECT_TRUE(makeLog({L"GR", L""}) && isStamped());
    EXPECT_TRUE(w.removeProperty({L"GR", L""}) && isStamped());
    EXPECT_TRUE(w.updateEditTime() && isStamped());
    EXPECT_TRUE(w.setName(L"W-1") && !isStamped()) << "nothing was renamed";
}

TEST_F(WellTest, editsOfARemovedWellAreRefused) {
    auto w = well();
    ASSERT_TRUE(NORLEX_well::remove(db(), names));
    EXPECT_FALSE(w.setXCoord(1));
    EXPECT_FALSE(w.setAltitude(1));
    EXPECT_FALSE(w.setName(L"W-2"));
    EXPECT_FALSE(w.loadInclFromData({station(5, 1, 1)}, true));
    EXPECT_FALSE(w.createProperty(NORLEX_dataTypeMarker, {L"M", L""}));
    EXPECT_EQ(cell(L"SELECT count(*) FROM inclinometry"), L"0");
}
