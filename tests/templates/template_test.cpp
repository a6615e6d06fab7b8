#include "NORLEX_host.h"
#include "store/journal.h"
#include "templates/property_fields.h"
#include "tests/templates/template_fixture.h"

namespace {

constexpr const wchar_t* constructionFields = L"Диаметр/Diametr/Numeric/2/10/2\n"
                                              L"Закреплено трубами от/From_pipe/Numeric/2/10/2\n"
                                              L"Закреплено трубами до/To_pipe/Numeric/2/10/2\n"
                                              L"Диаметр обсадки/Concrete/Numeric/2/10/2\n"
                                              L"Описание/Comment/String/1/50/0\n";
constexpr const wchar_t* workFields = L"Тип элемента/Element/Bigstring/1/20/0\n"
                                      L"Внутренний диаметр/Inner_D/Numeric/2/10/2\n"
                                      L"Внешний диаметр/Outer_D/Numeric/2/10/2\n"
                                      L"Описание/Comment/String/1/50/0\n";
constexpr const wchar_t* geologyFields =
    L"Название/Name/String/1/20/0\nОписание/Descr/Bigstring/1/50/0\n";
constexpr const wchar_t* borderFields =
    L"Название/Name/String/1/20/0\nГруппа/Group/String/1/20/0\n";
constexpr const wchar_t* valueField = L"Значение/Value/Numeric/2/10/2\n";

} // namespace

TEST(PropTemplate, baseFieldsOfEachType) {
    struct {
        int type;
        const wchar_t* fields;
    } const cases[] = {
        {0, L""},
        {1, geologyFields},
        {2, geologyFields},
        {3, geologyFields},
        {4, valueField},
        {5, L""},
        {6, borderFields},
        {7, constructionFields},
        {8, workFields},
        {9, valueField},
        {10, valueField},
        {11, valueField},
        {12, L""},
    };
    std::vector<NORLEX_fieldDescr> fields(3); // cleared first
    for (const auto& c : cases) {
        NORLEX_propTemplate::getBaseFldListForType(static_cast<NORLEX_dataType>(c.type), fields);
        EXPECT_EQ(spelled(fields), c.fields) << c.type;
    }
}

TEST_F(TemplateTest, standardTemplatesAreFoundByNameKeyAndType) {
    const NORLEX_propTemplate log(db(), L"Каротаж");
    ASSERT_TRUE(log.isOK() && log.isExist());
    EXPECT_EQ(log.getDescription(), L"Каротаж");
    EXPECT_EQ(log.getType(), NORLEX_dataTypeLog);
    EXPECT_EQ(log.getID(), NORLEX_propTemplate::getID(db(), L"Каротаж"));
    EXPECT_EQ(NORLEX_propTemplate::getName(db(), log.getID()), L"Каротаж");
    EXPECT_EQ(NORLEX_propTemplate::getType(db(), log.getID()), NORLEX_dataTypeLog);
    EXPECT_EQ(NORLEX_propTemplate::getType(db(), L"Колонка"), NORLEX_dataTypeColumn);
    EXPECT_EQ(NORLEX_propTemplate::getTemplateListForType(db(), NORLEX_dataTypeBorder),
              list{L"Граница корреляции"});
    EXPECT_EQ(NORLEX_propTemplate::getTemplateList(db()),
              (list{L"Граница корреляции",
                    L"Интервал",
                    L"Каротаж",
                    L"Колонка",
                    L"Конструкция",
                    L"Маркер",
                    L"Растр",
                    L"Эксплуатационные элементы"}));
    // The width is not stored and reads as 10; a precision only for numeric fields.
    EXPECT_EQ(spelled(NORLEX_propTemplate::getFieldList(db(), L"Маркер")),
              L"Название/Name/String/1/10/0\nОписание/Descr/Bigstring/1/10/0\n");
    EXPECT_EQ(spelled(NORLEX_propTemplate(db(), L"Каротаж").getFieldList()), valueField);
    // Of the 18 fields, 2 of each of four types, 1 of construction and 2 of working elements.
    EXPECT_EQ(cell(L"SELECT count(*) FROM field_template WHERE prec IS NULL AND is_base = 0"),
              L"11");
    EXPECT_TRUE(journal::read(*db()).size() == 1); // the container's creation and nothing else
}

