#include "selection/filter_evaluation.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "selection/condition_text.h"
#include "selection/tested_fields.h"
#include "wells/property_records.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

using namespace sqlText;

namespace filterEvaluation {

namespace {

struct hit {
    std::uint32_t well = 0;
    std::uint32_t ofTemplate = 0;
    double first = 0.0; // of a point the depth, of an interval the bottom
    double second = 0.0;
    bool operator==(const hit&) const = default;
};

// Shallowest first: absolute depths fall.
bool isBefore(const hit& a, const hit& b) {
    return std::tie(a.well, b.first, b.second, a.ofTemplate)
           < std::tie(b.well, a.first, a.second, b.ofTemplate);
}

// Column 0 the well, 1 the template, then one depth of a point or two of an interval.
std::optional<std::vector<hit>> read(odbc_database& db, const std::wstring& statement) {
    const auto rows = db.query(statement);
    if (!rows) {
        refuse(L"the database refuses the conditions: " + db.last_error());
        return std::nullopt;
    }
    std::vector<hit> out;
    const int last = rows->column_count() - 1;
    while (rows->next())
        out.push_back({static_cast<std::uint32_t>(rows->get_counter(0)),
                       static_cast<std::uint32_t>(rows->get_counter(1)),
                       rows->get_double(2),
                       rows->get_double(last)});
    return out;
}

// Hits by well, in the order of the wells.
class collection {
public:
    explicit collection(const wellChoice& wells) : m_wells(wells.keys.size()) {
        for (std::size_t i = 0; i < m_wells.size(); ++i) {
            m_wells[i].wellId = key(wells.keys[i]);
            m_places.emplace(wells.keys[i], i);
        }
    }

    // A record is found by several of its values, and one depth by several records.
    void add(std::vector<hit> hits) {
        std::ranges::sort(hits, isBefore);
        hits.erase(std::unique(hits.begin(), hits.end()), hits.end());
        for (const hit& one : hits)
            if (const auto place = m_places.find(one.well); place != m_places.end())
                m_wells[place->second].depths.emplace_back(one.first, one.second);
    }

    [[nodiscard]] std::vector<NORLEX_wellFilterDepths> found() && {
        std::erase_if(m_wells, [](const auto& well) { return well.depths.empty(); });
        return std::move(m_wells);
    }

private:
    std::vector<NORLEX_wellFilterDepths> m_wells;
    std::unordered_map<std::uint32_t, std::size_t> m_places;
};

std::wstring restriction(const std::vector<NORLEX_propDescription>& properties) {
    if (properties.empty())
        return L" AND 1 = 0";
    std::wstring out;
    for (const auto& property : properties)
        out += sql(out.empty() ? L" AND (property.name, property.p_group) IN (VALUES (" : L"), (",
                   quotedName(property.name),
                   L", ",
                   quotedName(property.group));
    return out + L"))";
}

} // namespace

wellChoice allWells(odbc_database& db) {
    wellChoice out{{}, true};
    const auto rows = db.query(L"SELECT w_id FROM well_base ORDER BY work_object, field, name");
    while (rows && rows->next())
        out.keys.push_back(static_cast<std::uint32_t>(rows->get_counter(0)));
    return out;
}

wellChoice chosenWells(odbc_database& db, const std::vector<std::wstring>& keys) {
    std::unordered_set<std::uint32_t> there;
    for (const auto well : allWells(db).keys)
        there.insert(well);
    wellChoice out;
    for (const auto& text : keys) {
        const double number = numbers::toDouble(text).value_or(0.0);
        if (number < 1.0 || number > std::numeric_limits<std::uint32_t>::max())
            continue;
        if (const auto well = static_cast<std::uint32_t>(number); there.erase(well) != 0)
            out.keys.push_back(well);
    }
    out.isAll = there.empty();
    return out;
}

std::wstring restriction(const wellChoice& wells) {
    return wells.isAll ? std::wstring()
                       : sql(L" AND property.w_id IN (", keyList(wells.keys), L")");
}

templateKeys templatesByGeometry(odbc_database& db) {
    templateKeys out;
    const auto rows = db.query(L"SELECT bt_id, type FROM base_template ORDER BY bt_id");
    while (rows && rows->next()) {
        const auto geometry = propertyRecords::geometryOf(getDataTypeByEnum(rows->get_text(1)));
        const auto own = static_cast<std::uint32_t>(rows->get_counter(0));
        if (geometry == propertyRecords::geometry::points)
            out.points.push_back(own);
        else if (geometry == propertyRecords::geometry::intervals)
            out.intervals.push_back(own);
    }
    return out;
}

std::wstring joined(const wchar_t* recordTable, const std::vector<std::uint32_t>& templates) {
    return sql(L" FROM property CROSS JOIN field CROSS JOIN val CROSS JOIN ",
               recordTable,
               L" WHERE field.pr_id = property.pr_id AND val.f_id = field.f_id AND val.obj_id = ",
               recordTable,
               L".obj_id AND property.bt_id IN (",
               keyList(templates),
               L")");
}

std::optional<std::vector<NORLEX_wellFilterDepths>>
hits(odbc_database& db,
     const TreeNode<filterCondition>& tree,
     const wellChoice& wells,
     const std::vector<NORLEX_propDescription>* properties) {
    const testedFields fields(db, conditionText::leaves(tree));
    const auto conditions = conditionText::getTreeRequestAsSQLWstring(
        tree, [&](const auto& condition) { return fields.kindOf(condition); });
    if (!conditions)
        return std::nullopt;
    const templateKeys templates = templatesByGeometry(db);
    const std::wstring rest = sql(restriction(wells),
                                  properties == nullptr ? std::wstring() : restriction(*properties),
                                  L" AND ",
                                  fields.restriction(),
                                  L" AND ",
                                  *conditions);
    collection out(wells);
    if (properties == nullptr) {
        auto points = read(db,
                           sql(L"SELECT property.w_id, property.bt_id, point_data.depth_abs",
                               joined(L"point_data", templates.points),
                               rest));
        if (!points)
            return std::nullopt;
        out.add(*std::move(points));
    }
    auto intervals = read(db,
                          sql(properties == nullptr ? L"SELECT property.w_id, property.bt_id"
                                                    : L"SELECT property.w_id, 0",
                              L", interval_data.bot_abs, interval_data.top_abs",
                              joined(L"interval_data", templates.intervals),
                              rest));
    if (!intervals)
        return std::nullopt;
    out.add(*std::move(intervals));
    return std::move(out).found();
}

} // namespace filterEvaluation
