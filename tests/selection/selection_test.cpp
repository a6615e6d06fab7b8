#include "NORLEX_lastError.h"
#include "platform/xml_node.h"
#include "tests/selection/query_cases.h"
#include "tests/selection/selection_fixture.h"

#include <memory>

namespace {

TEST_F(SelectionTest, withoutQueriesHoldsAllWellsInOrder) {
    NORLEX_selection all = selection();
    EXPECT_EQ(names(all), L"abcdefgh");
    EXPECT_EQ(all.getWellIDString(), L"1,2,3,4,5,6,7,8");
    EXPECT_EQ(all.getWellIDList().size(), 8U);
    all.setInvertResult(true);
    EXPECT_EQ(names(all), L"abcdefgh");
}

TEST_F(SelectionTest, handListsKeepTheirOrderAndTakeEachOtherBack) {
    NORLEX_selection byHand(L"by hand", container->getContDescription(), true);
    EXPECT_EQ(names(byHand), L"");
    byHand.addWells(wells(L"gzba"));
    byHand.addWell(well(L'b'));
    EXPECT_EQ(names(byHand), L"gba");
    byHand.delWell(well(L'b'));
    EXPECT_EQ(names(byHand), L"ga");
    byHand.addWell(well(L'b'));
    EXPECT_EQ(names(byHand), L"gab");

    NORLEX_query picked = make(NORLEX_filterTypeGeometry, NORLEX_filterExists);
    byHand.setCustom(false);
    byHand.addGeomWells(wells(L"fba"));
    byHand.addFilter(picked);
    EXPECT_EQ(names(byHand), L"fbag");
    byHand.clear();
    EXPECT_EQ(names(byHand), L"abcdefgh");
}

TEST_F(SelectionTest, isComputedAnewAfterAChangeAlone) {
    NORLEX_selection some = selection();
    some.addFilter(make(NORLEX_filterTypeWellInfo, NORLEX_filterExists)); // coordinates
    EXPECT_EQ(names(some), L"a");
    ASSERT_TRUE(db()->exec(L"UPDATE well_base SET x = 1, y = 1 WHERE name = 'h'"));
    EXPECT_EQ(names(some), L"a");
    NORLEX_selection copy = some;
    some.updateWell(well(L'h'));
    EXPECT_EQ(names(some), L"ah");
    EXPECT_EQ(names(copy), L"a");
    copy.updateAll();
    EXPECT_EQ(names(copy), L"ah");

    NORLEX_query survey = make(NORLEX_filterTypeWellInfo, NORLEX_filterExists);
    survey.wellInfoType = NORLEX_filterWellSurvey;
    some.updateFilter(0, survey);
    some.updateFilter(7, survey);
    EXPECT_EQ(names(some), L"g");
    some.delFilter(3);
    some.delFilter(0);
    EXPECT_EQ(some.getFilterCount(), 0U);
    EXPECT_EQ(names(some), L"abcdefgh");
    EXPECT_EQ(some.getFilter(0), NORLEX_query());
}

TEST_F(SelectionTest, followsRenamesAndDeletions) {
    NORLEX_selection some(L"some", container->getContDescription(), true);
    some.addWells(wells(L"ab"));
    some.delWell(well(L'c'));
    some.addGeomWells(wells(L"a"));
    NORLEX_query core = make(NORLEX_filterTypeProperty, NORLEX_filterExists);
    core.prop = {L"Core", L""};
    some.addFilter(core);
    core.prop = {L"Core", L"Lab"};
    core.propSearchName = L"Core";
    core.propSearchGroup = L"Lab";
    some.addFilter(core);
    core.prop = {L"Core", L"Other"};
    some.addFilter(core);

    some.renameProperty({L"Core", L"Lab"}, {L"Kern", L"Lab 2"});
    EXPECT_EQ(some.getFilter(0).prop, NORLEX_propDescription(L"Kern", L""));
    EXPECT_EQ(some.getFilter(1).prop, NORLEX_propDescription(L"Kern", L"Lab 2"));
    EXPECT_EQ(some.getFilter(1).propSearchGroup, L"Lab 2");
    EXPECT_EQ(some.getFilter(2).prop, NORLEX_propDescription(L"Core", L"Other"));

    NORLEX_well a(db(), well(L'a'));
    ASSERT_TRUE(a.setName(L"q"));
    some.renameWell(well(L'a'), well(L'q'));
    EXPECT_EQ(some.getWellIDString(), L"1,2");
    EXPECT_EQ(some.getGeomWells(), wells(L"q"));
    some.deleteWell(well(L'b'));
    some.deleteWell(well(L'c'));
    EXPECT_EQ(some.getAddedWells(), wells(L"q"));
    EXPECT_TRUE(some.getDeletedWells().empty());
    EXPECT_EQ(some.getWellIDString(), L"1");
}

TEST_F(SelectionTest, evaluatesTheActiveOfItsFilters) {
    NORLEX_selection some = selection();
    NORLEX_query query = make(NORLEX_filterTypeTemplate, NORLEX_filterExists);
    query.templateName = L"Core";
    some.setFilter({L"core", {query}});
    query.templateName = L"Points";
    some.setFilter({L"points", {query}});
    EXPECT_EQ(names(some), L"abcdefgh");
    ASSERT_TRUE(some.setActiveFilter(L"points"));
    EXPECT_EQ(names(some), L"d");
    EXPECT_FALSE(some.setActiveFilter(L"none"));

    const std::wstring path = folder / L"some.xml";
    ASSERT_TRUE(some.save(path)) << lastError();
    NORLEX_selection loaded = selection();
    ASSERT_TRUE(loaded.load(path)) << lastError();
    EXPECT_EQ(names(loaded), L"d");
    ASSERT_TRUE(loaded.setActiveFilter(L"core"));
    EXPECT_EQ(names(loaded), L"abcf");
    loaded.removeFilter(L"core");
    EXPECT_EQ(names(loaded), L"d");
    loaded.removeFilter(L"points");
    loaded.removeFilter(L"");
    EXPECT_EQ(names(loaded), L"abcdefgh");
}

TEST_F(SelectionTest, tellsWhatItIs) {
    NORLEX_selection some = selection();
    EXPECT_EQ(some.getFilterInfo(), L"Все скважины\n");
    NORLEX_query value = make(NORLEX_filterTypeValue, NORLEX_filterEqual);
    value.prop = {L"Core", L"Lab"};
    value.fldName = L"name";
    value.value = L"Песок";
    some.addFilter(value);
    NORLEX_query survey = make(NORLEX_filterTypeWellInfo, NORLEX_filterNotExists);
    survey.wellInfoType = NORLEX_filterWellSurvey;
    survey.isLinkAnd = false;
    some.addFilter(survey);
    some.delWell(well(L'h'));
    EXPECT_EQ(some.getDescription(),
              L"test\n"
              L"Содержимое данных: \"Lab/Core/name\" Равно \"Песок\"\n"
              L"ИЛИ Информация о скважине: Инклинометрия Не существует\n"
              L"Удалено скважин: 1\n"
              L"Скважин: 6\nO/F/a\nO/F/b\nO/F/c\nO/F/d\nO/F/e\nO/F/f\n");
}

TEST_F(SelectionTest, goesThroughXMLWhole) {
    NORLEX_selection some = selection();
    some.name(L"Имя & <имя> \"'");
    const queryCases cases;
    for (auto one : cases.all()) {
        one.query.propSearchName = L"s" + std::to_wstring(some.getFilterCount());
        one.query.searchValue = L" blanks\nand lines ";
        if (one.query.operationType != NORLEX_filterTypeTemplate)
            one.query.templateName.clear();
        some.addFilter(one.query);
    }
    some.setInvertResult(true);
    some.addWells({{L"", L"", L"no field", 0}, well(L'a')});
    some.delWell(well(L'b'));
    some.addGeomWells(wells(L"ca"));
    const std::wstring path = folder / L"some.xml";
    ASSERT_TRUE(some.save(path)) << lastError();
    NORLEX_selection loaded = selection();
    ASSERT_TRUE(loaded.load(path)) << lastError();
    EXPECT_EQ(loaded.name(), some.name());
    EXPECT_EQ(loaded.getInvertResult(), true);
    EXPECT_EQ(loaded.getCustom(), false);
    EXPECT_EQ(loaded.getAddedWells(), some.getAddedWells());
    EXPECT_EQ(loaded.getDeletedWells(), some.getDeletedWells());
    EXPECT_EQ(loaded.getGeomWells(), some.getGeomWells());
    ASSERT_EQ(loaded.getFilterCount(), some.getFilterCount());
    for (std::size_t i = 0; i < loaded.getFilterCount(); ++i)
        EXPECT_EQ(loaded.getFilter(i), some.getFilter(i)) << i;
    EXPECT_EQ(names(loaded), names(some));
}

TEST_F(SelectionTest, readsWhatOtherProgramsWrite) {
    folder.write(L"other.xml",
                 "<?xml version='1.0'?><wellDB_selection_parans version='7'><later/>"
                 "<wellDB_selection><colour>red</colour><name>n</name><custom>0</custom>"
                 "<isInverted>1</isInverted><filter><name>f</name><query>"
                 "<operationType>6</operationType><operation>1</operation>"
                 "<wellInfoType>4</wellInfoType><fromDepth>1.5e3</fromDepth></query></filter>"
                 "<addWell><addWell><name>g</name><field>F</field><object>O</object></addWell>"
                 "</addWell></wellDB_selection></wellDB_selection_parans>");
    NORLEX_selection some = selection();
    ASSERT_TRUE(some.load(folder / L"other.xml")) << lastError();
    EXPECT_EQ(names(some), L"abcdefhg");
    EXPECT_EQ(some.getFilter(0).fromDepth, 1500.0);
    EXPECT_TRUE(some.getFilter(0).caseSensetive && some.getFilter(0).isLinkAnd);
}

TEST_F(SelectionTest, refusesABrokenFileAndStaysAsItWas) {
    const auto whole = [](const std::string& inside) {
        return "<wellDB_selection_parans><wellDB_selection>" + inside
               + "</wellDB_selection></wellDB_selection_parans>";
    };
    std::string bomb = "<!DOCTYPE b [<!ENTITY a0 \"ha\">";
    for (int i = 1; i < 40; ++i)
        bomb += "<!ENTITY a" + std::to_string(i) + " \"&a" + std::to_string(i - 1) + ";&a"
                + std::to_string(i - 1) + ";\">";
    const std::string files[] = {
        "",
        "no XML",
        "<wellDB_selection_parans><wellDB_selection>",
        "<tree/>",
        "<wellDB_selection_parans/>",
        whole("<numFilters>2</numFilters><filter/>"),
        whole("<numFilters>many</numFilters>"),
        whole("<custom>perhaps</custom>"),
        whole("<filter><query><operationType>one</operationType></query></filter>"),
        whole("<filter><query><operationType>1.5</operationType></query></filter>"),
        whole("<filter><query><operation>99999999999</operation></query></filter>"),
        whole("<filter><query><fromDepth>nan</fromDepth></query></filter>"),
        whole("<filter><numQuery>1</numQuery></filter>"),
        whole("<addWell><numAddWells>-1</numAddWells></addWell>"),
        bomb + "]>" + whole("<filter><query><operation>&a39;</operation></query></filter>")};
    NORLEX_selection some = selection();
    some.addWell(well(L'a'));
    for (const auto& file : files) {
        folder.write(L"broken.xml", file);
        EXPECT_FALSE(some.load(folder / L"broken.xml")) << file.substr(0, 200);
        EXPECT_NE(NORLEX_lastError().find(L"broken.xml"), std::wstring::npos) << lastError();
        EXPECT_EQ(some.name(), L"test");
        EXPECT_EQ(some.getAddedWells(), wells(L"a"));
    }
    EXPECT_FALSE(some.load(folder / L"missing.xml"));
    EXPECT_FALSE(some.save(folder / L"no/such/folder.xml"));
    EXPECT_FALSE(some.load(static_cast<Tts_xml_node*>(nullptr)));
}

TEST_F(SelectionTest, isEmptyWhereTheContainerIsGone) {
    NORLEX_selection some = selection();
    EXPECT_EQ(names(some), L"abcdefgh");
    NORLEX_contDescription gone;
    gone.path = folder / L"gone.well2";
    gone.type = 1;
    gone.connection = gone.path;
    some.reloadContainer(gone);
    EXPECT_FALSE(some.rebuildList());
    EXPECT_NE(lastError(), "");
    EXPECT_EQ(names(some), L"");
    EXPECT_EQ(some.getWellIDString(), L"");
    some.descr(container->getContDescription());
    EXPECT_EQ(names(some), L"abcdefgh");
}

} // namespace