TEST_F(TemplateTest, whatDoesNotExistIsNotFound) {
    NORLEX_propTemplate none(db(), L"нет 'такого'");
    EXPECT_FALSE(none.isOK() || none.isExist() || none.isFieldExist(L"Название"));
    EXPECT_FALSE(none.addField(L"f", NORLEX_fieldTypeString));
    EXPECT_EQ(none.getFieldCount(), 0);
    EXPECT_EQ(NORLEX_propTemplate::getID(db(), L"нет"), 0U);
    EXPECT_EQ(NORLEX_propTemplate::getName(db(), 99), L"");
    EXPECT_EQ(NORLEX_propTemplate::getType(db(), L"нет"), NORLEX_dataTypeUnknown);
    EXPECT_TRUE(NORLEX_propTemplate::getFieldList(db(), L"нет").empty());
}

TEST_F(TemplateTest, editableByTheTypeOfTheNamedTemplate) {
    ASSERT_TRUE(NORLEX_propTemplate::createType(db(), NORLEX_dataTypeSerial));
    ASSERT_TRUE(NORLEX_propTemplate::createType(db(), NORLEX_dataTypeVDMInterval));
    ASSERT_TRUE(NORLEX_propTemplate::createType(db(), NORLEX_dataTypeVDMAvg));
    std::string editable;
    for (int type = 0; type <= 11; ++type)
        editable += NORLEX_propTemplate::isEditable(
                        db(), getDataNameByEnum(static_cast<NORLEX_dataType>(type)))
                        ? '1'
                        : '0';
    EXPECT_EQ(editable, "111100000011");
}

TEST_F(TemplateTest, createTypeTakesAFreeNameOnly) {
    EXPECT_FALSE(NORLEX_propTemplate::createType(db(), NORLEX_dataTypeLog));
    EXPECT_FALSE(NORLEX_propTemplate::createType(db(), NORLEX_dataTypeUnknown));
    change({L"DELETE FROM base_template WHERE name = 'Каротаж'"});
    EXPECT_TRUE(NORLEX_propTemplate::createType(db(), NORLEX_dataTypeLog));
    EXPECT_EQ(
        cell(L"SELECT count(DISTINCT UUID) FROM base_template WHERE create_date = update_date "
             L"AND create_user = update_user AND create_user = '"
             + db()->get_user() + L"'"),
        L"8");
}

TEST_F(TemplateTest, createDeletesWhatWasThere) {
    change({L"UPDATE base_template SET name = 'user''s' WHERE name = 'Маркер'"});
    ASSERT_TRUE(NORLEX_propTemplate::create(db()));
    EXPECT_FALSE(NORLEX_propTemplate::isExist(db(), L"user's"));
    EXPECT_EQ(container->getTemplateCount(), 8);
    // 2 fields of four types, 1, 0, 5 and 4
    EXPECT_EQ(cell(L"SELECT count(*) FROM field_template"), L"18");
}

TEST_F(TemplateTest, otherLanguageNamesNewTemplates) {
    NORLEX_setLanguage(NORLEX_language::english);
    EXPECT_TRUE(NORLEX_propTemplate::create(db()));
    NORLEX_setLanguage(NORLEX_language::russian);
    const NORLEX_propTemplate log(db(), L"Log");
    EXPECT_TRUE(log.isOK() && log.isFieldExist(L"Value"));
}

TEST_F(TemplateTest, addedFieldIsStored) {
    NORLEX_propTemplate marker(db(), L"Маркер");
    ASSERT_TRUE(marker.addField(numeric(L"Пор'истость", L"Por'", 3), true)) << lastError();
    ASSERT_TRUE(marker.addField(L"text", NORLEX_fieldTypeVsegei));
    ASSERT_TRUE(marker.addField(L"number", NORLEX_fieldTypeNumeric));
    EXPECT_EQ(spelled(marker.getFieldList()).substr(spelled(marker.getFieldList()).find(L"По")),
              L"Пористость/Por/Numeric/2/10/3\ntext//Vsegei/1/10/0\nnumber//Numeric/2/10/2\n");
    EXPECT_EQ(cell(L"SELECT prec IS NULL FROM field_template WHERE name = 'text'"), L"1");
    EXPECT_EQ(marker.getFieldCount(), 5);
    EXPECT_EQ(marker.getFieldType(L"text"), NORLEX_fieldTypeVsegei);
    EXPECT_EQ(marker.getFieldPrecision(L"Пористость"), 3);
    EXPECT_EQ(marker.getFieldShortName(L"Пористость"), L"Por");
    EXPECT_EQ(heard, list{L"11 МаркерПористость"}); // the short form is silent
    ASSERT_EQ(journal::read(*db()).size(), 4U);
    EXPECT_EQ(journal::read(*db())[1].comment, L"Маркер: Пористость");
}

