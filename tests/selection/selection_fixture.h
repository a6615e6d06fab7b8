// A container of eight wells, "a" to "h", each with something of its own to be found by.
#pragma once

#include "NORLEX_dictionary.h"
#include "NORLEX_selection.h"
#include "NORLEX_well.h"
#include "tests/support/container_fixture.h"

#include <algorithm>
#include <string>
#include <vector>

class SelectionTest : public ContainerTest {
protected:
    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        for (const wchar_t c : std::wstring(L"abcdefgh"))
            ASSERT_TRUE(NORLEX_well::create(db(), well(c))) << lastError();
        ASSERT_TRUE(NORLEX_wellProperty::createLAS(
            db(),
            5,
            {L"GK", L"LAS"},
            L"",
            {{10, 90, 1.5}, {20, 80, 2.5}, {30, 70, NORLEX_missingValue}}))
            << lastError();
        ASSERT_TRUE(NORLEX_dictionary::createDBTables(db()));
        for (const auto* statement : content)
            ASSERT_TRUE(db()->exec(statement)) << lastError();
    }

    static NORLEX_wellDescription well(wchar_t name) {
        return {L"O", L"F", std::wstring(1, name), 0};
    }
    static std::vector<NORLEX_wellDescription> wells(const std::wstring& names) {
        std::vector<NORLEX_wellDescription> out;
        for (const wchar_t name : names)
            out.push_back(well(name));
        return out;
    }

    [[nodiscard]] NORLEX_selection selection() const {
        return {L"test", container->getContDescription()};
    }

    // The names of the wells in their order; a key that is not the well's own shows as "!".
    static std::wstring names(NORLEX_selection& selection) {
        std::vector<NORLEX_wellDescription> found;
        selection.getWellList(found);
        std::wstring out;
        for (const auto& one : found)
            out +=
                one.wellId == static_cast<std::uint32_t>(one.name[0] - L'a' + 1) ? one.name : L"!";
        return out;
    }
    static std::wstring sorted(std::wstring text) {
        std::ranges::sort(text);
        return text;
    }
    [[nodiscard]] std::wstring found(const NORLEX_query& query) const {
        NORLEX_selection one = selection();
        one.addGeomWells(wells(L"caz"));
        one.addFilter(query);
        return sorted(names(one));
    }

    static NORLEX_query make(NORLEX_filterType type, int operation) {
        NORLEX_query query;
        query.operationType = type;
        query.operation = static_cast<NORLEX_filterOperation>(operation);
        return query;
    }

