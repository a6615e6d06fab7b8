// What people are shown of fields that are bound to dictionaries.
#include "NORLEX_dictionary.h"
#include "NORLEX_propTemplate.h"
#include "tests/wells/well_fixture.h"

using D = NORLEX_dictionary;

TEST_F(WellTest, boundFieldsShowWhatCodesMean) {
    const NORLEX_propDescription tops{L"Tops", L"G"};
    NORLEX_well w(db(), names);
    const auto held = w.createPropertyPtr(NORLEX_dataTypeMarker, tops);
    ASSERT_TRUE(held && held->createPointCommit(10, NORLEX_unknownDepth, {L"1", L"1"})
                && held->createPointCommit(20, NORLEX_unknownDepth, {L"7", L""}));
    EXPECT_EQ(held->getFieldDictionary(0), nullptr);
    EXPECT_EQ(held->getFieldDictionary(9), nullptr) << "past the end";
    EXPECT_EQ(held->getShownValue(0, 0), L"1");

    ASSERT_TRUE(D::create(db(), L"lit") && D(db(), L"lit").addValue(L"1", L"sand"));
    ASSERT_TRUE(D::createLink(db(), tops, L"Название", L"lit"));
    const auto dictionary = held->getFieldDictionary(0);
    ASSERT_NE(dictionary, nullptr) << "the binding was announced";
    EXPECT_EQ(held->getFieldDictionary(0), dictionary) << "opened once";
    EXPECT_EQ(held->getShownValue(0, 0) + held->getShownValue(1, 0), L"sand1");
    EXPECT_EQ(held->getShownValue(0, 1) + held->getShownValue(0, 9), L"7") << "no such code";
    EXPECT_EQ(held->getValue(0, 0), L"1");

    ASSERT_TRUE(D(db(), L"lit").addValue(L"7", L"clay"));
    EXPECT_EQ(held->getShownValue(0, 1), L"clay");
    ASSERT_TRUE(D::rename(db(), L"lit", L"rocks"));
    EXPECT_EQ(held->getShownValue(0, 1), L"clay");
    NORLEX_propTemplate marker(db(), held->getTemplateName());
    ASSERT_TRUE(marker.renameField(L"Название", L"Rock")) << lastError();
    EXPECT_EQ(held->getShownValue(0, 1), L"clay") << "bindings follow renamed fields";
    ASSERT_TRUE(D::deleteDict(db(), L"rocks"));
    EXPECT_EQ(held->getShownValue(0, 1), L"7");
    EXPECT_EQ(held->getFieldDictionary(0), nullptr);
    EXPECT_FALSE(dictionary->isOK()) << "held by its user";
}
