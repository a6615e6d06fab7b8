// The commands of correlations, their borders and picks.
#pragma once

#include "cli/commands.h"

#include "NORLEX_correlationTable.h"

#include <optional>
#include <string>

struct correlationRequest {
    std::wstring file;
    std::wstring name; // GROUP/NAME, or NAME
    std::wstring to;   // the new name
    resultForm form = resultForm::table;
};

struct borderRequest : correlationRequest {
    std::wstring border;
    std::wstring group; // of borders
};

struct pickRequest : borderRequest {
    std::wstring well;
    std::optional<double> measured;
    std::optional<double> absolute;
    int type = 0;
    bool byAbsolute = false; // the order of a list
};

struct correlationImportRequest : correlationRequest {
    std::wstring table;
    NORLEX_correlationTableOptions options;
};

struct correlationExportRequest : correlationRequest {
    std::wstring out; // "-": standard output
    NORLEX_correlationExportOptions options;
};

namespace commands {

[[nodiscard]] int listCorrelations(const fileRequest& request);
[[nodiscard]] int createCorrelation(const correlationRequest& request);
[[nodiscard]] int renameCorrelation(const correlationRequest& request);
[[nodiscard]] int removeCorrelation(const correlationRequest& request);

[[nodiscard]] int listBorders(const correlationRequest& request);
[[nodiscard]] int addBorder(const borderRequest& request);
[[nodiscard]] int renameBorder(const borderRequest& request);
[[nodiscard]] int removeBorder(const borderRequest& request);
[[nodiscard]] int groupBorder(const borderRequest& request);

[[nodiscard]] int listPicks(const pickRequest& request);
[[nodiscard]] int addPick(const pickRequest& request);
[[nodiscard]] int movePick(const pickRequest& request);
[[nodiscard]] int removePick(const pickRequest& request);
[[nodiscard]] int setPickType(const pickRequest& request);

[[nodiscard]] int importCorrelation(const correlationImportRequest& request);
[[nodiscard]] int exportCorrelation(const correlationExportRequest& request);

} // namespace commands
