// The velocity-depth model of a well.
#include "tests/support/every_failure.h"
#include "tests/wells/well_fixture.h"

#include "NORLEX_propTemplate.h"
#include "platform/numbers.h"

#include <limits>
#include <thread>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
const NORLEX_propDescription velocity(L"V", L"");

class WellModelTest : public WellTest {
protected:
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(well().setAltitude(100) && NORLEX_well::create(db(), otherName)) << lastError();
    }

    [[nodiscard]] NORLEX_well other() const { return {db(), otherName}; }

    // "100:0 -150:-200"
    static std::string shown(NORLEX_well& of) {
        std::vector<vdm_data> points;
        of.getVDM()->getList(points);
        std::string out;
        for (const auto& p : points)
            out += (out.empty() ? "" : " ") + numbers::shortest(p.depth) + ":"
                   + numbers::shortest(p.time);
        return out;
    }

    [[nodiscard]] std::string rows() const {
        std::string out;
        const auto list = db()->query(L"SELECT depth, time FROM vdm_data ORDER BY dt_id");
        while (list && list->next())
            out += (out.empty() ? "" : " ") + numbers::shortest(list->get_double(0)) + ":"
                   + numbers::shortest(list->get_double(1));
        return out;
    }

    // A property of velocities with one interval, as the screen of a host makes it.
    [[nodiscard]] bool makeVelocity(NORLEX_well& of) {
        if (!NORLEX_propTemplate::createType(db(), NORLEX_dataTypeVDMInterval))
            return false;
        const auto property = of.createPropertyPtr(NORLEX_dataTypeVDMInterval, velocity);
        return property && property->createPlastCommit(10, 60, 90, 40, {L"2000"});
    }

    failing::statements faults;
    const NORLEX_wellDescription otherName{L"O", L"F", L"W-2", 0};
    const std::vector<NORLEX_intervalValue> inTime = {{0, -200, L"2500"}, {-200, -500, L"3000"}};
    const char* const inTimePoints = "100:0 -150:-200 -600:-500";
};

} // namespace

TEST_F(WellModelTest, isMadeOfIntervals) {
    auto w = well();
    struct {
        const char* where;
        std::vector<NORLEX_intervalValue> intervals;
        NORLEX_vdmType type;
        const char* rows;
    } const cases[] = {
        {"in time", inTime, NORLEX_vdmTypeTime, inTimePoints},
        {"decimal comma, nothing, blanks",
         {{100, 0, L""}, {0, -75, L"0"}, {-75, -150, L" 2500,0 "}, {-150, -600, L"3000"}},
         NORLEX_vdmTypeDepth,
         inTimePoints},
        {"no velocity at all", {{0, -5, L"-3"}}, NORLEX_vdmTypeTime, "100:0"},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(db()->exec(L"UPDATE well_base SET update_date = '2001-02-03 04:05:06'"));
        const failing::detail::listener ears;
        ASSERT_TRUE(w.VDMimport_fromModel(c.intervals, c.type)) << c.where << lastError();
        EXPECT_EQ(rows(), c.rows) << c.where;
        EXPECT_EQ(ears.heard, 1) << c.where;
        EXPECT_NE(w.getUpdateDate(), L"2001-02-03 04:05:06") << c.where;
    }
    ASSERT_TRUE(w.VDMimport_fromModel(inTime, NORLEX_vdmTypeTime));
    EXPECT_DOUBLE_EQ(w.getVDM()->getTime(-150), -200);

    struct {
        const char* where;
        std::vector<NORLEX_intervalValue> intervals;
        int type;
        const char* line;
    } const refused[] = {
        {"type", inTime, 2, "the type of a velocity model is 2"},
        {"no intervals", {}, 1, "there are no intervals"},
        {"velocity",
         {{0, -1, L"1"}, {0, -1, L"fast"}},
         0,
         "the velocity of interval 2 is \"fast\""},
        {"infinite", {{0, -inf, L"1"}}, 1, "the depth of a model's point"},
    };
    for (const auto& c : refused) {
        EXPECT_FALSE(w.VDMimport_fromModel(c.intervals, static_cast<NORLEX_vdmType>(c.type)));
        EXPECT_TRUE(lastError().starts_with(c.line)) << c.where << ": " << lastError();
        EXPECT_EQ(rows(), inTimePoints) << c.where;
    }
    ASSERT_TRUE(w.VDMimport_fromPoints({{L"", 0.1, -1.0 / 3.0}, {L"", -123456.7, -1e-9}}));
    EXPECT_EQ(rows(), "0.1:-0.3333333333333333 -123456.7:-1e-09") << "to the last bit";
    ASSERT_TRUE(w.clearVDM());
    EXPECT_EQ(rows(), "");
    EXPECT_EQ(shown(w), "100:0");
}

