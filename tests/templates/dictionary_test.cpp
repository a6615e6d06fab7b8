// Dictionaries, their entries, and what is bound to them.
#include "NORLEX_dictionary.h"
#include "store/journal.h"
#include "tests/support/every_failure.h"
#include "tests/templates/template_fixture.h"

#include <functional>
#include <thread>

using D = NORLEX_dictionary;

namespace {

using pairs = std::vector<std::pair<std::wstring, std::wstring>>;

const NORLEX_propDescription tops{L"tops", L"g"};

class DictionaryTest : public TemplateTest {
protected:
    // "code=value;" of every entry
    static std::wstring entries(const D& dictionary) {
        std::wstring out;
        for (const auto& entry : dictionary.getValueList())
            out += entry.code + L"=" + entry.value + L";";
        return out;
    }
    [[nodiscard]] std::wstring stored(const wchar_t* name) const { return entries(D(db(), name)); }

    // A dictionary "lit" of two rocks, bound to the field "rock" of "tops" and to the key "top".
    void fill() {
        ASSERT_TRUE(D::create(db(), L"lit")) << lastError();
        D lit(db(), L"lit");
        ASSERT_TRUE(lit.addValue(L"1", L"sand") && lit.addValue(L"2", L"clay")) << lastError();
        ASSERT_TRUE(D::createLink(db(), tops, L"rock", L"lit")) << lastError();
        change({L"INSERT INTO well_info_struct (key, type) VALUES ('top', 's'), ('bed', 's')"});
        ASSERT_TRUE(D::createInfoLink(db(), L"top", L"lit")) << lastError();
        heard.clear();
    }
    [[nodiscard]] bool isInEdit(const std::function<bool()>& edit) const {
        if (!container->beginTransaction())
            return false;
        const bool done = edit();
        container->rollbackTransaction();
        return done;
    }
    failing::statements faults;
};

} // namespace

TEST_F(DictionaryTest, lookUpsWithoutTablesAreEmpty) {
    list names{L"x"};
    D::getList(db(), names);
    std::vector<NORLEX_dict_link> links(1);
    D::getLinkList(db(), links);
    std::vector<NORLEX_dict_infoLink> infoLinks(1);
    D::getLinkList(db(), infoLinks);
    EXPECT_TRUE(names.empty() && links.empty() && infoLinks.empty());
    EXPECT_FALSE(D::isExist(db(), L"lit") || D::isLinkExist(db(), tops, L"rock"));
    EXPECT_EQ(D::getDictID(db(), L"lit") + D::getDictID(db(), L"g", L"tops", L"rock"), 0U);
    EXPECT_EQ(D::getValue(db(), 1, L"1") + D::getCode(db(), 1, L"a")
                  + D::getCodeByValue(db(), L"lit", L"a") + D::getDictFromLink(db(), tops, L"rock"),
              L"");
    const D absent(db(), L"lit");
    EXPECT_FALSE(absent.isOK());
    EXPECT_EQ(absent.getValueCount(), 0U);
    EXPECT_TRUE(D::deleteLink(db(), tops, L"rock")) << "as nothing is bound";
    EXPECT_FALSE(D(nullptr, L"lit").isOK());
    EXPECT_TRUE(D::create(db(), L"lit")) << lastError();
    EXPECT_TRUE(D::createDBTables(db())) << "again";
}

