#include "store/journal.h"
#include "tests/support/content_snapshot.h"
#include "tests/templates/template_fixture.h"

#include <functional>

using T = NORLEX_propTemplate;

TEST_F(TemplateTest, ownTemplateHasTheStandardFieldsOfItsTypeFirst) {
    ASSERT_TRUE(T::createFromType(db(),
                                  NORLEX_dataTypeInterval,
                                  L"Каверно'мер",
                                  {L"Глина", L"Пласт"},
                                  {NORLEX_fieldTypeNumeric, NORLEX_fieldTypeLink},
                                  true))
        << lastError();
    ASSERT_TRUE(T::createFromType(
        db(), NORLEX_dataTypeVDMAvg, L"Скорости", {numeric(L"Погрешность", L"Err", 4)}, false));
    EXPECT_EQ(spelled(T::getFieldList(db(), L"Каверномер")),
              L"Название/Name/String/1/10/0\nОписание/Descr/Bigstring/1/10/0\n"
              L"Глина//Numeric/2/10/2\nПласт//Link/1/10/0\n");
    EXPECT_EQ(spelled(T::getFieldList(db(), L"Скорости")),
              L"Значение/Value/Numeric/2/10/2\nПогрешность/Err/Numeric/2/10/4\n");
    EXPECT_EQ(T::getType(db(), L"Скорости"), NORLEX_dataTypeVDMAvg);
    EXPECT_EQ(T(db(), L"Каверномер").getDescription(), L"Каверномер");
    EXPECT_EQ(cell(L"SELECT count(*) FROM base_template WHERE name IN ('Каверномер', 'Скорости') "
                   L"AND length(UUID) = 36 AND create_date = update_date AND create_user = '"
                   + db()->get_user() + L"'"),
              L"2");
    EXPECT_EQ(heard, list{L"11 Каверномер"});
    const auto lines = journal::read(*db());
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].object + L" " + lines[1].action + L" " + lines[1].comment,
              L"11 1 Каверномер");
}

TEST_F(TemplateTest, ownTemplateHasTheFieldsOfItsSourceFirst) {
    ASSERT_TRUE(T(db(), L"Интервал").addField(numeric(L"Глина", L"Clay", 3), false));
    ASSERT_TRUE(T::createFromTemplate(
        db(), L"Интервал", L"Пласты", {L"Признак"}, {NORLEX_fieldTypeBoolean}, false))
        << lastError();
    EXPECT_EQ(spelled(T::getFieldList(db(), L"Пласты")),
              L"Название/Name/String/1/10/0\nОписание/Descr/Bigstring/1/10/0\n"
              L"Глина/Clay/Numeric/2/10/3\nПризнак//Boolean/3/10/0\n");
    EXPECT_EQ(T::getType(db(), L"Пласты"), NORLEX_dataTypeInterval);
    EXPECT_TRUE(heard.empty());
}

