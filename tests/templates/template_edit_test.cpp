#include "store/journal.h"
#include "store/schema.h"
#include "tests/support/content_snapshot.h"
#include "tests/templates/template_fixture.h"

#include <functional>

using T = NORLEX_propTemplate;

TEST_F(TemplateTest, deletedFieldGoesFromEveryProperty) {
    fillWells();
    change(
        {L"INSERT INTO prop_link (obj_id, fld_id, file_name) VALUES (10, 1, 'a'), (10, 4, 'b')"});
    T marker(db(), L"Маркер");
    ASSERT_TRUE(marker.deleteField(L"Описание")) << lastError();
    EXPECT_EQ(all(L"SELECT f_id FROM field ORDER BY f_id"), L"1,3,4,5");
    EXPECT_EQ(all(L"SELECT value FROM val ORDER BY v_id"), L"a,c,d,e");
    EXPECT_EQ(marker.getFieldCount(), 1);
    // Well 1 has its records by this field alone now; without them it may go.
    EXPECT_FALSE(marker.deleteField(L"Название"));
    EXPECT_NE(NORLEX_lastError().find(L"1 properties with records"), std::wstring::npos);
    change({L"DELETE FROM val WHERE f_id = 1"});
    ASSERT_TRUE(marker.deleteField(L"Название")) << lastError();
    EXPECT_EQ(all(L"SELECT f_id FROM field ORDER BY f_id"), L"4,5");
    EXPECT_EQ(all(L"SELECT file_name FROM prop_link"), L"b");
    EXPECT_EQ(T(db(), L"Интервал").getFieldCount(), 2);
    EXPECT_EQ(heard,
              (list{L"11 МаркерОписание",
                    L"7 own",
                    L"7 topsg",
                    L"11 МаркерНазвание",
                    L"7 own",
                    L"7 topsg"}));
    EXPECT_EQ(all(L"SELECT pr_id FROM property WHERE update_user <> 'x' ORDER BY pr_id"), L"1,2,4");
}

