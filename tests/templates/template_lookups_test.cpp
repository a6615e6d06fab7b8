#include "NORLEX_dictionary.h"
#include "tests/templates/template_fixture.h"

using T = NORLEX_propTemplate;

namespace {

std::wstring joined(const list& names) {
    std::wstring out;
    for (const auto& name : names)
        out += (out.empty() ? L"" : L",") + name;
    return out;
}

std::wstring joined(const std::vector<NORLEX_dataType>& types) {
    list names;
    for (const auto type : types)
        names.push_back(std::to_wstring(type));
    return joined(names);
}

std::wstring joined(const std::vector<NORLEX_propDescription>& properties) {
    list names;
    for (const auto& property : properties)
        names.push_back(property.group + L"/" + property.name);
    return joined(names);
}

std::wstring joined(const std::vector<NORLEX_wellDescription>& wells) {
    list names;
    for (const auto& well : wells)
        names.push_back(well.field + L"/" + well.name + std::to_wstring(well.wellId));
    return joined(names);
}

} // namespace

TEST_F(TemplateTest, templatesByWhatTheirTypesAllow) {
    ASSERT_TRUE(T::createType(db(), NORLEX_dataTypeSerial));
    ASSERT_TRUE(T::createType(db(), NORLEX_dataTypeVDMAvg));
    EXPECT_EQ(joined(T::getTemplateGroupLoadList(db())), // 1 to 4, 6, 9
              L"Граница корреляции,Интервал,Каротаж,Колонка,Маркер,Набор данных");
    EXPECT_EQ(joined(T::getTemplateImportList(db())), // 1 to 6, 9
              L"Граница корреляции,Интервал,Каротаж,Колонка,Маркер,Набор данных,Растр");
    EXPECT_EQ(joined(T::getTemplateCopyList(db())),
              L"Интервал,Каротаж,Колонка,Маркер,Набор данных,Растр");
    EXPECT_EQ(joined(T::getSimpleTypeList(db())), L"1,2,3");
    ASSERT_TRUE(T::remove(db(), L"Колонка"));
    EXPECT_EQ(joined(T::getSimpleTypeList(db())), L"1,2");
    EXPECT_EQ(joined(T::getExistTypeList(db())), L"");
}