TEST_F(TemplateTest, refusedTemplatesLeaveNothing) {
    fillWells();
    const auto text = NORLEX_fieldTypeString;
    const auto make = [&](NORLEX_dataType type, const wchar_t* name, const list& fields) {
        return T::createFromType(db(), type, name, fields, std::vector(fields.size(), text), true);
    };
    struct {
        const char* where;
        std::function<bool()> run;
        const wchar_t* line; // a part of it
    } const cases[] = {
        {"no name", [&] { return make(NORLEX_dataTypeLog, L" ' ", {}); }, L"needs a name"},
        {"taken", [&] { return make(NORLEX_dataTypeLog, L"Мар'кер", {}); }, L"already"},
        {"no type", [&] { return make(NORLEX_dataTypeUnknown, L"t", {}); }, L"none of 1 to 11"},
        {"a second border", [&] { return make(NORLEX_dataTypeBorder, L"t", {}); }, L"has one"},
        {"a standard field again",
         [&] {
             return make(NORLEX_dataTypeMarker, L"t", {L"new", L"Название"});
         },
         L"has a field \"Название\" already"},
        {"a field twice",
         [&] {
             return make(NORLEX_dataTypeMarker, L"t", {L"f", L"f"});
         },
         L"\"f\""},
        {"lists",
         [&] { return T::createFromType(db(), NORLEX_dataTypeLog, L"t", {L"a"}, {}, true); },
         L"1 field names and 0 field types"},
        {"field without a type",
         [&] {
             return T::createFromType(
                 db(), NORLEX_dataTypeLog, L"t", {L"a"}, {NORLEX_fieldTypeUnknown}, true);
         },
         L"none of 1 to 6"},
        {"no source",
         [&] { return T::createFromTemplate(db(), L"none", L"t", list{}, {}, true); },
         L"\"none\" to copy"},
        {"renamed to a taken name", [&] { return T::rename(db(), L"Каротаж", L"Растр"); }, L"alre"},
        {"renamed to nothing", [&] { return T::rename(db(), L"Каротаж", L"'"); }, L"needs a name"},
        {"none to rename", [&] { return T::rename(db(), L"none", L"t"); }, L"none of that name"},
        {"removed with properties", [&] { return T::remove(db(), L"Маркер"); }, L"first, 3 of"},
        {"none to remove", [&] { return T::remove(db(), L"none"); }, L"none of that name"},
        {"type of other records",
         [&] { return T(db(), L"Маркер").setDataTypeString(L"NORLEX_dataTypeInterval"); },
         L"3 properties have records"},
        {"no stored name",
         [&] { return T(db(), L"Растр").setDataTypeString(L"Каротаж"); },
         L"no stored name"},
        {"type of which there is one",
         [&] { return T(db(), L"Растр").setDataTypeString(L"NORLEX_dataTypeBorder"); },
         L"has one"},
    };
    const auto before = contentSnapshot::take(*container);
    for (const auto& c : cases) {
        EXPECT_FALSE(c.run()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.line), std::wstring::npos)
            << c.where << ": " << lastError();
    }
    EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
    EXPECT_TRUE(heard.empty());
    EXPECT_FALSE(T::renameTemplate(db(), L"Каротаж", L"t"));
}

TEST_F(TemplateTest, renamedTemplateKeepsItsProperties) {
    fillWells();
    ASSERT_TRUE(T::rename(db(), L"Маркер", L"Кровли'")) << lastError();
    EXPECT_EQ(T::getID(db(), L"Кровли"), 1U);
    EXPECT_EQ(T(db(), L"Кровли").numProps(), 3);
    EXPECT_EQ(all(L"SELECT pr_id FROM property WHERE update_user <> 'x' ORDER BY pr_id"), L"1,2,4");
    EXPECT_EQ(heard, (list{L"11 Маркер", L"11 Кровли", L"7 own", L"7 topsg"}));
    EXPECT_EQ(journal::read(*db()).back().comment, L"Маркер -> Кровли");
    ASSERT_TRUE(T::rename(db(), L"Кровли", L"Кровли"));
    EXPECT_EQ(journal::read(*db()).size(), 2U); // the same name changes nothing
}

TEST_F(TemplateTest, removedTemplateGoesWithItsFields) {
    ASSERT_TRUE(T::createFromType(
        db(), NORLEX_dataTypeMarker, L"t", {L"f"}, {NORLEX_fieldTypeString}, false));
    const auto id = std::to_wstring(T::getID(db(), L"t"));
    ASSERT_TRUE(T::remove(db(), L"t")) << lastError();
    EXPECT_FALSE(T::isExist(db(), L"t"));
    EXPECT_EQ(cell(L"SELECT count(*) FROM field_template WHERE bt_id = " + id), L"0");
    EXPECT_EQ(cell(L"SELECT count(*) FROM field_template"), L"18"); // those of the standard ones
    EXPECT_EQ(heard, list{L"11 t"});
    // A kind of which there is one can be made again.
    ASSERT_TRUE(T::remove(db(), L"Граница корреляции"));
    EXPECT_TRUE(T::createFromType(db(), NORLEX_dataTypeBorder, L"Границы", list{}, {}, false));
}

TEST_F(TemplateTest, intervalsBecomeColumnsAndBack) {
    fillWells();
    T beds(db(), L"Интервал");
    ASSERT_TRUE(beds.setDataTypeString(L"NORLEX_dataTypeColumn")) << lastError();
    EXPECT_EQ(beds.getType(), NORLEX_dataTypeColumn);
    EXPECT_EQ(beds.getDataTypeString(), L"NORLEX_dataTypeColumn");
    EXPECT_EQ(T::getDBType(db(), L"Интервал"), L"NORLEX_dataTypeColumn");
    EXPECT_TRUE(T(db(), L"Растр").setDataTypeString(L"NORLEX_dataTypeLog")); // no properties
}
