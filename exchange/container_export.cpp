// NORLEX_wellContainer::exportLAS: the logs of many wells, a file for each well.
#include "NORLEX_lastError.h"
#include "NORLEX_selection.h"
#include "NORLEX_wellContainer.h"
#include "exchange/exported_wells.h"
#include "exchange/well_export_exact.h"
#include "exchange/well_export_las.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/progress.h"
#include "platform/strconv.h"
#include "selection/selected_wells.h"
#include "store/well_path.h"
#include "wells/names.h"

#include <algorithm>
#include <functional>
#include <unordered_map>
#include <unordered_set>

namespace {

using wellList = std::vector<NORLEX_wellDescription>;

// Names of files, without their extension, of which no two differ in the case of letters alone.
class file_names {
public:
    explicit file_names(const wellList& wells) {
        for (const auto& well : wells)
            ++m_bearers[folded(files::fileName(well.name))];
        for (const auto& [name, bearers] : m_bearers)
            if (bearers == 1)
                m_taken.insert(name);
    }

    std::wstring next(const NORLEX_wellDescription& well) {
        const std::wstring name = files::fileName(well.name);
        if (m_bearers[folded(name)] == 1)
            return name;
        const std::wstring whole = files::fileName(wholeName(well));
        return unused(ts::strconv::toUtf8(whole).size() <= files::longestFileName ? whole : name);
    }

private:
    [[nodiscard]] static std::wstring folded(const std::wstring& name) {
        return ts::strconv::lower(name);
    }

    // A part that is empty would leave a hyphen at the start, which programs take for an option.
    [[nodiscard]] static std::wstring wholeName(const NORLEX_wellDescription& well) {
        std::wstring out;
        for (const auto& part : {well.workObject, well.field, well.name})
            if (!part.empty())
                out += (out.empty() ? L"" : L"-") + part;
        return out;
    }

    // A hyphen inside the parts, and wells that differ in case, make equal names.
    std::wstring unused(const std::wstring& base) {
        std::wstring name = base;
        for (int i = 2; !m_taken.insert(folded(name)).second; ++i)
            name = base + L"-" + std::to_wstring(i);
        return name;
    }

    std::unordered_map<std::wstring, int> m_bearers; // wells of the name, without case
    std::unordered_set<std::wstring> m_taken;
};

// Why the file is not written; empty where it is.
std::wstring writeFile(const std::wstring& path,
                       const NORLEX_wellDescription& well,
                       const std::vector<exportedLogs::source>& logs,
                       bool exact) {
    const bool written =
        exact ? exactLas::write(path, well, logs) : describedLas::write(path, well, logs);
    return written ? std::wstring() : NORLEX_lastError();
}

bool isWritten(const NORLEX_exportedWell& file) {
    return file.path.empty() || file.reason.empty();
}

// Refuses, with the first reason, results that have a file which is not written.
bool areWritten(const std::vector<NORLEX_exportedWell>& results) {
    const auto bad = std::ranges::find_if_not(results, isWritten);
    if (bad == results.end())
        return true;
    return refuse(std::to_wstring(std::ranges::count_if(results, std::not_fn(isWritten)))
                  + L" of the files cannot be written; the first is of the well "
                  + names::shown(bad->well) + L": " + bad->reason);
}

} // namespace

bool NORLEX_wellContainer::exportLAS(const std::shared_ptr<NORLEX_selection>& selection,
                                     const std::wstring& folder,
                                     bool exact,
                                     std::vector<NORLEX_exportedWell>& results) const {
    results.clear();
    if (!selectedWells::compute(*this, selection))
        return false;
    if (folder.empty())
        return refuse(L"there is no folder to write LAS files into; the path of one is expected");
    wellList wells;
    selection->getWellList(wells);
    exported_wells chosen(*m_db, wells);
    if (!chosen.open() || !files::makeFolder(folder))
        return false;
    file_names fileNames(wells);
    progress steps(folder, wells.size());
    std::vector<exportedLogs::source> logs;
    for (const auto& well : wells) {
        if (steps.isStopped())
            return refuse(L"the export was stopped after " + std::to_wstring(results.size())
                          + L" of " + std::to_wstring(wells.size()) + L" wells");
        if (!chosen.next(logs))
            return false;
        auto& result = results.emplace_back(NORLEX_exportedWell{well, {}, {}});
        if (logs.empty()) {
            result.reason = L"the well has no logs";
        } else {
            result.path = NORLEX_getFilePath(folder) + fileNames.next(well) + L".las";
            result.reason = writeFile(result.path, well, logs, exact);
        }
        steps.advance(results.size());
    }
    return areWritten(results);
}