TEST_F(DictionaryTest, entriesAreFoundBothWays) {
    fill();
    D lit(db(), L"lit");
    // Apostrophes are dropped; a code that is there keeps its first value.
    ASSERT_TRUE(lit.addValue(L"'3'", L"cl'ay") && lit.addValue(L"1", L"gravel"));
    ASSERT_TRUE(lit.addValue(L"", L"none") && lit.addValue(L"A", L"upper"));
    const D fresh(db(), L"lit");
    for (const D* const d : {static_cast<const D*>(&lit), &fresh}) {
        const D& read = *d;
        EXPECT_EQ(entries(read), L"1=sand;2=clay;3=clay;=none;A=upper;");
        EXPECT_EQ(read.getValueByCode(L"3"), L"clay");
        EXPECT_EQ(read.getValueByCode(L"a") + read.getValueByCode(L""), L"");
        EXPECT_EQ(read.getCodeByValue(L"clay"), L"2") << "the first one";
        EXPECT_EQ(read.getCodeListByValue(L"clay"), (list{L"2", L"3"}));
        EXPECT_EQ(read.getShownValue(L"2") + read.getShownValue(L"9"), L"clay9");
    }
    const auto id = D::getDictID(db(), L"lit");
    EXPECT_EQ(D::getValue(db(), id, L"2") + D::getValue(db(), id, L"9"), L"clay");
    EXPECT_EQ(D::getCode(db(), id, L"clay") + D::getCodeByValue(db(), L"lit", L"sand"), L"21");
    EXPECT_EQ(D::getCodeByValue(db(), L"other", L"sand"), L"");
}

TEST_F(DictionaryTest, entriesAreRenamedAndDeletedByTheirKeys) {
    fill();
    ASSERT_TRUE(D::create(db(), L"other") && D(db(), L"other").addValue(L"1", L"sand"));
    D lit(db(), L"lit");
    const auto sand = lit.getValueList()[0].id;
    const auto clay = lit.getValueList()[1].id;
    ASSERT_EQ(lit.getValueByCode(L"1") + lit.getCodeByValue(L"clay"), L"sand2");
    ASSERT_TRUE(lit.renameValue(sand, L"driller's sand") && lit.renameCode(sand, L"11"));
    EXPECT_EQ(entries(lit), L"11=driller's sand;2=clay;");
    EXPECT_EQ(lit.getValueByCode(L"11"), L"driller's sand");
    EXPECT_EQ(lit.getValueByCode(L"1"), L"");
    ASSERT_TRUE(lit.deleteValue(clay));
    EXPECT_EQ(entries(lit), L"11=driller's sand;");
    EXPECT_EQ(stored(L"lit"), entries(lit));
    D other(db(), L"other");
    EXPECT_FALSE(other.renameValue(sand, L"x") || other.deleteValue(sand)) << "of another one";
    EXPECT_EQ(stored(L"other") + stored(L"lit"), L"1=sand;11=driller's sand;");
}

TEST_F(DictionaryTest, swappedTwiceIsAsBefore) {
    fill();
    D lit(db(), L"lit");
    ASSERT_TRUE(lit.addValue(L"3", L"clay"));
    ASSERT_TRUE(lit.swapData());
    EXPECT_EQ(entries(lit), L"sand=1;clay=2;clay=3;");
    EXPECT_EQ(lit.getValueByCode(L"clay"), L"2");
    ASSERT_TRUE(D::swapData(db(), L"lit"));
    EXPECT_EQ(entries(lit), L"1=sand;2=clay;3=clay;");
    EXPECT_EQ(stored(L"lit"), entries(lit));
}

TEST_F(DictionaryTest, listsAreAddedAsEntriesAre) {
    fill();
    D lit(db(), L"lit");
    pairs many{{L"2", L"mud"}, {L"x'1", L"'it"}, {L"x1", L"second"}};
    for (int i = 0; i < 1200; ++i) // more than two statements
        many.emplace_back(L"n" + std::to_wstring(i), L"v" + std::to_wstring(i));
    ASSERT_TRUE(lit.importFromList(many)) << lastError();
    EXPECT_EQ(lit.getValueCount(), 2U + 1 + 1200);
    EXPECT_EQ(lit.getValueByCode(L"2") + lit.getValueByCode(L"x1"), L"clayit");
    EXPECT_EQ(lit.getValueByCode(L"n499") + lit.getValueByCode(L"n1199"), L"v499v1199");
    heard.clear();
    ASSERT_TRUE(lit.importFromList(std::vector<NORLEX_dictionary_value>{{7, L"2", L"silt"}}));
    EXPECT_TRUE(heard.empty()) << "nothing was added";
}

