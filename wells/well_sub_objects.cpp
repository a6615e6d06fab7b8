// Records of a well that are no properties, as objects of their own.
#include "NORLEX_well.h"
#include "NORLEX_wellConstruction.h"
#include "NORLEX_wellDrilling.h"

NORLEX_wellConstruction NORLEX_well::getConstruction() const {
    return {m_db, m_wellId};
}

NORLEX_wellDrilling NORLEX_well::getDrillingInfo() const {
    return {m_db, m_wellId};
}
