// The construction and the drilling record of a well.
#include "tests/support/every_failure.h"
#include "tests/wells/well_fixture.h"

#include "NORLEX_wellConstruction.h"
#include "NORLEX_wellDrilling.h"

#include <limits>

namespace {

class ConstructionTest : public WellTest {
protected:
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        construction = std::make_unique<NORLEX_wellConstruction>(well().getConstruction());
        drilling = std::make_unique<NORLEX_wellDrilling>(well().getDrillingInfo());
    }

    failing::statements faults;
    std::unique_ptr<NORLEX_wellConstruction> construction;
    std::unique_ptr<NORLEX_wellDrilling> drilling;
};

} // namespace

TEST_F(ConstructionTest, sectionsAndWorkingElementsComeInOrder) {
    ASSERT_TRUE(
        construction->addElement({0, 120.5, 900, 215.9, 0, 880, 168, L"it's"}, true)
        && construction->loadElementsFromData({{0, 0, 120.5, 393.7, 0, 119, 324, L"first"}}))
        << lastError();
    auto sections = construction->getElementList();
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].comment + sections[1].comment, L"firstits");
    EXPECT_EQ(NORLEX_wellConstruction::getMaxDiametr(db(), wellId()), 393.7);
    sections[1].to_pipe = 0.1 + 0.2; // stored exactly
    ASSERT_TRUE(construction->updateElement(sections[1]));
    EXPECT_EQ(construction->getElementList()[1].to_pipe, 0.1 + 0.2);
    EXPECT_FALSE(construction->addElement({0, 2, 1, 0, 0, 0, 0, L""}, true)) << "upwards";
    EXPECT_FALSE(construction->addElement(
        {0, 0, std::numeric_limits<double>::infinity(), 0, 0, 0, 0, L""}, true));
    EXPECT_FALSE(construction->loadElementsFromData(
        {{0, 0, 1, 0, 0, 0, 0, L"good"}, {0, 0, 1, 0, 9, 8, 0, L"bad"}}));
    EXPECT_FALSE(construction->removeElement(99));
    ASSERT_TRUE(construction->removeElement(sections[0].u_id));
    EXPECT_EQ(construction->getElementCount(), 1);
    ASSERT_TRUE(construction->addWorkElement({0, 3, 50, 62, 700, 710, L"packer"}, false)
                && construction->addWorkElement({0, 1, 50, 62, 0, 700, L"tubing"}, false));
    EXPECT_EQ(construction->getWorkElementList()[0].text, L"tubing");
    EXPECT_FALSE(construction->updateWorkElement({99, 1, 0, 0, 0, 0, L""}));
    ASSERT_TRUE(construction->clearWorkElements() && construction->clearConstruction());
    EXPECT_FALSE(NORLEX_wellConstruction::isExist(db(), wellId())
                 || NORLEX_wellConstruction::isWorkExist(db(), wellId()));
}

TEST_F(ConstructionTest, theDrillingRecordKeepsRunsHeaderAndPeople) {
    EXPECT_EQ(drilling->getDrillingRig(), L"");
    ASSERT_TRUE(drilling->setDrillingRig(L"ZIF-650'M'") && drilling->setDrillingType(L"core"));
    EXPECT_EQ(row(L"SELECT drillingType, drillingRig, drillingDocAuther FROM well_info"),
              L"core ZIF-650M ");
    EXPECT_EQ(cell(L"SELECT count(*) FROM well_info"), L"1");
    ASSERT_TRUE(
        drilling->addElement({L"2024-05-02", L"2", L"76", L"", 10, 25.5, L"14", L"90", L""}, true)
        && drilling->addElement({L"2024-05-01", L"1", L"93", L"", 0, 10, L"", L"", L""}, true));
    auto runs = drilling->getElementList();
    EXPECT_EQ(runs[0].date + runs[1].kern, L"2024-05-0114");
    runs[0].others = L"losses";
    ASSERT_TRUE(drilling->updateElement(runs[0]) && drilling->removeElement(runs[1].u_id));
    EXPECT_EQ(drilling->getElementList()[0].others, L"losses");
    EXPECT_FALSE(drilling->addElement({L"", L"", L"", L"", 5, 4, L"", L"", L"", 0}, true));
    const NORLEX_wellExecutor ivanov{L"Иванов", L"мастер"};
    ASSERT_TRUE(drilling->addExecutor({L"Петров", L"бурильщик"}, false)
                && drilling->addExecutor(ivanov, false) && drilling->addExecutor(ivanov, false));
    EXPECT_EQ(drilling->getExecutorList()[0].name, L"Иванов");
    ASSERT_TRUE(drilling->removeExecutor(ivanov)) << "both that are alike";
    EXPECT_EQ(drilling->getExecutorCount(), 1);
    EXPECT_FALSE(drilling->removeExecutor(ivanov) || drilling->isExecutorExist(ivanov)
                 || drilling->addExecutor({L"'", L"x"}, false));
    ASSERT_TRUE(NORLEX_well::remove(db(), names));
    for (const auto* table : {L"well_info", L"well_drilling", L"well_executors"})
        EXPECT_EQ(cell(std::wstring(L"SELECT count(*) FROM ") + table), L"0");
    EXPECT_FALSE(drilling->setDrillingRig(L"x")) << "the well is gone";
}

TEST_F(ConstructionTest, aFailedStatementLeavesNothing) {
    failing::forEveryFailure(
        *container, faults, "header", [&] { return drilling->setDrillingRig(L"rig"); });
    failing::forEveryFailure(*container, faults, "sections", [&] {
        return construction->loadElementsFromData(
            {{0, 0, 1, 0, 0, 0, 0, L"a"}, {0, 1, 2, 0, 0, 0, 0, L"b"}});
    });
}