TEST_F(DictionaryTest, bindingsOutliveTheirDictionary) {
    fill();
    ASSERT_TRUE(D::create(db(), L"colour"));
    ASSERT_TRUE(D::createLink(db(), tops, L"hue", L"colour"));
    EXPECT_TRUE(D::createLink(db(), tops, L"hue", L"colour")) << "already";
    EXPECT_FALSE(D::createLink(db(), tops, L"hue", L"lit"));
    EXPECT_EQ(D::getDictFromLink(db(), tops, L"hue"), L"colour");
    EXPECT_FALSE(D::isLinkExist(db(), {L"tops", L""}, L"hue")) << "of another group";
    EXPECT_TRUE(D::createLink(db(), {L"tops", L""}, L"hue", L"lit")) << "of another group";
    EXPECT_TRUE(D::deleteLink(db(), {L"tops", L""}, L"hue"));
    EXPECT_EQ(D::getDictID(db(), L"g", L"tops", L"rock"), D::getDictID(db(), L"lit"));
    ASSERT_TRUE(D::createInfoLink(db(), L"bed", L"colour"));
    EXPECT_EQ(D::getDictIDFromInfoKey(db(), L"bed"), D::getDictID(db(), L"colour"));
    EXPECT_NE(D::getInfoLinkID(db(), L"bed"), D::getInfoLinkID(db(), L"top"));

    ASSERT_TRUE(D::deleteDict(db(), L"colour"));
    EXPECT_TRUE(D::isLinkExist(db(), tops, L"hue") && D::isInfoLinkExist(db(), L"bed"));
    EXPECT_EQ(D::getDictFromLink(db(), tops, L"hue") + D::getDictFromLink(db(), L"bed"), L"");
    std::vector<NORLEX_dict_link> links;
    D::getLinkList(db(), links);
    ASSERT_EQ(links.size(), 2U);
    EXPECT_EQ(links[0].property.group + links[0].property.name + links[0].field
                  + links[0].dictionary + links[1].field + links[1].dictionary,
              L"gtopsrocklithue");
    std::vector<NORLEX_dict_infoLink> infoLinks;
    D::getLinkList(db(), infoLinks);
    ASSERT_EQ(infoLinks.size(), 2U);
    EXPECT_EQ(infoLinks[0].key + infoLinks[0].dictionary + infoLinks[1].key
                  + infoLinks[1].dictionary,
              L"toplitbed");

    EXPECT_FALSE(D::createLink(db(), tops, L"hue", L"lit")) << "until it is taken away";
    const auto hue = D::getLinkID(db(), L"g", L"tops", L"hue");
    EXPECT_FALSE(D::updateLink(db(), hue, L"lit", L"g", L"tops", L"rock")) << "bound itself";
    ASSERT_TRUE(D::updateLink(db(), hue, L"lit", L"", L"beds", L"hue")) << lastError();
    EXPECT_EQ(D::getDictFromLink(db(), {L"beds", L""}, L"hue"), L"lit");
    ASSERT_TRUE(D::updateInfoLink(db(), L"bed", L"lit"));
    EXPECT_EQ(D::getDictFromLink(db(), L"bed"), L"lit");
    ASSERT_TRUE(D::deleteLink(db(), tops, L"rock") && D::deleteInfoLink(db(), L"top"));
    EXPECT_FALSE(D::isLinkExist(db(), tops, L"rock") || D::isInfoLinkExist(db(), L"top"));
}

TEST_F(DictionaryTest, everyTextIsStoredAsItStands) {
    const std::wstring name = L"it's \"a\" \\ list; -- ";
    ASSERT_TRUE(D::create(db(), name)) << lastError();
    ASSERT_TRUE(D::createLink(db(), {L"p'", L"g'"}, L"f'", name)) << lastError();
    EXPECT_EQ(D::getDictFromLink(db(), {L"p'", L"g'"}, L"f'"), name);
    ASSERT_TRUE(D::rename(db(), name, L"o'") && D(db(), L"o'").addValue(L"\\", L"%_;\n\""));
    EXPECT_EQ(stored(L"o'"), L"\\=%_;\n\";");
    ASSERT_TRUE(D::deleteLink(db(), {L"p'", L"g'"}, L"f'") && D::deleteDict(db(), L"o'"));
    EXPECT_EQ(all(L"SELECT v_id FROM dict_values") + all(L"SELECT link_id FROM dict_link"), L"");
}

