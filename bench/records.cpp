// Records of properties: loaded from a table, read, and removed from large containers.
#include "bench/child.h"
#include "bench/database.h"
#include "bench/measures.h"

#include "NORLEX_propTemplate.h"
#include "NORLEX_tableImport.h"
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "platform/transaction.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <system_error>

using namespace sqlText;

namespace bench {

namespace {

constexpr int records = 200'000;
constexpr double megabyte = 1024.0 * 1024.0;
const NORLEX_wellDescription wellName{L"O", L"F", L"W", 0};
const NORLEX_propDescription property{L"layers", L"G"};

void writeCsv(const std::string& path) {
    std::ofstream out(path);
    out << "top;bottom;name;description\n";
    for (int i = 0; i < records; ++i)
        out << i << ".25;" << i + 1 << ".25;sandstone;layer " << i << '\n';
}

NORLEX_tableImportOptions layersOptions() {
    NORLEX_tableImportOptions options;
    options.templateName = getDataNameByEnum(NORLEX_dataTypeInterval);
    options.property = property;
    options.well = wellName;
    options.top.number = 1;
    options.bot.number = 2;
    std::vector<NORLEX_fieldDescr> fields;
    NORLEX_propTemplate::getBaseFldListForType(NORLEX_dataTypeInterval, fields);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        NORLEX_tableField field;
        field.name = fields[i].name;
        field.column.number = static_cast<int>(i) + 3;
        options.fields.push_back(field);
    }
    return options;
}

// Rows a second, and the memory that the import took beyond what the open container has.
std::vector<double> importTable(const std::string& folder) {
    std::error_code ignored;
    std::filesystem::remove(folder + "/table.well2", ignored);
    const auto container = newContainer(folder + "/table.well2");
    if (!container || !NORLEX_well::create(container->getBaseLink(), wellName))
        return {};
    const double idle = residentBytes();
    NORLEX_tableImport import(container->getBaseLink(), layersOptions());
    NORLEX_tableImportResult result;
    const double time =
        timed([&] { result = import.importFile(ts::strconv::fromUtf8(folder + "/layers.csv")); });
    return result.ok && result.report.taken == records ? std::vector{records / time, idle}
                                                       : std::vector<double>{};
}

bool tableImport(const std::string& folder, const settings& with, std::vector<figure>& figures) {
    writeCsv(folder + "/layers.csv");
    std::vector<double> rates, memory;
    for (std::size_t round = 0; round < with.rounds; ++round) {
        const auto result = inChild([&] { return importTable(folder); });
        if (!result)
            return failed("importing a table");
        rates.push_back(result->values[0]);
        memory.push_back((result->peakBytes - result->values[1]) / megabyte);
    }
    add(figures, atLeast("200,000 intervals from a CSV table", "rows/s", median(rates), 100'000.0));
    add(figures, atMost("the same, memory beyond idle", "MB", median(memory), 200.0));
    return true;
}

// The statement that reading issues, stepped to its end by the engine's own interface; each value
// and depth is looked at.
double bareReading(const std::string& path, std::int64_t propertyId) {
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    const std::string text =
        "SELECT interval_data.obj_id as obj_id, val.value as value, interval_data.top_abs as top_abs, interval_data.top as top_real, interval_data.bot_abs as bot_abs, interval_data.bot as bot_real FROM val LEFT JOIN interval_data ON val.obj_id = interval_data.obj_id  WHERE val.f_id IN (SELECT f_id FROM field WHERE pr_id = "
        + std::to_string(propertyId) + ") ORDER BY interval_data.top_abs desc, obj_id, val.f_id";
    bool good =
        sqlite3_open(path.c_str(), &db) == SQLITE_OK
        && sqlite3_exec(db, "PRAGMA cache_size=50000", nullptr, nullptr, nullptr) == SQLITE_OK;
    double sum = 0.0;
    const double time = timed([&] {
        good = good && sqlite3_prepare_v2(db, text.c_str(), -1, &statement, nullptr) == SQLITE_OK;
        while (good && sqlite3_step(statement) == SQLITE_ROW) {
            sum += static_cast<double>(sqlite3_column_int64(statement, 0)
                                       + sqlite3_column_bytes(statement, 1));
            for (int i = 2; i < 6; ++i)
                sum += sqlite3_column_double(statement, i);
        }
    });
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return good && std::isfinite(sum) ? time : -1.0;
}

bool reading(const std::string& folder, const settings& with, std::vector<figure>& figures) {
    const std::string path = folder + "/table.well2";
    std::vector<double> own, bare;
    for (std::size_t round = 0; round < with.rounds; ++round) {
        const auto container = openContainer(path);
        if (!container)
            return failed("opening a container");
        NORLEX_well well(container->getBaseLink(), wellName);
        const auto layers = well.openProperty(property);
        std::size_t found = 0;
        own.push_back(timed([&] { found = layers ? layers->getRecords().size() : 0; }));
        if (found != records)
            return failed("reading a property");
        bare.push_back(bareReading(path, layers->getID()));
    }
    figure line = against(
        "reading a property of 200,000 intervals", "s", own, "stepping the statement", bare, 1.5);
    line.atMost = true;
    add(figures, line);
    return true;
}

// 5 wells of 100 interval properties, each of 2 fields and 1,000 records: a million values.
bool fillMillion(odbc_database& db) {
    const auto numbers = [](int last) {
        return L"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
               + std::to_wstring(last) + L") ";
    };
    const auto type =
        key(NORLEX_propTemplate::getID(&db, getDataNameByEnum(NORLEX_dataTypeInterval)));
    transaction whole(&db);
    return whole.isOpen()
           && db.exec(L"INSERT INTO well_base (w_id, work_object, field, name, altitude, x, y) "
                      + numbers(5) + L"SELECT i, 'O', 'F', 'W-' || i, 0, 0, 0 FROM n")
           && db.exec(L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) " + numbers(500)
                      + L"SELECT i, (i - 1) / 100 + 1, " + type + L", 'P-' || i, 'G' FROM n")
           && db.exec(L"INSERT INTO field (f_id, pr_id, name, type, is_base) " + numbers(1000)
                      + L"SELECT i, (i - 1) / 2 + 1, 'F-' || i, 'NORLEX_fieldTypeString', 0 FROM n")
           && db.exec(L"INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) "
                      + numbers(500'000)
                      + L"SELECT i, i % 1000, i % 1000 + 1, -(i % 1000), -(i % 1000) - 1 FROM n")
           && db.exec(
               L"INSERT INTO val (f_id, value, obj_id) " + numbers(1'000'000)
               + L"SELECT (i - 1) / 1000 + 1, 'value ' || i, (i - 1) / 2000 * 1000 + (i - 1) % 1000 + 1 FROM n")
           && whole.commit();
}

bool removing(const std::string& folder, std::vector<figure>& figures) {
    const auto container = newContainer(folder + "/million.well2");
    if (!container || !fillMillion(*container->getBaseLink()))
        return failed("filling a container");
    auto* db = container->getBaseLink();
    std::vector<double> properties, wells;
    for (int i = 1; i <= 21; ++i) { // of the first well, and the first of them is not counted
        NORLEX_well well(db, {L"O", L"F", L"W-1", 0});
        bool good = true;
        const double time = timed([&] {
            good = well.removeProperty({L"P-" + std::to_wstring(i), L"G"});
        });
        if (!good)
            return failed("removing a property");
        if (i > 1)
            properties.push_back(1e3 * time);
    }
    for (int i = 2; i <= 4; ++i) {
        bool good = true;
        wells.push_back(timed([&] {
            good = NORLEX_well::remove(db, {L"O", L"F", L"W-" + std::to_wstring(i), 0});
        }));
        if (!good)
            return failed("removing a well");
    }
    add(figures, atMost("removing one property of 500", "ms", median(properties), 20.0));
    add(figures, atMost("removing a well of 100 properties", "s", median(wells), 1.0));
    return true;
}

// A million samples every 0.1 m, through windows from one metre to a hundred kilometres: the time
// is to stay the same.
bool filtering(const std::string& folder, std::vector<figure>& figures) {
    const auto container = newContainer(folder + "/filter.well2");
    if (!container || !NORLEX_well::create(container->getBaseLink(), wellName))
        return failed("making a container");
    auto* db = container->getBaseLink();
    NORLEX_well well(db, wellName);
    std::vector<NORLEX_logSample> samples(1'000'000);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double depth = 0.1 * static_cast<double>(i);
        samples[i] = {depth, -depth, std::sin(depth * 0.37) * 50 + double(i * 7919 % 1000) * 0.05};
    }
    if (!NORLEX_wellProperty::createLAS(db, well.getID(), {L"GR", L""}, L"", samples))
        return failed("making a log");
    for (const auto kind : {NORLEX_windowMean, NORLEX_windowMedian}) {
        std::vector<double> times;
        for (const double window : {1.0, 100.0, 10'000.0, 100'000.0}) {
            const NORLEX_propDescription result(L"F" + std::to_wstring(times.size()),
                                                std::to_wstring(kind));
            bool good = true;
            times.push_back(timed([&] {
                good = well.windowFilter({L"GR", L""}, kind, window, result);
            }));
            if (!good)
                return failed("filtering");
        }
        const auto [least, most] = std::minmax_element(times.begin(), times.end());
        figure line = against(kind == NORLEX_windowMean ? "mean of the widest window"
                                                        : "median of the slowest window",
                              "s",
                              {*most},
                              "the fastest window",
                              {*least},
                              3.0);
        line.atMost = true;
        add(figures, line);
    }
    return true;
}

} // namespace

bool recordMeasures(const settings& with, std::vector<figure>& figures) {
    const std::string folder = with.subfolder("records");
    const bool good = tableImport(folder, with, figures) && reading(folder, with, figures)
                      && removing(folder, figures) && filtering(folder, figures);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    return good;
}

} // namespace bench
