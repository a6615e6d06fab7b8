#include "derived/source_data.h"

#include "NORLEX_well.h"
#include "derived/sample_order.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "wells/header_attributes.h"
#include "wells/names.h"
#include "wells/property_records.h"

#include <algorithm>
#include <cmath>

using propertyRecords::geometry;
using propertyRecords::geometryOf;

namespace sourceData {

namespace {

// The fields that there are, with commas between them.
std::wstring fieldNames(const NORLEX_wellProperty& property) {
    std::wstring out;
    for (const auto& field : property.getFields())
        out += (out.empty() ? L"" : L", ") + field.name;
    return out;
}

bool isKnown(const NORLEX_geometryRecord& record) {
    return record.top != NORLEX_unknownDepth && record.bot != NORLEX_unknownDepth;
}

} // namespace

std::optional<std::size_t> findField(const NORLEX_wellProperty& property,
                                     const NORLEX_propDescription& prop,
                                     const std::wstring& name) {
    const auto& fields = property.getFields();
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const auto& field) {
        return field.name == sqlText::plainName(name);
    });
    if (found == fields.end()) {
        refuse(L"the property " + names::shown(prop) + L" has no field \"" + name
               + L"\"; its fields are: " + fieldNames(property));
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - fields.begin());
}

std::optional<log> readLog(NORLEX_well& well, const NORLEX_propDescription& prop) {
    const auto property = well.openProperty(prop);
    log out;
    if (!property || !property->getSamples(out.samples)) // refuses what is no log
        return std::nullopt;
    for (auto& sample : out.samples) {
        if (!std::isfinite(sample.depth)) {
            refuse(L"the log " + names::shown(prop) + L" has a depth that is not finite");
            return std::nullopt;
        }
        if (!std::isfinite(sample.value))
            sample.value = NORLEX_missingValue;
    }
    sampleOrder::sort(out.samples);
    out.units = property->getAttribute(headerAttributes::units);
    return out;
}

std::optional<column>
readColumn(NORLEX_well& well, const NORLEX_propDescription& prop, const std::wstring& name) {
    const auto property = well.openProperty(prop);
    if (!property)
        return std::nullopt;
    column out;
    out.arePoints = geometryOf(property->getType()) == geometry::points;
    if (!out.arePoints && geometryOf(property->getType()) != geometry::intervals) {
        refuse(L"the property " + names::shown(prop) + L" holds neither points nor intervals");
        return std::nullopt;
    }
    const auto field = findField(*property, prop, name);
    if (!field)
        return std::nullopt;
    const auto& records = property->getRecords();
    bool hasNumber = false;
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (!isKnown(records[i]))
            continue;
        const double value = property->getNumber(*field, i).value_or(NORLEX_missingValue);
        const auto [top, bot] = std::minmax(records[i].top, records[i].bot);
        out.pieces.push_back({{top, bot}, std::isfinite(value) ? value : NORLEX_missingValue});
        hasNumber = hasNumber || !sampleOrder::isMissing(out.pieces.back().value);
    }
    if (!hasNumber) {
        refuse(L"no value of the field \"" + name + L"\" of " + names::shown(prop)
               + L" is a number");
        return std::nullopt;
    }
    std::stable_sort(out.pieces.begin(), out.pieces.end(), [](const auto& a, const auto& b) {
        return a.span.top < b.span.top;
    });
    return out;
}

void dropMissing(column& values) {
    std::erase_if(values.pieces,
                  [](const auto& piece) { return sampleOrder::isMissing(piece.value); });
}

std::vector<NORLEX_logSample> asSamples(const column& points) {
    std::vector<NORLEX_logSample> out;
    for (const auto& point : points.pieces)
        out.push_back({point.span.top, NORLEX_unknownDepth, point.value});
    return out;
}

std::vector<depthPiece> asPieces(const column& values) {
    return values.arePoints ? depthPieces::ofSamples(asSamples(values)) : values.pieces;
}

} // namespace sourceData
