#include "cli/table_reports.h"

#include "cli/number_text.h"
#include "cli/output.h"
#include "cli/progress_bar.h"
#include "cli/table.h"
#include "cli/text.h"

#include "NORLEX_host.h"

#include <memory>

namespace tableReports {

json document(bool ok,
              const NORLEX_tableReport& report,
              const json& counts,
              const std::wstring& error) {
    json errors = json::array();
    for (const auto& bad : report.errors)
        errors.push_back(
            {{"row", bad.row}, {"line", bad.line}, {"reason", jsonOut::string(bad.reason)}});
    json out = {{"ok", ok},
                {"rows", report.rows},
                {"taken", report.taken},
                {"passed_over", report.passedOver},
                {"bad_count", report.badCount}};
    out.update(counts);
    out["errors"] = std::move(errors);
    out["error"] = error.empty() ? json(nullptr) : jsonOut::string(error);
    return out;
}

void print(const NORLEX_tableReport& report, const std::string& counts) {
    constexpr std::size_t mostShown = 20;
    using enum table::align;
    table bad({{"ROW", right}, {"LINE", right}, {"NOT TAKEN BECAUSE", left}});
    for (std::size_t i = 0; i < report.errors.size() && i < mostShown; ++i)
        bad.add({std::to_string(report.errors[i].row),
                 std::to_string(report.errors[i].line),
                 text::shown(report.errors[i].reason)});
    if (!bad.isEmpty()) {
        bad.print();
        if (report.badCount > mostShown)
            output::line("… and " + std::to_string(report.badCount - mostShown) + " more");
        output::line("");
    }
    output::line(numberText::counted(static_cast<std::size_t>(report.rows), "row") + ": "
                 + std::to_string(report.taken) + " taken, " + std::to_string(report.passedOver)
                 + " passed over, " + std::to_string(report.badCount) + " bad; " + counts);
}

void withProgress(const std::function<void()>& work) {
    const auto bar = std::make_shared<progressBar>();
    progressBar::catchInterrupt();
    NORLEX_setProgressSink(bar);
    work();
    NORLEX_setProgressSink(nullptr);
    bar->clear();
}

} // namespace tableReports
