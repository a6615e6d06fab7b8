#include "tests/exchange/las_fixture.h"

using match = NORLEX_wellMatch;

TEST_F(LasTest, theWellIsNamedAndFoundAsTheOptionsSay) {
    for (const wchar_t* name : {L"00/10-28-081-12W4/0", L"AB 1", L"a-b1", L"-"})
        ASSERT_TRUE(NORLEX_well::create(db(), {L"", L"", name, 0})) << lastError();
    ASSERT_TRUE(NORLEX_well::create(db(), {L"O", L"", L"A/B/1", 0})) << lastError();
    struct {
        const char* where;
        std::vector<std::wstring> from;
        match how;
        const wchar_t* object;
        const wchar_t* file;
        const wchar_t* well;  // empty: refused
        const wchar_t* error; // or "new", or "there"
    } const cases[] = {
        {"the entry WELL", {}, match::exact, L"", L"f.las", L"BANKENO", L"new"},
        {"an entry in another case", {L"uwi"}, match::exact, L"", L"f.las", L"00/10-28W4", L"new"},
        {"the first that has a text",
         {L"API", L"LOC"},
         match::exact,
         L"",
         L"f.las",
         L"10-28",
         L"new"},
        {"an entry of the parameters", {L"PWEL"}, match::exact, L"", L"f.las", L"of ~P", L"new"},
        {"none of them", {L"API"}, match::exact, L"", L"f.las", L"", L"nothing in it names"},
        {"the file's name", {L"API", L"File"}, match::exact, L"", L"AB 1.las", L"AB 1", L"there"},
        {"letters",
         {L"file"},
         match::letters,
         L"",
         L"00-10-28-081-12W4-0.LAS",
         L"00/10-28-081-12W4/0",
         L"there"},
        {"letters in another case",
         {L"file"},
         match::letters,
         L"",
         L"00_10_28_081_12w4_0.las",
         L"00/10-28-081-12W4/0",
         L"there"},
        {"an exact match comes first",
         {L"file"},
         match::letters,
         L"",
         L"a-b1.las",
         L"a-b1",
         L"there"},
        {"several", {L"file"}, match::letters, L"", L"(ab) 1.las", L"", L"3 wells are \"AB1\""},
        {"one of the work object",
         {L"file"},
         match::letters,
         L"O",
         L"(ab) 1.las",
         L"A/B/1",
         L"there"},
        {"no letters are like none", {L"file"}, match::letters, L"", L"--.las", L"--", L"new"},
        {"none alike", {L"file"}, match::letters, L"", L"Z 9.las", L"Z 9", L"new"},
        {"a well of the same importer",
         {L"file"},
         match::letters,
         L"",
         L"z9.las",
         L"Z 9",
         L"there"},
        {"not without being asked", {L"file"}, match::exact, L"", L"Z-9.las", L"Z-9", L"new"},
    };
    NORLEX_lasImportOptions letters;
    letters.wellFrom = {L"file"};
    letters.match = match::letters;
    letters.onExisting = NORLEX_onExisting::replace;
    NORLEX_lasImport shared(db(), letters);
    for (const auto& c : cases) {
        NORLEX_lasImportOptions options;
        options.wellFrom = c.from;
        options.match = c.how;
        options.workObject = c.object;
        options.onExisting = NORLEX_onExisting::replace;
        const auto path = las(c.file,
                              "WELL. BANKENO : w\nUWI. 00/10-28W4 : u\nLOC. 10-28 : l\n"
                              "~Parameter\nPWEL. of ~P : p\n",
                              "DEPT.M : d\nGR.API : g\n",
                              "1 2\n2 3\n");
        const bool isShared = c.how == match::letters && options.workObject.empty();
        const auto check = isShared ? shared.importFile(path) : import(path, options);
        EXPECT_EQ(check.ok, c.well[0] != 0) << c.where << ": " << lastError();
        if (!check.ok) {
            EXPECT_NE(check.error.find(c.error), std::wstring::npos) << c.where << lastError();
            continue;
        }
        EXPECT_EQ(check.well.name, c.well) << c.where;
        EXPECT_EQ(check.well.workObject, c.object) << c.where;
        EXPECT_EQ(check.wellCreated ? L"new" : L"there", std::wstring(c.error)) << c.where;
    }
}

TEST_F(LasTest, aDryRunFindsTheSameWell) {
    ASSERT_TRUE(NORLEX_well::create(db(), {L"", L"", L"A-1", 0})) << lastError();
    NORLEX_lasImportOptions options;
    options.match = match::letters;
    options.dryRun = true;
    const auto file = las(L"a.las", "WELL. a1 : w\n", "DEPT.M : d\nGR.API : g\n", "1 2\n2 3\n");
    const auto result = import(file, options);
    EXPECT_TRUE(result.ok) << lastError();
    EXPECT_EQ(result.well.name, L"A-1");
    EXPECT_FALSE(result.wellCreated);
}
