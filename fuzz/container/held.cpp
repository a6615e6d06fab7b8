// Objects that are held open, compared with such as are opened anew.
#include "fuzz/container/world.h"
#include "odbc_database.h"

namespace fuzzContainer {

namespace {

void compareWells(NORLEX_well& held, NORLEX_well& anew) {
    require(held.getDescription() == anew.getDescription(), "a held well has older names");
    require(held.getAltitude() == anew.getAltitude(), "a held well has an older altitude");
    NORLEX_inclinometry &before = *held.getIncl(), &after = *anew.getIncl();
    require(before.getDataCount() == after.getDataCount() && before.getAbs(30) == after.getAbs(30),
            "a held well has an older survey");
    std::vector<vdm_data> heldPoints, points;
    held.getVDM()->getList(heldPoints);
    anew.getVDM()->getList(points);
    require(heldPoints.size() == points.size(), "a held well has an older velocity model");
}

void compareProperties(NORLEX_wellProperty& held, NORLEX_wellProperty& anew) {
    require(held.getName() == anew.getName() && held.getGroup() == anew.getGroup()
                && held.getTemplateName() == anew.getTemplateName(),
            "a held property has older names");
    require(held.getFields().size() == anew.getFields().size(), "a held property has older fields");
    require(held.getRecordCount() == anew.getRecordCount()
                && held.getRecords().size() == anew.getRecords().size(),
            "a held property has older records");
    for (std::size_t record = 0; record < anew.getRecords().size(); ++record) {
        require(held.getRecords()[record].top == anew.getRecords()[record].top
                    && held.getRecords()[record].topAbs == anew.getRecords()[record].topAbs,
                "a held property has older depths");
        for (std::size_t field = 0; field < anew.getFields().size(); ++field)
            require(held.getValue(field, record) == anew.getValue(field, record),
                    "a held property has older values");
    }
}

} // namespace

void world::hold(const NORLEX_wellDescription& well, const NORLEX_propDescription& prop) {
    letGo();
    m_well = std::make_unique<NORLEX_well>(db(), well);
    if (m_well->isOK())
        m_property = m_well->openProperty(prop);
    else
        m_well.reset();
}

void world::letGo() {
    m_property.reset();
    m_well.reset();
}

void world::checkHeld() {
    if (!m_well)
        return;
    NORLEX_well well(db(), m_well->getID());
    require(well.isOK() == m_well->isOK(), "a held well does not know whether it is there");
    if (!well.isOK())
        return letGo();
    compareWells(*m_well, well);
    if (!m_property)
        return;
    const auto descr = NORLEX_wellProperty::getDescr(db(), m_property->getID());
    const auto property = well.openProperty(descr);
    require(m_property->isOK() == (property != nullptr),
            "a held property does not know whether it is there");
    if (property)
        compareProperties(*m_property, *property);
    else
        m_property.reset();
}

} // namespace fuzzContainer
