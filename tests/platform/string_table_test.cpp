#include "platform/string_table.h"
#include "platform/string_table_texts.h"

#include "NORLEX_host.h"

#include <gtest/gtest.h>

// Leaves the table as it was for the other tests.
class StringTable : public ::testing::Test {
protected:
    ~StringTable() override {
        NORLEX_setLanguage(NORLEX_language::english);
        NORLEX_setText(stringTable::typeLog, L"Log");
        NORLEX_setLanguage(NORLEX_language::russian);
        NORLEX_setText(stringTable::typeLog, L"Каротаж");
        NORLEX_setText(stringTable::upgradeQuestion, std::wstring(question));
    }
    const std::wstring question = stringTable::text(stringTable::upgradeQuestion);
};

// Databases hold these texts and match them by their spelling.
TEST_F(StringTable, speaksRussianUntilToldOtherwise) {
    const struct {
        unsigned int id;
        const wchar_t* russian;
        const wchar_t* english;
    } cases[] = {
        {stringTable::typeMarker, L"Маркер", L"Marker"},
        {stringTable::borderTemplateName, L"Граница корреляции", L"Correlation border"},
        {stringTable::typeVDMAvg, L"Средняя скорость", L"Average velocity"},
        {stringTable::fieldTypeError, L"Ошибка", L"Error"},
        {stringTable::fieldName, L"Название", L"Name"},
        {stringTable::fieldFromPipe, L"Закреплено трубами от", L"Cased from"},
        {stringTable::fieldComment, L"Описание", L"Description"},
        {stringTable::shortDiameter, L"Diametr", L"Diametr"},
        {stringTable::lasField, L"Наименование площади", L"Field name"},
        {12, L"", L""},
        {0, L"", L""},
        {4000000000U, L"", L""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NORLEX_getText(c.id), c.russian);
        NORLEX_setLanguage(NORLEX_language::english);
        EXPECT_EQ(stringTable::text(c.id), c.english);
        NORLEX_setLanguage(NORLEX_language::russian);
    }
}

TEST_F(StringTable, hasEveryTextInBothLanguages) {
    for (const stringTable::entry& entry : stringTable::entries) {
        EXPECT_FALSE(entry.russian.empty()) << entry.id;
        EXPECT_FALSE(entry.english.empty()) << entry.id;
        for (const wchar_t c : entry.english)
            EXPECT_LT(c, 0x80) << entry.id; // no Russian letter among them
        const bool isShortName = entry.id >= stringTable::shortName;
        if (isShortName) {
            EXPECT_LE(entry.russian.size(), 10U) << entry.id;
            EXPECT_EQ(entry.russian, entry.english) << entry.id;
        }
        const bool isMessage = entry.id == 439 || entry.id == 440;
        EXPECT_EQ(entry.russian.find(L"%1") != std::wstring_view::npos, isMessage) << entry.id;
        EXPECT_EQ(entry.english.find(L"%1") != std::wstring_view::npos, isMessage) << entry.id;
    }
}

TEST_F(StringTable, aReplacedTextStandsForItsOwnLanguage) {
    NORLEX_setText(stringTable::typeLog, L"Кривая ГИС");
    NORLEX_setLanguage(NORLEX_language::english);
    EXPECT_EQ(NORLEX_getText(stringTable::typeLog), L"Log");
    NORLEX_setText(stringTable::typeLog, L"Curve");
    NORLEX_setLanguage(NORLEX_language::russian);
    EXPECT_EQ(NORLEX_getText(stringTable::typeLog), L"Кривая ГИС");
    NORLEX_setText(stringTable::typeLog, L""); // an empty text is a text
    EXPECT_EQ(NORLEX_getText(stringTable::typeLog), L"");
}

TEST_F(StringTable, putsTheArgumentIntoItsPlaces) {
    NORLEX_setText(stringTable::upgradeQuestion, L"%1: upgrade %1?");
    EXPECT_EQ(stringTable::text(stringTable::upgradeQuestion, L"D:\\50%1\\a.well2"),
              L"D:\\50%1\\a.well2: upgrade D:\\50%1\\a.well2?");
    EXPECT_EQ(stringTable::text(stringTable::upgradeQuestion, L""), L": upgrade ?");
}
