#include "cli/choose_wells.h"
#include "cli/commands_select.h"
#include "cli/json_out.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

#include "NORLEX_dataFilter.h"
#include "NORLEX_logSample.h"
#include "NORLEX_queryText.h"

#include <map>
#include <optional>

namespace {

using tree = TreeNode<filterCondition>;
using wellNames = std::map<std::wstring, NORLEX_wellDescription>; // by key

bool readTree(const filterRequest& request, tree& conditions) {
    if (!request.filter.empty())
        return NORLEX_dataFilter(nullptr, nullptr, &conditions).loadFilter(request.filter);
    return NORLEX_parseFilterText(request.query, conditions);
}

// Columns are written like the fields of a condition.
std::optional<std::vector<NORLEX_filterColumn>>
columnsOf(const std::vector<std::wstring>& references) {
    std::vector<NORLEX_filterColumn> columns;
    for (const auto& reference : references) {
        tree column;
        if (!NORLEX_parseFilterText(L"exists " + reference, column)
            || column.children().size() != 1) {
            output::say(L"\"" + reference + L"\" is no column; GROUP/NAME.FIELD is one");
            return std::nullopt;
        }
        const auto& field = column.children().front()->value;
        columns.emplace_back(field.prop, field.field);
    }
    return columns;
}

wellNames namesOf(NORLEX_selection& selection) {
    std::vector<NORLEX_wellDescription> wells;
    selection.getWellList(wells);
    wellNames names;
    for (const auto& well : wells)
        names[std::to_wstring(well.wellId)] = well;
    return names;
}

void printJson(const std::vector<NORLEX_wellFilterDepths>& found, const wellNames& names) {
    json document = json::array();
    for (const auto& hit : found) {
        json entry = jsonOut::well(names.at(hit.wellId));
        entry["depths"] = json::array();
        for (const auto& [bottom, top] : hit.depths)
            entry["depths"].push_back({jsonOut::number(bottom), jsonOut::number(top)});
        document.push_back(std::move(entry));
    }
    jsonOut::print(document);
}

void printTable(const std::vector<NORLEX_wellFilterDepths>& found, const wellNames& names) {
    using enum table::align;
    table rows({{"OBJECT", left},
                {"FIELD", left},
                {"NAME", left},
                {"BOTTOM_ABS", right},
                {"TOP_ABS", right}});
    for (const auto& hit : found) {
        const auto& well = names.at(hit.wellId);
        for (const auto& [bottom, top] : hit.depths)
            rows.add({text::shown(well.workObject),
                      text::shown(well.field),
                      text::shown(well.name),
                      numberText::brief(bottom),
                      numberText::brief(top)});
    }
    rows.print();
}

std::optional<double> known(double value) {
    return value == NORLEX_missingValue ? std::nullopt : std::optional(value);
}

void printColumns(const std::vector<std::vector<double>>& values,
                  const std::vector<std::wstring>& columns,
                  const wellNames& names,
                  resultForm form) {
    using enum table::align;
    std::vector<table::column> titles{{"OBJECT", left},
                                      {"FIELD", left},
                                      {"NAME", left},
                                      {"BOTTOM_ABS", right},
                                      {"TOP_ABS", right}};
    for (const auto& column : columns)
        titles.push_back({text::shown(column), right});
    table rows(std::move(titles));
    json document = json::array();
    for (const auto& row : values) {
        const auto& well = names.at(std::to_wstring(static_cast<std::uint32_t>(row[0])));
        std::vector<std::string> cells{
            text::shown(well.workObject), text::shown(well.field), text::shown(well.name)};
        json entry = {{"id", well.wellId},
                      {"name", jsonOut::string(well.name)},
                      {"bottom_abs", jsonOut::number(row[1])},
                      {"top_abs", jsonOut::number(row[2])},
                      {"values", json::array()}};
        for (std::size_t i = 1; i < row.size(); ++i) {
            const auto value = known(row[i]);
            cells.push_back(value ? numberText::brief(*value) : "");
            if (i > 2)
                entry["values"].push_back(jsonOut::number(value));
        }
        rows.add(std::move(cells));
        document.push_back(std::move(entry));
    }
    if (form == resultForm::json)
        jsonOut::print(document);
    else
        rows.print();
}

int write(tree& conditions, const std::wstring& path) {
    if (!NORLEX_dataFilter(nullptr, nullptr, &conditions).saveFilter(path))
        return output::refused();
    output::line(L"wrote the filter to " + path);
    return 0;
}

// The pairs, or the values of the columns beside them.
int evaluate(NORLEX_dataFilter& filter, const filterRequest& request, const wellNames& names) {
    const auto columns = columnsOf(request.columns);
    if (!columns)
        return output::failure;
    if (!columns->empty()) {
        std::vector<std::vector<double>> values;
        if (!filter.getGeneralTableForColumns(*columns, values))
            return output::refused();
        printColumns(values, request.columns, names, request.form);
        return 0;
    }
    std::vector<NORLEX_wellFilterDepths> found;
    if (!filter.getInfoForFilterConditions(found))
        return output::refused();
    if (request.form == resultForm::json)
        printJson(found, names);
    else
        printTable(found, names);
    return 0;
}

} // namespace

namespace commands {

int filter(const filterRequest& request) {
    tree conditions;
    if (!readTree(request, conditions))
        return output::refused();
    if (!request.newFile.empty())
        return write(conditions, request.newFile);
    if (request.show) {
        output::line(NORLEX_filterText(conditions));
        return 0;
    }
    const std::shared_ptr<NORLEX_wellContainer> container = openContainer(request.file);
    if (!container)
        return output::failure;
    const auto selection = chooseWells(container->getContDescription(), request.wells);
    if (!selection)
        return output::failure;
    if (!selection->rebuildList(*container))
        return output::refused();
    NORLEX_dataFilter filter(container, selection, &conditions);
    return evaluate(filter, request, namesOf(*selection));
}

} // namespace commands
