// Whatever statement of an operation fails, the container stays as it was.
#include "tests/correlation/correlation_fixture.h"
#include "tests/support/every_failure.h"

namespace {

struct operation {
    const char* name;
    std::function<bool()> run;
};

class FailingCorrelationTest : public CorrelationTest {
protected:
    void SetUp() override {
        CorrelationTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(pick(first, L"top", 10) && pick(first, L"mid", 20) && pick(second, L"top", 5))
            << lastError();
        NORLEX_well well(db(), first);
        ASSERT_TRUE(well.openProperty(cor)->setAttribute(L"k", L"v"));
        oneKey = NORLEX_well::getID(db(), first);
        lastKey = NORLEX_well::getID(db(), namesake);
    }

    // In an order in which each finds what it works on after those before it were done.
    std::vector<operation> operations() {
        const auto many = [this](correlation::onExistingPick policy, double depth) {
            return [this, policy, depth] {
                correlation::pickSums sums;
                return store::insertPoints(
                    db(),
                    cor,
                    {{oneKey, L"top", depth}, {lastKey, L"new " + std::to_wstring(depth), depth}},
                    policy,
                    sums);
            };
        };
        return {
            {"layer",
             [this] {
                 return store::createCorrelationLayer(db(), {L"New", L"G"});
             }},
            {"border name",
             [this] { return !store::createBorderName(db(), cor, L"n", L"").empty(); }},
            {"pick", [this] { return pick(first, L"base", 30); }},
            {"pick and mirror",
             [this] { return store::insertPoint(db(), cor, namesake, L"base", 1, 2, 3); }},
            {"move", [this] { return store::moveBorder(db(), cor, first, L"base", 31); }},
            {"type", [this] { return store::setBorderType(db(), cor, first, L"base", 1); }},
            {"many picks", many(correlation::onExistingPick::move, 40)},
            {"copy", [this] { return store::copyWell(db(), cor, first, second); }},
            {"border renamed", [this] { return store::renameBorder(db(), cor, L"n", L"m"); }},
            {"border moved",
             [this] { return store::moveBorderElementToGroup(db(), cor, L"m", L"b"); }},
            {"group", [this] { return store::renameGroup(db(), cor, L"b", L"c"); }},
            {"pick gone", [this] { return store::deleteBorder(db(), cor, second, L"base"); }},
            {"pick gone by key",
             [this] {
                 std::vector<correlation::point> points;
                 return store::loadData(db(), cor, second, NORLEX_dataDirectionMeasured, points)
                        && store::deletePoint(db(), cor, points.front().pickId);
             }},
            {"group's picks",
             [this] { return store::deleteBordersFromGroup(db(), cor, L"a", {oneKey}); }},
            {"border's picks",
             [this] { return store::deleteBorderFromAllWells(db(), cor, L"top"); }},
            {"border gone", [this] { return store::deleteBorder(db(), cor, L"top"); }},
            {"rename", [this] { return store::rename(db(), cor, L"Renamed"); }},
            {"well",
             [this] {
                 return store::clearWell(db(), {L"Renamed", L"G"}, first);
             }},
            {"removal",
             [this] {
                 return store::removeCorrelation(db(), {L"Renamed", L"G"});
             }},
        };
    }

    failing::statements faults;
    std::uint32_t oneKey = 0;
    std::uint32_t lastKey = 0;
};

TEST_F(FailingCorrelationTest, everyFailureUndoesAll) {
    for (const auto& one : operations())
        failing::forEveryFailure(*container, faults, one.name, one.run);
}

// Each ends by undoing what it did, so that the operations that need one another are left out.
TEST_F(FailingCorrelationTest, failedQueriesLeaveAllOrNothing) {
    for (const auto& one : operations()) {
        const std::string name = one.name;
        for (const auto* standing : {"layer",
                                     "border name",
                                     "pick",
                                     "pick and mirror",
                                     "many picks",
                                     "copy",
                                     "group's picks",
                                     "border's picks",
                                     "border gone"})
            if (name == standing)
                failing::forEveryFailedQuery(*container, faults, name, one.run);
    }
    failing::forEveryFailedQuery(
        *container, faults, "rename", [this] { return store::rename(db(), cor, L"Renamed"); });
    failing::forEveryFailedQuery(
        *container, faults, "well", [this] { return store::clearWell(db(), cor, first); });
    failing::forEveryFailedQuery(
        *container, faults, "removal", [this] { return store::removeCorrelation(db(), cor); });
}

} // namespace