TEST_F(DictionaryTest, refusalsChangeNothing) {
    fill();
    const auto sand = D(db(), L"lit").getValueList()[0].id;
    ASSERT_TRUE(D::create(db(), L"colour"));
    heard.clear();
    const struct {
        const char* where;
        std::function<bool()> run;
        const wchar_t* line; // a part of it
    } cases[] = {
        {"no name", [&] { return D::create(db(), L" "); }, L"needs a name"},
        {"taken", [&] { return D::create(db(), L"lit"); }, L"\"lit\" already"},
        {"to a taken one", [&] { return D::rename(db(), L"lit", L"colour"); }, L"\"colour\" alr"},
        {"to nothing", [&] { return D::rename(db(), L"lit", L""); }, L"needs a name"},
        {"none to rename", [&] { return D::rename(db(), L"no", L"b"); }, L"no dictionary \"no\""},
        {"none to delete", [&] { return D::deleteDict(db(), L"no"); }, L"no dictionary"},
        {"none to swap", [&] { return D::swapData(db(), L"no"); }, L"no dictionary"},
        {"none to add to", [&] { return D(db(), L"no").addValue(L"1", L"a"); }, L"no dictionary"},
        {"a value there is",
         [&] { return D(db(), L"lit").renameValue(sand, L"clay"); },
         L"has a value \"clay\""},
        {"a code there is",
         [&] { return D(db(), L"lit").renameCode(sand, L"2"); },
         L"a code \"2\""},
        {"no entry", [&] { return D(db(), L"lit").deleteValue(999); }, L"the key 999"},
        {"none to bind", [&] { return D::createLink(db(), tops, L"f", L"no"); }, L"no dictionary"},
        {"no field", [&] { return D::createLink(db(), tops, L"", L"lit"); }, L"name is empty"},
        {"bound", [&] { return D::createLink(db(), tops, L"rock", L"colour"); }, L"\"lit\""},
        {"no binding",
         [&] { return D::updateLink(db(), 99, L"lit", L"g", L"p", L"f"); },
         L"the key 99"},
        {"no key", [&] { return D::createInfoLink(db(), L"no", L"lit"); }, L"no key \"no\""},
        {"key without any", [&] { return D::updateInfoLink(db(), L"bed", L"lit"); }, L"no dict"},
        {"key bound", [&] { return D::createInfoLink(db(), L"top", L"colour"); }, L"another"},
    };
    const auto before = contentSnapshot::take(*container);
    for (const auto& c : cases) {
        EXPECT_FALSE(c.run()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.line), std::wstring::npos)
            << c.where << ": " << lastError();
    }
    EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
    EXPECT_TRUE(heard.empty());
}

