#include "platform/strconv.h"
#include "selection/filter_xml.h"
#include "tests/support/temp_folder.h"

#include "NORLEX_dataFilter.h"
#include "NORLEX_lastError.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using conditionTree = TreeNode<filterCondition>;

class FilterXmlTest : public testing::Test {
protected:
    [[nodiscard]] bool load(const std::string& bytes, conditionTree& tree) const {
        folder.write(L"read.xml", bytes);
        return filterXml::load(folder / L"read.xml", tree);
    }
    static std::string lastError() { return ts::strconv::toUtf8(NORLEX_lastError()); }

    temp_folder folder;
};

// Both below the same values, in the same order, without deep calls.
void expectEqual(const conditionTree& a, const conditionTree& b) {
    std::vector<std::pair<const conditionTree*, const conditionTree*>> open = {{&a, &b}};
    while (!open.empty()) {
        const auto [left, right] = open.back();
        open.pop_back();
        ASSERT_EQ(left->children().size(), right->children().size());
        for (std::size_t i = 0; i < left->children().size(); ++i) {
            const auto& one = *left->children()[i];
            const auto& other = *right->children()[i];
            ASSERT_TRUE(one.value == other.value);
            ASSERT_EQ(other.parent(), right);
            open.emplace_back(&one, &other);
        }
    }
}

