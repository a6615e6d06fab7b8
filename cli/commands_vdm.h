// The commands of velocity-depth models.
#pragma once

#include "cli/commands.h"

#include "NORLEX_VDMtable.h"

#include <optional>
#include <string>
#include <vector>

struct vdmConvertRequest {
    std::wstring file;
    std::wstring well;
    std::vector<double> depths; // absolute ones, or times
    std::vector<double> times;
    resultForm form = resultForm::table;
};

struct vdmImportRequest {
    std::wstring file;
    std::wstring well;
    std::wstring table;
    NORLEX_VDMtableOptions options;
    resultForm form = resultForm::table;
};

// One of the four properties is named: what the model is made of, or what shows it.
struct vdmBuildRequest {
    std::wstring file;
    std::wstring well;
    std::wstring sonic;
    std::wstring markers;
    std::wstring field; // of the markers
    std::wstring intervalVelocity;
    std::wstring averageVelocity;
    std::optional<double> tieDepth;
    std::optional<double> tieTime;
    std::optional<double> maxGap;
    std::optional<double> step;
    NORLEX_VDMcreateOptions options; // the rest of it
};

struct vdmCopyRequest {
    std::wstring file;
    std::wstring from;
    std::wstring to;
    bool replace = false;
};

namespace commands {

[[nodiscard]] int vdmShow(const wellRequest& request);
[[nodiscard]] int vdmConvert(const vdmConvertRequest& request);
[[nodiscard]] int vdmImport(const vdmImportRequest& request);
[[nodiscard]] int vdmBuild(const vdmBuildRequest& request);
[[nodiscard]] int vdmCopy(const vdmCopyRequest& request);
[[nodiscard]] int vdmRemove(const wellRequest& request);

} // namespace commands
