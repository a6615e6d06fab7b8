// Objects held open see what others write.
#include "tests/wells/well_fixture.h"

#include "NORLEX_propTemplate.h"
#include "globalEventObserver.h"

#include <thread>

namespace {

constexpr double unknown = NORLEX_unknownDepth;

class OpenObjectTest : public WellTest {
protected:
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        w = std::make_unique<NORLEX_well>(db(), names);
        held = w->createPropertyPtr(NORLEX_dataTypeMarker, {L"M", L""});
        ASSERT_TRUE(held && held->createPointCommit(10, unknown, {L"a", L""})) << lastError();
        ASSERT_EQ(held->getValue(0, 0), L"a");
        writer = w->openProperty({L"M", L""});
    }
    std::unique_ptr<NORLEX_well> w;
    std::unique_ptr<NORLEX_wellProperty> held;
    std::unique_ptr<NORLEX_wellProperty> writer;
};

} // namespace

TEST_F(OpenObjectTest, showWhatAnotherWrote) {
    ASSERT_TRUE(writer->updateValue(0, 0, L"b"));
    EXPECT_EQ(held->getValue(0, 0), L"b");
    ASSERT_TRUE(writer->createPointCommit(20, unknown, {L"c", L""}));
    EXPECT_EQ(held->getRecordCount(), 2U);
    ASSERT_TRUE(writer->createField(L"New", NORLEX_fieldTypeString, true));
    EXPECT_EQ(held->getFields().size(), 3U);
    ASSERT_TRUE(NORLEX_propTemplate(db(), held->getTemplateName())
                    .addField({L"More", L"", NORLEX_fieldTypeString}, true));
    EXPECT_EQ(held->getFields().size(), 4U);
    ASSERT_TRUE(NORLEX_wellProperty::setComment(db(), writer->getID(), L"why"));
    EXPECT_EQ(held->getComment(), L"why");
    ASSERT_TRUE(w->renameProperty({L"M", L""}, {L"N", L"G"}));
    EXPECT_EQ(held->getName() + held->getGroup(), L"NG");
    ASSERT_TRUE(writer->removeGeometry(writer->getRecords()[0].obj_id));
    EXPECT_EQ(held->getValue(0, 0), L"c") << "told by the new name";
    ASSERT_TRUE(writer->remove());
    EXPECT_FALSE(held->isOK());
    EXPECT_TRUE(held->getRecords().empty());
    EXPECT_FALSE(held->createPointCommit(1, unknown, {L"", L"", L"", L""}));
}

TEST_F(OpenObjectTest, keepWhatIsNotYetWritten) {
    ASSERT_TRUE(held->createPointData(30, unknown, {L"mine", L""}));
    ASSERT_TRUE(writer->createPointCommit(20, unknown, {L"theirs", L""}));
    ASSERT_EQ(held->getRecords().size(), 3U);
    EXPECT_EQ(held->getValue(0, 1) + held->getValue(0, 2), L"theirsmine");
    ASSERT_TRUE(held->commit(true)) << lastError();
    EXPECT_EQ(writer->getRecords().size(), 3U);
    ASSERT_TRUE(makeLog({L"GR", L""}));
    const auto log = w->openProperty({L"GR", L""});
    const auto other = w->openProperty({L"GR", L""});
    std::vector<NORLEX_logSample> samples;
    ASSERT_TRUE(log->setSamples({{1, 99, 7}}) && other->setSamples({{2, 98, 8}, {3, 97, 9}})
                && other->commit(true));
    ASSERT_TRUE(log->getSamples(samples));
    EXPECT_EQ(samples.size(), 1U) << "its own, not written yet";
    ASSERT_TRUE(log->commit(true) && other->getSamples(samples));
    EXPECT_EQ(samples.size(), 1U);
}

TEST_F(OpenObjectTest, learnOfChangesInOtherThreads) {
    std::thread([this] {
        auto message =
            NORLEX_wellDescription{names.workObject, names.field, names.name, w->getID()};
        ASSERT_TRUE(db()->exec(L"UPDATE val SET value = 'elsewhere' WHERE value = 'a'"));
        globalEventObserver::Instance().updateDataProperty(
            0, db()->get_identity(), message, {L"M", L""});
    }).join();
    EXPECT_EQ(held->getValue(0, 0), L"elsewhere");
    globalEventObserver::Instance().updateDataProperty(0, L"another.well2", names, {L"M", L""});
    ASSERT_TRUE(db()->exec(L"UPDATE val SET value = 'unsaid' WHERE value = 'elsewhere'"));
    EXPECT_EQ(held->getValue(0, 0), L"elsewhere") << "of another container";
}

TEST_F(OpenObjectTest, aDeletedWellIsNotOpenAnyMore) {
    NORLEX_well second(db(), names);
    ASSERT_TRUE(NORLEX_well::remove(db(), names));
    EXPECT_FALSE(second.isOK());
    EXPECT_FALSE(held->isOK());
}
