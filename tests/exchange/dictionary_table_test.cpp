// Dictionaries read from tables and written as such.
#include "NORLEX_dictionary.h"
#include "NORLEX_tableExport.h"
#include "tests/exchange/table_fixture.h"
#include "tests/support/every_failure.h"

namespace {

class DictionaryTableTest : public TableTest {
protected:
    void SetUp() override {
        TableTest::SetUp();
        if (!IsSkipped()) {
            ASSERT_TRUE(NORLEX_dictionary::create(db(), L"lit")) << lastError();
        }
    }
    [[nodiscard]] NORLEX_dictionary lit() const { return {db(), L"lit"}; }

    [[nodiscard]] std::wstring entries(const std::wstring& name = L"lit") const {
        std::wstring out;
        const NORLEX_dictionary dictionary(db(), name);
        for (const auto& entry : dictionary.getValueList())
            out += entry.code + L"=" + entry.value + L";";
        return out;
    }
    NORLEX_tableReport report;
};

// One column more than the two, so that a short row is one of three.
constexpr const char* table = "Code;Rock\n1;sand\n2;clay;old\n1;gravel\n3\n;\n4;\n";

} // namespace

TEST_F(DictionaryTableTest, rowsAreTakenOnceAndBadOnesNamed) {
    const auto path = folder.write(L"t.csv", table);
    NORLEX_dictTableOptions options;
    options.hasHeader = true;
    NORLEX_dictionary d(db(), L"lit");
    ASSERT_TRUE(d.addValue(L"2", L"mud"));
    EXPECT_FALSE(d.importFromText(path, options, 1, 2, report));
    EXPECT_EQ(entries(), L"2=mud;") << "one bad row leaves nothing written";
    EXPECT_EQ(report.taken, 0U);
    EXPECT_NE(NORLEX_lastError().find(L"2 of 6 rows"), std::wstring::npos) << lastError();
    options.keepGoodRows = true;
    ASSERT_TRUE(d.importFromText(path, options, {0, L"code"}, {0, L"Rock"}, report)) << lastError();
    EXPECT_EQ(entries(), L"2=mud;1=sand;4=;");
    EXPECT_EQ(d.getValueByCode(L"1"), L"sand");
    EXPECT_EQ(report.rows, 6U);
    EXPECT_EQ(report.taken, 2U);
    EXPECT_EQ(report.passedOver, 2U); // 2 was there, the second 1 came later
    ASSERT_EQ(report.badCount, 2U);
    EXPECT_EQ(report.errors[0].line, 5U);
    EXPECT_NE(report.errors[0].reason.find(L"1 cells"), std::wstring::npos);
    EXPECT_EQ(report.errors[1].row, 6U);
}

TEST_F(DictionaryTableTest, wrongTablesAreRefused) {
    NORLEX_dictTableOptions options;
    options.hasHeader = true;
    const auto path = folder.write(L"t.csv", table);
    const struct {
        const char* where;
        std::wstring path;
        NORLEX_columnRef code;
        NORLEX_columnRef value;
        const wchar_t* line; // a part of it
    } cases[] = {
        {"no such file", folder / L"none.csv", {1, {}}, {2, {}}, L"none.csv"},
        {"no such header", path, {0, L"Kode"}, {2, {}}, L"there are: Code, Rock"},
        {"no such column", path, {1, {}}, {3, {}}, L"column 3"},
        {"no column", path, {}, {2, {}}, L"needs the column of the codes"},
        {"below 1", path, {1, {}}, {-1, {}}, L"counted from 1"},
        {"no rows", folder.write(L"e.csv", "Code;Rock\n"), {1, {}}, {2, {}}, L"no rows"},
        {"open quote", folder.write(L"q.csv", "a;b\n1;\"sand\n"), {1, {}}, {2, {}}, L"line 2"},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(lit().importFromText(c.path, options, c.code, c.value, report)) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.line), std::wstring::npos)
            << c.where << ": " << lastError();
    }
    EXPECT_FALSE(NORLEX_dictionary(db(), L"no").importFromText(path, options, 1, 2, report));
    EXPECT_EQ(entries(), L"");
}

