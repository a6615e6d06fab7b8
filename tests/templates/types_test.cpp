#include "NORLEX_host.h"
#include "NORLEX_propTemplate.h"
#include "tests/support/container_fixture.h"

namespace {

// The values for which a predicate holds, as digits; "a" is 10, "b" 11, "?" any that is no type.
template <typename Predicate>
std::string holdsFor(Predicate predicate) {
    std::string found;
    for (int value = -1; value <= 64; ++value)
        if (predicate(static_cast<NORLEX_dataType>(value)))
            found += value < 0 || value > 11 ? '?' : "0123456789ab"[value];
    return found;
}

} // namespace

// Stored names are part of the database's format; display names are the host's language.
TEST(DataType, namesAndBack) {
    struct {
        int type;
        const wchar_t* stored;
        const wchar_t* display;
    } const cases[] = {
        {1, L"NORLEX_dataTypeMarker", L"Маркер"},
        {2, L"NORLEX_dataTypeInterval", L"Интервал"},
        {3, L"NORLEX_dataTypeColumn", L"Колонка"},
        {4, L"NORLEX_dataTypeLog", L"Каротаж"},
        {5, L"NORLEX_dataTypeRastr", L"Растр"},
        {6, L"NORLEX_dataTypeBorder", L"Граница корреляции"},
        {7, L"NORLEX_dataTypeConstruction", L"Конструкция"},
        {8, L"NORLEX_dataTypeWorkConstruction", L"Эксплуатационные элементы"},
        {9, L"NORLEX_dataTypeSerial", L"Набор данных"},
        {10, L"NORLEX_dataTypeVDMInterval", L"Интервальная скорость"},
        {11, L"NORLEX_dataTypeVDMAvg", L"Средняя скорость"},
    };
    for (const auto& c : cases) {
        const auto type = static_cast<NORLEX_dataType>(c.type);
        EXPECT_EQ(getDataTypeEnum(type), c.stored);
        EXPECT_EQ(getDataTypeByEnum(c.stored), type);
        EXPECT_EQ(getDataNameByEnum(type), c.display);
        EXPECT_EQ(getDataEnumByName(c.display), type);
    }
    for (const int value : {-1, 0, 12, 1000})
        EXPECT_EQ(getDataTypeEnum(static_cast<NORLEX_dataType>(value))
                      + getDataNameByEnum(static_cast<NORLEX_dataType>(value)),
                  L"");
}

TEST(DataType, storedNamesMatchExactly) {
    EXPECT_EQ(getDataTypeByEnum(L"NORLEX_dataTypeLitology"), NORLEX_dataTypeColumn);
    for (const wchar_t* name : {L"NORLEX_dataTypeStratigraphy",
                                L"NORLEX_dataTypelog",
                                L"NORLEX_dataTypeLog ",
                                L"NORLEX_dataTypeUnknown",
                                L""}) {
        EXPECT_EQ(getDataTypeByEnum(name), NORLEX_dataTypeUnknown);
        EXPECT_EQ(getDataEnumByName(name), NORLEX_dataTypeUnknown);
    }
    EXPECT_EQ(getDataEnumByName(L"Литология"), NORLEX_dataTypeUnknown);
}

TEST(DataType, whatEachAllows) {
    EXPECT_EQ(holdsFor(NORLEX_propTemplate::isCreatable), "123");
    EXPECT_EQ(holdsFor(NORLEX_propTemplate::isImportable), "1234569");
    EXPECT_EQ(holdsFor(NORLEX_propTemplate::isGroupLoad), "123469");
    EXPECT_EQ(holdsFor(NORLEX_propTemplate::isDataGUIEditable), "12346");
}

TEST(FieldType, namesAndBack) {
    struct {
        int type;
        const wchar_t* stored;
        const wchar_t* display;
        int table;
    } const cases[] = {
        {1, L"NORLEX_fieldTypeString", L"Текст", 1},
        {2, L"NORLEX_fieldTypeBigstring", L"Большой текст", 1},
        {3, L"NORLEX_fieldTypeNumeric", L"Число", 2},
        {4, L"NORLEX_fieldTypeLink", L"Ссылка", 1},
        {5, L"NORLEX_fieldTypeVsegei", L"Форматированный текст", 1},
        {6, L"NORLEX_fieldTypeBoolean", L"Признак", 3},
    };
    for (const auto& c : cases) {
        const auto type = static_cast<NORLEX_fieldType>(c.type);
        EXPECT_EQ(fieldType_getBaseEnum(type), c.stored);
        EXPECT_EQ(fieldType_getType(c.stored), type);
        EXPECT_EQ(fieldType_getUIName(type), c.display);
        EXPECT_EQ(fieldType_getDSType(type), c.table);
    }
    for (const int value : {-1, 0, 7}) {
        const auto type = static_cast<NORLEX_fieldType>(value);
        EXPECT_EQ(fieldType_getBaseEnum(type), L"NORLEX_fieldTypeUnknown");
        EXPECT_EQ(fieldType_getUIName(type), L"Ошибка");
        EXPECT_EQ(fieldType_getDSType(type), 1);
    }
    for (const wchar_t* name : {L"NORLEX_fieldTypeUnknown", L"NORLEX_fieldTypeDict", L"numeric"})
        EXPECT_EQ(fieldType_getType(name), NORLEX_fieldTypeUnknown);
}
