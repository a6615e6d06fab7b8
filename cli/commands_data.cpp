#include "cli/commands.h"
#include "cli/data_writer.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"
#include "cli/type_names.h"

#include <cmath>

namespace {

json propertyOf(const NORLEX_propertyInfo& property) {
    const auto depth = [&](double value) {
        return property.range ? jsonOut::number(value) : json(nullptr);
    };
    const NORLEX_depthRange range = property.range.value_or(NORLEX_depthRange{});
    return {
        {"group", jsonOut::string(property.description.group)},
        {"name", jsonOut::string(property.description.name)},
        {"type", typeNames::of(property.type)},
        {"template", jsonOut::string(property.templateName)},
        {"unit", jsonOut::string(property.unit)},
        {"comment", jsonOut::string(property.comment)},
        {"records", property.records},
        {"top", depth(range.top)},
        {"bottom", depth(range.bot)},
    };
}

void printProperties(const std::vector<NORLEX_propertyInfo>& properties) {
    using enum table::align;
    table rows({{"GROUP"},
                {"NAME"},
                {"TYPE"},
                {"TEMPLATE"},
                {"UNIT"},
                {"RECORDS", right},
                {"TOP", right},
                {"BOTTOM", right},
                {"COMMENT"}});
    for (const auto& p : properties)
        rows.add({text::shown(p.description.group),
                  text::shown(p.description.name),
                  std::string(typeNames::of(p.type)),
                  text::shown(p.templateName),
                  text::shown(p.unit),
                  std::to_string(p.records),
                  p.range ? numberText::brief(p.range->top) : "",
                  p.range ? numberText::brief(p.range->bot) : "",
                  text::shown(p.comment)});
    rows.print();
}

using spelling = std::string (*)(double);

// Programs get depths that read back the same, people get four decimals.
spelling depthSpelling(resultForm form) {
    return form == resultForm::table ? numberText::brief : numberText::shortest;
}

// Empty for a value or a depth that is missing.
std::wstring cellOf(double value, double missingMark, spelling spell) {
    return value == missingMark || !std::isfinite(value) ? std::wstring()
                                                         : text::wide(spell(value));
}

dataWriter::column depthColumn(const char* name, const char* title) {
    return {name, title, true};
}

// Whether a part of the range lies between the two measured depths.
bool isWithin(double top, double bot, const dataRequest& request) {
    return (!request.from || bot >= *request.from) && (!request.to || top <= *request.to);
}

int showSamples(NORLEX_wellProperty& log, const dataRequest& request) {
    std::vector<NORLEX_logSample> samples;
    if (!log.getSamples(samples))
        return output::refused();
    dataWriter writer(request.form,
                      typeNames::of(NORLEX_dataTypeLog),
                      {depthColumn("depth", "DEPTH"),
                       depthColumn("depth_abs", "DEPTH ABS"),
                       depthColumn("value", "VALUE")});
    const spelling spell = depthSpelling(request.form);
    for (const auto& sample : samples) {
        if (output::isEnded())
            break;
        if (isWithin(sample.depth, sample.depth, request))
            writer.add({cellOf(sample.depth, NORLEX_unknownDepth, spell),
                        cellOf(sample.depthAbs, NORLEX_unknownDepth, spell),
                        cellOf(sample.value, NORLEX_missingValue, numberText::shortest)});
    }
    writer.end();
    return 0;
}

// Kinds whose records have two ends.
bool hasIntervals(NORLEX_dataType type) {
    return type == NORLEX_dataTypeInterval || type == NORLEX_dataTypeColumn
           || type == NORLEX_dataTypeRastr || type == NORLEX_dataTypeVDMInterval
           || type == NORLEX_dataTypeVDMAvg;
}

std::vector<dataWriter::column> columnsOf(const NORLEX_wellProperty& property) {
    std::vector<dataWriter::column> out;
    if (hasIntervals(property.getType()))
        out = {depthColumn("top", "TOP"),
               depthColumn("bot", "BOTTOM"),
               depthColumn("top_abs", "TOP ABS"),
               depthColumn("bot_abs", "BOTTOM ABS")};
    else
        out = {depthColumn("depth", "DEPTH"), depthColumn("depth_abs", "DEPTH ABS")};
    for (const auto& field : property.getFields())
        out.push_back({text::utf8(field.name),
                       text::shown(field.name),
                       field.type == NORLEX_fieldTypeNumeric});
    return out;
}

int showRecords(NORLEX_wellProperty& property, const dataRequest& request) {
    const bool areIntervals = hasIntervals(property.getType());
    const auto& records = property.getRecords();
    const spelling spell = depthSpelling(request.form);
    dataWriter writer(request.form, typeNames::of(property.getType()), columnsOf(property));
    for (std::size_t i = 0; i < records.size() && !output::isEnded(); ++i) {
        const auto& r = records[i];
        if (!isWithin(r.top, r.bot, request))
            continue;
        std::vector<std::wstring> cells;
        for (const double depth : areIntervals
                                      ? std::vector<double>{r.top, r.bot, r.topAbs, r.botAbs}
                                      : std::vector<double>{r.top, r.topAbs})
            cells.push_back(cellOf(depth, NORLEX_unknownDepth, spell));
        for (std::size_t field = 0; field < property.getFields().size(); ++field)
            cells.push_back(request.codes ? property.getValue(field, i)
                                          : property.getShownValue(field, i));
        writer.add(cells);
    }
    writer.end();
    return 0;
}

} // namespace

namespace commands {

int props(const wellRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    std::vector<NORLEX_propertyInfo> properties;
    opened.well->getPropertyInfoList(properties);
    if (request.form != resultForm::json) {
        printProperties(properties);
        return 0;
    }
    json rows = json::array();
    for (const auto& property : properties)
        rows.push_back(propertyOf(property));
    jsonOut::print(rows);
    return 0;
}

int data(const dataRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    const auto description = names::findProperty(*opened.well, request.property);
    if (!description)
        return output::failure;
    const auto property = opened.well->openProperty(*description);
    if (!property || !property->isOK())
        return output::refused();
    switch (property->getType()) {
    case NORLEX_dataTypeLog:
        return showSamples(*property, request);
    case NORLEX_dataTypeMarker:
    case NORLEX_dataTypeSerial:
    case NORLEX_dataTypeInterval:
    case NORLEX_dataTypeColumn:
    case NORLEX_dataTypeRastr:
    case NORLEX_dataTypeVDMInterval:
    case NORLEX_dataTypeVDMAvg:
    case NORLEX_dataTypeBorder:
        return showRecords(*property, request);
    default:
        return output::refused(L"the property " + names::spelled(*description) + L" is of the kind "
                               + text::wide(typeNames::of(property->getType()))
                               + L", which has no records in depth");
    }
}

} // namespace commands
