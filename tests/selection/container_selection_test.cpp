// What a container does with the wells of a selection.
#include "NORLEX_propTemplate.h"
#include "globalEventObserver.h"
#include "platform/sql_text.h"
#include "tests/selection/selection_fixture.h"
#include "tests/support/content_snapshot.h"
#include "tests/support/every_failure.h"

using namespace sqlText;

namespace {

const NORLEX_propDescription core{L"Core", L"Lab"};

class ContainerSelectionTest : public SelectionTest {
protected:
    // The wells of these names alone.
    [[nodiscard]] std::shared_ptr<NORLEX_selection> chosen(const std::wstring& names) const {
        auto out =
            std::make_shared<NORLEX_selection>(L"chosen", container->getContDescription(), true);
        out->addWells(wells(names));
        return out;
    }
    [[nodiscard]] std::shared_ptr<NORLEX_selection> everyWell() const {
        return std::make_shared<NORLEX_selection>(selection());
    }

    [[nodiscard]] std::size_t removed(const std::shared_ptr<NORLEX_selection>& wells,
                                      const NORLEX_propDescription& prop) {
        std::size_t count = 99;
        EXPECT_TRUE(container->removeProperty(wells, prop, count)) << lastError();
        return count;
    }

    void run(const std::wstring& statement) { ASSERT_TRUE(db()->exec(statement)) << lastError(); }

    // The wells whose stamp is not as the fixture left it.
    [[nodiscard]] std::wstring stamped() const {
        return all(L"SELECT name FROM well_base WHERE update_date > '2022-01-01' ORDER BY name");
    }
};

} // namespace

TEST_F(ContainerSelectionTest, stampsTheWellsAndTheirPropertiesAlone) {
    ASSERT_TRUE(container->updateEditTimeWell(chosen(L"ca"))) << lastError();
    EXPECT_EQ(stamped(), L"a,c");
    ASSERT_TRUE(container->updateEditTimeProp(chosen(L"abf"), core)) << lastError();
    EXPECT_EQ(all(L"SELECT pr_id FROM property WHERE update_date > '2022-01-01' ORDER BY pr_id"),
              L"101,102");
    EXPECT_TRUE(container->updateEditTimeWell(chosen(L""))) << lastError();
    EXPECT_EQ(stamped(), L"a,c");
}

TEST_F(ContainerSelectionTest, listsPropertiesAndTemplatesOnce) {
    const std::wstring logs = cell(
        L"SELECT base_template.name FROM base_template LEFT JOIN property ON base_template.bt_id = property.bt_id WHERE property.name = 'GK'");
    struct {
        const wchar_t* wells;
        std::wstring properties;
        std::wstring templates;
    } const cases[] = {
        {L"cba", L"Lab/Core", L"Core"},
        {L"af", L"Lab/Core,Other/Core", L"Core"},
        {L"de", L"/Tops,/Кор,LAS/GK", L"Picks,Points," + logs},
        {L"h", L"", L""},
        {L"", L"", L""},
    };
    for (const auto& c : cases) {
        const std::string where = ts::strconv::toUtf8(c.wells);
        const auto some = chosen(c.wells);
        std::vector<NORLEX_propDescription> properties = {core};
        std::vector<std::wstring> templates = {L"old"};
        ASSERT_TRUE(container->getPropertyList(some, properties)) << where << lastError();
        ASSERT_TRUE(container->getTemplateList(some, templates)) << where << lastError();
        std::wstring shown;
        for (const auto& one : properties)
            shown += (shown.empty() ? L"" : L",") + one.group + L"/" + one.name;
        EXPECT_EQ(shown, c.properties) << where;
        shown.clear();
        for (const auto& one : templates)
            shown += (shown.empty() ? L"" : L",") + one;
        EXPECT_EQ(shown, c.templates) << where;
        EXPECT_EQ(NORLEX_propTemplate::getTemplateList(db(), some), templates) << where;
    }
    const auto ofType = [this](const std::shared_ptr<NORLEX_selection>& some) {
        return NORLEX_propTemplate::getPropertyFromType(db(), NORLEX_dataTypeInterval, some);
    };
    EXPECT_EQ(ofType(chosen(L"abd")), std::vector{core});
    EXPECT_EQ(ofType(everyWell()).size(), 2U);
    EXPECT_TRUE(ofType(nullptr).empty());
}