// "tops" and "own" are bound to the dictionary 7. Another template has a property "own", too.
TEST_F(TemplateTest, renamedFieldKeepsValuesAndDictionaries) {
    fillWells();
    ASSERT_TRUE(schema::create(*db(), schema::dictionaryTables()));
    change(
        {L"INSERT INTO dict_link (p_group, prop, field, dict_id) VALUES "
         L"('g', 'tops', 'Название', 7), ('', 'own', 'Название', 7), ('g', 'beds', 'Название', 7)",
         L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) VALUES (5, 2, 2, 'own', '')"});
    T marker(db(), L"Маркер");
    ASSERT_TRUE(marker.renameField(L"Название", L"И'мя")) << lastError();
    EXPECT_EQ(all(L"SELECT f_id FROM field WHERE name = 'Имя' ORDER BY f_id"), L"1,3");
    EXPECT_EQ(marker.getFieldList().front().name, L"Имя");
    EXPECT_EQ(all(L"SELECT prop FROM dict_link WHERE field = 'Имя'"), L"tops");
    EXPECT_EQ(heard, (list{L"11 МаркерНазвание", L"11 МаркерИмя", L"7 own", L"7 topsg"}));
    EXPECT_EQ(journal::read(*db()).back().comment, L"Маркер: Название -> Имя");
}

TEST_F(TemplateTest, changedFieldTypeReachesProperties) {
    fillWells();
    T marker(db(), L"Маркер");
    ASSERT_TRUE(marker.changeFieldType(L"Название", NORLEX_fieldTypeNumeric)) << lastError();
    EXPECT_EQ(all(L"SELECT f_id FROM field WHERE type = 'NORLEX_fieldTypeNumeric' ORDER BY f_id"),
              L"1,3");
    EXPECT_EQ(marker.getFieldType(L"Название"), NORLEX_fieldTypeNumeric);
    EXPECT_EQ(marker.getFieldMetaType(L"Название"), 2);
    EXPECT_EQ(marker.getFieldMetaType(L"none"), 0);
    EXPECT_EQ(marker.getFieldPrecision(L"Название"), 2);
    ASSERT_TRUE(marker.setFieldPrecision(L"Название", 5));
    ASSERT_TRUE(marker.changeFieldType(L"Название", NORLEX_fieldTypeString));
    ASSERT_TRUE(marker.changeFieldType(L"Название", NORLEX_fieldTypeNumeric));
    EXPECT_EQ(marker.getFieldPrecision(L"Название"), 5); // the one it has stays
    ASSERT_TRUE(marker.setFieldShortName(L"Название", L"ten'_letter"));
    EXPECT_EQ(T::getFieldShortName(db(), L"Маркер", L"Название"), L"ten_letter");
    EXPECT_EQ(heard.size(), 5U * 3);
}

TEST_F(TemplateTest, refusedEditsChangeNothing) {
    fillWells();
    T marker(db(), L"Маркер");
    struct {
        const char* where;
        std::function<bool()> run;
        const wchar_t* line; // a part of it
    } const cases[] = {
        {"none to delete", [&] { return marker.deleteField(L"no"); }, L"has no field \"no\""},
        {"none to rename", [&] { return marker.renameField(L"no", L"f"); }, L"has no field"},
        {"to nothing", [&] { return marker.renameField(L"Название", L"''"); }, L"needs a name"},
        {"to a taken name",
         [&] { return marker.renameField(L"Название", L"Описание"); },
         L"has a field \"Описание\" already"},
        {"to a field of one property",
         [&] { return marker.renameField(L"Название", L"age"); },
         L"1 properties have a field \"age\" of their own"},
        {"none to change",
         [&] { return marker.changeFieldType(L"no", NORLEX_fieldTypeString); },
         L"has no field"},
        {"no type",
         [&] { return marker.changeFieldType(L"Название", NORLEX_fieldTypeUnknown); },
         L"none of 1 to 6"},
        {"negative", [&] { return marker.setFieldPrecision(L"Название", -1); }, L"0 to 15"},
        {"too exact", [&] { return marker.setFieldPrecision(L"Название", 16); }, L"0 to 15"},
        {"eleven letters",
         [&] { return marker.setFieldShortName(L"Название", L"eleven_char"); },
         L"10 characters"},
        {"none to name", [&] { return marker.setFieldShortName(L"no", L"n"); }, L"has no field"},
        {"no template",
         [&] { return T(db(), L"none").renameField(L"Название", L"f"); },
         L"no template \"none\""},
    };
    const auto before = contentSnapshot::take(*container);
    for (const auto& c : cases) {
        EXPECT_FALSE(c.run()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.line), std::wstring::npos)
            << c.where << ": " << lastError();
    }
    EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
    EXPECT_TRUE(heard.empty());
}

TEST_F(TemplateTest, valuesThatAreNoNumbersAreNamed) {
    fillWells();
    const struct {
        const wchar_t* value;
        bool isNumber;
    } cases[] = {
        {L"", true},
        {L"  ", true},
        {L"12", true},
        {L"-0,5", true},
        {L" 1e-3 ", true},
        {L"+7.25", true},
        {L"1 5", false},
        {L"1,234.5", false},
        {L"nan", false},
        {L"inf", false},
        {L"0x10", false},
        {L"5 m", false},
        {L"1e999", false},
    };
    const T marker(db(), L"Маркер");
    std::wstring message;
    for (const auto& c : cases) {
        change({L"DELETE FROM val WHERE f_id = 2"});
        ASSERT_TRUE(db()->exec(std::wstring(L"INSERT INTO val (f_id, value, obj_id) VALUES (2, '")
                               + c.value + L"', 10)"));
        EXPECT_EQ(marker.checkNumericFldData(L"Описание", message), c.isNumber)
            << ts::strconv::toUtf8(c.value);
        EXPECT_EQ(message.empty(), c.isNumber);
    }
    // 'a' and 'c' of well 1, not 'd' of the interval property; the older one is told.
    EXPECT_FALSE(marker.checkNumericFldData(L"Название", message));
    EXPECT_EQ(
        message,
        L"the field \"Название\" of the template \"Маркер\" has 2 values that are no numbers, "
        L"first the value \"a\" in the property g/tops of the well O/F/W-1");
    EXPECT_FALSE(marker.checkNumericFldData(L"no", message));
    EXPECT_EQ(marker.numValues(L"Название"), 2);
}
