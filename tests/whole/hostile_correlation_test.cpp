// Hostile texts as names of correlations, borders and groups.
#include "tests/whole/hostile_fixture.h"

#include "NORLEX_corInterval.h"

namespace {

using correlation::borderName;
using sqlText::plainName;
using store = correlation::correlation;

class HostileCorrelationTest : public HostileTextTest {
protected:
    [[nodiscard]] std::vector<borderName> borders() const {
        std::vector<borderName> out;
        store::getBorderList(db(), targetCor, out);
        return out;
    }
    [[nodiscard]] std::wstring mirrorName(const std::wstring& group) const {
        std::vector<NORLEX_propDescription> all;
        well()->getPropertyList(all);
        const auto found = std::ranges::find(all, group, &NORLEX_propDescription::group);
        return found == all.end() ? L"no mirror" : found->name;
    }

    // A border of the name that `make` made is picked, moved, found and deleted.
    [[nodiscard]] stored picked(const std::wstring& name,
                                const std::function<bool(const wchar_t*)>& make) const {
        if (!make(target)) {
            EXPECT_FALSE(store::deleteBorder(db(), targetCor, name));
            return std::nullopt;
        }
        double measured = 0, absolute = 0;
        if (!store::moveBorder(db(), targetCor, targetWell, name, 60)
            || !store::setBorderType(db(), targetCor, targetWell, name, 3)
            || !store::getDepth(db(), targetCor, targetWell, name, measured, absolute)
            || measured != 60)
            return L"not moved";
        std::vector<NORLEX_wellDescription> wells;
        store::getWellListForBorder(db(), targetCor, name, wells);
        const auto found = store::findPoint(db(), targetCor, targetWell, absolute);
        if (wells != std::vector{targetWell} || !store::deleteBorder(db(), targetCor, name))
            return L"not removed";
        return found;
    }
};

TEST_F(HostileCorrelationTest, keepCorrelations) {
    const NORLEX_propDescription other{L"other", L"other picks"}; // a name of no property
    ASSERT_TRUE(store::createCorrelationLayer(db(), other));
    ASSERT_EQ(store::createBorderName(db(), other, L"b", L""), L"b");
    ASSERT_TRUE(store::createBorder(db(), other, targetWell, L"b", 10));
    tryAll({
        {"a correlation",
         plainName,
         [&](const auto& t) -> stored {
             const NORLEX_propDescription made(t, L"G");
             if (!store::createCorrelationLayer(db(), made)) {
                 EXPECT_FALSE(store::removeCorrelation(db(), made));
                 return std::nullopt;
             }
             std::vector<std::wstring> names;
             store::getCorrelationList(db(), names);
             const auto name = plainName(t);
             return std::ranges::count(names, name) == 1 && store::removeCorrelation(db(), made)
                        ? stored(name)
                        : L"not found";
         }},
        {"a correlation's new name",
         plainName,
         [&](const auto& t) -> stored {
             if (!store::rename(db(), other, t))
                 return std::nullopt;
             const auto name = mirrorName(other.group);
             return store::rename(db(), {t, other.group}, other.name) ? stored(name)
                                                                      : L"not renamed back";
         }},
        {"a group of the mirrors",
         plainName,
         [&](const auto& t) -> stored {
             const NORLEX_propDescription made(L"grouped", t);
             if (!store::createCorrelationLayer(db(), made))
                 return std::nullopt;
             std::vector<std::wstring> groups;
             const bool isPicked = !store::createBorderName(db(), made, L"b", L"").empty()
                                   && store::createBorder(db(), made, targetWell, L"b", 10);
             const std::wstring why = NORLEX_lastError();
             store::getMirrorGroupList(db(), made, groups);
             if (!store::removeCorrelation(db(), made))
                 return L"not removed";
             refuse(why);
             return isPicked && groups.size() == 1 ? stored(groups.front()) : std::nullopt;
         }},
    });
}

TEST_F(HostileCorrelationTest, keepBordersAndGroups) {
    tryAll({
        {"a border and its group",
         plainName,
         [&](const auto& t) -> stored {
             const auto name = store::createBorderName(db(), targetCor, t, t);
             if (name.empty()) {
                 EXPECT_FALSE(store::deleteBorder(db(), targetCor, t));
                 return std::nullopt;
             }
             const auto made = borders().back();
             return made.name == name && store::getBorderGroup(db(), targetCor, t) == made.group
                            && store::deleteBorder(db(), targetCor, t)
                        ? stored(made.group)
                        : L"not found";
         }},
        {"a border's new name",
         plainName,
         [&](const auto& t) -> stored {
             if (!store::renameBorder(db(), targetCor, target, t))
                 return std::nullopt;
             const auto name = well()->openProperty(targetCor)->getValue(0, 0);
             return store::renameBorder(db(), targetCor, t, target) ? stored(name)
                                                                    : L"not renamed back";
         }},
        {"a group that a border is moved to",
         plainName,
         [&](const auto& t) -> stored {
             if (!store::moveBorderElementToGroup(db(), targetCor, target, t))
                 return std::nullopt;
             const auto group = borders().front().group;
             return store::moveBorderElementToGroup(db(), targetCor, target, target)
                        ? stored(group)
                        : L"not moved back";
         }},
        {"a group's new name",
         plainName,
         [&](const auto& t) -> stored {
             if (!store::renameGroup(db(), targetCor, target, t))
                 return std::nullopt;
             const auto group = borders().front().group;
             if (!store::isGroupExist(db(), targetCor, t))
                 return L"not found";
             return store::renameGroup(db(), targetCor, t, target) ? stored(group)
                                                                   : L"not renamed back";
         }},
    });
}

TEST_F(HostileCorrelationTest, keepPicks) {
    tryAll({
        {"a pick",
         plainName,
         [&](const auto& t) {
             return picked(t, [&](auto) {
                 return !store::createBorderName(db(), targetCor, t, L"").empty()
                        && store::createBorder(db(), targetCor, targetWell, t, 50);
             });
         }},
        {"a pick by its absolute depth",
         plainName,
         [&](const auto& t) {
             return picked(t, [&](auto) {
                 return !store::createBorderName(db(), targetCor, t, L"").empty()
                        && store::insertPoint(db(), targetCor, targetWell, t, -50);
             });
         }},
        {"picks at once",
         plainName,
         [&](const auto& t) {
             return picked(t, [&](auto) {
                 correlation::pickSums sums;
                 return store::insertPoints(
                     db(),
                     targetCor,
                     {{.wellId = wellId(), .border = t, .depth = 50, .group = t}},
                     correlation::onExistingPick::fail,
                     sums);
             });
         }},
    });
}

TEST_F(HostileCorrelationTest, intervalsOfHostileNamesAreFound) {
    for (const auto& text : hostile::parts()) {
        const NORLEX_propDescription prop{text, L"intervals"};
        if (!well()->createProperty(NORLEX_dataTypeInterval, prop))
            continue;
        NORLEX_corInterval across(
            container->getContDescription(), {targetWell}, prop, NORLEX_dataDirectionMeasured);
        std::vector<NORLEX_corInterval::interval> found;
        EXPECT_TRUE(across.addInterval(0, 1, 2)) << shown(text) << ": " << lastError();
        EXPECT_TRUE(across.getIntervals(0, found)) << shown(text);
        EXPECT_EQ(found.size(), 1U) << shown(text);
        EXPECT_TRUE(well()->removeProperty(prop));
    }
    EXPECT_EQ(lost(), "");
}

} // namespace
