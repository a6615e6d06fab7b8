// A deviated well with formation tops: given along the hole, printed as elevations, and again after
// the survey was replaced by a better one.
#include "NORLEX_lastError.h"
#include "NORLEX_propTemplate.h"
#include "NORLEX_well.h"
#include "NORLEX_wellContainer.h"

#include <clocale>
#include <cstdio>
#include <vector>

namespace {

// Measured depth, inclination and azimuth; the rest of a station is computed.
std::vector<inclData> survey(double inclination) {
    std::vector<inclData> stations;
    for (const double depth : {0.0, 400.0, 700.0, 1000.0, 1400.0, 1800.0}) {
        inclData station;
        station.depth = depth;
        station.angle = depth < 400.0 ? 0.0 : inclination;
        station.azimuth = 118.0;
        stations.push_back(station);
    }
    return stations;
}

// A kind of data of one's own: the standard fields of markers, a name and a description, and a
// third one.
bool makeTops(odbc_database* db, NORLEX_well& well) {
    if (!NORLEX_propTemplate::createFromType(
            db, NORLEX_dataTypeMarker, L"Tops", {L"Quality"}, {NORLEX_fieldTypeNumeric}, false))
        return false;
    const auto tops = well.createPropertyFromTemplatePtr(L"Tops", {L"Tops", L"Geology"});
    return tops && tops->createPointCommit(1732.5, NORLEX_unknownDepth, {L"Upper sand", L"", L"1"})
           && tops->createPointCommit(1762.0, NORLEX_unknownDepth, {L"Lower sand", L"", L"2"});
}

bool printTops(NORLEX_well& well) {
    const auto tops = well.openProperty({L"Tops", L"Geology"});
    if (!tops)
        return false;
    const auto& records = tops->getRecords();
    for (std::size_t i = 0; i < records.size(); ++i)
        std::printf("    %-12ls %8.2f m along the hole, elevation %9.2f m\n",
                    tops->getShownValue(0, i).c_str(),
                    records[i].top,
                    records[i].topAbs);
    return true;
}

bool work(odbc_database* db) {
    const NORLEX_wellDescription name{L"Demo", L"Pine Ridge", L"PR-2D"};
    if (!NORLEX_well::create(db, name))
        return false;
    NORLEX_well well(db, name);
    if (!well.setPosition(455214.0, 6203492.0, 113.1) || !well.loadInclFromData(survey(40.0), true)
        || !makeTops(db, well))
        return false;
    std::printf("40 degrees:\n");
    if (!printTops(well))
        return false;

    if (!well.loadInclFromData(survey(42.0), true))
        return false;
    std::printf("42 degrees:\n");
    if (!printTops(well))
        return false;

    auto* const hole = well.getIncl();
    std::printf("1762 m is at %.2f m; %.2f m is at %.2f m\n",
                hole->getAbs(1762.0),
                -1000.0,
                hole->getReal(-1000.0));
    return true;
}

} // namespace

int main() {
    std::setlocale(LC_CTYPE, "C.UTF-8"); // what %ls prints in
    const auto place = NORLEX_wellContainer::makeDescription(L"tops_to_depth.well2");
    if (NORLEX_wellContainer::create(place)) {
        NORLEX_wellContainer container(place);
        if (container.isOK() && work(container.getBaseLink()))
            return 0;
    }
    std::fprintf(stderr, "%ls\n", NORLEX_lastError().c_str());
    return 1;
}
