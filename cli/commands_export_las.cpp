#include "cli/commands.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/progress_bar.h"
#include "cli/text.h"

#include "NORLEX_lastError.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

namespace {

namespace fs = std::filesystem;
using openedLogs = std::vector<std::unique_ptr<NORLEX_wellProperty>>;

// Adds one log. False, having said why, when it is no log or cannot be opened.
bool openLog(NORLEX_well& well, const NORLEX_propDescription& property, openedLogs& out) {
    auto log = well.openProperty(property);
    if (!log || !log->isOK()) {
        output::say(output::reason());
        return false;
    }
    if (log->getType() != NORLEX_dataTypeLog) {
        output::say(L"the property " + names::spelled(property)
                    + L" is not a log; only logs go into a LAS file");
        return false;
    }
    out.push_back(std::move(log));
    return true;
}

bool openNamed(NORLEX_well& well, const std::vector<std::wstring>& references, openedLogs& out) {
    for (const auto& reference : references) {
        const auto property = names::findProperty(well, reference);
        if (!property || !openLog(well, *property, out))
            return false;
    }
    return true;
}

bool openAll(NORLEX_well& well, openedLogs& out) {
    std::vector<NORLEX_propertyInfo> all;
    well.getPropertyInfoList(all);
    for (const auto& property : all)
        if (property.type == NORLEX_dataTypeLog && !openLog(well, property.description, out))
            return false;
    if (out.empty())
        output::say(L"the well " + names::spelled(well.getDescription())
                    + L" has no logs, and a LAS file needs one");
    return !out.empty();
}

// Whether a file of these logs would hold samples: an empty one must not replace a good one.
bool holdsSamples(const NORLEX_well& well, const openedLogs& logs, bool exact) {
    bool any = false;
    double top = 0.0;
    double bottom = 0.0;
    for (const auto& log : logs) {
        NORLEX_depthRange range;
        if (!well.getPropertyLasDepthRange({log->getName(), log->getGroup()}, range))
            continue;
        top = any ? std::min(top, range.top) : range.top;
        bottom = any ? std::max(bottom, range.bot) : range.bot;
        any = true;
    }
    if (!any) {
        output::say(L"nothing was exported: the logs hold no samples");
        return false;
    }
    // The common grid has two decimals.
    if (exact || std::round(top * 100.0) != std::round(bottom * 100.0))
        return true;
    output::say(L"nothing was exported: every log starts and ends at the depth "
                + text::wide(numberText::brief(top))
                + L", which leaves no depth grid; --exact writes the samples at their own depths");
    return false;
}

// What tells a file that was written anew from the one before.
struct fileState {
    bool exists = false;
    std::uintmax_t size = 0;
    fs::file_time_type time;

    friend bool operator==(const fileState&, const fileState&) = default;
};

fileState stateOf(const fs::path& path) {
    std::error_code error;
    fileState out;
    out.exists = fs::is_regular_file(path, error);
    if (out.exists) {
        out.size = fs::file_size(path, error);
        out.time = fs::last_write_time(path, error);
    }
    return out;
}

// The gridded export answers nothing: the file itself tells whether it was written.
bool exportGrid(NORLEX_well& well,
                const std::wstring& out,
                const std::vector<NORLEX_wellProperty*>& logs) {
    const fileState before = stateOf(text::path(out));
    const std::wstring errorBefore = NORLEX_lastError(); // NOLINT: a copy, the line changes below
    well.exportLAS(out, logs);
    if (const fileState after = stateOf(text::path(out)); after.exists && after != before)
        return true;
    output::say(NORLEX_lastError() != errorBefore
                    ? NORLEX_lastError()
                    : L"the file " + out
                          + L" was not written: the first log has no depth step, or the file"
                            L" cannot be made there; --exact needs no step");
    return false;
}

} // namespace

namespace commands {

int exportLas(const exportLasRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    NORLEX_well& well = *opened.well;
    openedLogs logs;
    if (request.properties.empty() ? !openAll(well, logs)
                                   : !openNamed(well, request.properties, logs))
        return output::failure;
    if (!holdsSamples(well, logs, request.exact))
        return output::failure;

    std::vector<NORLEX_wellProperty*> borrowed;
    for (const auto& log : logs)
        borrowed.push_back(log.get());
    progressBar::catchInterrupt();
    NORLEX_setProgressSink(std::make_shared<progressBar>());
    const bool ok = request.exact ? well.exportLASExact(request.out, borrowed)
                                  : exportGrid(well, request.out, borrowed);
    NORLEX_setProgressSink(nullptr);
    if (!ok)
        return request.exact ? output::refused() : output::failure;
    output::line(L"wrote " + text::wide(numberText::counted(logs.size(), "log")) + L" of "
                 + names::spelled(well.getDescription()) + L" to " + request.out);
    return 0;
}

} // namespace commands
