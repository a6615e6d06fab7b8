// Makes a container, reads LAS files into it and lists the logs of each well.
//
//     import_las data/demo/pr-1.las data/demo/pr-2d.las
#include "NORLEX_lasImport.h"
#include "NORLEX_lastError.h"
#include "NORLEX_well.h"
#include "NORLEX_wellContainer.h"

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace {

void listLogs(odbc_database* db, const NORLEX_wellDescription& description) {
    const NORLEX_well well(db, description);
    std::vector<NORLEX_propertyInfo> properties;
    well.getPropertyInfoList(properties);
    for (const auto& p : properties) {
        if (p.type != NORLEX_dataTypeLog || !p.range)
            continue;
        std::printf("    %-6ls %-6ls %6zu samples, %.2f to %.2f m  %ls\n",
                    p.description.name.c_str(),
                    p.unit.c_str(),
                    static_cast<std::size_t>(p.records),
                    p.range->top,
                    p.range->bot,
                    p.comment.c_str());
    }
}

} // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_CTYPE, "C.UTF-8"); // what %ls prints in

    const auto place = NORLEX_wellContainer::makeDescription(L"import_las.well2");
    if (!NORLEX_wellContainer::create(place)) {
        std::fprintf(stderr, "%ls\n", NORLEX_lastError().c_str());
        return 1;
    }
    NORLEX_wellContainer container(place);
    NORLEX_lasImportOptions options;
    options.workObject = L"Demo";
    NORLEX_lasImport importer(container.getBaseLink(), options);

    int refused = 0;
    for (int i = 1; i < argc; ++i) {
        const auto file = importer.importFile(std::filesystem::path(argv[i]).wstring());
        if (!file.ok) {
            std::fprintf(stderr, "%s: %ls\n", argv[i], file.error.c_str());
            ++refused;
            continue;
        }
        std::printf("%ls, %zu rows, %zu lines not taken\n",
                    file.well.name.c_str(),
                    file.rows,
                    static_cast<std::size_t>(file.skippedCount));
        listLogs(container.getBaseLink(), file.well);
    }
    return refused == 0 ? 0 : 1;
}