TEST_F(ContainerSelectionTest, refusesWhatIsNoSelectionOfIt) {
    const auto other = NORLEX_wellContainer::makeDescription(folder / L"none.well2");
    const std::shared_ptr<NORLEX_selection> given[] = {
        nullptr, std::make_shared<NORLEX_selection>(L"other", other)};
    NORLEX_wellContainer closed(other);
    const auto before = contentSnapshot::take(*container);
    std::vector<NORLEX_propDescription> properties = {core};
    std::vector<std::wstring> templates = {L"old"};
    std::size_t count = 9;
    const auto isRefused = [&](NORLEX_wellContainer& of,
                               const std::shared_ptr<NORLEX_selection>& wells) {
        return !of.updateEditTimeWell(wells) && !of.updateEditTimeProp(wells, core)
               && !of.getPropertyList(wells, properties) && !of.getTemplateList(wells, templates)
               && !of.removeProperty(wells, core, count) && !NORLEX_lastError().empty();
    };
    for (const auto& wells : given)
        EXPECT_TRUE(isRefused(*container, wells)) << (wells ? "another container" : "none");
    EXPECT_TRUE(isRefused(closed, given[1])) << "closed";
    EXPECT_TRUE(properties.empty() && templates.empty());
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
}

TEST_F(ContainerSelectionTest, seesTheWellsOfItsOpenTransaction) {
    const auto everything = everyWell();
    EXPECT_EQ(everything->getWellCount(), 8U);
    ASSERT_TRUE(container->beginTransaction());
    run(L"UPDATE property SET w_id = 9 WHERE pr_id = 103");
    run(L"INSERT INTO well_base (w_id, work_object, field, name) VALUES (9, 'O', 'F', 'new')");
    EXPECT_EQ(removed(everything, core), 3U);
    container->rollbackTransaction();
    EXPECT_EQ(cell(L"SELECT count(*) FROM property WHERE name = 'Core'"), L"4");
}