TEST_F(FilterXmlTest, savesWhatOtherProgramsRead) {
    conditionTree tree;
    tree.addChild({NORLEX_filterGreater, {L"Пористость", L"Core"}, L"por", L"0,2", false, true});
    conditionTree& group = tree.addChild({});
    group.addChild({NORLEX_filterContains, {L"Lith", L""}, L"code", L"<\"&'>", true, true});
    group.addChild({});
    NORLEX_dataFilter filter(nullptr, nullptr, &tree);
    ASSERT_TRUE(filter.saveFilter(folder / L"saved.xml")) << lastError();
    EXPECT_EQ(temp_folder::read(folder / L"saved.xml"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<tree>\n"
              "\t<node isEndCondition=\"true\" isAnd=\"false\" propDescr_group=\"Core\""
              " propDescr_name=\"Пористость\" field=\"por\" operation=\"7\" strParam=\"0,2\" />\n"
              "\t<node isEndCondition=\"false\" isAnd=\"true\" propDescr_group=\"\""
              " propDescr_name=\"\" field=\"\" operation=\"1\" strParam=\"\">\n"
              "\t\t<node isEndCondition=\"true\" isAnd=\"true\" propDescr_group=\"\""
              " propDescr_name=\"Lith\" field=\"code\" operation=\"11\""
              " strParam=\"&lt;&quot;&amp;'>\" />\n"
              "\t\t<node isEndCondition=\"false\" isAnd=\"true\" propDescr_group=\"\""
              " propDescr_name=\"\" field=\"\" operation=\"1\" strParam=\"\" />\n"
              "\t</node>\n"
              "</tree>\n");
    conditionTree loaded;
    loaded.addChild({});
    filter.reloadTree(&loaded);
    ASSERT_TRUE(filter.loadFilter(folder / L"saved.xml")) << lastError();
    expectEqual(tree, loaded);
}

TEST_F(FilterXmlTest, operandsComeBackAsTheyWereTyped) {
    conditionTree tree, loaded;
    for (const wchar_t* text :
         {L" ", L"  two  ", L"a\nb\tc\r\nd", L"&amp; ]]> <!--", L"\U0001F6E2ё", L"'; DROP"})
        tree.addChild({NORLEX_filterEqual, {text, text}, text, text, true, true});
    ASSERT_TRUE(filterXml::save(tree, folder / L"saved.xml")) << lastError();
    ASSERT_TRUE(filterXml::load(folder / L"saved.xml", loaded)) << lastError();
    expectEqual(tree, loaded);
}

TEST_F(FilterXmlTest, readsWhatOtherProgramsWrite) {
    conditionTree tree;
    ASSERT_TRUE(load("<tree version='2'><note/><node isEndCondition='1' isAnd='0' colour='red'"
                     " operation=' 14 '><note><node/></note></node><node><node isAnd='true'"
                     " isEndCondition='false'/></node></tree>",
                     tree))
        << lastError();
    conditionTree expected;
    expected.addChild({NORLEX_filterEndsWith, {}, L"", L"", false, true});
    expected.addChild({}).addChild({});
    expectEqual(tree, expected);
}

TEST_F(FilterXmlTest, refusedFilesLeaveTheTreeAsItWas) {
    conditionTree tree, same;
    for (conditionTree* one : {&tree, &same})
        one->addChild({}).addChild({NORLEX_filterEqual, {L"P", L"G"}, L"f", L"v", true, true});
    const struct {
        const char* bytes;
        const char* reason;
    } cases[] = {
        {"", "no XML"},
        {"<tree><node></tree>", "no XML"},
        {"<wellDB_selection/>", "\"tree\" is needed"},
        {"<tree><node isAnd='yes'/></tree>", "\"yes\" as isAnd"},
        {"<tree><node/><node><node isEndCondition=''/></node></tree>", "\"\" as isEndCondition"},
        {"<tree><node operation='equal'/></tree>", "\"equal\" as operation"},
        {"<tree><node operation='1.5'/></tree>", "\"1.5\" as operation"},
        {"<tree><node operation='-1'/></tree>", "\"-1\" as operation"},
        {"<tree><node operation='1e30'/></tree>", "\"1e30\" as operation"},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(load(c.bytes, tree)) << c.bytes;
        EXPECT_NE(lastError().find(c.reason), std::string::npos) << lastError();
        expectEqual(tree, same);
    }
    EXPECT_FALSE(filterXml::load(folder / L"none.xml", tree));
    EXPECT_FALSE(filterXml::load(folder / L"", tree)); // a folder
    expectEqual(tree, same);

    NORLEX_dataFilter filter(nullptr, nullptr, nullptr);
    EXPECT_FALSE(filter.saveFilter(folder / L"saved.xml"));
    EXPECT_FALSE(filter.loadFilter(folder / L"saved.xml"));
    EXPECT_FALSE(filterXml::save(tree, folder / L"no/such/folder.xml"));
}

// Each entity ten times the one before: expanded, it would not fit any memory.
TEST_F(FilterXmlTest, entitiesOfADocumentAreNotExpanded) {
    std::string bytes = "<!DOCTYPE tree [<!ENTITY e0 \"x\">";
    for (int i = 1; i < 20; ++i) {
        bytes += "<!ENTITY e" + std::to_string(i) + " \"";
        for (int n = 0; n < 10; ++n)
            bytes += "&e" + std::to_string(i - 1) + ";";
        bytes += "\">";
    }
    conditionTree tree;
    ASSERT_TRUE(load(bytes + "]><tree><node strParam='&e19;'/></tree>", tree)) << lastError();
    EXPECT_EQ(tree.children().front()->value.strParam, L"&e19;");
}

TEST_F(FilterXmlTest, treesOfAnyDepthAreSavedAndLoaded) {
    for (const int levels : {190, 210, 10'000, 300'000}) {
        conditionTree tree, loaded;
        conditionTree* at = &tree;
        for (int i = 0; i < levels; ++i)
            at = &at->addChild({0, {}, L"", L"", i % 2 == 0, false});
        at->addChild({NORLEX_filterEqual, {L"P", L"G"}, L"f", L"v", true, true});
        ASSERT_TRUE(filterXml::save(tree, folder / L"deep.xml")) << lastError();
        // A line takes some 110 bytes and its end tag 7: what is beyond is indentation.
        EXPECT_LT(temp_folder::read(folder / L"deep.xml").size(), std::size_t(levels) * 350);
        ASSERT_TRUE(filterXml::load(folder / L"deep.xml", loaded)) << lastError();
        expectEqual(tree, loaded);
    }
}

} // namespace
