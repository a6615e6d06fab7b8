#include "platform/strconv.h"
#include "tests/exchange/las_text.h"

TEST_F(LasTextTest, refusesWhatIsNoLog) {
    std::string manyCurves = "~C\n";
    for (int i = 0; i < 70'000; ++i)
        manyCurves += "A.:\n";
    struct {
        const char* where;
        std::string text;
        const wchar_t* reason; // a part of it
    } const cases[] = {
        {"empty", "", L"it is empty"},
        {"laser scan", std::string("LASF\0\0\1\2", 8), L"point cloud"},
        {"binary", std::string("~V\n\0\1\2\3\377x~A", 11), L"zero bytes"},
        {"another text", "first line\nsecond line\n", L"begins with \"~\""},
        {"a tag after a megabyte", std::string(1'200'000, '\n') + "~A\n", L"begins with \"~\""},
        {"no line ends", std::string(3'000'000, '7'), L"longer than 1 MB"},
        {"an endless header", "~O\n" + std::string(17'000'000, '\n'), L"longer than 16 MB"},
        {"more curves than there are", manyCurves + "~A\n", L"more than 65536"},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(read(c.text).isOK()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.reason), std::wstring::npos)
            << c.where << ": " << ts::strconv::toUtf8(NORLEX_lastError());
        EXPECT_FALSE(read(c.text, true).isOK()) << c.where;
    }
    EXPECT_FALSE(NORLEX_lasfileExt(m_folder / L"missing.las", false).isOK());
}

TEST_F(LasTextTest, readsDataHoweverTheyAreSeparated) {
    const std::string expected = "100:1.5,2.5;100.5:-3,4000;101:5,-999.25";
    struct {
        const char* where;
        const char* version; // further lines of ~V
        const char* title;
        std::string data;
    } const cases[] = {
        {"blanks", "", "~A", "100 1.5 2.5\n 100.5  -3 4E3 \n101 5 -999.25\n"},
        {"lower-case title", "", "  ~a DEPT A B", "100 1.5 2.5\n100.5 -3 4000\n101 5 -999.25\n"},
        {"tabs", "", "~Ascii", "\t100\t1.5\t2.5\n100.5\t-3\t4000\n101\t5\t-999.25"},
        {"CR LF", "", "~A", "100 1.5 2.5\r\n100.5 -3 4000\r\n101 5 -999.25\r\n"},
        {"no last line end", "", "~A", "100 1.5 2.5\n100.5 -3 4000\n101 5 -999.25"},
        {"commas", "", "~A", "100,1.5,2.5\n100.5, -3 ,4000\n101,5,-999.25\n"},
        {"DLM COMMA",
         "DLM. COMMA :\n",
         "~Log_Data | x",
         "100,1.5,2.5\n100.5,\"-3\",4000\n101,5,\n"},
        {"DLM COMMA, wrong", "DLM. COMMA :\n", "~A", "100 1.5 2.5\n100.5 -3 4000\n101 5 -999.25\n"},
        {"DLM TAB, empty", "DLM. TAB :\n", "~A", "100\t1.5\t2.5\n100.5\t-3\t4000\n101\t5\t\n"},
        {"decimal comma", "", "~A", "100 1,5 2,5\n100,5 -3 4000\n101 5 -999,25\n"},
        {"one comma only", "", "~A", "100 1.5 2,5\n100.5 -3 4000\n101 5 -999.25\n"},
    };
    for (const auto& c : cases) {
        const auto file =
            read("~V\nVERS. 2.0 :\n" + std::string(c.version)
                 + "~W\nNULL. -999.25 :\n~C\nDEPT.M :\nA.:\nB.:\n" + c.title + "\n" + c.data);
        EXPECT_EQ(rows(file), expected) << c.where;
    }
}

