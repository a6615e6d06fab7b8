// Any text as a stratigraphic expression, and any bytes as a chart.
#include "NORLEX_strategraphy.h"
#include "fuzz/require.h"
#include "platform/files.h"
#include "platform/strconv.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

using strategraphy::element;
using strategraphy::statoTable;

constexpr std::string_view chart = "E;E-on;;;;;ER;Era;A;First;A1;Lower;;;A1a;Stage a\n"
                                   "E;E-on;;;;;ER;Era;A;First;A1;Lower;;;A1b;Stage b\n"
                                   "E;E-on;;;;;ER;Era;B;Second;B1;Lower b;B1^1;Sub;B1c;Stage c\n"
                                   "E;E-on;;;;;ER;Era;C+D;Third-or-so;;;;;;\n";

std::wstring written(const char* name, std::string_view bytes) {
    const std::wstring path =
        files::wide(std::filesystem::temp_directory_path() / (name + std::to_string(::getpid())));
    const files::handle file = files::openWrite(path);
    require(file && files::put(file.get(), bytes));
    return path;
}

// Each unit once, and each one of the chart's.
void identify(const statoTable& table, const std::wstring& text) {
    std::vector<element> units;
    table.identify(text, units);
    for (std::size_t i = 0; i < units.size(); ++i) {
        require(table.findIndex(units[i].type, units[i].index) >= 0);
        require(std::find(units.begin(), units.begin() + static_cast<std::ptrdiff_t>(i), units[i])
                == units.begin() + static_cast<std::ptrdiff_t>(i));
        std::vector<element> around;
        table.fillTaxonRangeUp(units[i], around);
        table.fillTaxonRangeDown(units[i], around);
    }
    for (int level = 0; level <= 10; ++level)
        static_cast<void>(
            table.getContaining(text, static_cast<NORLEX_taxonType>(level), level % 2 == 0));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const statoTable known(written("welldb_fuzz_chart.", chart));
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    identify(known, ts::strconv::fromUtf8(bytes));

    const std::wstring path = written("welldb_fuzz_chart_in.", bytes);
    identify(statoTable(path), L"A1-B1+{A}");
    static_cast<void>(files::removeFile(path));
    return 0;
}
