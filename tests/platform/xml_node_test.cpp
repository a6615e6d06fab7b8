#include "platform/strconv.h"
#include "platform/xml_node.h"
#include "tests/support/temp_folder.h"

#include "NORLEX_lastError.h"

#include <gtest/gtest.h>

#include <string>

using ts::strconv::encode;
using ts::strconv::toUtf8;

namespace {

class XmlNode : public ::testing::Test {
protected:
    temp_folder folder;
};

} // namespace

TEST_F(XmlNode, savesWhatOtherProgramsRead) {
    Tts_xml_node root = Tts_xml_node::create(L"tree");
    Tts_xml_node node = root.addChild(L"node");
    node.setAttribute(L"isAnd", L"old");
    node.setAttribute(L"isAnd", L"1");
    node.setAttribute(L"field", L"a<\"б\">\n");
    root.addChild(L"name", L"x & <y>");
    root.addChild(L"empty", L"");
    const std::wstring path = folder / L"tree.xml";
    ASSERT_TRUE(node.save(path)); // any element saves its whole document
    EXPECT_EQ(temp_folder::read(path),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<tree>\n"
              "\t<node isAnd=\"1\" field=\"a&lt;&quot;б&quot;>&#10;\" />\n"
              "\t<name>x &amp; &lt;y&gt;</name>\n"
              "\t<empty />\n"
              "</tree>\n");
}

TEST_F(XmlNode, valuesComeBackAsTheyWere) {
    const std::wstring values[] = {
        L"",
        L" ",
        L"  two  ",
        L"строка\nещё\tодна",
        L"CR LF\r\nCR\rend",
        L"]]> <!-- & &amp; \"'",
        L"\U0001F6E2\u2028",
    };
    Tts_xml_node root = Tts_xml_node::create(L"values");
    for (const std::wstring& value : values)
        root.addChild(L"value", value).setAttribute(L"same", value);
    const std::wstring path = folder / L"values.xml";
    for (int pass = 0; pass < 2; ++pass) { // a loaded document saves the same
        ASSERT_TRUE(root.save(path));
        root = Tts_xml_node::load(path, L"values");
        const auto read = root.children(L"value");
        ASSERT_EQ(read.size(), std::size(values));
        for (std::size_t i = 0; i < read.size(); ++i) {
            EXPECT_EQ(read[i].text(), values[i]) << i;
            EXPECT_EQ(read[i].attribute(L"same"), values[i]) << i;
        }
    }
    root.setText(std::wstring(L"a\0b\x01", 4)); // no XML can hold them
    EXPECT_EQ(root.text(), L"a\uFFFDb\uFFFD");
    EXPECT_EQ(root.children().size(), std::size(values)); // only the text is replaced
}

TEST_F(XmlNode, readsDocumentsOfOtherPrograms) {
    const std::wstring text = L"<a><!-- note --><b k='ж'>Глу<![CDATA[<би>]]>на</b><c/><b/></a>";
    const std::string plain = toUtf8(text);
    const std::string marked = "\xEF\xBB\xBF" + plain;
    const std::wstring declaredWide = L"\uFEFF<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + text;
    const std::string wide = encode(declaredWide, ts::strconv::utf16le);
    const std::string declared = "<?xml version=\"1.0\" encoding='windows-1251'?>\r\n"
                                 + encode(text, ts::strconv::windows1251);
    const struct {
        const char* where;
        std::string bytes;
    } cases[] = {
        {"UTF-8", plain},
        {"UTF-8 with a mark", marked},
        {"UTF-16 with a mark", wide},
        {"declared", declared},
    };
    for (const auto& c : cases) {
        const std::wstring path = folder.write(L"a.xml", c.bytes);
        for (int pass = 0; pass < 2; ++pass) { // saved again, it is UTF-8 and says so
            const Tts_xml_node root = Tts_xml_node::load(path, L"a");
            ASSERT_FALSE(root.isEmpty()) << c.where;
            EXPECT_EQ(root.child(L"b").text(), L"Глу<би>на") << c.where;
            EXPECT_EQ(root.childText(L"b"), L"Глу<би>на") << c.where;
            EXPECT_EQ(root.child(L"b").attribute(L"k"), L"ж") << c.where;
            EXPECT_EQ(root.children().size(), 3U) << c.where; // the comment is no element
            EXPECT_EQ(root.children(L"b").size(), 2U) << c.where;
            EXPECT_EQ(root.children()[1].name(), L"c") << c.where;
            ASSERT_TRUE(root.save(path));
        }
    }
}

TEST_F(XmlNode, refusesWhatIsNoDocument) {
    const struct {
        const char* where;
        const char* bytes;
    } cases[] = {
        {"empty", ""},
        {"no XML", "welldb"},
        {"not closed", "<tree><node></tree>"},
        {"another root", "<forest/>"},
        {"comment alone", "<!-- tree -->"},
        {"declaration cut", "<?xml encoding="},
    };
    for (const auto& c : cases) {
        const std::wstring path = folder.write(L"bad.xml", c.bytes);
        EXPECT_TRUE(Tts_xml_node::load(path, L"tree").isEmpty()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(L"bad.xml"), std::wstring::npos) << c.where;
    }
    EXPECT_TRUE(Tts_xml_node::load(folder / L"none.xml", L"").isEmpty());
    EXPECT_FALSE(Tts_xml_node().save(folder / L"x.xml"));
    EXPECT_FALSE(Tts_xml_node::create(L"a").save(folder / L"no/such/x.xml"));
}

TEST_F(XmlNode, nothingHasNothing) {
    Tts_xml_node none = Tts_xml_node::create(L"a").child(L"b").child(L"c");
    EXPECT_TRUE(none.isEmpty());
    none.setText(L"x");
    none.setAttribute(L"k", L"v");
    EXPECT_TRUE(none.addChild(L"d", L"x").isEmpty());
    EXPECT_EQ(none.text() + none.name() + none.attribute(L"k"), L"");
    EXPECT_FALSE(none.hasAttribute(L"k"));
    EXPECT_TRUE(none.children().empty());
}

// An element keeps its document alive, and depth costs no stack.
TEST_F(XmlNode, holdsDeepDocuments) {
    std::string bytes;
    constexpr int depth = 200000;
    for (int i = 0; i < depth; ++i)
        bytes += "<n>";
    bytes += "x";
    for (int i = 0; i < depth; ++i)
        bytes += "</n>";
    Tts_xml_node node = Tts_xml_node::load(folder.write(L"deep.xml", bytes), L"n");
    int levels = 0;
    for (; !node.isEmpty(); node = node.child(L"n"))
        ++levels;
    EXPECT_EQ(levels, depth);
}
