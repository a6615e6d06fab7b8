#include "cli/commands_derive.h"

#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/text.h"

namespace {

// What a command works on; nothing when any of it was not found, which has been said.
struct opened {
    openedWell at;
    std::vector<NORLEX_propDescription> sources;
    NORLEX_propDescription result;
    bool isOK = false;
};

opened open(const deriveRequest& request) {
    opened out;
    out.at = openWell(request.file, request.well);
    if (!out.at)
        return out;
    for (const auto& reference : request.sources) {
        const auto source = names::findProperty(*out.at.well, reference);
        if (!source)
            return out;
        out.sources.push_back(*source);
    }
    const auto result = names::newProperty(request.result);
    out.result = result.value_or(NORLEX_propDescription());
    out.isOK = result.has_value();
    return out;
}

int tell(NORLEX_well& well, const NORLEX_propDescription& prop) {
    const auto made = well.openProperty(prop);
    if (!made)
        return output::refused();
    output::line(L"made " + names::spelled(prop) + L" of the well "
                 + names::spelled(well.getDescription()) + L": "
                 + text::wide(numberText::counted(static_cast<std::size_t>(made->getRecordCount()),
                                                  "record")));
    return 0;
}

// `make` makes the result of the first source.
template <typename Make>
int derive(const deriveRequest& request, Make make) {
    const opened on = open(request);
    if (!on.isOK)
        return output::failure;
    if (!make(*on.at.well, on))
        return output::refused();
    return tell(*on.at.well, on.result);
}

std::unique_ptr<NORLEX_wellProperty> firstSource(NORLEX_well& well, const opened& on) {
    return well.openProperty(on.sources.front());
}

odbc_database* databaseOf(const opened& on) {
    return on.at.container->getBaseLink();
}

} // namespace

namespace commands {

int copyProp(const copyPropRequest& request) {
    const openedWell from = openWell(request.file, request.from);
    if (!from)
        return output::failure;
    odbc_database* const db = from.container->getBaseLink();
    const auto to = names::findWell(db, request.to);
    const auto source = to ? names::findProperty(*from.well, request.property) : std::nullopt;
    const auto target =
        source && !request.newName.empty() ? names::newProperty(request.newName) : source;
    if (!target)
        return output::failure;
    if (!request.merge && NORLEX_wellProperty::isExist(db, to->wellId, *target))
        return output::refused(L"the well " + names::spelled(*to) + L" has a property "
                               + names::spelled(*target)
                               + L" already; --merge replace, merge or skip says what to do");
    if (!NORLEX_wellProperty::copy(db,
                                   from.well->getID(),
                                   *source,
                                   to->wellId,
                                   *target,
                                   request.merge.value_or(NORLEX_db_prop_merge_skip),
                                   request.keep))
        return output::refused();
    output::line(L"copied " + names::spelled(*source) + L" to " + names::spelled(*target)
                 + L" of the well " + names::spelled(*to));
    return 0;
}

int deriveLog(const deriveRequest& request) {
    return derive(request, [&](NORLEX_well& well, const opened& on) {
        return well.makeLogFromData(on.sources.front(), request.field, *request.step, on.result);
    });
}

int deriveFilter(const deriveRequest& request) {
    return derive(request, [&](NORLEX_well& well, const opened& on) {
        return well.windowFilter(
            on.sources.front(), request.windowKind, *request.window, on.result);
    });
}

int deriveSimplified(const deriveRequest& request) {
    return derive(request, [&](NORLEX_well& well, const opened& on) {
        return well.propSimplify(on.sources.front(), *request.tolerance, on.result);
    });
}

int deriveMarkers(const deriveRequest& request) {
    return derive(request, [&](NORLEX_well& well, const opened& on) {
        return well.makeMarkerFromLAS(
            on.sources.front(), *request.cutoff, request.crossing, on.result);
    });
}

int deriveJoined(const deriveRequest& request) {
    return derive(request, [&](NORLEX_well& well, const opened& on) {
        return well.joinLas(on.sources, request.overlap, on.result);
    });
}

// The result is a field of a property that is there.
int deriveAttribute(const deriveRequest& request) {
    const opened on = open(request);
    if (!on.isOK)
        return output::failure;
    const auto column = names::findProperty(*on.at.well, request.column);
    if (!column)
        return output::failure;
    if (!on.at.well->calcAttributeToColumn(
            on.sources.front(), *column, request.field, request.statistic))
        return output::refused();
    output::line(L"filled the field " + request.field + L" of " + names::spelled(*column));
    return 0;
}

int deriveIntervals(const deriveRequest& request) {
    NORLEX_intervalOptions options;
    options.from = request.min.value_or(options.from);
    options.to = request.max.value_or(options.to);
    options.minThickness = request.minThickness.value_or(0.0);
    options.maxGap = request.maxGap.value_or(0.0);
    return derive(request, [&](NORLEX_well& well, const opened& on) {
        return well.createIntervalsFromProp(on.sources.front(), request.field, options, on.result);
    });
}

int deriveOre(const deriveRequest& request) {
    const NORLEX_oreOptions options{request.cutoff.value_or(0.0),
                                    request.minThickness.value_or(0.0),
                                    request.maxGap.value_or(0.0)};
    return derive(request, [&](NORLEX_well& well, const opened& on) {
        return NORLEX_wellProperty::createOreInterval(
            databaseOf(on), well.getID(), on.sources.front(), request.field, on.result, options);
    });
}

int deriveSerial(const deriveRequest& request) {
    return derive(request, [](NORLEX_well& well, const opened& on) {
        return NORLEX_wellProperty::createSerialFromLAS(
            databaseOf(on), well.getID(), on.sources.front(), on.result);
    });
}

int deriveColumn(const deriveRequest& request) {
    return derive(request, [&](NORLEX_well& well, const opened& on) {
        const auto markers = firstSource(well, on);
        return markers
               && markers->markerToColumn(on.result,
                                          request.bottom ? *request.bottom : well.getBottom());
    });
}

int deriveBetweenPicks(const deriveRequest& request) {
    return derive(request, [](NORLEX_well& well, const opened& on) {
        const auto picks = firstSource(well, on);
        return picks && picks->makeIntervalsFromBorders(on.result);
    });
}

} // namespace commands
