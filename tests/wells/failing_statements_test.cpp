// Whatever statement of an operation fails, the container stays as it was.
#include "tests/support/every_failure.h"
#include "tests/wells/well_fixture.h"

#include "tableReader.h"

namespace {

constexpr double unknown = NORLEX_unknownDepth;

struct operation {
    const char* name;
    std::function<bool()> run;
};

class FailingStatementTest : public WellTest {
protected:
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        NORLEX_well w(db(), names);
        const auto markers = w.createPropertyPtr(NORLEX_dataTypeMarker, {L"M", L""});
        const auto layers = w.createPropertyPtr(NORLEX_dataTypeInterval, {L"I", L""});
        ASSERT_TRUE(markers->prepareBulk({10, 20}, {L"a", L"b"}, NORLEX_dataDirectionMeasured)
                    && layers->createPlastCommit(10, 20, unknown, unknown, {L"a", L"b"})
                    && markers->setLink(0, markers->getRecords()[0].obj_id, L"f", L"")
                    && makeLog({L"GR", L""}) && w.setAttribute(L"key", L"value")
                    && NORLEX_well::create(db(), {L"O", L"F", L"W-2", 0}))
            << lastError();
        folder.write(L"t.csv", "1;2;x\n3;4;y\n");
    }

    // In an order in which each finds what it works on after those before it were done.
    std::vector<operation> operations() {
        const auto onWell = [this](auto run) {
            return [this, run] {
                NORLEX_well w(db(), names);
                return w.isOK() && run(w);
            };
        };
        const auto on = [this](const wchar_t* property, auto run) {
            return [this, property, run] {
                NORLEX_well w(db(), names);
                const auto p = w.openProperty({property, L""});
                return p && run(*p);
            };
        };
        using well = NORLEX_well;
        using prop = NORLEX_wellProperty;
        return {
            {"point",
             on(L"M",
                [](prop& p) {
                    return p.createPointCommit(1, unknown, {L"", L""});
                })},
            {"interval",
             on(L"I",
                [](prop& p) {
                    return p.createPlastCommit(1, 2, unknown, unknown, {L"", L""});
                })},
            {"bulk",
             on(L"M",
                [](prop& p) {
                    return p.prepareBulk({1, 2}, {L"", L""}, NORLEX_dataDirectionMeasured);
                })},
            {"value", on(L"M", [](prop& p) { return p.updateValue(0, 0, L"new"); })},
            {"depth", on(L"M", [](prop& p) { return p.updateDepth(1, 5, unknown); })},
            {"border type", on(L"M", [](prop& p) { return p.setBorderType(0, 1); })},
            {"link", on(L"M", [](prop& p) { return p.setLink(0, 1, L"g", L""); })},
            {"link comment", on(L"M", [](prop& p) { return p.setCommentLink(0, 1, L"f", L"c"); })},
            {"link gone", on(L"M", [](prop& p) { return p.delLink(0, 1, L"f"); })},
            {"field",
             on(L"M", [](prop& p) { return p.createField(L"x", NORLEX_fieldTypeString, true); })},
            {"attribute", on(L"M", [](prop& p) { return p.setAttribute(L"k", L"v"); })},
            {"column",
             on(L"M",
                [](prop& p) {
                    return p.markerToColumn({L"C", L""}, 30);
                })},
            {"samples",
             on(L"GR",
                [](prop& p) {
                    return p.setSamples({{1, 2, 3}}) && p.commit(true);
                })},
            {"well attribute", onWell([](well& w) { return w.setAttribute(L"key", L"other"); })},
            {"survey",
             onWell([](well& w) { return w.loadInclFromData({station(5, 60, 0)}, false); })},
            {"altitude", onWell([](well& w) { return w.setAltitude(5); })},
            {"table", onWell([this](well& w) {
                 tableRW::tableReader reader;
                 NORLEX_tableReport report;
                 return reader.open(folder / L"t.csv", {})
                        && w.appendDataFromReader(
                            reader,
                            getDataNameByEnum(NORLEX_dataTypeInterval),
                            {L"T", L""},
                            {.top = 1, .bot = 2, .fields = {{L"Название", 3}}},
                            {.hasHeader = false},
                            report);
             })},
            {"data of two properties",
             [this] {
                 return prop::createDataBulk(db(),
                                             {{1, {L"I", L""}}, {2, {L"new", L""}}},
                                             {{1, 2, unknown, unknown, {L"", L""}},
                                              {3, 4, unknown, unknown, {L"", L""}, 1}},
                                             NORLEX_dataTypeInterval);
             }},
            {"copy of points",
             [this] {
                 return prop::copy(db(), 1, 2, {L"M", L""}, true, NORLEX_dataDirectionMeasured);
             }},
            {"copy of a log",
             [this] {
                 return prop::copy(db(), 1, 2, {L"GR", L""}, true, NORLEX_dataDirectionMeasured);
             }},
            {"replacement",
             [this] {
                 return prop::copy(db(), 1, 2, {L"GR", L""}, true, NORLEX_dataDirectionAbsolute);
             }},
            {"well gone",
             [this] {
                 return well::remove(db(), {L"O", L"F", L"W-2", 0});
             }},
            {"records",
             on(L"M",
                [](prop& p) {
                    return p.removeGeometryByID({1, 2});
                })},
            {"field gone", on(L"M", [](prop& p) { return p.removeField(L"Название"); })},
            {"property gone", on(L"I", [](prop& p) { return p.remove(); })},
            {"renamed log", onWell([](well& w) {
                 return w.renameProperty({L"GR", L""}, {L"G", L"R"});
             })},
            {"renamed well", onWell([](well& w) { return w.setName(L"W-3"); })},
        };
    }

    failing::statements faults;
};

} // namespace

TEST_F(FailingStatementTest, leaveEverythingAsItWas) {
    for (const auto& o : operations()) {
        failing::forEveryFailure(*container, faults, o.name, o.run);
        if (HasFatalFailure())
            return;
    }
}

TEST_F(FailingStatementTest, queriesThatFailAreNotTakenForNoRows) {
    for (const auto& o : operations()) {
        failing::forEveryFailedQuery(*container, faults, o.name, o.run);
        if (HasFatalFailure())
            return;
    }
}
