#include "selection/query_evaluation.h"

#include "NORLEX_well.h"
#include "selection/query_rows.h"
#include "selection/query_text.h"
#include "selection/query_window.h"

#include <utility>

const wellSet::list& queryEvaluation::allWells() {
    if (!m_allWells)
        NORLEX_well::getWellList(&m_db, m_allWells.emplace());
    return *m_allWells;
}

wellSet::list queryEvaluation::found(const NORLEX_query& query) {
    switch (query.operationType) {
    case NORLEX_filterTypeGeometry:
        return m_geometry;
    case NORLEX_filterTypeWindow:
        return queryWindow::wells(m_db, query);
    default:
        break;
    }
    const std::wstring statement = queryText::getQueryString(m_db, query);
    return statement.empty() ? wellSet::list() : queryRows::read(m_db, statement);
}

wellSet::list queryEvaluation::getCondition(const NORLEX_query& query) {
    return queryText::isComplement(query) ? wellSet::without(allWells(), found(query))
                                          : found(query);
}

wellSet::list queryEvaluation::chain(const std::vector<NORLEX_query>& queries) {
    wellSet::list wells;
    for (std::size_t i = 0; i < queries.size(); ++i) {
        wellSet::list next = getCondition(queries[i]);
        if (i == 0)
            wells = std::move(next);
        else
            wells = queries[i].isLinkAnd ? wellSet::common(std::move(wells), next)
                                         : wellSet::joined(std::move(wells), next);
    }
    return wells;
}