TEST_F(LasTextTest, listsTheLinesItSkips) {
    struct {
        const char* where;
        const char* data; // begins at line 12
        const char* rows;
        std::vector<std::wstring> skipped;
    } const cases[] = {
        {"one field too few or too many",
         "1 2 3\n2 3\n3 4 5 6\n4 5 6\n",
         "1:2,3;4:5,6",
         {L"13 2 fields, a depth step has 3", L"14 4 fields, a depth step has 3"}},
        {"text for a value",
         "1 N/A 3\n2 -1.#IND (null)\n",
         "1:-999.25,3;2:-999.25,-999.25",
         {L"12 value \"N/A\" of curve A is no number",
          L"13 value \"-1.#IND\" of curve A is no number, nor are 1 more of the line"}},
        {"not finite",
         "1 nan 3\n2 1e999 inf\n",
         "1:-999.25,3;2:-999.25,-999.25",
         {L"12 value \"nan\" of curve A is no number",
          L"13 value \"1e999\" of curve A is no number, nor are 1 more of the line"}},
        {"text for a depth", "--1 2 3\n2 3 4\n", "2:3,4", {L"12 depth \"--1\" is no number"}},
        {"a thousands separator",
         "1 1,234.5 3\n",
         "1:-999.25,3",
         {L"12 value \"1,234.5\" of curve A is no number"}},
        {"wrapped, though WRAP says NO",
         "1\n2 3\n2\n3 4\n",
         "",
         {L"12 1 fields, a depth step has 3",
          L"13 2 fields, a depth step has 3",
          L"14 1 fields, a depth step has 3",
          L"15 2 fields, a depth step has 3"}},
        {"comments and blank lines are none",
         "# c\n\n 1 2 3\n  # c\n\t\n2 3 4\n",
         "1:2,3;2:3,4",
         {}},
    };
    for (const auto& c : cases) {
        const auto file = read(twoCurves(c.data));
        EXPECT_EQ(rows(file), c.rows) << c.where;
        EXPECT_EQ(skipped(file), c.skipped) << c.where;
        EXPECT_EQ(file.getSkippedCount(), c.skipped.size()) << c.where;
    }
}

TEST_F(LasTextTest, keepsAThousandSkippedLinesAndCountsAll) {
    std::string data;
    for (int i = 0; i < 2500; ++i)
        data += "1 2\n";
    const auto file = read(twoCurves(data + "1 2 3\n"));
    EXPECT_EQ(file.getSkippedLines().size(), 1000U);
    EXPECT_EQ(file.getSkippedCount(), 2500U);
    EXPECT_EQ(rows(file), "1:2,3");
}

TEST_F(LasTextTest, readsOnWhereSectionsAreMissingOrFollowTheData) {
    const auto bare = read("~A DEPT A\n1 2\n2 3\n"); // no curve list: one field would be a row
    EXPECT_TRUE(bare.isOK());
    EXPECT_EQ(bare.getNumCurves(), 0U);
    EXPECT_EQ(skipped(bare),
              (std::vector<std::wstring>{L"2 2 fields, but the file names no curves",
                                         L"3 2 fields, but the file names no curves"}));

    const auto noData = read("title\n~V\nVERS. 2.0 :\n~C\nD.:\nA.:\n-------\n");
    EXPECT_TRUE(noData.isOK());
    EXPECT_EQ(noData.getNumCurves(), 1U);
    EXPECT_EQ(skipped(noData),
              (std::vector<std::wstring>{L"1 it stands before the first section",
                                         L"7 it is no entry: neither \".\" nor \":\""}));

    const auto tail = read(twoCurves("1 2 3\n~P\nKB.M 12 :\n~A2\n1 2 3\n2 3 4\n~O\nnote\n"));
    EXPECT_EQ(rows(tail), "1:2,3");
    EXPECT_EQ(tail.getMetaCount(), 1U);
    EXPECT_EQ(tail.getPosition().size(), 1U);
    EXPECT_EQ(tail.getOtherInf(), std::vector<std::wstring>{L"note"});
    EXPECT_EQ(skipped(tail), std::vector<std::wstring>{L"15 section \"~A2\" is not read: 2 lines"});
}