private:
    // clang-format off
    static constexpr const wchar_t* content[] = {
        L"UPDATE well_base SET x = 10, y = 20 WHERE name = 'a'",
        L"UPDATE well_base SET altitude = 100 WHERE name = 'a' OR name = 'b'",
        L"INSERT INTO base_template (bt_id, name, type) VALUES (1000, 'Core', 'NORLEX_dataTypeInterval'), (1001, 'Points', 'NORLEX_dataTypeMarker'), (1002, 'Hole', 'NORLEX_dataTypeConstruction'), (1003, 'Picks', 'NORLEX_dataTypeBorder')",
        L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) VALUES (101, 1, 1000, 'Core', 'Lab'), (102, 2, 1000, 'Core', 'Lab'), (103, 3, 1000, 'Core', 'Lab'), (104, 4, 1001, 'Tops', ''), (106, 6, 1000, 'Core', 'Other'), (107, 7, 1002, 'Hole', ''), (108, 5, 1003, 'Кор', '')",
        L"INSERT INTO field (f_id, pr_id, name, type, is_base) VALUES (1011, 101, 'por', 'NORLEX_fieldTypeNumeric', 0), (1012, 101, 'name', 'NORLEX_fieldTypeString', 0), (1013, 101, 'lit', 'NORLEX_fieldTypeLink', 0), (1021, 102, 'por', 'NORLEX_fieldTypeNumeric', 0), (1022, 102, 'name', 'NORLEX_fieldTypeString', 0), (1023, 102, 'lit', 'NORLEX_fieldTypeLink', 0), (1031, 103, 'por', 'NORLEX_fieldTypeNumeric', 0), (1032, 103, 'name', 'NORLEX_fieldTypeString', 0), (1033, 103, 'lit', 'NORLEX_fieldTypeLink', 0), (1041, 104, 'name', 'NORLEX_fieldTypeString', 0), (1061, 106, 'por', 'NORLEX_fieldTypeNumeric', 0)",
        L"INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) VALUES (1, 100, 110, 0, -10), (2, 150, 160, -50, -60), (3, 200, 300, -100, -200), (4, 105, 106, -5, -6)",
        L"INSERT INTO point_data (obj_id, depth, depth_abs, type) VALUES (1, 155, -55, 0)",
        L"INSERT INTO val (f_id, value, obj_id) VALUES (1011, '0.25', 1), (1012, 'Песок', 1), (1013, '1', 1), (1021, '0.1', 2), (1022, 'песок мелкий', 2), (1023, '2', 2), (1031, '', 3), (1032, '', 3), (1033, '', 3), (1041, 'Кровля', 1), (1061, '9', 4)",
        L"INSERT INTO dict_main (dict_id, name) VALUES (1, 'Lithology'), (2, 'Other')",
        L"INSERT INTO dict_values (code, value, dict_id) VALUES ('1', 'Sandstone', 1), ('2', 'Clay 50%', 1), ('1', 'Other', 2)",
        L"INSERT INTO dict_link (p_group, prop, field, dict_id) VALUES ('Lab', 'Core', 'lit', 1)",
        // a property's entry under the key of well b
        L"INSERT INTO meta (m_group, obj_id, key, value) VALUES ('well', 6, 'OPERATOR', 'Север'), ('well', 7, 'OPERATOR', ''), ('well', 1, 'OPERATOR', 'север 2'), ('property', 2, 'OPERATOR', 'Север'), ('well', 1, 'DEPTH', '12.5'), ('well', 6, 'DEPTH', '7')",
        L"INSERT INTO well_info_struct (i_id, key, type) VALUES (1, 'Category', 'NORLEX_fieldTypeString')",
        L"INSERT INTO well_info_values (i_id, w_id, value) VALUES (1, 1, 'Exploration'), (1, 2, '12'), (1, 3, '')",
        L"INSERT INTO inclinometry (w_id, depth, angle, azimuth) VALUES (7, 10, 1, 0)",
        L"INSERT INTO construction (w_id, type) VALUES (7, 1)",
        L"INSERT INTO well_construction (w_id, from_dig) VALUES (8, 0)",
        L"INSERT INTO well_drilling (w_id, from_depth) VALUES (1, 0)",
        L"INSERT INTO file_link (pr_id, path, name) VALUES (2, 'p', 'n')",
        L"INSERT INTO vdm_data (w_id, depth, time) VALUES (3, 10, 1)",
        L"INSERT INTO correlation (cor_id, name) VALUES (1, 'Кор')",
        L"INSERT INTO correlation_borders (b_id, cor_id, name) VALUES (1, 1, 'К1')",
        L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs, type) VALUES (5, 1, 170, -70, 0)",
        L"UPDATE well_base SET create_date = '2019-06-01 00:00:00', update_date = '2019-06-01 00:00:00'",
        L"UPDATE well_base SET create_date = '2020-01-01 10:00:00' WHERE name = 'a'",
        L"UPDATE well_base SET create_date = '2020-01-03 00:00:00', update_date = '2020-01-03 00:00:00' WHERE name = 'b'",
        L"UPDATE property SET create_date = '2018-01-01 00:00:00', update_date = '2019-01-01 00:00:00'",
        L"UPDATE property SET update_date = '2021-05-05 12:00:00' WHERE pr_id = 101",
    };
    // clang-format on
};
