#include "fuzz/container/prepared.h"

#include "NORLEX_correlation.h"
#include "NORLEX_dictionary.h"
#include "NORLEX_propTemplate.h"
#include "NORLEX_well.h"
#include "NORLEX_wellConstruction.h"
#include "NORLEX_wellDrilling.h"
#include "fuzz/container/world.h"
#include "odbc_database.h"

#include <utility>
#include <vector>

namespace fuzzContainer::prepared {

namespace {

// Paths below the container's folder, and bytes.
using image = std::vector<std::pair<std::wstring, std::string>>;

inclData station(double depth, double angle, double azimuth) {
    inclData out;
    out.depth = depth;
    out.angle = angle;
    out.azimuth = azimuth;
    return out;
}

void fillRows(NORLEX_well& well) {
    const auto points = well.createPropertyPtr(NORLEX_dataTypeMarker, {L"a", L"a"});
    require(points && points->createField(L"a", NORLEX_fieldTypeNumeric, false), "points");
    const auto intervals = well.createPropertyPtr(NORLEX_dataTypeInterval, {L"b", L"a"});
    require(intervals != nullptr, "intervals");
    for (int i = 0; i < 3; ++i) {
        NORLEX_bulkRow row;
        row.top = 10.0 * i + 5;
        row.bot = row.top + 10;
        row.values.assign(points->getFields().size(), std::to_wstring(i));
        require(points->prepareBulk({row}), "a point");
        row.values.assign(intervals->getFields().size(), std::to_wstring(i));
        require(intervals->prepareBulk({row}), "an interval");
    }
}

void fillRecords(odbc_database* db, NORLEX_well& well) {
    require(
        well.loadInclFromData({station(0, 0, 0), station(20, 10, 45), station(40, 20, 90)}, true),
        "a survey");
    require(well.VDMimport_fromPoints({{L"", 50, -10}, {L"", 20, -40}}), "a velocity model");
    NORLEX_wellConstructionElement section;
    section.to_dig = 30;
    NORLEX_wellDrillingElement run;
    run.to_depth = 12;
    require(well.getConstruction().addElement(section, false)
                && well.getDrillingInfo().addElement(run, false) && well.setAttribute(L"a", L"1"),
            "records");
    require(NORLEX_wellProperty::createLAS(
                db, well.getID(), {L"GR", L"a"}, L"", {{5, 90, 1}, {10, 85, 2}, {15, 80, 0.5}}),
            "a log");
    fillRows(well);
}

void fillContainer(odbc_database* db) {
    using cor = correlation::correlation;
    for (const auto* const name : {L"a", L"b"})
        require(NORLEX_well::create(db, {L"a", L"a", name, 0}), "a well");
    NORLEX_well well(db, NORLEX_wellDescription{L"a", L"a", L"a", 0});
    require(well.setAltitude(60), "an altitude");
    fillRecords(db, well);
    require(NORLEX_dictionary::create(db, L"a") && NORLEX_dictionary(db, L"a").addValue(L"1", L"b")
                && NORLEX_dictionary::createLink(db, {L"a", L"a"}, L"a", L"a"),
            "a dictionary");
    require(NORLEX_propTemplate::createFromType(
                db, NORLEX_dataTypeMarker, L"a", std::vector<NORLEX_fieldDescr>(), false),
            "a template");
    const NORLEX_propDescription layers{L"cor", L"a"};
    require(cor::createCorrelationLayer(db, layers)
                && !cor::createBorderName(db, layers, L"a", L"").empty()
                && !cor::createBorderName(db, layers, L"b", L"a").empty()
                && cor::createBorder(db, layers, well, L"a", 12)
                && cor::createBorder(db, layers, well, L"b", 24),
            "a correlation");
}

image make(bool isEmpty) {
    const std::wstring root = folder() / L"prepared";
    require(files::removeTree(root) && files::makeFolder(root), "the folder of the container");
    const auto place = NORLEX_wellContainer::makeDescription(root + L"/w.well2");
    require(NORLEX_wellContainer::create(place), "a new container");
    {
        NORLEX_wellContainer container(place);
        require(container.isOK(), "the new container");
        if (!isEmpty)
            fillContainer(container.getBaseLink());
    }
    image out;
    for (const auto& path : files::listTree(root)) {
        std::string bytes(files::size(path).value_or(0), '\0');
        const auto file = files::openRead(path);
        require(file && std::fread(bytes.data(), 1, bytes.size(), file.get()) == bytes.size(),
                "a file of the new container");
        out.emplace_back(path.substr(root.size() + 1), std::move(bytes));
    }
    return out;
}

} // namespace

const scratchFolder& folder() {
    static const scratchFolder made("fuzz_container");
    return made;
}

void copyTo(const std::wstring& path, bool isEmpty) {
    static const image images[] = {make(false), make(true)};
    const std::wstring root = files::folderOf(path);
    require(files::removeTree(root), "the last container cannot be removed");
    for (const auto& [name, bytes] : images[isEmpty ? 1 : 0]) {
        const std::wstring target = root + name;
        const auto file =
            files::makeFolder(files::folderOf(target)) ? files::openWrite(target) : nullptr;
        require(file && files::put(file.get(), bytes), "the container cannot be copied");
    }
}

} // namespace fuzzContainer::prepared