TEST_F(LasTextTest, readsTheLogSetOfVersion3) {
    const auto file =
        read("~Version\nVERS. 3.0 :\nWRAP. NO :\nDLM. COMMA :\n~Well\nNULL. -9 :\n"
             "~Parameter\nRUN. 1 :\n~Log_Parameter\nMATR. SAND :\n"
             "~Core_Definition\nTOP.M :\n~Core_Data | Core_Definition\n5.5,brown, hard\n"
             "~Analysis_Data\n1,2\n"
             "~Log_Definition\nDEPT.M :\nGR.API : {F}\nLITH. : {S}\n"
             "~Log_Data | Log_Definition\n1,2,\"lime, grey\"\n2,,3\n"
             "~Log_Definition[2]\nDEPT.M :\n~Log_Data[2] | Log_Definition[2]\n1\n");
    EXPECT_EQ(file.getVersion(), 3);
    EXPECT_EQ(names(file), (std::vector<std::wstring>{L"GR", L"LITH"}));
    EXPECT_EQ(file.getMetaCount(), 2U);
    EXPECT_EQ(rows(file), "1:2,-9;2:-9,3"); // what stands between two commas is absent
    EXPECT_EQ(skipped(file),
              (std::vector<std::wstring>{
                  L"11 section \"~Core_Definition\" is not read: 1 line",
                  L"13 section \"~Core_Data | Core_Definition\" is not read: 1 line",
                  L"15 section \"~Analysis_Data\" is not read: 1 line",
                  L"22 value \"lime, grey\" of curve LITH is no number",
                  L"24 section \"~Log_Definition[2]\" is not read: 1 line",
                  L"26 section \"~Log_Data[2] | Log_Definition[2]\" is not read: 1 line"}));
}

TEST_F(LasTextTest, readsAnyEncoding) {
    const std::wstring well =
        L"\u0421\u043a\u0432\u0430\u0436\u0438\u043d\u0430 \u21167"; // № is not in KOI8-R
    const std::wstring field =
        L"\u0421\u0430\u043c\u043e\u0442\u043b\u043e\u0440\u0441\u043a\u043e\u0435 "
        L"\u043c\u0435\u0441\u0442\u043e\u0440\u043e\u0436\u0434\u0435\u043d\u0438\u0435";
    const std::wstring text =
        L"~V\nVERS. 2.0 :\n~W\nWELL. " + well + L" : \u0438\u043c\u044f\nFLD. " + field
        + L" : \u043f\u043b\u043e\u0449\u0430\u0434\u044c\n~C\nD.:\n\u0413\u041a.:\n~A\n1 2\n2 3\n";
    using namespace ts::strconv;
    struct {
        const char* where;
        std::string mark;
        encodings written;
        encodings asked;
    } const cases[] = {
        {"UTF-8", "", utf8, detect},
        {"UTF-8 with a mark", "\xEF\xBB\xBF", utf8, detect},
        {"UTF-16 LE", "", utf16le, detect},
        {"UTF-16 LE with a mark", "\xFF\xFE", utf16le, detect},
        {"UTF-16 BE with a mark", "\xFE\xFF", utf16be, detect},
        {"UTF-32 BE with a mark", std::string("\0\0\xFE\xFF", 4), utf32be, detect},
        {"windows-1251", "", windows1251, detect},
        {"CP866", "", cp866, detect},
        {"windows-1251, as told", "", windows1251, windows1251},
        {"CP866, as told", "", cp866, cp866},
    };
    for (const auto& c : cases) {
        const auto file = read(c.mark + encode(text, c.written), false, c.asked);
        ASSERT_TRUE(file.isOK()) << c.where;
        EXPECT_EQ(file.getEncoding(), c.written) << c.where;
        EXPECT_EQ(file.getWellName(), well) << c.where;
        EXPECT_EQ(names(file), std::vector<std::wstring>{L"\u0413\u041a"}) << c.where;
        EXPECT_EQ(rows(file), "1:2;2:3") << c.where;
    }
    // The caller's word counts against the detection.
    EXPECT_NE(read(encode(text, windows1251), false, cp866).getWellName(), well);
}

// What the header claims takes no memory: ten billion rows would be 320 GB.
TEST_F(LasTextTest, headerClaimsReserveNothing) {
    const auto file =
        read("~W\nSTRT. 0 :\nSTOP. 1e10 :\nSTEP. 1 :\n~C\nD.:\nA.:\nB.:\n~A\n1 2 3\n");
    EXPECT_EQ(rows(file), "1:2,3");
}
