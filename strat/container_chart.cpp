// The chart that a container hands out.
#include "NORLEX_strategraphy.h"
#include "NORLEX_wellContainer.h"

std::shared_ptr<const strategraphy::statoTable> NORLEX_wellContainer::getStrategraphy() {
    if (!m_strategraphy || !m_strategraphy->isOK())
        m_strategraphy = std::make_shared<strategraphy::statoTable>(this);
    return m_strategraphy;
}
