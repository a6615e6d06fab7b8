#include "NORLEX_tableExport.h"

#include "tests/exchange/table_fixture.h"

namespace {

class TableExportTest : public TableTest {
protected:
    // The bytes of the table; what is wrong when there is none.
    std::string written(const NORLEX_propDescription& prop,
                        NORLEX_tableExportOptions options = {}) {
        options.property = prop;
        const auto path = folder / L"out.csv";
        const auto result = NORLEX_exportTable(db(), path, options);
        return result.ok ? temp_folder::read(path) : ts::strconv::toUtf8(result.error);
    }
};

// Whatever a cell may hold: separators, quotes, line ends, blanks within, scripts, emoji.
const std::vector<std::wstring> awkward = {L"a;b,c\td",
                                           L"\"quoted\"",
                                           L"5\" casing",
                                           L"two\nlines\n\nfour",
                                           L"Пласт Ю1-2",
                                           L"岩石 🛢️ e\u0301",
                                           L"=1+1",
                                           L"",
                                           L"\"",
                                           L"\uFEFFmark",
                                           L"a  b"};

} // namespace

TEST_F(TableExportTest, aTableIsReadAsTheSameRecords) {
    NORLEX_well well(db(), a);
    ASSERT_TRUE(well.createProperty(NORLEX_dataTypeMarker, tops));
    std::vector<NORLEX_bulkRow> rows;
    for (std::size_t i = 0; i < awkward.size(); ++i)
        rows.push_back({.top = 10.25 + static_cast<double>(i / 2), // two at each depth
                        .values = {awkward[i], awkward[awkward.size() - 1 - i]}});
    ASSERT_TRUE(well.openProperty(tops)->prepareBulk(rows)) << lastError();
    ASSERT_TRUE(load("O/G\\/H/A;-7,5;n\nB;1e3;n\n", points()).ok) << lastError();
    const NORLEX_propDescription core{L"Core", L"G"};
    ASSERT_TRUE(well.createProperty(NORLEX_dataTypeInterval, core));
    ASSERT_TRUE(well.openProperty(core)->createPlastCommit(
        10, 20.5, NORLEX_unknownDepth, NORLEX_unknownDepth, {L"x", L"y"}));

    using namespace ts::strconv;
    const std::pair<encodings, char> forms[] = {
        {utf8, ','}, {utf8, ';'}, {utf16le, '\t'}, {utf32be, ','}};
    int n = 0;
    for (const auto& [encoding, separator] : forms)
        for (const auto& prop : {tops, core}) {
            const std::string where = std::to_string(encoding) + separator;
            const auto path = folder / L"round.csv";
            NORLEX_tableExportOptions to;
            to.property = prop;
            to.encoding = encoding;
            to.separator = separator;
            const auto result = NORLEX_exportTable(db(), path, to);
            ASSERT_TRUE(result.ok) << where << ": " << ts::strconv::toUtf8(result.error);
            EXPECT_EQ(result.wells, prop == tops ? 3U : 1U);
            EXPECT_EQ(result.rows, prop == tops ? awkward.size() + 2 : 1U);
            auto from = points();
            from.templateName = prop == tops ? L"Маркер" : L"Интервал";
            from.property = {L"again" + std::to_wstring(++n), L""};
            from.format = {}; // encoding and separator are found out
            from.rows.hasHeader = true;
            from.wellColumn = {0, L"well"};
            const auto only = [&](const NORLEX_propDescription& of, const wchar_t* header) {
                return prop == of ? NORLEX_columnRef{0, header} : NORLEX_columnRef{};
            };
            from.depth = only(tops, L"depth");
            from.depthAbs = only(tops, L"depth_abs");
            from.top = only(core, L"top");
            from.bot = only(core, L"bot");
            from.topAbs = only(core, L"top_abs");
            from.botAbs = only(core, L"bot_abs");
            from.fields = {{L"Название", {0, L"Название"}, {}},
                           {L"Описание", {0, L"Описание"}, {}}};
            const auto read = NORLEX_tableImport(db(), from).importFile(path);
            ASSERT_TRUE(read.ok) << where << ": " << lastError();
            for (const auto& of : {a, b, otherA})
                EXPECT_EQ(records(of, from.property), records(of, prop)) << where;
        }
}

TEST_F(TableExportTest, cellsAreQuotedWhereTheyNeedIt) {
    ASSERT_TRUE(load("B;10;\"a;b \"\"c\"\"\";plain\nO/G\\/H/A;5;n\n", points()).ok) << lastError();
    EXPECT_EQ(written(tops),
              "well,depth,depth_abs,Название,Описание\r\n"
              "O/F/B,10,40,\"a;b \"\"c\"\"\",plain\r\n"
              "O/G\\/H/A,5,-5,n,\r\n");
    NORLEX_tableExportOptions options;
    options.wells = {NORLEX_well::getID(db(), otherA)};
    options.separator = '\t';
    options.encoding = ts::strconv::windows1251;
    EXPECT_EQ(written(tops, options),
              "well\tdepth\tdepth_abs\t\xCD\xE0\xE7\xE2\xE0\xED\xE8\xE5\t"
              "\xCE\xEF\xE8\xF1\xE0\xED\xE8\xE5\r\nO/G\\/H/A\t5\t-5\tn\t\r\n");
}

TEST_F(TableExportTest, logsHaveAValueColumn) {
    const NORLEX_propDescription gr{L"GR", L"LAS"};
    ASSERT_TRUE(NORLEX_wellProperty::createLAS(
        db(),
        NORLEX_well::getID(db(), b),
        gr,
        L"",
        {{10.1524, 39.8476, 0.1}, {20, NORLEX_unknownDepth, NORLEX_missingValue}}));
    EXPECT_EQ(written(gr),
              "well,depth,depth_abs,value\r\nO/F/B,10.1524,39.8476,0.1\r\nO/F/B,20,,\r\n");
}

TEST_F(TableExportTest, fieldsOfAllWellsAreColumns) {
    ASSERT_TRUE(load("O/F/A;1;n\nB;1;m\n", points()).ok) << lastError();
    NORLEX_well well(db(), b);
    const auto property = well.openProperty(tops);
    ASSERT_TRUE(property->createField(L"Extra", NORLEX_fieldTypeString, false));
    ASSERT_TRUE(property->updateValue(2, 0, L" e")) << lastError();
    EXPECT_EQ(written(tops),
              "well,depth,depth_abs,Название,Описание,Extra\r\n"
              "O/F/A,1,99,n,,\r\nO/F/B,1,49,m,,\" e\"\r\n");
}

TEST_F(TableExportTest, refusalsKeepTheFileThatIsThere) {
    ASSERT_TRUE(load("B;1;🛢️\n", points()).ok) << lastError();
    const auto path = folder.write(L"out.csv", "precious");
    NORLEX_tableExportOptions narrow;
    narrow.encoding = ts::strconv::cp866;
    EXPECT_NE(written(tops, narrow).find("866 lacks"), std::string::npos);
    NORLEX_tableExportOptions bar;
    bar.separator = '|';
    EXPECT_NE(written(tops, bar).find("separator"), std::string::npos);
    EXPECT_NE(written({L"none", L""}).find("no well has"), std::string::npos);
    ASSERT_TRUE(NORLEX_well(db(), a).createProperty(NORLEX_dataTypeInterval, tops));
    EXPECT_NE(written(tops).find("of another kind"), std::string::npos);
    EXPECT_EQ(temp_folder::read(path), "precious");
}