// Apostrophes aside, which no entry has, what is written reads back the same.
TEST_F(DictionaryTableTest, writtenEntriesReadBack) {
    const struct {
        const char* where;
        const wchar_t* code;
        const wchar_t* value;
        const char* line;
    } cases[] = {
        {"plain", L"1", L"sand, fine", "1;sand, fine\n"},
        {"Russian", L"2", L"глина", "2;глина\n"},
        {"separator", L"3", L"a;b", "3;\"a;b\"\n"},
        {"quotes", L"4", L"5\" \"casing\"", "4;\"5\"\" \"\"casing\"\"\"\n"},
        {"line ends", L"5", L"two\nlines", "5;\"two\nlines\"\n"},
        {"blanks at the ends", L" 6", L"a\t", "\" 6\";\"a\t\"\n"},
        {"no value", L"7", L"", "7;\n"},
        {"no code", L"", L"none", ";none\n"},
        {"tab inside", L"8", L"a\tb", "8;a\tb\n"},
    };
    NORLEX_dictionary source(db(), L"lit");
    const auto path = folder / L"out.txt";
    ASSERT_TRUE(source.exportToText(path)) << lastError();
    EXPECT_EQ(temp_folder::read(path), "") << "without entries";
    std::string expected;
    for (const auto& c : cases) {
        ASSERT_TRUE(source.addValue(c.code, c.value)) << c.where;
        expected += c.line;
        ASSERT_TRUE(source.exportToText(path)) << c.where << ": " << lastError();
        EXPECT_EQ(temp_folder::read(path), expected) << c.where;
    }
    for (const auto encoding :
         {ts::strconv::utf8, ts::strconv::windows1251, ts::strconv::utf16le, ts::strconv::cp866}) {
        ASSERT_TRUE(source.exportToText(path, encoding)) << lastError();
        ASSERT_TRUE(NORLEX_dictionary::create(db(), L"copy"));
        NORLEX_dictTableOptions options;
        options.format.encoding = encoding;
        ASSERT_TRUE(NORLEX_dictionary(db(), L"copy").importFromText(path, options, 1, 2, report))
            << lastError();
        EXPECT_EQ(entries(L"copy"), entries()) << encoding;
        ASSERT_TRUE(NORLEX_dictionary::deleteDict(db(), L"copy"));
    }
}

TEST_F(DictionaryTableTest, textThatTheEncodingLacksLeavesTheOldFile) {
    ASSERT_TRUE(lit().addValue(L"1", L"глина") && lit().addValue(L"2", L"\u03B3"));
    const auto path = folder.write(L"out.txt", "old");
    for (const auto encoding : {ts::strconv::windows1251, ts::strconv::detect}) {
        EXPECT_FALSE(lit().exportToText(path, encoding));
        EXPECT_NE(NORLEX_lastError(), L"");
        EXPECT_EQ(temp_folder::read(path), "old");
    }
    EXPECT_FALSE(NORLEX_dictionary(db(), L"no").exportToText(path));
    EXPECT_EQ(temp_folder::read(path), "old");
}

TEST_F(DictionaryTableTest, failedStatementLeavesEverythingAsItWas) {
    const auto path = folder.write(L"t.csv", "1;sand\n2;clay\n");
    failing::statements faults;
    reopen();
    failing::forEveryFailure(*container, faults, "importFromText", [&] {
        return lit().importFromText(path, {}, 1, 2, report);
    });
    EXPECT_EQ(entries(), L"1=sand;2=clay;");
}

// One of the two fields is bound, of the property of this name in every well.
TEST_F(DictionaryTableTest, tablesOfPropertiesHoldWhatCodesMean) {
    ASSERT_TRUE(load("A;10;1;1\nB;20;9;\nA;30;;1\n", points()).ok == false) << "A is ambiguous";
    ASSERT_TRUE(load("O/F/A;10;1;1\nB;20;9;\nO/F/A;30;;1\n", points()).ok) << lastError();
    ASSERT_TRUE(lit().addValue(L"1", L"sand, fine"));
    ASSERT_TRUE(NORLEX_dictionary::createLink(db(), tops, L"Название", L"lit"));
    NORLEX_tableExportOptions options;
    options.property = tops;
    const auto path = folder / L"out.csv";
    const std::string head = "well,depth,depth_abs,Название,Описание\r\n";
    ASSERT_TRUE(NORLEX_exportTable(db(), path, options).ok) << lastError();
    EXPECT_EQ(temp_folder::read(path),
              head + "O/F/A,10,90,1,1\r\nO/F/A,30,70,,1\r\nO/F/B,20,30,9,\r\n");
    options.dictionaryValues = true;
    ASSERT_TRUE(NORLEX_exportTable(db(), path, options).ok) << lastError();
    EXPECT_EQ(temp_folder::read(path),
              head + "O/F/A,10,90,\"sand, fine\",1\r\nO/F/A,30,70,,1\r\nO/F/B,20,30,9,\r\n");
}
