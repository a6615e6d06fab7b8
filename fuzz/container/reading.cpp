// Reads all of a container and compares the ways in which it can be read.
#include "NORLEX_well.h"
#include "NORLEX_wellProperty.h"
#include "fuzz/container/world.h"
#include "odbc_database.h"

#include <vector>

namespace fuzzContainer {

namespace {

void readProperty(NORLEX_well& well, const NORLEX_propertyInfo& info) {
    const auto property = well.openProperty(info.description);
    require(property && property->getID() == info.propertyId && property->getType() == info.type
                && property->getTemplateName() == info.templateName,
            "a listed property opens as another one");
    require(property->getRecordCount() == info.records, "a list counts other records");
    if (property->getType() == NORLEX_dataTypeLog) {
        std::vector<NORLEX_logSample> samples;
        require(property->getSamples(samples) && samples.size() == info.records,
                "the samples of a log cannot be read");
    } else {
        const auto& records = property->getRecords();
        require(records.empty() || records.size() == info.records, "records are missing");
        for (std::size_t i = 1; i < records.size(); ++i)
            require(records[i - 1].topAbs >= records[i].topAbs, "records are out of order");
    }
    NORLEX_depthRange range;
    require(well.getPropertyDepthRange(info.description, range) == info.range.has_value(),
            "a list has another depth range");
}

void readWell(odbc_database* db, const NORLEX_wellInfo& info) {
    NORLEX_well well(db, info.description);
    require(well.isOK() && well.getID() == info.description.wellId
                && well.getDescription() == info.description,
            "a listed well opens as another one");
    require(well.getPropertyCount() == info.properties, "a list counts other properties");
    std::vector<NORLEX_propertyInfo> properties;
    well.getPropertyInfoList(properties);
    require(static_cast<std::int64_t>(properties.size()) == info.properties,
            "a list has other properties");
    for (const auto& property : properties)
        readProperty(well, property);
    static_cast<void>(well.getInfoString());
}

} // namespace

void world::checkAll() {
    tell(L"\nat the end");
    while (isInTransaction())
        rollback();
    close();
    open();
    check(outcome::done);
    std::vector<NORLEX_wellInfo> wells;
    NORLEX_well::getWellInfoList(db(), wells);
    require(static_cast<std::int64_t>(wells.size()) == container().getWellCount(),
            "a list has other wells");
    for (const auto& well : wells)
        readWell(db(), well);
}

} // namespace fuzzContainer
