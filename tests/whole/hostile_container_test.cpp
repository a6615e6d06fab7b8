// Hostile texts around a container: its path, its connection, the chart, the curves, the news.
#include "tests/whole/hostile_fixture.h"

#include "NORLEX_curveIdentification.h"
#include "NORLEX_strategraphy.h"
#include "globalEventObserver.h"
#include "platform/connection_pairs.h"
#include "tests/support/curve_catalogue.h"

namespace {

using HostileContainerTest = HostileTextTest;

TEST_F(HostileContainerTest, isNamedByThem) {
    SKIP_ON_SERVER();
    std::size_t made = 0;
    for (const auto& text : hostile::parts()) {
        if (text.find_first_of(L"/\\") != std::wstring::npos)
            continue;
        const auto path = folder / (L"wells" + text + L".well2");
        const auto description = NORLEX_wellContainer::makeDescription(path);
        refuse(L"");
        if (!NORLEX_wellContainer::create(description)) {
            EXPECT_NE(NORLEX_lastError(), L"") << shown(text);
            continue;
        }
        EXPECT_TRUE(files::isFile(path)) << shown(text);
        NORLEX_wellContainer opened(description);
        EXPECT_TRUE(opened.isOK()) << shown(text) << ": " << lastError();
        EXPECT_TRUE(NORLEX_well::create(opened.getBaseLink(), targetWell)) << shown(text);
        EXPECT_EQ(opened.getWellCount(), 1) << shown(text);
        ++made;
    }
    EXPECT_GT(made, 80U);
}

TEST_F(HostileContainerTest, credentialsStayWhatTheyAre) {
    for (const auto& text : texts()) {
        if (text.empty())
            continue;
        NORLEX_contDescription of;
        of.type = 2;
        of.connection = L"Driver=d;Server=s;";
        of.user = of.password = text;
        const auto pairs = connectionPairs::parse(of.getConnectionString());
        ASSERT_EQ(pairs.size(), 4U) << shown(text);
        EXPECT_EQ(pairs[2].value, ts::strconv::toUtf8(text)) << shown(text);
        EXPECT_EQ(pairs[3].value, ts::strconv::toUtf8(text)) << shown(text);
    }
}

TEST_F(HostileContainerTest, expressionsNameUnitsOrNothing) {
    const strategraphy::statoTable chart(container.get());
    ASSERT_TRUE(chart.isOK());
    const auto in = well();
    const auto source = in->openProperty(targetRows);
    std::size_t count = 0;
    for (const auto& text : texts()) {
        std::vector<strategraphy::element> units;
        std::vector<std::wstring> unknown;
        chart.identify(text, units, unknown);
        EXPECT_EQ(chart.identifySingle(text), nullptr) << shown(text);
        static_cast<void>(strategraphy::statoTable::breakBraces(text));
        for (const bool asNames : {false, true})
            static_cast<void>(chart.getContaining(text, NORLEX_taxonSystem, asNames));
        const std::vector<std::wstring> values(source->getFields().size(), text);
        count += source->createPlastCommit(3, 4, NORLEX_unknownDepth, NORLEX_unknownDepth, values)
                     ? std::size_t{1}
                     : 0;
    }
    NORLEX_def_strato_options options;
    options.source = targetRows;
    options.field = source->getFields().front().name;
    options.result = {L"ages", L"G"};
    ASSERT_TRUE(in->makeDefaultStratoLayer(options)) << lastError();
    EXPECT_EQ(in->openProperty(options.result)->getRecordCount(), count + 1);
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileContainerTest, synonymsOfCurvesAreKept) {
    const auto path = folder / L"wells/curves.db";
    curveCatalogue::make(path, {{1, L"GK", L"gamma", {L"sentinel"}}, {2, L"a\ufffdb", L"t", {}}});
    NORLEX_curveIdentification curves(path);
    const auto gk = curves.getCurve(L"GK");
    for (const auto& text : texts()) {
        refuse(L"");
        if (!curves.addSynonym(gk, text)) {
            EXPECT_NE(NORLEX_lastError(), L"") << shown(text);
            EXPECT_EQ(curves.getCurve(text).method_id, L"") << shown(text);
            EXPECT_FALSE(curves.delSynonym(text)) << shown(text);
            continue;
        }
        EXPECT_EQ(curves.isSynonym(text).mnemonic, L"GK") << shown(text);
        EXPECT_TRUE(curves.editSynonym(text, L"other") && curves.editSynonym(L"other", text));
        std::vector<std::pair<std::wstring, std::wstring>> all;
        curves.getSynonymList(all);
        EXPECT_EQ(all.size(), 2U) << shown(text);
        EXPECT_EQ(all.back().second, text);
        EXPECT_TRUE(curves.delSynonym(text)) << shown(text);
    }
    EXPECT_EQ(curves.isSynonym(L"sentinel").mnemonic, L"GK");
}

TEST_F(HostileContainerTest, newsCarryThem) {
    eventMsgDescription heard;
    const auto ear = std::make_shared<globalEventObserver::callback>(
        [&](const auto& message) { heard = message; });
    auto& observer = globalEventObserver::Instance();
    observer.subscribe(ear);
    for (const auto& text : texts()) {
        observer.renameZone(text, text, text);
        EXPECT_TRUE(heard.container == text && heard.params[0] == text && heard.params[1] == text);
        observer.renamePropertyGlobal(1, text, {text, text}, {text, text});
        EXPECT_TRUE(heard.property.name == text && heard.newProperty.group == text);
    }
}

} // namespace