TEST_F(DictionaryTest, changesAreStampedAndAnnounced) {
    fill();
    const auto isStamped = [&](const wchar_t* table) {
        const std::wstring name = table;
        const bool stamped = cell(L"SELECT update_user FROM " + name) != L"x";
        change({(L"UPDATE " + name + L" SET update_user = 'x'").c_str()});
        return stamped;
    };
    D lit(db(), L"lit");
    const struct {
        const char* where;
        std::function<bool()> run;
        list told;
        const wchar_t* table; // stamped; null: none
    } cases[] = {
        {"add", [&] { return lit.addValue(L"3", L"marl"); }, {L"9 lit"}, L"dict_main"},
        {"add again", [&] { return lit.addValue(L"3", L"loam"); }, {}, nullptr},
        {"rename value",
         [&] { return lit.renameValue(lit.getValueList()[0].id, L"silt"); },
         {L"9 lit"},
         L"dict_main"},
        {"swap", [&] { return lit.swapData(); }, {L"9 lit"}, L"dict_main"},
        {"delete value",
         [&] { return lit.deleteValue(lit.getValueList()[0].id); },
         {L"9 lit"},
         L"dict_main"},
        {"rename",
         [&] { return D::rename(db(), L"lit", L"rocks"); },
         {L"9 lit", L"9 rocks"},
         L"dict_main"},
        {"move link",
         [&] {
             return D::updateLink(
                 db(), D::getLinkID(db(), L"g", L"tops", L"rock"), L"rocks", L"g", L"beds", L"f");
         },
         {L"9 rockrockstopsg", L"9 frocksbedsg"},
         L"dict_link"},
        {"unlink",
         [&] {
             return D::deleteLink(db(), {L"beds", L"g"}, L"f");
         },
         {L"9 frocksbedsg"},
         nullptr},
        {"link",
         [&] { return D::createLink(db(), tops, L"f", L"rocks"); },
         {L"9 frockstopsg"},
         nullptr},
        {"unlink key", [&] { return D::deleteInfoLink(db(), L"top"); }, {L"7 top"}, nullptr},
        {"delete", [&] { return D::deleteDict(db(), L"rocks"); }, {L"9 rocks"}, nullptr},
    };
    for (const auto& c : cases) {
        if (c.table != nullptr)
            isStamped(c.table);
        heard.clear();
        EXPECT_TRUE(c.run()) << c.where << ": " << lastError();
        EXPECT_EQ(heard, c.told) << c.where;
        EXPECT_TRUE(c.table == nullptr || isStamped(c.table)) << c.where;
    }
    std::wstring lines;
    for (const auto& line : journal::read(*db()))
        if (line.object == L"9")
            lines += line.action + line.comment + L"; ";
    EXPECT_EQ(lines,
              L"1lit; 4lit <- g/tops: rock; 4lit <- top; 3lit -> rocks; 4rocks <- g/beds: f; "
              L"4rocks </- g/beds: f; 4rocks <- g/tops: f; 4</- top; 2rocks; ");
}

TEST_F(DictionaryTest, openObjectsFollowWhatOthersChange) {
    fill();
    const D held(db(), L"lit");
    D writer(db(), L"lit");
    ASSERT_EQ(held.getValueByCode(L"3"), L"");
    ASSERT_TRUE(writer.addValue(L"3", L"marl"));
    EXPECT_EQ(held.getValueByCode(L"3"), L"marl");
    ASSERT_TRUE(writer.swapData());
    EXPECT_EQ(entries(held), L"sand=1;clay=2;marl=3;");
    EXPECT_EQ(entries(writer), entries(held));
    std::thread([this] {
        ASSERT_TRUE(db()->exec(L"UPDATE dict_values SET value = '9' WHERE code = 'sand'"));
        globalEventObserver::Instance().updateDictionaryData(db()->get_identity(), L"lit");
    }).join();
    EXPECT_EQ(held.getValueByCode(L"sand"), L"9");
    change({L"UPDATE dict_values SET value = 'unsaid' WHERE code = 'sand'"});
    globalEventObserver::Instance().updateDictionaryData(db()->get_identity(), L"other");
    globalEventObserver::Instance().updateDictionaryData(L"another.well2", L"lit");
    globalEventObserver::Instance().updateDictionary(db()->get_identity(), tops, L"lit", L"lit");
    EXPECT_EQ(held.getValueByCode(L"sand"), L"9") << "of others, or of a binding";
    ASSERT_TRUE(D::rename(db(), L"lit", L"rocks"));
    EXPECT_FALSE(held.isOK());
    ASSERT_TRUE(D::rename(db(), L"rocks", L"lit"));
    EXPECT_EQ(held.getValueCount(), 3U);
    ASSERT_TRUE(D::deleteDict(db(), L"lit"));
    EXPECT_FALSE(held.isOK());
    EXPECT_TRUE(held.getValueList().empty());
}

