#include "tests/wells/well_fixture.h"

#include "globalEventObserver.h"
#include "store/journal.h"

namespace {

const NORLEX_propDescription gr(L"GR", L"LAS");

class AnnouncementTest : public WellTest {
protected:
    void SetUp() override {
        WellTest::SetUp();
        globalEventObserver::Instance().subscribe(subscriber);
    }

    // What was announced since the last call: "kind.action work object/field/name group/name".
    std::wstring heard() {
        std::wstring out;
        for (const auto& m : std::exchange(messages, {})) {
            EXPECT_EQ(m.container, folder / L"wells.well2");
            out += std::to_wstring(m.kind) + L"." + std::to_wstring(m.action) + L" "
                   + m.well.workObject + L"/" + m.well.field + L"/" + m.well.name;
            if (!m.property.name.empty())
                out += L" " + m.property.group + L"/" + m.property.name;
            if (!m.newProperty.name.empty())
                out += L" -> " + m.newProperty.group + L"/" + m.newProperty.name;
            if (!m.params[2].empty())
                out += L" -> " + m.params[0] + L"/" + m.params[1] + L"/" + m.params[2];
            out += L"; ";
        }
        return out;
    }

    std::vector<eventMsgDescription> messages;
    std::shared_ptr<globalEventObserver::callback> subscriber =
        std::make_shared<globalEventObserver::callback>(
            [this](const eventMsgDescription& message) { messages.push_back(message); });
};

} // namespace

TEST_F(AnnouncementTest, everyEditIsAnnouncedOnce) {
    auto w = well();
    const auto is = [this](bool done, const wchar_t* expected) {
        EXPECT_TRUE(done) << lastError();
        EXPECT_EQ(heard(), expected);
    };
    is(NORLEX_well::create(db(), {L"", L"", L"new", 0}), L"1.1 //new; ");
    is(NORLEX_well::remove(db(), {L"", L"", L"new", 0}), L"1.2 //new; ");
    is(w.setName(L"W-2"), L"1.3 O/F/W-1 -> O/F/W-2; ");
    is(w.setName(L"W-2"), L"");
    is(w.setName(L"W-1"), L"1.3 O/F/W-2 -> O/F/W-1; ");
    is(w.setAltitude(100), L"1.4 O/F/W-1; ");
    is(w.setPosition(1, 2, 3), L"1.4 O/F/W-1; ");
    is(NORLEX_well::setPosition(db(), names, 1, 2), L"1.4 O/F/W-1; ");
    is(makeLog(gr), L"2.1 O/F/W-1 LAS/GR; ");
    is(w.createProperty(NORLEX_dataTypeMarker, {L"M", L""}), L"2.1 O/F/W-1 /M; ");
    is(w.loadInclFromData({station(5, 1, 1)}, false),
       L"2.4 O/F/W-1 LAS/GR; 1.4 O/F/W-1; "); // the log's absolute depths follow
    // synthetic station and the stored one, as held
    is(w.loadInclFromData({station(0, 0, 0), station(5, 1, 1)}, false), L"");
    is(w.loadInclFromData({station(6, 1, 1)}, true), L"");
    auto log = w.openProperty(gr);
    is(log->commit(true), L"2.4 O/F/W-1 LAS/GR; ");
    is(log->commit(false), L"");
    is(log->createField(L"f", NORLEX_fieldTypeString, true), L"2.4 O/F/W-1 LAS/GR; ");
    is(w.renameProperty(gr, {L"gr", L""}), L"2.3 O/F/W-1 LAS/GR -> /gr; ");
    is(w.removeProperty({L"gr", L""}), L"2.2 O/F/W-1 /gr; ");
    is(NORLEX_wellProperty::removeSilent(db(), w.getID(), {L"M", L""}), L"");
}

TEST_F(AnnouncementTest, nothingIsAnnouncedBeforeTheCommitOrAfterARollback) {
    {
        transaction outer(db());
        ASSERT_TRUE(outer.isOpen() && makeLog(gr) && well().setAltitude(5));
        {
            transaction inner(db());
            ASSERT_TRUE(inner.isOpen() && makeLog({L"SP", L""}));
        }
        EXPECT_EQ(heard(), L"");
        ASSERT_TRUE(outer.commit());
    }
    EXPECT_EQ(heard(), L"2.1 O/F/W-1 LAS/GR; 2.4 O/F/W-1 LAS/GR; 1.4 O/F/W-1; ");
    const auto entries = journal::read(*db()).size();
    {
        transaction outer(db());
        ASSERT_TRUE(outer.isOpen() && well().setName(L"W-2")
                    && NORLEX_well::create(db(), {L"", L"", L"n", 0}));
    }
    EXPECT_FALSE(makeLog(gr)) << "taken";
    EXPECT_FALSE(NORLEX_well::create(db(), names));
    EXPECT_EQ(heard(), L"");
    EXPECT_EQ(journal::read(*db()).size(), entries);
}

// Another connection must see the change that it is told of.
TEST_F(AnnouncementTest, subscribersSeeTheCommittedState) {
    NORLEX_wellContainer other(container->getContDescription());
    std::int64_t seen = -1;
    const auto reader = std::make_shared<globalEventObserver::callback>(
        [&](const eventMsgDescription&) { seen = other.getPropertyCount(); });
    globalEventObserver::Instance().subscribe(reader);
    ASSERT_TRUE(makeLog(gr));
    EXPECT_EQ(seen, 1);
}