TEST_F(TemplateTest, whoUsesATemplate) {
    fillWells();
    change(
        {L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) VALUES (5, 2, 99, 'lost', '')"});
    EXPECT_EQ(joined(T::getExistTypeList(db())), L"2,1"); // by stored name; one is of no template
    EXPECT_EQ(joined(T::getTemplateList(db(), {2, 3})), L"Маркер");
    EXPECT_EQ(joined(T::getTemplateList(db(), {1})), L"Интервал,Маркер");
    EXPECT_EQ(joined(T::getTemplateList(db(), std::vector<std::uint32_t>())), L"");
    EXPECT_EQ(T::getNumWellsWithProps(db(), L"Маркер"), 3);
    EXPECT_EQ(T(db(), L"Интервал").numProps(), 1);
    EXPECT_EQ(joined(T::getPropertyFromTemplate(db(), L"Маркер")), L"/own,g/tops");
    EXPECT_EQ(joined(T::getPropertyFromType(db(), NORLEX_dataTypeInterval)), L"g/beds");
    EXPECT_EQ(joined(T::getPropertyFromType(db(), NORLEX_dataTypeMarker, {1, 2})), L"g/tops");
    EXPECT_EQ(
        joined(T::getPropertyFromType(db(), NORLEX_dataTypeMarker, std::vector<std::uint32_t>())),
        L"");
    EXPECT_EQ(joined(T::getWellsFromTemplate(db(), L"Маркер")), L"A/W-33,F/W-11,F/W-22");
    EXPECT_EQ(joined(T::getWellsFromTemplate(db(), L"Маркер", {L"tops", L"g"})), L"F/W-11,F/W-22");
    EXPECT_EQ(joined(T::getWellsFromTemplate(db(), L"Маркер", {L"tops", L""})), L"");
    EXPECT_EQ(T::getName(db(), 1, {L"beds", L"g"}), L"Интервал");
    EXPECT_EQ(T::getType(db(), 1, {L"beds", L"g"}), NORLEX_dataTypeInterval);
    EXPECT_EQ(T::getName(db(), 2, {L"beds", L"g"}), L"");
}

TEST_F(TemplateTest, fieldsOfATemplate) {
    ASSERT_TRUE(T(db(), L"Интервал").addField(numeric(L"Глина", L"", 1), false));
    list names;
    T::getFieldList(db(), L"Интервал", names);
    EXPECT_EQ(joined(names), L"Название,Описание,Глина");
    T::getFieldList(db(), L"Интервал", NORLEX_fieldTypeBigstring, names);
    EXPECT_EQ(joined(names), L"Описание");
    EXPECT_EQ(joined(T::getNumericFieldListWithDepth(db(), L"Интервал")), L"Кровля,Подошва,Глина");
    EXPECT_EQ(joined(T::getNumericFieldListWithDepth(db(), L"Каротаж")), L"Глубина,Значение");
    EXPECT_EQ(T::getNumericFieldListWithDepth(db(), L"Конструкция").size(), 4U); // no depth
    EXPECT_EQ(T::getFieldType(db(), L"Интервал", L"Глина"), NORLEX_fieldTypeNumeric);
    EXPECT_EQ(T::getFieldPrecision(db(), L"Интервал", L"Глина"), 1);
}

TEST_F(TemplateTest, equalTemplatesHaveTheSameFields) {
    const auto text = NORLEX_fieldTypeString;
    ASSERT_TRUE(T::createFromTemplate(db(), L"Интервал", L"same", list{}, {}, false));
    ASSERT_TRUE(T::createFromTemplate(db(), L"Интервал", L"more", {L"f"}, {text}, false));
    ASSERT_TRUE(T::createFromTemplate(db(), L"Интервал", L"other", {L"f"}, {text}, false));
    ASSERT_TRUE(T(db(), L"other").changeFieldType(L"f", NORLEX_fieldTypeLink));
    EXPECT_TRUE(T::isEqual(db(), L"Интервал", L"same"));
    for (const auto& [one, two] : {std::pair{L"same", L"more"},
                                   {L"more", L"other"},
                                   {L"Интервал", L"Колонка"},
                                   {L"none", L"none"}})
        EXPECT_FALSE(T::isEqual(db(), one, two)) << ts::strconv::toUtf8(two);
}

TEST(DrawType, textAndBack) {
    const struct {
        NORLEX_drawType type;
        NORLEX_drawParams params;
        const wchar_t* text;
    } cases[] = {
        {NORLEX_drawTypeDefault, {}, L""},
        {NORLEX_drawTypeDefault, {{L"a", L"1"}}, L";a=1"},
        {NORLEX_drawTypeCurve,
         {{L"color", L"#f00"}, {L"width", L"2"}},
         L"curve;color=#f00;width=2"},
        {NORLEX_drawTypeFill, {{L"a;b", L"50%=%3B"}}, L"fill;a%3Bb=50%25%3D%253B"},
        {NORLEX_drawTypeImage, {{L"цвет", L""}}, L"image;цвет="},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(T::getDrawTypeString(c.type, c.params), c.text);
        EXPECT_EQ(T::getDrawTypeFromString(c.text), c.type);
        EXPECT_EQ(T::getDrawTypeParamsFromString(c.text), c.params);
    }
    EXPECT_EQ(T::getDrawTypeString(static_cast<NORLEX_drawType>(-1), {}), L"");
    EXPECT_EQ(T::getDrawTypeFromString(L"Curve;a=1"), NORLEX_drawTypeDefault);
    EXPECT_EQ(T::getDrawTypeParamsFromString(L"old;;flag;a=1;a=2=3;%zz=%"),
              (NORLEX_drawParams{{L"flag", L""}, {L"a", L"2=3"}, {L"%zz", L"%"}}));
}

TEST_F(TemplateTest, drawTypeIsThatOfThePropertiesToo) {
    fillWells();
    T marker(db(), L"Маркер");
    EXPECT_EQ(marker.getBasicDrawType(), L"");
    ASSERT_TRUE(marker.setBasicDrawType(NORLEX_drawTypeLabels, {{L"font", L"8'"}})) << lastError();
    EXPECT_EQ(T::getBasicDrawType(db(), L"Маркер"), L"labels;font=8'");
    EXPECT_EQ(T::getBasicDrawType(db(), marker.getID()), L"labels;font=8'");
    EXPECT_EQ(all(L"SELECT pr_id FROM property WHERE draw_type = 'labels;font=8''' ORDER BY pr_id"),
              L"1,2,4");
    EXPECT_EQ(heard, (list{L"11 Маркер", L"7 own", L"7 topsg"}));
}

TEST_F(TemplateTest, whatIsNotThereSaysSo) {
    const T noTemplate(db(), L"a");
    EXPECT_FALSE(noTemplate.isOK());
    EXPECT_EQ(NORLEX_lastError(), L"there is no template \"a\"");
    const NORLEX_dictionary noDictionary(db(), L"b");
    EXPECT_FALSE(noDictionary.isOK());
    EXPECT_EQ(NORLEX_lastError(), L"there is no dictionary \"b\"");
}

// A container that is closed hands out null; a connection may be closed behind a template's back.
TEST_F(TemplateTest, nothingIsFoundOrDoneWithoutADatabase) {
    odbc_database closed;
    for (odbc_database* none : {static_cast<odbc_database*>(nullptr), &closed}) {
        T t(none, L"Маркер");
        NORLEX_fieldDescr field;
        std::wstring message;
        EXPECT_FALSE(t.isOK() || t.isExist() || t.isFieldExist(L"f"));
        EXPECT_FALSE(t.addField(field, true) || t.deleteField(L"f") || t.renameField(L"f", L"g"));
        EXPECT_FALSE(t.changeFieldType(L"f", NORLEX_fieldTypeLink) || t.setFieldPrecision(L"f", 1));
        EXPECT_FALSE(t.setFieldShortName(L"f", L"g") || t.checkNumericFldData(L"f", message));
        EXPECT_FALSE(t.setBasicDrawType(NORLEX_drawTypeFill, {}) || t.setDataTypeString(L"x"));
        EXPECT_EQ(t.numProps() + t.numValues(L"f") + t.getFieldCount() + t.getFieldPrecision(L"f"),
                  0);
        EXPECT_EQ(t.getBasicDrawType() + t.getDataTypeString() + t.getFieldShortName(L"f"), L"");
        EXPECT_TRUE(t.getFieldList().empty() && T::getTemplateList(none).empty());
        EXPECT_FALSE(T::create(none) || T::createType(none, NORLEX_dataTypeLog));
        EXPECT_FALSE(T::createFromType(none, NORLEX_dataTypeLog, L"t", {field}, true));
        EXPECT_FALSE(T::createFromTemplate(none, L"s", L"t", {field}, true));
        EXPECT_EQ(NORLEX_lastError(), L"no container is open");
        EXPECT_FALSE(T::remove(none, L"t") || T::rename(none, L"t", L"u")
                     || T::isExist(none, L"t"));
        EXPECT_FALSE(T::updateEditTime(none, 1) || T::isEqual(none, L"t", L"t"));
        EXPECT_TRUE(T::getTemplateList(none, {1}).empty() && T::getExistTypeList(none).empty());
        EXPECT_TRUE(T::getWellsFromTemplate(none, L"t").empty());
        EXPECT_TRUE(T::getPropertyFromType(none, NORLEX_dataTypeLog).empty());
        EXPECT_TRUE(T::getFieldList(none, L"t").empty());
    }
}
