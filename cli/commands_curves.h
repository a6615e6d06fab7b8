// The commands of the catalogue of log curves.
#pragma once

#include "cli/commands.h"

#include <string>

struct curveRequest {
    std::wstring name;
    resultForm form = resultForm::table;
};

struct curvesRequest {
    std::wstring type; // empty: every type
    resultForm form = resultForm::table;
};

namespace commands {

[[nodiscard]] int findCurve(const curveRequest& request);
[[nodiscard]] int listCurves(const curvesRequest& request);
[[nodiscard]] int listCurveTypes(const curvesRequest& request);

} // namespace commands
