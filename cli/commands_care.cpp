#include "cli/commands.h"
#include "cli/json_out.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/progress_bar.h"
#include "cli/table.h"
#include "cli/text.h"

#include "NORLEX_host.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

// Shows the progress of what the scope does.
class shownProgress {
public:
    shownProgress() {
        progressBar::catchInterrupt();
        NORLEX_setProgressSink(std::make_shared<progressBar>());
    }
    ~shownProgress() { NORLEX_setProgressSink(nullptr); }
    shownProgress(const shownProgress&) = delete;
    shownProgress& operator=(const shownProgress&) = delete;
};

bool isThere(const std::wstring& path) {
    std::error_code error;
    return std::filesystem::exists(std::filesystem::symlink_status(text::path(path), error));
}

json findingsJson(const std::vector<NORLEX_checkFinding>& findings) {
    json out = json::array();
    for (const auto& one : findings)
        out.push_back({
            {"kind", jsonOut::string(one.kind)},
            {"place", jsonOut::string(one.place)},
            {"count", one.count},
            {"example", jsonOut::string(one.example)},
            {"repairable", one.repairable},
        });
    return out;
}

void printFindings(const std::vector<NORLEX_checkFinding>& findings) {
    using enum table::align;
    table rows({{"FOUND"}, {"WHERE"}, {"COUNT", right}, {"FIRST"}, {"REPAIR"}});
    for (const auto& one : findings)
        rows.add({text::shown(one.kind),
                  text::shown(one.place),
                  std::to_string(one.count),
                  text::shown(one.example),
                  one.repairable ? "yes" : "by hand"});
    rows.print();
}

bool mendFindings(NORLEX_wellContainer& container,
                  const std::wstring& archive,
                  std::vector<NORLEX_checkFinding>& findings,
                  std::vector<NORLEX_checkFinding>& removed) {
    if (!std::ranges::any_of(findings, &NORLEX_checkFinding::repairable))
        return true;
    if (!container.repair(archive, removed))
        return false;
    findings.clear();
    return container.check(findings);
}

} // namespace

namespace commands {

int upgrade(const upgradeRequest& request) {
    const auto description = describeContainer(request.file);
    if (!description)
        return output::failure;
    const int before = NORLEX_wellContainer::storedVersion(*description);
    if (request.yes)
        NORLEX_setYesNoBox([](const std::wstring&) { return true; });
    const NORLEX_wellContainer container(*description);
    if (!container.isOK())
        return output::refused();
    const bool isCurrent = before == NORLEX_wellContainer::currentVersion;
    const std::wstring copy = request.file + L".v" + std::to_wstring(before) + L".bak";
    const bool hasCopy = !isCurrent && isThere(copy);
    if (request.form == resultForm::json)
        jsonOut::print({
            {"path", jsonOut::string(request.file)},
            {"from", before},
            {"to", container.getVersionNumber()},
            {"copy", hasCopy ? jsonOut::string(copy) : json(nullptr)},
        });
    else if (isCurrent)
        output::line(request.file + L" is of the current version " + std::to_wstring(before));
    else
        output::line(L"upgraded " + request.file + L" from version " + std::to_wstring(before)
                     + L" to " + std::to_wstring(container.getVersionNumber())
                     + (hasCopy ? L", a copy of it as it was is " + copy : L""));
    return 0;
}

int check(const checkRequest& request) {
    const auto container = openContainer(request.file);
    std::vector<NORLEX_checkFinding> findings, removed;
    if (!container)
        return output::failure;
    const shownProgress bar;
    const std::wstring archive = request.file + L".before-repair.zip";
    if (!container->check(findings)
        || (request.repair && !mendFindings(*container, archive, findings, removed)))
        return output::refused();
    if (request.form == resultForm::json)
        jsonOut::print({
            {"ok", findings.empty()},
            {"findings", findingsJson(findings)},
            {"removed", findingsJson(removed)},
            {"backup", removed.empty() ? json(nullptr) : jsonOut::string(archive)},
        });
    else if (findings.empty() && removed.empty())
        output::line(request.file + L" is in order");
    if (request.form != resultForm::json && !removed.empty()) {
        output::line(L"removed, after a backup into " + archive + L":");
        printFindings(removed);
    }
    if (request.form != resultForm::json && !findings.empty())
        printFindings(findings);
    if (findings.empty())
        return 0;
    return output::refused(request.file + L" is not in order: " + std::to_wstring(findings.size())
                           + (request.repair
                                  ? L" kinds of finding are left, for a person to judge"
                                  : L" kinds of finding; --repair removes those marked so"));
}

int backup(const archiveRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    const shownProgress bar;
    if (!container->backup(request.archive))
        return output::refused();
    std::error_code error;
    const auto size = std::filesystem::file_size(text::path(request.archive), error);
    output::line(L"wrote " + request.archive + L", "
                 + std::to_wstring(error ? 0 : (size + 1023) / 1024) + L" KB");
    return 0;
}

int restore(const archiveRequest& request) {
    const auto target = describeContainer(request.file);
    if (!target)
        return output::failure;
    const shownProgress bar;
    if (target->type != 2 && isThere(request.file) && !request.force)
        return output::refused(L"nothing was restored: " + request.file
                               + L" exists already; --force replaces it");
    if (!NORLEX_wellContainer::restore(request.archive, *target, request.force))
        return output::refused();
    output::line(L"restored " + request.file + L", attached files in " + target->fileContainerPath);
    return 0;
}

int optimize(const optimizeRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    if ((request.indexes && !container->createSearchIndexes())
        || (request.noIndexes && !container->dropSearchIndexes()) || !container->updateStatistics())
        return output::refused();
    output::line(request.file
                 + (container->hasSearchIndexes() ? L": with search indexes, statistics refreshed"
                                                  : L": statistics refreshed"));
    return 0;
}

int copy(const copyRequest& request) {
    const auto from = openContainer(request.from);
    const auto target = from ? describeContainer(request.to) : std::nullopt;
    if (!target)
        return output::failure;
    const shownProgress bar;
    if (!from->copyTo(*target))
        return output::refused();
    output::line(
        L"copied "
        + text::wide(numberText::counted(static_cast<std::size_t>(from->getWellCount()), "well"))
        + L" to " + request.to + L", attached files in " + target->fileContainerPath);
    return 0;
}

} // namespace commands
