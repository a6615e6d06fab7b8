// Dictionaries, their entries, and what is bound to them.
#include "tests/support/content_snapshot.h"
#include "tests/templates/dictionary_fixture.h"

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