// A listener that was there first changes the dictionary by another object while the first change
// is told: what comes back last must not be taken for the object's own.
TEST_F(DictionaryTest, changeMadeByAListenerIsSeen) {
    fill();
    bool isDone = false;
    const auto meddler = std::make_shared<globalEventObserver::callback>([&](const auto&) {
        EXPECT_TRUE(std::exchange(isDone, true) || D(db(), L"lit").addValue(L"4", L"peat"));
    });
    globalEventObserver::Instance().subscribe(meddler);
    D lit(db(), L"lit");
    ASSERT_TRUE(lit.addValue(L"3", L"marl"));
    EXPECT_EQ(entries(lit), L"1=sand;2=clay;3=marl;4=peat;");
}

TEST_F(DictionaryTest, rolledBackChangesAreForgotten) {
    fill();
    D lit(db(), L"lit");
    const auto sand = lit.getValueList()[0].id;
    const std::function<bool()> edits[] = {
        [&] { return lit.addValue(L"3", L"marl") && lit.getValueByCode(L"3") == L"marl"; },
        [&] { return lit.renameValue(sand, L"silt") && lit.getValueCount() == 2; },
        [&] { return lit.deleteValue(sand) && lit.getValueCount() == 1; },
        [&] { return lit.swapData() && lit.getValueByCode(L"clay") == L"2"; },
        [&] {
            return lit.importFromList(pairs{{L"5", L"peat"}}) && lit.getValueCount() == 3;
        },
    };
    for (const auto& one : edits) {
        EXPECT_TRUE(isInEdit(one)) << lastError();
        EXPECT_EQ(entries(lit), L"1=sand;2=clay;");
    }
    EXPECT_TRUE(heard.empty());
}

TEST_F(DictionaryTest, failedStatementLeavesEverythingAsItWas) {
    change({L"INSERT INTO well_info_struct (key, type) VALUES ('top', 's')"});
    const auto open = [this] { return D(db(), L"lit"); };
    const auto first = [this] {
        const D lit(db(), L"lit");
        return lit.getValueCount() == 0 ? 0U : lit.getValueList()[0].id;
    };
    const struct {
        const char* where;
        std::function<bool()> run;
    } operations[] = {
        {"create with the tables", [&] { return D::create(db(), L"lit"); }},
        {"create", [&] { return D::create(db(), L"b"); }},
        {"addValue", [&] { return open().addValue(L"1", L"sand"); }},
        {"importFromList",
         [&] {
             return open().importFromList(pairs{{L"2", L"clay"}, {L"3", L"marl"}});
         }},
        {"renameValue", [&] { return open().renameValue(first(), L"silt"); }},
        {"renameCode", [&] { return open().renameCode(first(), L"9"); }},
        {"deleteValue", [&] { return open().deleteValue(first()); }},
        {"swapData", [&] { return open().swapData(); }},
        {"createLink", [&] { return D::createLink(db(), tops, L"f", L"lit"); }},
        {"updateLink",
         [&] {
             return D::updateLink(
                 db(), D::getLinkID(db(), L"g", L"tops", L"f"), L"b", L"", L"beds", L"f");
         }},
        {"deleteLink",
         [&] {
             return D::deleteLink(db(), {L"beds", L""}, L"f");
         }},
        {"createInfoLink", [&] { return D::createInfoLink(db(), L"top", L"lit"); }},
        {"updateInfoLink", [&] { return D::updateInfoLink(db(), L"top", L"b"); }},
        {"deleteInfoLink", [&] { return D::deleteInfoLink(db(), L"top"); }},
        {"rename", [&] { return D::rename(db(), L"lit", L"rocks"); }},
        {"deleteDict", [&] { return D::deleteDict(db(), L"rocks"); }},
    };
    for (const auto& one : operations) {
        const bool makesTables = &one == operations;
        if (!makesTables) // tables cannot be known to be missing while no query works
            failing::forEveryFailedQuery(*container, faults, one.where, one.run);
        failing::forEveryFailure(*container, faults, one.where, one.run);
    }
    EXPECT_EQ(all(L"SELECT name FROM dict_main"), L"b");
}
