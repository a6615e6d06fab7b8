// Changes of dictionaries: what they tell, and who sees them.
#include "store/journal.h"
#include "tests/support/every_failure.h"
#include "tests/templates/dictionary_fixture.h"

#include <thread>

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
