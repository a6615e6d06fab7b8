// Metadata, the journal, paths of wells and the shipped plot templates.
#include "platform/files.h"
#include "platform/module_path.h"
#include "platform/transaction.h"
#include "platform/xml_node.h"
#include "store/journal.h"
#include "store/metadata.h"
#include "store/well_path.h"
#include "tests/support/container_fixture.h"
#include "tests/support/disk.h"

#include <algorithm>

namespace {

std::vector<std::wstring> comments(const odbc_database& db) {
    std::vector<std::wstring> found;
    for (const auto& entry : journal::read(db))
        found.push_back(entry.comment);
    return found;
}

using list = std::vector<std::wstring>;

} // namespace

TEST_F(ContainerTest, metadataKeepsExactTexts) {
    const metadata::pairs given = {
        {L"a'b", L"it's; DROP TABLE meta --"},
        {L"", L"\t\n \u0416 \x1F"},
        {L"number", L"007.50"},
        {L"empty", L""},
    };
    ASSERT_TRUE(metadata::add(*db(), metadata::ofWell, 7, given));
    EXPECT_EQ(metadata::getAll(*db(), metadata::ofWell, 7), given);
    EXPECT_EQ(metadata::get(*db(), metadata::ofWell, 7, L"a'b"), given[0].second);
    EXPECT_TRUE(metadata::isSet(*db(), metadata::ofWell, 7, L"empty"));
    EXPECT_FALSE(metadata::isSet(*db(), metadata::ofProperty, 7, L"empty"));
    EXPECT_FALSE(metadata::isSet(*db(), metadata::ofWell, 8, L"empty"));
}

TEST_F(ContainerTest, metadataIsSetRenamedAndCleared) {
    ASSERT_TRUE(metadata::set(*db(), metadata::ofWell, 1, L"k", L"1"));
    ASSERT_TRUE(metadata::set(*db(), metadata::ofWell, 1, L"k", L"1")); // the same value again
    ASSERT_TRUE(metadata::set(*db(), metadata::ofWell, 1, L"k", L"2"));
    ASSERT_TRUE(metadata::set(*db(), metadata::ofWell, 2, L"k", L"3"));
    ASSERT_TRUE(metadata::renameKey(*db(), metadata::ofWell, 1, L"k", L"n"));
    EXPECT_EQ(metadata::getAll(*db(), metadata::ofWell, 1), (metadata::pairs{{L"n", L"2"}}));
    ASSERT_TRUE(metadata::clear(*db(), metadata::ofWell, 1));
    EXPECT_TRUE(metadata::getAll(*db(), metadata::ofWell, 1).empty());
    EXPECT_EQ(metadata::get(*db(), metadata::ofWell, 2, L"k"), L"3");
    EXPECT_EQ(metadata::get(*db(), metadata::ofWell, 1, L"k"), L"");
}

// Rows go in 500 a statement: the counts are those around its edges.
TEST_F(ContainerTest, metadataOfManyPairsIsWhole) {
    std::int64_t object = 0;
    for (const int count : {0, 1, 499, 500, 501, 1000, 1203}) {
        metadata::pairs given;
        for (int i = 0; i < count; ++i)
            given.emplace_back(std::to_wstring(i), std::to_wstring(i * i));
        ASSERT_TRUE(metadata::add(*db(), metadata::ofProperty, ++object, given));
        EXPECT_EQ(metadata::getAll(*db(), metadata::ofProperty, object), given) << count;
    }
}

TEST_F(ContainerTest, journalTellsOfCommittedChangesOnly) {
    journal::add(*db(), 1, 1, L"alone, it's");
    ASSERT_TRUE(db()->begin_transaction());
    journal::add(*db(), 1, 4, L"outer");
    ASSERT_TRUE(db()->begin_transaction());
    journal::add(*db(), 1, 4, L"dropped");
    db()->rollback();
    journal::add(*db(), 1, 2, L"last");
    EXPECT_EQ(comments(*db()), (list{L"", L"alone, it's"})); // the first tells of the creation
    ASSERT_TRUE(db()->end_transaction());
    ASSERT_TRUE(db()->begin_transaction());
    journal::add(*db(), 1, 4, L"all dropped");
    db()->rollback();
    ASSERT_TRUE(db()->begin_transaction());
    ASSERT_TRUE(db()->begin_transaction());
    journal::add(*db(), 1, 4, L"first dropped");
    db()->rollback();
    journal::add(*db(), 1, 4, L"second kept");
    ASSERT_TRUE(db()->end_transaction());
    EXPECT_EQ(comments(*db()), (list{L"", L"alone, it's", L"outer", L"last", L"second kept"}));
}

// Of two containers, each has its own, whichever commits first.
TEST_F(ContainerTest, journalsOfTwoConnectionsDoNotMix) {
    const auto description = NORLEX_wellContainer::makeDescription(folder / L"b.well2");
    ASSERT_TRUE(NORLEX_wellContainer::create(description));
    NORLEX_wellContainer other(description);
    ASSERT_TRUE(db()->begin_transaction() && other.beginTransaction());
    journal::add(*db(), 1, 1, L"a");
    journal::add(*other.getBaseLink(), 1, 1, L"b");
    ASSERT_TRUE(other.endTransaction());
    EXPECT_EQ(comments(*other.getBaseLink()), (list{L"", L"b"}));
    EXPECT_EQ(comments(*db()), list{L""});
    ASSERT_TRUE(db()->end_transaction());
    EXPECT_EQ(comments(*db()), (list{L"", L"a"}));
}