// What is to go is what the removals of single properties take.
TEST_F(ContainerSelectionTest, removesAsMuchAsOneRemovalAfterTheOther) {
    const auto logOf = [this](std::uint32_t well) {
        return NORLEX_wellProperty::createLAS(db(), well, {L"GK", L"LAS"}, L"", {{10, 90, 1.5}});
    };
    ASSERT_TRUE(logOf(1) && logOf(2)) << lastError();
    for (
        const auto* statement : {
            L"INSERT INTO base_template (bt_id, name, type) VALUES (1004, 'V', 'NORLEX_dataTypeVDMAvg'), (1005, 'Work', 'NORLEX_dataTypeWorkConstruction')",
            L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) VALUES (201, 1, 1001, 'Tops', ''), (202, 2, 1001, 'Tops', ''), (203, 1, 1003, 'Кор', ''), (204, 2, 1003, 'Кор', ''), (205, 1, 1002, 'Hole', ''), (206, 2, 1005, 'Hole', ''), (207, 1, 1004, 'V', ''), (208, 2, 1004, 'V', ''), (209, 3, 1004, 'V', '')",
            L"INSERT INTO field (f_id, pr_id, name, type, is_base) VALUES (2011, 201, 'name', '', 0), (2012, 201, 'b', '', 0), (2021, 202, 'name', '', 0), (2071, 207, 'v', '', 0), (2091, 209, 'v', '', 0)",
            L"INSERT INTO point_data (obj_id, depth, depth_abs, type) VALUES (11, 1, 1, 0), (12, 2, 2, 0), (13, 3, 3, 0)",
            L"INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) VALUES (11, 1, 2, 0, 0), (12, 1, 2, 0, 0), (13, 1, 2, 0, 0)",
            L"INSERT INTO val (f_id, value, obj_id) VALUES (2011, 'x', 11), (2012, 'y', 11), (2011, 'x', 12), (2012, 'y', 12), (2021, 'z', 13), (2071, '1', 11), (2091, '1', 13)",
            L"INSERT INTO prop_link (obj_id, fld_id, file_name) VALUES (1, 1011, 'f'), (3, 1031, 'f'), (11, 2012, 'f')",
            L"INSERT INTO meta (m_group, obj_id, key, value) VALUES ('property', 101, 'k', 'v'), ('property', 103, 'k', 'v'), ('well', 101, 'k', 'v'), ('property', 202, 'k', 'v')",
            L"INSERT INTO file_link (pr_id, path, name) VALUES (102, 'p', 'n'), (103, 'p', 'n'), (208, 'p', 'n')",
            L"INSERT INTO correlation (cor_id, name) VALUES (2, 'Tops')",
            L"INSERT INTO correlation_borders (b_id, cor_id, name) VALUES (2, 2, 'T')",
            L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs, type) VALUES (1, 1, 1, 1, 0), (2, 1, 1, 1, 0), (1, 2, 1, 1, 0), (2, 2, 1, 1, 0)",
            L"INSERT INTO vdm_data (w_id, depth, time) VALUES (1, 1, 1), (2, 1, 1)",
            L"INSERT INTO construction (w_id, type) VALUES (1, 1), (2, 1)",
            L"INSERT INTO well_construction (w_id, from_dig) VALUES (1, 0), (2, 0), (7, 0)",
        })
        run(statement);
    // Stamps differ from run to run.
    const auto after = [this](const std::function<void()>& removal) {
        EXPECT_TRUE(container->beginTransaction());
        removal();
        run(L"UPDATE well_base SET update_date = '', update_user = ''");
        run(L"UPDATE base_version SET update_date = '', update_user = ''");
        auto out = contentSnapshot::take(*container);
        container->rollbackTransaction();
        return out;
    };
    const auto before = after([] {});
    struct {
        const char* where;
        NORLEX_propDescription prop;
        const wchar_t* wells;
        std::size_t bearers;
    } const cases[] = {
        {"intervals", core, L"abf", 2},
        {"points", {L"Tops", L""}, L"bah", 2},
        {"samples", {L"GK", L"LAS"}, L"ae", 2},
        {"picks", {L"Кор", L""}, L"ab", 2},
        {"constructions of both kinds", {L"Hole", L""}, L"abd", 2},
        {"velocities", {L"V", L""}, L"ab", 2},
        {"one well", {L"GK", L"LAS"}, L"b", 1},
        {"apostrophes", {L"Co're", L"La'b"}, L"c", 1},
        {"none has it", {L"Tops", L"Lab"}, L"abcdefgh", 0},
        {"no wells", core, L"", 0},
    };
    for (const auto& c : cases) {
        std::size_t bearers = 99;
        const auto bulk = after([&] { bearers = removed(chosen(c.wells), c.prop); });
        const auto single = after([&] {
            for (const wchar_t name : std::wstring(c.wells)) {
                const auto well = static_cast<std::uint32_t>(name - L'a' + 1);
                static_cast<void>(NORLEX_wellProperty::removeSilent(db(), well, c.prop));
            }
        });
        EXPECT_EQ(bearers, c.bearers) << c.where;
        EXPECT_EQ(contentSnapshot::differences(single, bulk), "") << c.where;
        EXPECT_EQ(contentSnapshot::differences(before, bulk).empty(), c.bearers == 0) << c.where;
    }
}

