#include "cli/commands_strat.h"

#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

#include "NORLEX_strategraphy.h"

#include <algorithm>

namespace {

using strategraphy::element;
using strategraphy::statoTable;

json document(const element& unit) {
    return {{"index", jsonOut::string(unit.index)},
            {"name", jsonOut::string(unit.name)},
            {"level", static_cast<int>(unit.type)},
            {"level_name", jsonOut::string(getTaxonTypeName(unit.type))}};
}

json documents(const std::vector<element>& units) {
    json out = json::array();
    for (const auto& unit : units)
        out.push_back(document(unit));
    return out;
}

void print(const std::vector<element>& units) {
    table rows({{"INDEX"}, {"NAME"}, {"LEVEL"}});
    for (const auto& unit : units)
        rows.add({text::shown(unit.index),
                  text::shown(unit.name),
                  text::shown(getTaxonTypeName(unit.type))});
    rows.print();
}

std::wstring joined(const std::vector<std::wstring>& texts) {
    std::wstring out;
    for (const auto& t : texts)
        out += (out.empty() ? L"\"" : L", \"") + t + L"\"";
    return out;
}

// Records whose fields, the first one aside, are all empty.
std::size_t countUnplaced(NORLEX_wellProperty& layer) {
    std::size_t out = 0;
    const std::size_t fields = layer.getFields().size();
    for (std::size_t i = 0; i < layer.getRecords().size(); ++i) {
        bool isEmpty = true;
        for (std::size_t f = 1; f < fields; ++f)
            isEmpty = isEmpty && layer.getValue(f, i).empty();
        out += isEmpty ? 1U : 0U;
    }
    return out;
}

int tell(NORLEX_well& well, const NORLEX_propDescription& prop) {
    const auto made = well.openProperty(prop);
    if (!made)
        return output::refused();
    const std::size_t unplaced = countUnplaced(*made);
    const auto records = static_cast<std::size_t>(made->getRecordCount());
    output::line(L"made " + names::spelled(prop) + L" of the well "
                 + names::spelled(well.getDescription()) + L": "
                 + text::wide(numberText::counted(records, "record"))
                 + (unplaced == 0 ? std::wstring()
                                  : L", " + std::to_wstring(unplaced) + L" without a unit"));
    return 0;
}

} // namespace

namespace commands {

int identifyUnits(const stratRequest& request) {
    const statoTable chart(nullptr);
    if (!chart.isOK())
        return output::refused();
    std::vector<element> units;
    std::vector<std::wstring> unknown;
    chart.identify(request.text, units, unknown);
    if (units.empty())
        return output::refused(L"\"" + request.text
                               + L"\" names no unit of the chart; indexes and names are looked for "
                                 L"as they are written");
    if (request.form == resultForm::json) {
        json pieces = json::array();
        for (const auto& piece : unknown)
            pieces.push_back(jsonOut::string(piece));
        jsonOut::print({{"units", documents(units)}, {"unknown", pieces}});
        return 0;
    }
    print(units);
    if (!unknown.empty())
        output::say(L"not in the chart: " + joined(unknown));
    return 0;
}

int listUnits(const stratRequest& request) {
    const statoTable chart(nullptr);
    if (!chart.isOK())
        return output::refused();
    const auto& units = chart.getElements(request.level);
    if (request.form == resultForm::json)
        jsonOut::print(documents(units));
    else
        print(units);
    return 0;
}

int containUnit(const stratRequest& request) {
    const statoTable chart(nullptr);
    if (!chart.isOK())
        return output::refused();
    const element* const unit = chart.identifySingle(request.text);
    if (unit == nullptr)
        return output::refused(L"the chart has no unit \"" + request.text
                               + L"\"; indexes and names are looked for as they are written");
    const element* const found = chart.findElement(*unit, request.level);
    if (found == nullptr)
        return output::refused(L"the unit \"" + request.text + L"\" lies in no unit of the level "
                               + getTaxonTypeName(request.level) + L"; its own is "
                               + getTaxonTypeName(unit->type));
    if (request.form == resultForm::json)
        jsonOut::print(document(*found));
    else
        print({*found});
    return 0;
}

int makeStratLayer(const stratLayerRequest& request) {
    const openedWell at = openWell(request.file, request.well);
    if (!at)
        return output::failure;
    const auto source = names::findProperty(*at.well, request.source);
    const auto result = source ? names::newProperty(request.result) : std::nullopt;
    if (!result)
        return output::failure;
    NORLEX_def_strato_options options;
    options.source = *source;
    options.field = request.field;
    options.result = *result;
    options.asNames = request.asNames;
    options.templateName = request.templateName;
    options.chart = at.container->getStrategraphy();
    if (!options.chart->isOK() || !at.well->makeDefaultStratoLayer(options))
        return output::refused();
    return tell(*at.well, *result);
}

} // namespace commands
