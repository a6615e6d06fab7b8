#include "NORLEX_wellContainer.h"
#include "platform/files.h"
#include "pwdHolder.h"
#include "tests/support/disk.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace {

NORLEX_contDescription server(const wchar_t* path, const wchar_t* user, const wchar_t* password) {
    NORLEX_contDescription description;
    description.path = path;
    description.type = 2;
    description.user = user;
    description.password = password;
    return description;
}

constexpr const char* title = "[TESSARO_welldb_Server_Description]";

} // namespace

class DescriptionTest : public testing::Test {
protected:
    std::wstring file(const std::string& content) {
        disk::write(path, content);
        return path;
    }
    temp_folder folder;
    std::wstring path = folder / L"wells.well2";
};

TEST_F(DescriptionTest, serverFileIsToldByItsFirstLine) {
    const std::string line = title;
    const std::string lower = "[tessaro_welldb_server_description]";
    const std::string database("SQLite format 3\0\x20\0\1\1", 20);
    const std::string cut = line.substr(0, 34);
    const std::string endless(3 << 20, '[');
    struct {
        const char* where;
        std::string content;
        bool isServer;
    } const cases[] = {
        {"the line alone", line, true},
        {"LF after it", line + "\nUID=a\n", true},
        {"CR LF after it", line + "\r\nUID=a\r\n", true},
        {"byte-order mark", "\xEF\xBB\xBF" + line + "\n", true},
        {"trailing blank", line + " \n", false},
        {"leading blank", " " + line, false},
        {"second line", "\n" + line, false},
        {"lower case", lower, false},
        {"cut", cut, false},
        {"empty", "", false},
        {"a local database", database, false},
        {"a line without an end", endless, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NORLEX_wellContainer::isServerDBFile(file(c.content)), c.isServer) << c.where;
        EXPECT_EQ(NORLEX_wellContainer::makeDescription(path).type, c.isServer ? 2 : 1) << c.where;
    }
    EXPECT_FALSE(NORLEX_wellContainer::isServerDBFile(folder / L"none"));
    EXPECT_FALSE(NORLEX_wellContainer::isServerDBFile(folder.path()));
}

// The first of the four names that a line contains decides; the value ends at a second "=", but for
// a database. Expected: folder | user | password | connection.
TEST_F(DescriptionTest, readsSettings) {
    struct {
        const char* where;
        std::string lines;
        const wchar_t* found;
    } const cases[] = {
        {"a folder", "fileFolder=\\\\srv\\wells\\\nUID=bob\nPWD=s e", L"\\\\srv\\wells\\|bob|s e|"},
        {"CR LF", "UID=bob\r\nDatabase=wells\r\n", L"|bob||DSN=wells;"},
        {"no line end", "UID=bob", L"|bob||"},
        {"connection text", "Database=Driver={PG};Server=h", L"|||Driver={PG};Server=h;"},
        {"ended already", "Database=Server=h;", L"|||Server=h;"},
        {"two databases", "Database=Server=h\nDatabase=Port=1", L"|||Server=h;Port=1;"},
        {"last of a name", "UID=a\nUID=b", L"|b||"},
        {"names inside names", "myUID_1=a", L"|a||"},
        {"order of the tests", "fileFolder UID PWD Database=x\nPWD UID=y", L"x|y||"},
        {"UID within Database", "Database=Server=h;UID=z", L"|Server||"},
        {"other case", "uid=a\npwd=b\ndatabase=c\nFILEFOLDER=d", L"|||"},
        {"no equals sign", "UID\nDatabase", L"|||"},
        {"nothing after it", "UID=\nDatabase=", L"|||"},
        {"second equals sign", "PWD=a=b", L"||a|"},
        {"blanks are kept", "UID = a ", L"| a ||"},
        {"Cyrillic", "UID=\xD0\xA1\xD0\xBA\xD0\xB2", L"|\u0421\u043A\u0432||"},
    };
    for (const auto& c : cases) {
        const auto d =
            NORLEX_wellContainer::makeDescription(file(std::string(title) + "\n" + c.lines));
        EXPECT_EQ(d.path, path) << c.where;
        EXPECT_EQ(d.fileContainerPath + L"|" + d.user + L"|" + d.password + L"|" + d.connection,
                  c.found)
            << c.where;
    }
}

