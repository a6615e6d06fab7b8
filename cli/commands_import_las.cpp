#include "cli/commands.h"
#include "cli/input_files.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/progress_bar.h"
#include "cli/table.h"
#include "cli/text.h"

#include <algorithm>

namespace {

struct fileReport {
    std::wstring path;
    bool ok = false;
    std::wstring well; // empty when the file did not come to one
    std::size_t curves = 0;
    std::size_t created = 0;
    std::size_t rows = 0;
    std::uint64_t skippedCount = 0;
    bool wellCreated = false;
    std::wstring error;
};

struct report {
    std::vector<fileReport> files;
    std::size_t found = 0; // files to take; more than `files` when the work was stopped
};

fileReport refusedFile(const lasSource& source) {
    fileReport out;
    out.path = source.path;
    out.error = source.error;
    return out;
}

fileReport importOne(NORLEX_lasImport& importer, const lasSource& source, const lasSource* next) {
    if (!source.error.empty())
        return refusedFile(source);
    const bool hasNext = next != nullptr && next->error.empty();
    const NORLEX_lasImportResult result =
        importer.importFile(source.path, hasNext ? next->path : std::wstring());
    return {
        .path = source.path,
        .ok = result.ok,
        .well = result.well.name.empty() ? std::wstring{} : names::spelled(result.well),
        .curves = result.curves,
        .created = result.ok ? result.created : 0,
        .rows = result.rows,
        .skippedCount = result.skippedCount,
        .wellCreated = result.ok && result.wellCreated,
        .error = result.ok ? std::wstring{} : result.error,
    };
}

report importAll(odbc_database* db, const importLasRequest& request) {
    const auto sources = findLasFiles(request.paths);
    NORLEX_lasImport importer(db, request.options);
    const auto bar = std::make_shared<progressBar>();
    progressBar::catchInterrupt();
    NORLEX_setProgressSink(bar);
    report out;
    out.found = sources.size();
    for (std::size_t i = 0; i < sources.size() && !progressBar::isInterrupted(); ++i) {
        bar->setPart(text::ofPath(text::path(sources[i].path).filename()), i, sources.size());
        out.files.push_back(
            importOne(importer, sources[i], i + 1 < sources.size() ? &sources[i + 1] : nullptr));
    }
    NORLEX_setProgressSink(nullptr);
    return out;
}

std::size_t failuresOf(const report& all) {
    return static_cast<std::size_t>(
        std::ranges::count_if(all.files, [](const fileReport& file) { return !file.ok; }));
}

std::size_t wellsOf(const report& all) {
    return static_cast<std::size_t>(
        std::ranges::count_if(all.files, [](const fileReport& file) { return file.wellCreated; }));
}

std::size_t logsOf(const report& all) {
    std::size_t logs = 0;
    for (const auto& file : all.files)
        logs += file.created;
    return logs;
}

json textOrNull(const std::wstring& text) {
    return text.empty() ? json(nullptr) : jsonOut::string(text);
}

void printJson(const report& all) {
    json files = json::array();
    for (const auto& file : all.files)
        files.push_back({
            {"path", jsonOut::string(file.path)},
            {"ok", file.ok},
            {"well", textOrNull(file.well)},
            {"curves", file.curves},
            {"rows", file.rows},
            {"skipped_count", file.skippedCount},
            {"error", textOrNull(file.error)},
        });
    jsonOut::print({
        {"files", std::move(files)},
        {"wells_created", wellsOf(all)},
        {"logs_created", logsOf(all)},
    });
}

void printTable(const report& all, bool dryRun) {
    using enum table::align;
    table files({{"FILE"},
                 {"WELL"},
                 {"CURVES", right},
                 {"LOGS", right},
                 {"ROWS", right},
                 {"SKIPPED", right},
                 {"RESULT"}});
    for (const auto& file : all.files)
        files.add({text::shown(file.path),
                   text::shown(file.well),
                   std::to_string(file.curves),
                   std::to_string(file.created),
                   std::to_string(file.rows),
                   std::to_string(file.skippedCount),
                   file.ok ? "ok" : "refused"});
    files.print();
    const std::size_t refused = failuresOf(all);
    output::line("");
    using numberText::counted;
    output::line(counted(all.files.size(), "file") + ": "
                 + std::to_string(all.files.size() - refused) + " imported, "
                 + std::to_string(refused) + " refused; " + counted(wellsOf(all), "well") + " and "
                 + counted(logsOf(all), "log") + " created"
                 + (dryRun ? " (a dry run: nothing was written)" : ""));
    for (const auto& file : all.files)
        if (!file.ok)
            output::say(file.error.find(file.path) == std::wstring::npos
                            ? file.path + L": " + file.error
                            : file.error);
}

} // namespace

namespace commands {

int importLas(const importLasRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    const report all = importAll(container->getBaseLink(), request);
    const std::size_t refused = failuresOf(all);
    if (request.form == resultForm::json)
        printJson(all);
    else
        printTable(all, request.options.dryRun);
    if (progressBar::isInterrupted())
        return output::refused(L"stopped: " + std::to_wstring(all.files.size() - refused) + L" of "
                               + std::to_wstring(all.found)
                               + L" files are in the container; the same command with"
                                 L" --on-existing skip takes the rest");
    if (refused == 0)
        return 0;
    if (request.form == resultForm::json)
        output::say(std::to_wstring(refused) + L" of " + std::to_wstring(all.files.size())
                    + L" files were refused; \"error\" of each says why");
    return output::failure;
}

} // namespace commands
