#include "NORLEX_query.h"

#include <tuple>

namespace {

auto members(const NORLEX_query& q) {
    return std::tie(q.operationType,
                    q.operation,
                    q.prop,
                    q.templateName,
                    q.fldName,
                    q.value,
                    q.caseSensetive,
                    q.fromDepth,
                    q.toDepth,
                    q.propSearchName,
                    q.propSearchGroup,
                    q.searchFld,
                    q.searchValue,
                    q.propTemplateType,
                    q.wellInfoType,
                    q.datetimeType,
                    q.datetimeObject,
                    q.isLinkAnd);
}

} // namespace

bool operator==(const NORLEX_query& a, const NORLEX_query& b) {
    return members(a) == members(b);
}
