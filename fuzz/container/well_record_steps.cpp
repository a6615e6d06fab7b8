// What a well has besides properties: survey, velocity model, construction, drilling record.
#include "NORLEX_surveyReport.h"
#include "NORLEX_wellConstruction.h"
#include "NORLEX_wellDrilling.h"
#include "fuzz/container/steps.h"

#include <vector>

namespace fuzzContainer {

namespace {

outcome loadSurvey(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        std::vector<inclData> stations(by.below(5));
        double depth = 0;
        for (auto& station : stations) {
            station.depth = depth += by.flag() ? by.depth() : by.number();
            station.angle = by.number();
            station.azimuth = by.number();
        }
        return well.loadInclFromData(stations, !at.announced(by.flag()));
    });
}

outcome clearSurvey(world& at, choices& by) {
    return onWell(at, by, [](NORLEX_well& well) { return well.clearIncl(); });
}

outcome askSurvey(world& at, choices& by) {
    NORLEX_well well(at.db(), by.well(at.db()));
    if (!well.isOK())
        return outcome::asked;
    NORLEX_inclinometry& incl = *well.getIncl();
    double x = 0, y = 0;
    incl.getCoordAbs(by.number(), x, y);
    well.getCoord(by.number(), x, y);
    static_cast<void>(incl.getReal(incl.getAbs(by.number())));
    const NORLEX_surveyReport report(incl);
    static_cast<void>(report.getCrossings(by.number()));
    static_cast<void>(well.checkIncl());
    return outcome::asked;
}

outcome loadModel(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        std::vector<vdm_data> points(by.below(4));
        for (auto& point : points) {
            point.depth = by.number();
            point.time = by.number();
        }
        return well.VDMimport_fromPoints(points);
    });
}

outcome editModel(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        NORLEX_wellVDM& model = *well.getVDM();
        at.letGo(); // the model itself announces nothing
        const std::size_t index = by.below(4);
        const double first = by.number();
        switch (by.below(5)) {
        case 0:
            return model.add(first, by.number());
        case 1:
            return model.editDepth(index, first);
        case 2:
            return model.editTime(index, first);
        case 3:
            return model.remove(index);
        default:
            return well.clearVDM();
        }
    });
}

outcome askModel(world& at, choices& by) {
    NORLEX_well well(at.db(), by.well(at.db()));
    if (!well.isOK())
        return outcome::asked;
    NORLEX_wellVDM& model = *well.getVDM();
    static_cast<void>(model.getDepth(model.getTime(by.number())));
    std::vector<NORLEX_vdmItem> items;
    model.getVDModel(items, by.flag());
    NORLEX_intervalValue coverage;
    require(model.getModelCoverageDepth(coverage) == model.getModelCoverageTime(coverage),
            "a model covers depths and no times");
    return outcome::asked;
}

outcome copyModel(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& from) {
        NORLEX_well to(at.db(), by.well(at.db()));
        return to.isOK() && NORLEX_wellVDM::copy(&from, &to, by.flag());
    });
}

outcome showModel(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        return by.flag() ? well.VDMmakeIntervalVelocity(by.newProperty())
                         : well.VDMmakeAverageVelocity(by.newProperty());
    });
}

outcome modelOfMarkers(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        NORLEX_VDMcreateOptions options;
        options.oneWay = by.flag();
        options.tieDepth = by.number();
        options.units = L"us/m";
        const bool isLog = by.flag();
        const auto source = by.property(well, isLog ? kind::log : kind::rows);
        return isLog ? well.VDMimport_fromSonic(source, options)
                     : well.VDMimport_fromMarkers(source, by.field(well, source), options);
    });
}

outcome addSection(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        NORLEX_wellConstructionElement element;
        element.from_dig = by.number();
        element.to_dig = by.number();
        element.from_pipe = by.number();
        element.to_pipe = by.number();
        element.comment = by.text();
        return by.flag() ? well.getConstruction().loadElementsFromData({element, element})
                         : well.getConstruction().addElement(element, by.flag());
    });
}

outcome editSection(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        auto construction = well.getConstruction();
        auto elements = construction.getElementList();
        if (elements.empty())
            return construction.clearConstruction();
        auto& chosen = elements[by.below(elements.size())];
        if (by.flag())
            return construction.removeElement(chosen.u_id);
        chosen.to_dig = by.number();
        return construction.updateElement(chosen);
    });
}

outcome workElements(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        auto construction = well.getConstruction();
        const auto there = construction.getWorkElementList();
        NORLEX_wellConstructionWorkElement element;
        element.top_real = by.number();
        element.bot_real = by.number();
        element.text = by.text();
        if (there.empty() || by.flag())
            return construction.addWorkElement(element, by.flag());
        element.id = there.front().id;
        return by.flag() ? construction.updateWorkElement(element)
                         : construction.removeWorkElement(element.id);
    });
}

outcome drilling(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        auto record = well.getDrillingInfo();
        const auto there = record.getElementList();
        NORLEX_wellDrillingElement run;
        run.from_depth = by.number();
        run.to_depth = by.number();
        run.kern = by.text();
        if (there.empty() || by.flag())
            return record.addElement(run, by.flag());
        run.u_id = there.front().u_id;
        return by.flag() ? record.updateElement(run) : record.removeElement(run.u_id);
    });
}

outcome people(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        auto record = well.getDrillingInfo();
        const auto there = record.getExecutorList();
        const auto one = there.empty() || by.flag() ? NORLEX_wellExecutor{by.name(), by.text()}
                                                    : there[by.below(there.size())];
        switch (by.below(4)) {
        case 0:
            return record.addExecutor(one, by.flag());
        case 1:
            return record.removeExecutor(one);
        case 2:
            return record.updateExecutor(one, {by.name(), by.text()});
        default:
            return record.setDrillingRig(by.text()) && record.setDrillingType(by.text());
        }
    });
}

constexpr step steps[] = {{L"records.loadSurvey", loadSurvey},
                          {L"records.clearSurvey", clearSurvey},
                          {L"records.askSurvey", askSurvey},
                          {L"records.loadModel", loadModel},
                          {L"records.editModel", editModel},
                          {L"records.askModel", askModel},
                          {L"records.copyModel", copyModel},
                          {L"records.showModel", showModel},
                          {L"records.modelOfData", modelOfMarkers},
                          {L"records.addSection", addSection},
                          {L"records.editSection", editSection},
                          {L"records.workElements", workElements},
                          {L"records.drilling", drilling},
                          {L"records.people", people}};

} // namespace

std::span<const step> wellRecordSteps() {
    return steps;
}

} // namespace fuzzContainer