// 300 properties of two fields are more fields than one statement takes.
TEST_F(ContainerSelectionTest, removesManyPropertiesAndLeavesTheOthers) {
    std::wstring wellRows, properties, fields, records, values;
    for (int i = 1; i <= 300; ++i) {
        const std::wstring n = key(2000 + i);
        const auto comma = [](std::wstring& list) { list += list.empty() ? L"" : L","; };
        for (auto* list : {&wellRows, &properties, &fields, &records, &values})
            comma(*list);
        wellRows += L"(" + n + L",'O','F','" + n + L"')";
        properties += L"(" + n + L"," + n + L",1000,'Many','G')";
        fields += L"(" + n + L"," + n + L",'a','',0),(" + key(5000 + i) + L"," + n + L",'b','',0)";
        records += L"(" + n + L",1,2,0,0)";
        values += L"(" + n + L",'v'," + n + L"),(" + key(5000 + i) + L",'v'," + n + L")";
    }
    const auto before = contentSnapshot::take(*container);
    run(L"INSERT INTO well_base (w_id, work_object, field, name) VALUES " + wellRows);
    run(L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) VALUES " + properties);
    run(L"INSERT INTO field (f_id, pr_id, name, type, is_base) VALUES " + fields);
    run(L"INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) VALUES " + records);
    run(L"INSERT INTO val (f_id, value, obj_id) VALUES " + values);

    auto some = everyWell();
    some->delWell({L"O", L"F", L"2150", 0});
    EXPECT_EQ(removed(some, {L"Many", L"G"}), 299U);
    EXPECT_EQ(row(L"SELECT w_id, pr_id FROM property WHERE name = 'Many'"), L"2150 2150");
    EXPECT_EQ(removed(everyWell(), {L"Many", L"G"}), 1U);
    run(L"DELETE FROM well_base WHERE w_id > 2000");
    auto after = contentSnapshot::take(*container);
    for (const auto* stamped : {L"base_version", L"journal"})
        after[stamped] = before.contains(stamped) ? before.at(stamped) : std::vector<std::string>();
    EXPECT_EQ(contentSnapshot::differences(before, after), "");
}

TEST_F(ContainerSelectionTest, stampsAndTellsOfARemovalOnce) {
    std::vector<eventMsgDescription> heard;
    const auto ears = std::make_shared<globalEventObserver::callback>(
        [&](const eventMsgDescription& message) { heard.push_back(message); });
    globalEventObserver::Instance().subscribe(ears);
    run(L"UPDATE base_version SET update_date = ''");
    NORLEX_well open(db(), well(L'a'));
    const auto property = open.openProperty(core);
    ASSERT_TRUE(property && property->isOK());

    EXPECT_EQ(removed(everyWell(), {L"Core", L""}), 0U);
    EXPECT_TRUE(heard.empty());
    EXPECT_EQ(stamped() + cell(L"SELECT update_date FROM base_version"), L"");
    EXPECT_EQ(removed(chosen(L"abd"), core), 2U);
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].kind, eventKind::property);
    EXPECT_EQ(heard[0].action, eventAction::remove);
    EXPECT_EQ(heard[0].property, core);
    EXPECT_EQ(heard[0].well, NORLEX_wellDescription());
    EXPECT_EQ(heard[0].container, db()->get_identity());
    EXPECT_EQ(stamped(), L"a,b");
    EXPECT_NE(cell(L"SELECT update_date FROM base_version"), L"");
    EXPECT_FALSE(property->isOK());
    EXPECT_EQ(journal::read(*db()).back().comment, L"Lab / Core (wells: 2)");
}

class FailingRemovalTest : public ContainerSelectionTest {
protected:
    failing::statements faults; // before the container is opened
};

TEST_F(FailingRemovalTest, leavesNothingHalfRemoved) {
    ASSERT_TRUE(
        NORLEX_wellProperty::createLAS(db(), 1, {L"GK", L"LAS"}, L"", {{10, 90, 1.5}, {20, 80, 2}}))
        << lastError();
    struct {
        const char* where;
        NORLEX_propDescription prop;
    } const cases[] = {{"intervals", core}, {"samples", {L"GK", L"LAS"}}, {"picks", {L"Кор", L""}}};
    for (const auto& c : cases) {
        const auto removal = [&] {
            std::size_t count = 0;
            return container->removeProperty(everyWell(), c.prop, count) && count > 0;
        };
        failing::forEveryFailedQuery(*container, faults, c.where, removal);
        failing::forEveryFailure(*container, faults, c.where, removal);
    }
}
