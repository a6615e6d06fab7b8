#include "cli/json_out.h"

#include "cli/output.h"
#include "cli/text.h"

#include <cmath>

namespace jsonOut {

json number(double value) {
    return std::isfinite(value) ? json(value) : json(nullptr);
}

json number(const std::optional<double>& value) {
    return value ? number(*value) : json(nullptr);
}

json string(std::wstring_view text) {
    return text::utf8(text);
}

json well(const NORLEX_wellDescription& well) {
    return {{"id", well.wellId},
            {"object", string(well.workObject)},
            {"field", string(well.field)},
            {"name", string(well.name)}};
}

void print(const json& document) {
    output::line(document.dump(2));
}

} // namespace jsonOut