TEST_F(ContainerTest, journalThatCannotBeWrittenFailsNothing) {
    ASSERT_TRUE(files::removeTree(folder / L"wells"));
    disk::write(folder / L"wells", "no folder");
    ASSERT_TRUE(container->beginTransaction());
    journal::add(*db(), 1, 1, L"lost");
    EXPECT_TRUE(container->endTransaction());
    EXPECT_TRUE(journal::read(*db()).empty());
    ASSERT_TRUE(files::removeFile(folder / L"wells"));
    EXPECT_TRUE(journal::read(*db()).empty());
    EXPECT_FALSE(files::isFolder(folder / L"wells")); // reading makes nothing
    journal::add(*db(), 1, 1, L"a new one");
    EXPECT_EQ(comments(*db()), list{L"a new one"});
    ASSERT_TRUE(files::removeTree(folder / L"wells")); // while it is open
    journal::add(*db(), 1, 1, L"another");
    EXPECT_EQ(comments(*db()), list{L"another"});
}

// A group "A.wpdb" and a log "A" without a group must not meet.
TEST(WellPath, isWorkObjectFieldAndName) {
    odbc_database db;
    struct {
        const char* where;
        const wchar_t* folder;
        const wchar_t* workObject;
        const wchar_t* field;
        const wchar_t* group;
        const wchar_t* log;
        const wchar_t* path;
    } const cases[] = {
        {"Windows", L"D:\\x\\", L"O", L"F", L"", L"GR", L"D:\\x\\O\\F\\W\\GR.wpdb"},
        {"both", L"/x/a\\", L"O", L"F", L"G", L"GR", L"/x/a\\O\\F\\W\\G\\GR.wpdb"},
        {"no end", L"/x/a", L"O", L"F", L"", L"GR", L"/x/a/O/F/W/GR.wpdb"},
        {"empty", L"/x/", L"", L"", L"", L"", L"/x/%/%/W/%.wpdb"},
        {"unsafe", L"/x/", L"../O", L"a\\b", L"..", L"G/", L"/x/%2E.%2FO/a%5Cb/W/%2E%2E/G%2F.wpdb"},
        {"as a file", L"/x/", L"O", L"F", L"A.WPDB", L"GR", L"/x/O/F/W/A%2EWPDB/GR.wpdb"},
    };
    for (const auto& c : cases) {
        db.set_file_container_path(c.folder);
        const NORLEX_wellDescription well{c.workObject, c.field, L"W", 1};
        EXPECT_EQ(samplePathOf(NORLEX_getWellPath(&db, well), {c.log, c.group}), c.path) << c.where;
    }
}

TEST_F(ContainerTest, wellPathByKey) {
    ASSERT_TRUE(
        db()->exec(L"INSERT INTO well_base (work_object, field, name) VALUES ('O', 'F', 'W''s')"));
    EXPECT_EQ(NORLEX_getWellPath(db(), 1),
              container->getFileContainerPath()
                  + (db()->is_server() ? L"O/F/W's/" : L"O\\F\\W's\\"));
    EXPECT_EQ(NORLEX_getWellPath(db(), 2), L"");
}

TEST(WellPath, tellsWhichNamesCanBeStored) {
    const std::wstring longest(240, L'a');
    const std::wstring cyrillic(121, L'\u0416');
    const std::wstring escapes(81, L'/');
    const std::wstring surrogate(1, wchar_t{0xD800});
    const std::wstring zero(L"a\0b", 3);
    EXPECT_TRUE(isStorableName(longest, L"a well's name"));
    EXPECT_TRUE(isStorableName(L"", L"a well's name"));
    struct {
        const char* where;
        std::wstring name;
        const wchar_t* line; // a part of it
    } const cases[] = {
        {"a letter too many", longest + L"a", L"241 bytes"},
        {"two bytes each", cyrillic, L"242 bytes"},
        {"three bytes each", escapes, L"243 bytes"},
        {"a lone surrogate", surrogate, L"no characters"},
        {"a zero inside", zero, L"no characters"},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(isStorableName(c.name, L"a well's name")) << c.where;
        EXPECT_TRUE(NORLEX_lastError().starts_with(L"a well's name")) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.line), std::wstring::npos)
            << c.where << ": " << ts::strconv::toUtf8(NORLEX_lastError());
    }
}

// Every shipped layout keeps the rules that docs/formats.md gives.
TEST(PlotTemplates, shippedLayoutsAreWellFormed) {
    const auto isIn = [](const std::wstring& text, const list& values) {
        return std::find(values.begin(), values.end(), text) != values.end();
    };
    int count = 0;
    for (const auto& path : files::list(ts_options_get_main_module_path() + L"planshet")) {
        const auto where = ts::strconv::toUtf8(path);
        const auto plot = Tts_xml_node::load(path, L"plot");
        ASSERT_FALSE(plot.isEmpty()) << where << ": " << ts::strconv::toUtf8(NORLEX_lastError());
        EXPECT_EQ(plot.attribute(L"version"), L"1") << where;
        EXPECT_TRUE(isIn(plot.attribute(L"depth"), {L"measured", L"absolute"})) << where;
        EXPECT_FALSE(plot.children(L"track").empty()) << where;
        for (const auto& track : plot.children(L"track")) {
            EXPECT_TRUE(
                isIn(track.attribute(L"kind"), {L"depth", L"curves", L"intervals", L"markers"}))
                << where;
            EXPECT_NE(track.attribute(L"width"), L"") << where;
            for (const auto& curve : track.children(L"curve"))
                for (const wchar_t* name : {L"title", L"unit", L"mnemonics", L"left", L"right"})
                    EXPECT_NE(curve.attribute(name), L"") << where << ts::strconv::toUtf8(name);
        }
        ++count;
    }
    EXPECT_EQ(count, 2);
}
