// Wells whose points and layers carry a text and a number, and filters on them.
#pragma once

#include "NORLEX_dataFilter.h"
#include "NORLEX_propTemplate.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "tests/support/container_fixture.h"

#include <optional>
#include <string>
#include <vector>

using conditionTree = TreeNode<filterCondition>;
using depthList = std::vector<std::pair<double, double>>;

class FilterTest : public ContainerTest {
protected:
    static constexpr const wchar_t* pointTemplate = L"Points";
    static constexpr const wchar_t* layerTemplate = L"Layers";

    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        makeTemplate(NORLEX_dataTypeMarker, pointTemplate, NORLEX_fieldTypeNumeric);
        makeTemplate(NORLEX_dataTypeInterval, layerTemplate, NORLEX_fieldTypeNumeric);
    }

    // With the fields "text" and "num", of which the second may be of another type.
    void makeTemplate(NORLEX_dataType type, const std::wstring& name, NORLEX_fieldType second) {
        ASSERT_TRUE(NORLEX_propTemplate::createFromType(
            db(), type, name, {L"text", L"num"}, {NORLEX_fieldTypeString, second}, false))
            << lastError();
    }

    void run(const std::wstring& statement) { ASSERT_TRUE(db()->exec(statement)) << lastError(); }

    void addWell(int well, const std::wstring& name) {
        run(sqlText::sql(
            L"INSERT INTO well_base (w_id, work_object, field, name, altitude, x, y) VALUES (",
            std::to_wstring(well),
            L", 'O', 'F', ",
            sqlText::quoted(name),
            L", 0, 0, 0)"));
    }

    // Keys of its fields "text" and "num".
    std::pair<int, int> addProperty(int well, const std::wstring& name, const wchar_t* ofTemplate) {
        const auto property = std::to_wstring(++m_properties);
        run(L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) VALUES (" + property + L", "
            + std::to_wstring(well) + L", "
            + std::to_wstring(NORLEX_propTemplate::getID(db(), ofTemplate)) + L", "
            + sqlText::quoted(name) + L", 'G')");
        for (const auto* field : {L"text", L"num"})
            run(L"INSERT INTO field (f_id, pr_id, name, type, is_base) VALUES ("
                + std::to_wstring(++m_fields) + L", " + property + L", '" + field
                + L"', 'NORLEX_fieldTypeString', 0)");
        return {m_fields - 1, m_fields};
    }
    void addPoint(int record, double depth) {
        run(sqlText::sql(L"INSERT INTO point_data (obj_id, depth, depth_abs, type) VALUES (",
                         std::to_wstring(record),
                         L", 0, ",
                         sqlText::number(depth),
                         L", 0)"));
    }
    void addLayer(int record, double bottom, double top) {
        run(sqlText::sql(L"INSERT INTO interval_data (obj_id, top, bot, bot_abs, top_abs) VALUES (",
                         std::to_wstring(record),
                         L", 0, 0, ",
                         sqlText::number(bottom),
                         L", ",
                         sqlText::number(top),
                         L")"));
    }
    void addValue(int field, const std::optional<std::wstring>& value, int record) {
        run(sqlText::sql(L"INSERT INTO val (f_id, value, obj_id) VALUES (",
                         std::to_wstring(field),
                         L", ",
                         value ? sqlText::quoted(*value) : L"NULL",
                         L", ",
                         std::to_wstring(record),
                         L")"));
    }

    // A point at -1 and a layer from -12 to -10 in each of the wells 1 to 3, which lie in the
    // container's order; their text is the number of the well.
    void makeThreeWells() {
        for (int well = 1; well <= 3; ++well) {
            addWell(well, L"W" + std::to_wstring(well));
            addPoint(well, -1);
            addLayer(well, -12, -10);
            addValue(addProperty(well, L"P", pointTemplate).first, std::to_wstring(well), well);
            addValue(addProperty(well, L"L", layerTemplate).first, std::to_wstring(well), well);
        }
    }

    [[nodiscard]] static filterCondition condition(const std::wstring& property,
                                                   const std::wstring& field,
                                                   int operation,
                                                   const std::wstring& operand,
                                                   bool isAnd = false) {
        return {operation, {property, L"G"}, field, operand, isAnd, true};
    }
    [[nodiscard]] static filterCondition group(bool isAnd = false) {
        return {0, {}, L"", L"", isAnd, false};
    }

    [[nodiscard]] NORLEX_dataFilter filter(conditionTree& tree) const {
        return {std::shared_ptr<NORLEX_wellContainer>(container.get(), [](auto*) {}), {}, &tree};
    }
    // The hits as text: "1: -5 -5; -8 -7\n", a line a well; "refused" where there are none to be
    // had.
    [[nodiscard]] std::string hits(conditionTree& tree) const {
        std::vector<NORLEX_wellFilterDepths> wells;
        return filter(tree).getInfoForFilterConditions(wells) ? spelled(wells) : "refused";
    }
    [[nodiscard]] std::string hits(const filterCondition& only) const {
        conditionTree tree;
        tree.addChild(only);
        return hits(tree);
    }
    [[nodiscard]] static std::string spelled(const std::vector<NORLEX_wellFilterDepths>& wells) {
        std::wstring out;
        for (const auto& well : wells) {
            out += well.wellId + L":";
            for (const auto& [first, second] : well.depths)
                out += (out.back() == L':' ? L" " : L"; ") + sqlText::number(first) + L" "
                       + sqlText::number(second);
            out += L"\n";
        }
        return ts::strconv::toUtf8(out);
    }

private:
    int m_properties = 0;
    int m_fields = 0;
};