TEST_F(TemplateTest, fieldsThatAreRefused) {
    struct {
        const char* where;
        const wchar_t* name;
        const wchar_t* shortName;
        int type;
        const wchar_t* line; // a part of it
    } const cases[] = {
        {"empty", L"", L"", 1, L"needs a name"},
        {"only apostrophes", L"''", L"", 1, L"needs a name"},
        {"taken", L"Название", L"", 1, L"already"},
        {"taken without apostrophes", L"Наз'вание", L"", 1, L"already"},
        {"named like a log template", L"Каротаж", L"", 1, L"kind cannot be edited"},
        {"eleven letters", L"f", L"abcdefghijk", 1, L"10 characters"},
        {"no type", L"f", L"", 0, L"none of 1 to 6"},
        {"type out of range", L"f", L"", 7, L"none of 1 to 6"},
    };
    NORLEX_propTemplate marker(db(), L"Маркер");
    for (const auto& c : cases) {
        NORLEX_fieldDescr field = numeric(c.name, c.shortName, 2);
        field.type = static_cast<NORLEX_fieldType>(c.type);
        EXPECT_FALSE(marker.addField(field, true)) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.line), std::wstring::npos)
            << c.where << ": " << lastError();
        EXPECT_EQ(marker.getFieldCount(), 2) << c.where;
    }
    EXPECT_TRUE(heard.empty());
    // The test of editability asks about the field's name, not about the template.
    EXPECT_TRUE(NORLEX_propTemplate(db(), L"Каротаж").addField(L"f", NORLEX_fieldTypeString));
    EXPECT_TRUE(marker.addField(L"Интервал", NORLEX_fieldTypeString));
}

TEST_F(TemplateTest, addedFieldReachesExistingProperties) {
    fillWells();
    NORLEX_propTemplate marker(db(), L"Маркер");
    ASSERT_TRUE(marker.addField(numeric(L"age", L"", 1), true)) << lastError();
    EXPECT_EQ(
        all(L"SELECT pr_id || type FROM field WHERE name = 'age' AND f_id > 5 ORDER BY pr_id"),
        L"1NORLEX_fieldTypeNumeric,2NORLEX_fieldTypeNumeric");
    EXPECT_EQ(all(L"SELECT pr_id || ':' || obj_id || value FROM val JOIN field USING (f_id) WHERE "
                  L"f_id > 5 ORDER BY obj_id"),
              L"1:10,1:11");
    EXPECT_EQ(all(L"SELECT pr_id FROM property WHERE update_user <> 'x' ORDER BY pr_id"), L"1,2,4");
    EXPECT_EQ(all(L"SELECT bt_id FROM base_template WHERE update_user <> 'x'"), L"1");
    EXPECT_EQ(heard, (list{L"11 Маркерage", L"7 own", L"7 topsg"}));
}

TEST_F(TemplateTest, rolledBackFieldLeavesNothingAndIsNotAnnounced) {
    NORLEX_propTemplate marker(db(), L"Маркер");
    ASSERT_TRUE(container->beginTransaction());
    ASSERT_TRUE(marker.addField(numeric(L"age", L"", 1), true));
    EXPECT_TRUE(heard.empty());
    container->rollbackTransaction();
    EXPECT_EQ(marker.getFieldCount(), 2);
    EXPECT_TRUE(heard.empty());
    EXPECT_EQ(journal::read(*db()).size(), 1U);
}

TEST_F(TemplateTest, fieldsOfOneProperty) {
    std::vector<NORLEX_fieldDescr> fields;
    NORLEX_propTemplate::getBaseFldListForType(NORLEX_dataTypeMarker, fields);
    ASSERT_TRUE(propertyFields::addAll(*db(), 7, fields));
    ASSERT_TRUE(propertyFields::add(*db(), 8, L"other's", NORLEX_fieldTypeString));
    change({L"INSERT INTO val (f_id, value, obj_id) VALUES (1, 'a', 5), (2, 'b', 5), (2, 'c', 6), "
            L"(3, 'd', 9)"});
    ASSERT_TRUE(propertyFields::addWithValues(*db(), 7, L"flag", NORLEX_fieldTypeBoolean));
    const auto rows = propertyFields::read(*db(), 7);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].name + L"," + rows[1].name + L"," + rows[2].name, L"Название,Описание,flag");
    EXPECT_EQ(rows[2].type, NORLEX_fieldTypeBoolean);
    EXPECT_EQ(all(L"SELECT obj_id || value FROM val WHERE f_id = 4 ORDER BY obj_id"), L"5,6");
    ASSERT_TRUE(propertyFields::remove(*db(), rows[1].fieldId));
    EXPECT_EQ(propertyFields::read(*db(), 7).size(), 2U);
    EXPECT_EQ(all(L"SELECT f_id FROM val ORDER BY f_id"), L"1,3,4,4");
    EXPECT_EQ(propertyFields::read(*db(), 8).front().name, L"others");
}