TEST_F(WellModelTest, followsWhatOthersChange) {
    auto held = well();
    auto writer = well();
    auto* const model = held.getVDM();
    EXPECT_EQ(shown(held), "100:0");
    ASSERT_TRUE(writer.VDMimport_fromModel(inTime, NORLEX_vdmTypeTime));
    EXPECT_EQ(shown(held), inTimePoints);
    ASSERT_TRUE(writer.setAltitude(120));
    EXPECT_EQ(shown(held), std::string("120:0 ") + inTimePoints);
    ASSERT_TRUE(held.setAltitude(110));
    EXPECT_EQ(shown(held), std::string("110:0 ") + inTimePoints);
    std::thread([this] {
        ASSERT_TRUE(db()->exec(L"UPDATE vdm_data SET time = -7 WHERE depth = -600"));
        globalEventObserver::Instance().updateWell(db()->get_identity(),
                                                   NORLEX_well::getDescription(db(), wellId()));
    }).join();
    EXPECT_EQ(shown(held), "110:0 100:0 -150:-200 -600:-7");
    {
        transaction undone(db());
        ASSERT_TRUE(makeVelocity(writer) && writer.removeProperty(velocity)) << lastError();
    }
    EXPECT_EQ(shown(held), "110:0 100:0 -150:-200 -600:-7") << "undone";
    ASSERT_TRUE(makeVelocity(writer) && writer.removeProperty(velocity)) << lastError();
    EXPECT_EQ(shown(held), "110:0") << "went with the property";
    EXPECT_EQ(held.getVDM(), model);
    ASSERT_TRUE(NORLEX_well::remove(db(), names));
    EXPECT_FALSE(held.clearVDM());
}

TEST_F(WellModelTest, isCopied) {
    auto w = well();
    auto to = other();
    const auto copied = [&](NORLEX_well* source, NORLEX_well* target, bool replace) {
        return NORLEX_wellVDM::copy(source, target, replace);
    };
    EXPECT_FALSE(copied(&w, &to, true)) << "nothing to copy";
    ASSERT_TRUE(w.VDMimport_fromPoints({{L"", 0, -50}, {L"", -10, -60}}));
    ASSERT_TRUE(copied(&w, &to, false)) << lastError();
    EXPECT_EQ(shown(to), "0:-50 -10:-60") << "its own altitude is 0";
    EXPECT_TRUE(NORLEX_wellVDM::isExist(db(), otherName)
                && NORLEX_wellVDM::isExist(db(), static_cast<long long>(to.getID())));
    EXPECT_FALSE(NORLEX_wellVDM::isExist(db(), {L"O", L"F", L"none", 0}));
    ASSERT_TRUE(w.VDMimport_fromPoints({{L"", 5, -1}}));
    EXPECT_FALSE(copied(&w, &to, false)) << "has one already";
    EXPECT_FALSE(copied(&w, &w, true)) << "onto itself";
    EXPECT_FALSE(copied(&w, nullptr, true));
    EXPECT_EQ(shown(to), "0:-50 -10:-60");
    ASSERT_TRUE(copied(&w, &to, true)) << lastError();
    EXPECT_EQ(shown(to), "0:0 5:-1");
}

// Intervals at absolute depths 90 to 40; from 20 down the hole leans 60 degrees: two metres along
// it are one down.
TEST_F(WellModelTest, velocitiesKeepTheirAbsoluteDepths) {
    auto w = well();
    ASSERT_TRUE(makeVelocity(w) && w.loadInclFromData({station(0, 0, 0), station(20, 60, 0)}, true))
        << lastError();
    const auto property = w.openProperty(velocity);
    const auto& record = property->getRecords().at(0);
    EXPECT_EQ((std::vector{record.topAbs, record.botAbs, record.top, record.bot}),
              (std::vector{90.0, 40.0, 10.0, 100.0}));
    EXPECT_FALSE(NORLEX_wellProperty::copy(
        db(), wellId(), other().getID(), velocity, true, NORLEX_dataDirectionAbsolute))
        << "of one well's model";
}

TEST_F(WellModelTest, whateverFailsItStaysAsItWas) {
    struct {
        const char* where;
        std::function<bool()> run;
    } const operations[] = {
        {"intervals", [&] { return well().VDMimport_fromModel(inTime, NORLEX_vdmTypeTime); }},
        {"points",
         [&] {
             return well().VDMimport_fromPoints({{L"", 1, 2}, {L"", -3, -4}});
         }},
        {"some points gone",
         [&] {
             auto w = well();
             return w.isOK() && w.getVDM()->remove({1, 2});
         }},
        {"intervals again", [&] { return well().VDMimport_fromModel(inTime, NORLEX_vdmTypeTime); }},
        {"copy",
         [&] {
             auto from = well();
             auto to = other();
             return NORLEX_wellVDM::copy(&from, &to, false);
         }},
        {"replacement",
         [&] {
             auto from = well();
             auto to = other();
             return NORLEX_wellVDM::copy(&from, &to, true);
         }},
        {"clear", [&] { return well().clearVDM(); }},
    };
    ASSERT_TRUE(well().VDMimport_fromPoints({{L"", 7, -7}}));
    for (const auto& o : operations) {
        failing::forEveryFailedQuery(*container, faults, o.where, o.run);
        failing::forEveryFailure(*container, faults, o.where, o.run);
        if (HasFatalFailure())
            return;
    }
}
