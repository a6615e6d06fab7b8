// Hostile texts as names of what is not there, and as numbers and units that are none.
#include "tests/whole/hostile_fixture.h"

#include "NORLEX_propCopy.h"
#include "NORLEX_tableImport.h"

#include <cmath>

namespace {

using store = correlation::correlation;

class HostileAbsentTest : public HostileTextTest {
protected:
    // An operation that has to be refused.
    [[nodiscard]] static operation refused(const char* name,
                                           const std::function<bool(const std::wstring&)>& run) {
        return {name,
                asGiven,
                [run](const auto& t) { return run(t) ? stored(L"taken") : std::nullopt; },
                0};
    }
    [[nodiscard]] operation
    refusedBy(const char* name,
              const std::function<bool(NORLEX_well&, const std::wstring&)>& run) const {
        return refused(name, [=, this](const auto& t) { return run(*well(), t); });
    }

    static inline const NORLEX_propDescription made{L"made", L"G"};
};

TEST_F(HostileAbsentTest, propertiesAndFields) {
    using names = NORLEX_propDescription;
    tryAll({
        refusedBy("a property",
                  [](auto& in, const auto& t) {
                      return in.removeProperty({t, t});
                  }),
        refusedBy("its new name",
                  [](auto& in, const auto& t) {
                      return in.renameProperty({t, t}, made);
                  }),
        refusedBy("a log",
                  [](auto& in, const auto& t) {
                      return in.windowFilter({t, t}, NORLEX_windowMean, 1, made);
                  }),
        refusedBy("runs",
                  [](auto& in, const auto& t) {
                      return in.joinLas({names(t, t), targetLog}, NORLEX_lasOverlapMean, made);
                  }),
        refusedBy("what is copied",
                  [&](auto& in, const auto& t) {
                      return NORLEX_wellProperty::copy(db(),
                                                       in.getID(),
                                                       {t, t},
                                                       in.getID(),
                                                       made,
                                                       NORLEX_db_prop_merge_skip,
                                                       NORLEX_dataDirectionMeasured);
                  }),
        refusedBy(
            "a field of values",
            [](auto& in, const auto& t) { return in.makeLogFromData(targetRows, t, 1, made); }),
        refusedBy("a field of a range",
                  [](auto& in, const auto& t) {
                      return in.createIntervalsFromProp(targetRows, t, {}, made);
                  }),
        refusedBy(
            "a field to be removed",
            [](auto& in, const auto& t) { return in.openProperty(targetRows)->removeField(t); }),
        refusedBy(
            "times",
            [](auto& in, const auto& t) { return in.VDMimport_fromMarkers(targetRows, t, {}); }),
        refusedBy("a unit",
                  [](auto& in, const auto& t) {
                      NORLEX_VDMcreateOptions options;
                      options.units = t + L"!"; // empty: the log's own
                      return in.VDMimport_fromSonic(targetLog, options);
                  }),
        refusedBy("a template",
                  [](auto& in, const auto& t) { return in.createPropertyFromTemplate(t, made); }),
    });
}

TEST_F(HostileAbsentTest, templatesDictionariesAndCorrelations) {
    const auto other = [](const std::wstring& t) { return NORLEX_propDescription(t, L"picks"); };
    tryAll({
        refused("a template",
                [&](const auto& t) { return NORLEX_propTemplate::rename(db(), t, L"new"); }),
        refused("a source of templates",
                [&](const auto& t) {
                    return NORLEX_propTemplate::createFromTemplate(
                        db(), t, L"new", std::vector<NORLEX_fieldDescr>(), false);
                }),
        refused("a field of a template",
                [&](const auto& t) { return NORLEX_propTemplate(db(), target).deleteField(t); }),
        refused("a field's type",
                [&](const auto& t) {
                    return NORLEX_propTemplate(db(), target)
                        .changeFieldType(t, NORLEX_fieldTypeNumeric);
                }),
        refused("a dictionary",
                [&](const auto& t) { return NORLEX_dictionary::rename(db(), t, L"new"); }),
        refused("a dictionary to swap",
                [&](const auto& t) { return NORLEX_dictionary::swapData(db(), t); }),
        refused("a dictionary to bind",
                [&](const auto& t) {
                    return NORLEX_dictionary::createLink(db(), {L"p", L"g"}, L"f", t);
                }),
        refused("a key to bind",
                [&](const auto& t) { return NORLEX_dictionary::createInfoLink(db(), t, target); }),
        refused("a correlation",
                [&](const auto& t) { return store::rename(db(), other(t), L"new"); }),
        refused("a border",
                [&](const auto& t) { return store::renameBorder(db(), targetCor, t, L"new"); }),
        refused(
            "a pick",
            [&](const auto& t) { return store::createBorder(db(), targetCor, targetWell, t, 10); }),
        refused(
            "a group",
            [&](const auto& t) { return store::renameGroup(db(), targetCor, t + L"!", L"new"); }),
        refused("a well with picks",
                [&](const auto& t) {
                    return store::copyWell(
                        db(), targetCor, NORLEX_wellDescription{t, t, t, 0}, targetWell);
                }),
        refused("a well to clear",
                [&](const auto& t) {
                    return store::clearWell(db(), targetCor, NORLEX_wellDescription{t, t, t, 0});
                }),
    });
}

// Velocities come as texts: a model holds finite numbers, whatever they were.
TEST_F(HostileAbsentTest, velocitiesAreNumbersOrRefused) {
    for (const auto& text : texts()) {
        const auto in = well();
        refuse(L"");
        if (!in->VDMimport_fromModel({{-10, -20, text}, {-20, -30, L"2000"}},
                                     NORLEX_vdmTypeDepth)) {
            EXPECT_NE(NORLEX_lastError(), L"") << shown(text);
        }
        std::vector<vdm_data> points;
        in->getVDM()->getList(points);
        EXPECT_GE(points.size(), 2U) << shown(text);
        for (const auto& point : points)
            EXPECT_TRUE(std::isfinite(point.depth) && std::isfinite(point.time)) << shown(text);
    }
    EXPECT_EQ(lost(), "");
}

TEST_F(HostileAbsentTest, columnsOfATable) {
    const auto path = folder.write(L"wells.csv", "well;depth;a\ntarget;1;x\n");
    tryAll({refused("a column", [&](const auto& t) {
        NORLEX_tableImportOptions options;
        options.templateName = L"Маркер";
        options.property = made;
        options.well = targetWell;
        options.depth = {0, t + L"!"};
        return NORLEX_tableImport(db(), options).importFile(path).ok;
    })});
}

} // namespace
