#include "tests/wells/well_fixture.h"

#include <set>

namespace {

struct nameCase {
    const char* where;
    std::wstring given;
    bool isStored;
};

const nameCase nameCases[] = {
    {"apostrophes are dropped", L"O'Brien's '); DROP TABLE well_base; --", true},
    {"nothing but apostrophes", L"'''", false},
    {"empty", L"", false},
    {"a slash", L"a/b", true},
    {"a backslash", L"a\\b", true},
    {"the folder above", L"..", true},
    {"a way out", L"../../../../outside", true},
    {"the same in the other system", L"..\\..\\outside", true},
    {"an absolute path", L"/etc/passwd", true},
    {"this folder", L".", true},
    {"the folder of pending changes", L".pending", true},
    {"the action journal", L"journal.db", true},
    {"a device", L"CON", true},
    {"a device with an extension", L"lpt1.wpdb", true},
    {"the escape itself", L"%2E%2E", true},
    {"10,000 characters", std::wstring(10000, L'x'), false},
    {"the longest", std::wstring(240, L'y'), true},
    {"one too long", std::wstring(241, L'y'), false},
    {"control characters", L"a\tb\nc\x01", true},
    {"a NUL", std::wstring(L"a\0b", 3), false},
    {"half a surrogate pair", std::wstring(1, static_cast<wchar_t>(0xD83D)), false},
    {"an emoji", L"🛢️ 1", true},
    {"a trailing dot", L"name.", true},
    {"a trailing blank", L"name ", true},
    {"a leading blank", L" name", true},
    {"wildcards", L"*?<>|\":", true},
    {"letters of another script", L"Скважина № 7", true},
};

// An open connection keeps its journals.
std::set<std::wstring> pathsBelow(const std::wstring& folder) {
    auto paths = files::listTree(folder);
    std::erase_if(paths, [](const auto& path) {
        return path.ends_with(L"-journal") || path.ends_with(L".changes");
    });
    return {paths.begin(), paths.end()};
}

} // namespace

// Every name is refused with a line or stored exactly, and its files stay below the file directory.
TEST_F(WellTest, anyNameOfAWellIsStoredExactlyOrRefused) {
    const auto outside = pathsBelow(folder.path());
    for (const auto& c : nameCases) {
        std::wstring stored = c.given;
        std::erase(stored, L'\'');
        const NORLEX_wellDescription given{c.given, c.given, c.given, 0};
        ASSERT_EQ(NORLEX_well::create(db(), given), c.isStored) << c.where << lastError();
        if (!c.isStored) {
            EXPECT_FALSE(lastError().empty()) << c.where;
            EXPECT_FALSE(NORLEX_well::isExist(db(), given)) << c.where;
            continue;
        }
        const NORLEX_well opened(db(), given);
        ASSERT_TRUE(opened.isOK()) << c.where;
        EXPECT_EQ(opened.getName(), stored) << c.where;
        EXPECT_EQ(opened.getFld(), stored) << c.where;
        EXPECT_EQ(opened.getWorkObjectName(), stored) << c.where;
        ASSERT_TRUE(NORLEX_wellProperty::createLAS(
            db(), opened.getID(), {c.given, c.given}, L"", {{1, 2, 3}}))
            << c.where << lastError();
        EXPECT_EQ(
            NORLEX_wellProperty(
                db(), NORLEX_wellProperty::getID(db(), opened.getID(), {c.given, c.given}), nullptr)
                .getName(),
            stored)
            << c.where;
        EXPECT_EQ(pathsBelow(container->getFileContainerPath()).size(),
                  pathsBelow(folder.path()).size() - 1) // the database itself
            << c.where;
        EXPECT_TRUE(NORLEX_well::remove(db(), given)) << c.where << lastError();
    }
    auto left = pathsBelow(folder.path());
    std::erase_if(left, [](const auto& path) { return path.ends_with(L"journal.db"); });
    auto before = outside;
    std::erase_if(before, [](const auto& path) { return path.ends_with(L"journal.db"); });
    EXPECT_EQ(left, before);
}

// The names of a table differ, so must the files of their logs, whatever the file system folds.
TEST_F(WellTest, logsOfOneWellNeverShareAFile) {
    std::size_t logs = 0;
    for (const auto& c : nameCases) {
        if (!c.isStored)
            continue;
        ASSERT_TRUE(makeLog({c.given, L""})) << c.where << lastError();
        ASSERT_TRUE(makeLog({L"GR", c.given})) << c.where << lastError();
        EXPECT_FALSE(makeLog({L"'" + c.given, L""})) << c.where;
        logs += 2;
    }
    EXPECT_EQ(well().getPropertyCount(), static_cast<std::int64_t>(logs));
    EXPECT_EQ(files::listTree(NORLEX_getWellPath(db(), wellId())).size(), logs);
    std::vector<NORLEX_propertyInfo> infos;
    well().getPropertyInfoList(infos);
    for (const auto& info : infos)
        EXPECT_EQ(info.records, 3U) << ts::strconv::toUtf8(info.description.name);
}
