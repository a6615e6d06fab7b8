#include "platform/strconv.h"
#include "tableReader.h"
#include "tests/support/temp_folder.h"

#include "NORLEX_lastError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace ts::strconv;
using row = std::vector<std::wstring>;
using table = std::vector<row>;

namespace {

class TableReader : public ::testing::Test {
protected:
    table read(std::string_view bytes, const tableRW::tableOptions& options = {}) {
        table rows;
        EXPECT_TRUE(reader.open(folder.write(L"table.csv", bytes), options));
        for (row cells; reader.next(cells);)
            rows.push_back(cells);
        return rows;
    }

    temp_folder folder;
    tableRW::tableReader reader;
};

std::wstring shown(const table& rows) {
    std::wstring text;
    for (const row& cells : rows) {
        for (const std::wstring& cell : cells)
            text += cell + L"|";
        text += L"/";
    }
    return text;
}

} // namespace

TEST_F(TableReader, splitsRowsIntoCells) {
    const struct {
        const char* where;
        std::string bytes;
        std::wstring rows; // each cell followed by a bar, each row by "/"
    } cases[] = {
        {"empty file", "", L""},
        {"plain", "a;b\nc;d\n", L"a|b|/c|d|/"},
        {"CR LF, no end at the last", "a;b\r\nc;d", L"a|b|/c|d|/"},
        {"empty cells", ";a;\n;;\n", L"|a||/|||/"},
        {"empty lines are no rows", "a;b\n\n  \nc;d\n\n", L"a|b|/c|d|/"},
        {"rows of other lengths", "a;b\nc\nd;e;f\n", L"a|b|/c|/d|e|f|/"},
        {"blanks around", " a ; b c \n", L"a|b c|/"},
        {"blanks in quotes", "\" a \"; \"b\" \n", L" a |b|/"},
        {"separator and quote in quotes", "\"a;b\";\"say \"\"x\"\"\"\n", L"a;b|say \"x\"|/"},
        {"line ends in quotes", "\"a\r\n\r\nb;\";c\nd;e\n", L"a\n\nb;|c|/d|e|/"},
        {"empty quotes", "\"\";a\n\"\"\n", L"|a|/|/"},
        {"inches", "5\" casing;7\"\n\"5\"\" casing\";1\n", L"5\" casing|7\"|/5\" casing|1|/"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(shown(read(c.bytes)), c.rows) << c.where;
        EXPECT_FALSE(reader.isBroken()) << c.where;
        EXPECT_EQ(static_cast<std::ptrdiff_t>(reader.rowNumber()),
                  std::count(c.rows.begin(), c.rows.end(), L'/'))
            << c.where;
    }
}

TEST_F(TableReader, findsTheSeparatorUnlessItIsGiven) {
    const struct {
        const char* where;
        const char* bytes;
        char given;
        char used;
        std::size_t cells; // of the last row
    } cases[] = {
        {"semicolon before decimal commas", "1,5;2,5\n3,5;4,5\n", 0, ';', 2},
        {"tab before decimal commas", "1,5\t2,5\n3,5\t4,5\n", 0, '\t', 2},
        {"comma", "a,b,c\n1,2,3\n", 0, ',', 3},
        {"comma, one cell with a semicolon", "a,b\n1,x; y\n3,4\n5,6\n", 0, ',', 2},
        {"inside quotes it does not count", "\"a;b\",1\n\"c;d\",2\n", 0, ',', 2},
        {"title without separators", "Dictionary\n\n1;a\n2;b\n", 0, ';', 2},
        {"one column", "a\nb\n", 0, ';', 1},
        {"given", "1,5;2,5\n", ',', ',', 3},
        {"tab given", "a b\t c\n", '\t', '\t', 2},
        {"empty cells between tabs", "a\t\tb\n\t\tc\n", 0, '\t', 3},
    };
    for (const auto& c : cases) {
        const table rows = read(c.bytes, {detect, c.given});
        EXPECT_EQ(reader.separator(), c.used) << c.where;
        ASSERT_FALSE(rows.empty()) << c.where;
        EXPECT_EQ(rows.back().size(), c.cells) << c.where;
    }
    EXPECT_FALSE(reader.open(folder / L"table.csv", {detect, '|'}));
    EXPECT_NE(NORLEX_lastError().find(L"|"), std::wstring::npos);
    EXPECT_FALSE(reader.open(folder / L"none.csv", {}));
}

TEST_F(TableReader, readsEveryEncoding) {
    const std::wstring text = L"код;Название\n1;\"Песчаник; глина\"\n";
    for (const encodings encoding :
         {utf8, utf16le, utf16be, utf32le, cp866, koi8r, windows1251, iso8859_5}) {
        const std::wstring expected = L"код|Название|/1|Песчаник; глина|/";
        EXPECT_EQ(shown(read(encode(text, encoding), {encoding, 0})), expected) << name(encoding);
        EXPECT_EQ(shown(read(encode(text, encoding))), expected) << name(encoding);
        EXPECT_EQ(reader.encoding(), encoding);
    }
}

TEST_F(TableReader, refusesABrokenQuoteAndNamesTheLine) {
    const std::string half(600000, 'a'); // of more than 1 MB
    const std::string good = "a;b\n\"x\ny\";c\n";
    const struct {
        const char* where;
        std::string bytes;
        const wchar_t* said;
    } cases[] = {
        {"text behind the closing quote", "\"North\" field;1\n", L"line 4 "},
        {"quotes not doubled", "\"Well \"North\"\";1\n", L"line 4 "},
        {"quote in an unquoted cell beside a quoted one", "\"a\";5\" pipe\n", L"line 4 "},
        {"not closed at the end of the file", "\n\"a;b\nc;d\n", L"line 5 "},
        {"closed too late", "\"" + half + "\n" + half + "\"\n", L"line 4 "},
        {"line too long", half + half, L"line 4 "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(read(good + c.bytes + "p;q\n", {utf8, ';'}).size(), 2U) << c.where;
        EXPECT_TRUE(reader.isBroken()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.said), std::wstring::npos) << c.where;
        row cells;
        EXPECT_FALSE(reader.next(cells)); // nothing is read behind it
    }
}

TEST_F(TableReader, tellsTheFirstLineOfARow) {
    ASSERT_TRUE(reader.open(folder.write(L"t.csv", "a;b\n\n\"x\ny\";c\nlast;1"), {}));
    row cells;
    for (const std::uint64_t line : {1U, 3U, 5U}) {
        ASSERT_TRUE(reader.next(cells));
        EXPECT_EQ(reader.lineNumber(), line);
    }
    EXPECT_FALSE(reader.next(cells));
    EXPECT_EQ(reader.rowNumber(), 3U);
}