TEST(Description, localFilesLieInAFolderOfTheirName) {
    struct {
        const wchar_t* path;
        const wchar_t* folder;
    } const cases[] = {
        {L"D:\\x\\wells.well2", L"D:\\x\\wells\\"},
        {L"/x/a.b/wells.well2", L"/x/a.b/wells\\"},
        {L"/x/two.dots.well2", L"/x/two.dots\\"},
        {L"/x.y/plain", L"/x.y/plain\\"},
        {L"wells.well2", L"wells\\"},
        {L"a\\b/wells.well2", L"a\\b/wells\\"},
    };
    for (const auto& c : cases) {
        const auto found = NORLEX_wellContainer::makeDescription(c.path);
        EXPECT_EQ(found.fileContainerPath, c.folder);
        EXPECT_EQ(found.connection, c.path);
        EXPECT_EQ(found.type, 1);
    }
}

TEST(Description, connectionStringAddsCredentials) {
    auto description = server(L"p", L"bob", L"\u0439");
    description.connection = L"DSN=wells;";
    EXPECT_EQ(description.getConnectionString(), "DSN=wells;UID=bob;PWD=\xD0\xB9;");
    description.user = L"";
    description.password = L"a;b}c"; // a value that would end its pair
    EXPECT_EQ(description.getConnectionString(), "DSN=wells;PWD={a;b}}c};");
    description.password = L"";
    EXPECT_EQ(description.getConnectionString(), "DSN=wells;");
}

TEST(Description, whatIsComplete) {
    NORLEX_contDescription local;
    local.type = 1;
    EXPECT_FALSE(local.isOK());
    local.path = L"p";
    EXPECT_TRUE(local.isOK());
    EXPECT_FALSE(local.isNeedPwd());
    local.type = 0;
    EXPECT_FALSE(local.isOK());
    EXPECT_TRUE(server(L"p", L"u", L"w").isOK());
    for (const auto& lacking : {server(L"p", L"", L"w"), server(L"p", L"u", L"")}) {
        EXPECT_FALSE(lacking.isOK());
        EXPECT_TRUE(lacking.isNeedPwd());
    }
    EXPECT_FALSE(server(L"", L"u", L"w").isOK());
    EXPECT_FALSE(server(L"", L"u", L"w").isNeedPwd());
    EXPECT_EQ(server(L"p", L"u", L"w"), server(L"p", L"", L""));
    EXPECT_NE(server(L"p", L"u", L"w"), server(L"P", L"u", L"w"));
    EXPECT_NE(server(L"p", L"", L""), local);
}

TEST(PwdHolder, remembersPairsByPath) {
    pwdHolder& holder = pwdHolder::Instance();
    auto asked = server(L"holder/1", L"u", L"");
    EXPECT_FALSE(holder.fill(asked));
    EXPECT_EQ(asked.user, L"u");
    holder.set(L"holder/1", L"first", L"a");
    holder.set(L"holder/1", L"second", L"b");
    EXPECT_TRUE(holder.fill(asked));
    EXPECT_EQ(asked.user + L"/" + asked.password, L"second/b");
    auto complete = server(L"holder/2", L"c", L"d"); // remembered by being filled
    EXPECT_TRUE(holder.fill(complete));
    auto later = server(L"holder/2", L"", L"");
    EXPECT_TRUE(holder.fill(later));
    EXPECT_EQ(later.user + L"/" + later.password, L"c/d");
    auto local = server(L"holder/2", L"", L"");
    local.type = 1;
    EXPECT_TRUE(holder.fill(local));
    EXPECT_EQ(local.user, L"");
}
