#include "NORLEX_lastError.h"
#include "platform/files.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <set>

// Accepted characters stay; the rest is the UTF-8 of the character in hexadecimal.
TEST(Files, namesBecomeFileNames) {
    const struct {
        const wchar_t* name;
        const wchar_t* file;
    } cases[] = {
        {L"Скв. 12 бис", L"Скв. 12 бис"},
        {L"", L"%"},
        {L"%", L"%25"},
        {L"a/b\\c", L"a%2Fb%5Cc"},
        {L".", L"%2E"},
        {L"..", L"%2E%2E"},
        {L".pending", L"%2Epending"},
        {L"../../etc", L"%2E.%2F..%2Fetc"},
        {L"end.", L"end%2E"},
        {L"end ", L"end%20"},
        {L" start", L" start"},
        {L"<>:\"|?*", L"%3C%3E%3A%22%7C%3F%2A"},
        {L"a\nb\t\x7f", L"a%0Ab%09%7F"},
        {L"NUL", L"%4EUL"},
        {L"com1.las", L"%63om1.las"},
        {L"com10", L"com10"},
        {L"console", L"console"},
        {L"Journal.DB", L"%4Aournal.DB"},
        {L"\U0001F6E2", L"\U0001F6E2"},
    };
    std::set<std::wstring> seen;
    for (const auto& c : cases) {
        EXPECT_EQ(files::fileName(c.name), c.file);
        EXPECT_EQ(files::nameOfFile(c.file), c.name);
        EXPECT_TRUE(seen.insert(files::fileName(c.name)).second);
    }
}

TEST(Files, pathsKeepTheirBytes) {
    EXPECT_EQ(files::native(L"D:\\x\\скв.las").native(), "D:/x/скв.las");
    const std::string cp1251 = "\xf1\xea\xe2.las"; // no UTF-8
    EXPECT_EQ(files::native(files::wide(cp1251)).native(), cp1251);
    const std::string mixed = "a\xd1\x81\xff\xe2\x82.las"; // one letter, then broken sequences
    EXPECT_EQ(files::native(files::wide(mixed)).native(), mixed);
    EXPECT_EQ(files::folderOf(L"D:\\x\\wells.well2"), L"D:\\x\\");
    EXPECT_EQ(files::nameOf(L"D:\\x/wells.well2"), L"wells.well2");
    EXPECT_EQ(files::extensionOf(L"/a.b/wells"), L"");
    EXPECT_EQ(files::extensionOf(L"/a.b/wells.las.WELL2"), L".WELL2");
}

TEST(Files, replacingLeavesTheOldFileOrTheNewOne) {
    const temp_folder folder;
    const auto path = folder.write(L"a.txt", "old");
    EXPECT_FALSE(
        files::replace(path, [](std::FILE* file) { return files::put(file, "half") && false; }));
    EXPECT_EQ(folder.read(path), "old");
    EXPECT_TRUE(files::replace(path, [](std::FILE* file) { return files::put(file, "new"); }));
    EXPECT_EQ(folder.read(path), "new");
    EXPECT_EQ(files::list(folder.path()).size(), 1U) << "nothing stays beside it";
    EXPECT_FALSE(files::replace(folder / L"no/such/a.txt", [](std::FILE*) { return true; }));
    EXPECT_NE(NORLEX_lastError().find(L"no/such/a.txt"), std::wstring::npos);
    EXPECT_EQ(files::openRead(folder.path()), nullptr) << "a folder is no file";
}
