// Containers as a whole: making, opening, bulk loading, copying.
#include "bench/child.h"
#include "bench/database.h"
#include "bench/measures.h"
#include "bench/server.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "platform/transaction.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

using namespace sqlText;

namespace bench {

namespace {

constexpr int records = 200'000;
constexpr int fields = 2;

std::string valueOf(int record, int field) {
    return field == 0 ? "sandstone" : std::to_string(record % 400) + ".25";
}

// The rows of the intervals of one property, as a bulk loader writes them: many to a statement.
bool insertIntervals(odbc_database& db) {
    constexpr int rowsPerStatement = 500;
    transaction whole(&db);
    bool good = whole.isOpen();
    for (int from = 1; good && from <= records; from += rowsPerStatement) {
        std::wstring intervals =
            L"INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) VALUES ";
        std::wstring values = L"INSERT INTO val (f_id, value, obj_id) VALUES ";
        for (int i = from; i < from + rowsPerStatement; ++i) {
            intervals += sql(L"(",
                             key(i),
                             L",",
                             fixed(i, 2),
                             L",",
                             fixed(i + 1, 2),
                             L",",
                             fixed(-i, 2),
                             L",",
                             fixed(-i - 1, 2),
                             L"),");
            for (int field = 0; field < fields; ++field)
                values += sql(L"(",
                              key(field + 1),
                              L",",
                              quoted(ts::strconv::fromUtf8(valueOf(i, field))),
                              L",",
                              key(i),
                              L"),");
        }
        intervals.pop_back();
        values.pop_back();
        good = db.exec(intervals) && db.exec(values);
    }
    return good && db.keys_were_given(L"interval_data", L"obj_id") && whole.commit();
}

// The same rows through the engine's own interface, as fast as it goes.
bool insertBound(const std::string& path) {
    sqlite3* db = nullptr;
    sqlite3_stmt* interval = nullptr;
    sqlite3_stmt* value = nullptr;
    bool good = sqlite3_open(path.c_str(), &db) == SQLITE_OK;
    const auto run = [&](const char* text) {
        good = good && sqlite3_exec(db, text, nullptr, nullptr, nullptr) == SQLITE_OK;
    };
    run("PRAGMA cache_size=50000");
    run("PRAGMA synchronous=NORMAL");
    run("BEGIN");
    good =
        good
        && sqlite3_prepare_v2(
               db,
               "INSERT INTO interval_data (obj_id, top, bot, top_abs, bot_abs) VALUES (?,?,?,?,?)",
               -1,
               &interval,
               nullptr)
               == SQLITE_OK
        && sqlite3_prepare_v2(
               db, "INSERT INTO val (f_id, value, obj_id) VALUES (?,?,?)", -1, &value, nullptr)
               == SQLITE_OK;
    for (int i = 1; good && i <= records; ++i) {
        const double numbers[] = {double(i), double(i + 1), double(-i), double(-i - 1)};
        sqlite3_bind_int(interval, 1, i);
        for (int n = 0; n < 4; ++n)
            sqlite3_bind_double(interval, n + 2, numbers[n]);
        good = sqlite3_step(interval) == SQLITE_DONE && sqlite3_reset(interval) == SQLITE_OK;
        for (int field = 0; good && field < fields; ++field) {
            const std::string text = valueOf(i, field);
            sqlite3_bind_int(value, 1, field + 1);
            sqlite3_bind_text(value, 2, text.data(), int(text.size()), SQLITE_TRANSIENT);
            sqlite3_bind_int(value, 3, i);
            good = sqlite3_step(value) == SQLITE_DONE && sqlite3_reset(value) == SQLITE_OK;
        }
    }
    run("COMMIT");
    sqlite3_finalize(interval);
    sqlite3_finalize(value);
    sqlite3_close(db);
    return good;
}

figure timesAtMost(const char* name,
                   const std::vector<double>& values,
                   const char* limitName,
                   const std::vector<double>& limits,
                   double most) {
    figure line = against(name, "s", values, limitName, limits, most);
    line.atMost = true;
    return line;
}

// Seconds of one round in a container of its own; negative when it failed.
template <typename Work>
double timedIn(const std::string& path, const Work& work) {
    auto container = newContainer(path);
    bool good = container != nullptr;
    const double time = timed([&] { good = good && work(*container); });
    container.reset();
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    return good ? time : -1.0;
}

bool localRecords(const settings& with, std::vector<figure>& figures) {
    std::vector<double> own, bound;
    for (std::size_t round = 0; round < with.rounds; ++round) {
        const std::string path = with.subfolder("containers") + "/records.well2";
        own.push_back(timedIn(path, [](auto& c) { return insertIntervals(*c.getBaseLink()); }));
        bound.push_back(timedIn(path, [&](auto&) { return insertBound(path); }));
        if (own.back() < 0 || bound.back() < 0)
            return failed("inserting records");
    }
    add(figures,
        timesAtMost("200,000 intervals, 2 fields each", own, "bound parameters", bound, 1.3));
    return true;
}

bool writeTable(odbc_database& db, const std::string& file, const std::wstring& query) {
    std::ofstream out(file);
    const auto rows = db.query(query);
    while (rows && rows->next()) {
        for (int i = 0; i < rows->column_count(); ++i)
            out << (i == 0 ? "" : "\t")
                << (rows->is_null(i) ? "\\N" : ts::strconv::toUtf8(rows->get_text(i)));
        out << '\n';
    }
    return rows != nullptr && out.good();
}

struct tableText {
    std::string name;
    std::string columns;
};

// The tables of `from` by the server's own bulk command, into a container on the server whose rows
// of them are removed first.
double copiedBulk(NORLEX_wellContainer& from,
                  const std::string& folder,
                  const std::vector<tableText>& tables) {
    const std::string path = folder + "/bulk.well2";
    if (!server::describe(path, "welldb_bench_bulk") || !newContainer(path))
        return -1.0;
    auto target = openContainer(path);
    std::vector<server::table> files;
    for (const auto& table : tables) {
        files.push_back(
            {table.name + " (" + table.columns + ")", folder + "/" + table.name + ".txt"});
        if (!target->getBaseLink()->exec(L"DELETE FROM " + ts::strconv::fromUtf8(table.name))
            || !writeTable(
                *from.getBaseLink(),
                files.back().file,
                ts::strconv::fromUtf8("SELECT " + table.columns + " FROM " + table.name)))
            return -1.0;
    }
    target.reset();
    const double time = server::copyIn("welldb_bench_bulk", files);
    server::drop("welldb_bench_bulk");
    return time;
}

bool serverRecords(const settings& with, std::vector<figure>& figures) {
    const std::string folder = with.subfolder("containers");
    auto local = newContainer(folder + "/rows.well2");
    if (!local || !insertIntervals(*local->getBaseLink()))
        return failed("inserting records");
    std::vector<double> own, bulk;
    for (std::size_t round = 0; round < std::min<std::size_t>(with.rounds, 3); ++round) {
        const std::string path = folder + "/server.well2";
        if (!server::describe(path, "welldb_bench"))
            return failed("making a database");
        own.push_back(timedIn(path, [](auto& c) { return insertIntervals(*c.getBaseLink()); }));
        bulk.push_back(copiedBulk(*local,
                                  folder,
                                  {{"interval_data", "obj_id, top, bot, top_abs, bot_abs"},
                                   {"val", "f_id, value, obj_id"}}));
        if (own.back() < 0 || bulk.back() < 0)
            return failed("inserting records on the server");
    }
    server::drop("welldb_bench");
    add(figures, timesAtMost("the same on a server", own, "COPY", bulk, 3.5));
    return true;
}

// 10 properties of 2 fields and 25 points each in every well.
bool fillWells(odbc_database& db, int wells) {
    const std::wstring count = key(wells);
    const auto numbers = [](const std::wstring& last) {
        return L"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + last
               + L") ";
    };
    transaction whole(&db);
    return whole.isOpen()
           && db.exec(L"INSERT INTO well_base (w_id, work_object, field, name, altitude, x, y) "
                      + numbers(count)
                      + L"SELECT i, 'O', 'F', 'W-' || i, 100.25, i * 10.5, i * 20.25 FROM n")
           && db.exec(L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) "
                      + numbers(count + L" * 10")
                      + L"SELECT i, (i - 1) / 10 + 1, 1, 'P-' || i, 'G' FROM n")
           && db.exec(L"INSERT INTO field (f_id, pr_id, name, type, is_base) "
                      + numbers(count + L" * 20")
                      + L"SELECT i, (i - 1) / 2 + 1, 'F-' || i, 'NORLEX_fieldTypeString', 0 FROM n")
           && db.exec(L"INSERT INTO point_data (obj_id, depth, depth_abs, type) "
                      + numbers(count + L" * 250")
                      + L"SELECT i, i % 4000 + 0.25, 100.25 - i % 4000, 0 FROM n")
           && db.exec(
               L"INSERT INTO val (f_id, value, obj_id) " + numbers(count + L" * 500")
               + L"SELECT (i - 1) / 25 + 1, 'value ' || i, (i - 1) / 50 * 25 + (i - 1) % 25 + 1 FROM n")
           && whole.commit();
}

bool serverCopy(const settings& with, std::vector<figure>& figures) {
    const std::string folder = with.subfolder("containers");
    auto local = newContainer(folder + "/wells.well2");
    if (!local || !fillWells(*local->getBaseLink(), 1000))
        return failed("filling a container");
    const std::string path = folder + "/copy.well2";
    std::vector<double> own, bulk;
    for (std::size_t round = 0; round < std::min<std::size_t>(with.rounds, 3); ++round) {
        if (!server::describe(path, "welldb_bench"))
            return failed("making a database");
        const auto target = NORLEX_wellContainer::makeDescription(ts::strconv::fromUtf8(path));
        bool good = true;
        own.push_back(timed([&] { good = local->copyTo(target); }));
        bulk.push_back(copiedBulk(*local,
                                  folder,
                                  {{"well_base", "w_id, work_object, name, field, altitude, x, y"},
                                   {"property", "pr_id, w_id, bt_id, name, p_group"},
                                   {"field", "f_id, pr_id, name, type, is_base"},
                                   {"point_data", "obj_id, depth, depth_abs, type"},
                                   {"val", "v_id, f_id, value, obj_id"}}));
        if (!good || bulk.back() < 0)
            return failed("copying a container to the server");
    }
    server::drop("welldb_bench");
    add(figures, timesAtMost("copying 1,000 wells to a server", own, "COPY", bulk, 4.0));
    return true;
}

bool making(const settings& with, std::vector<figure>& figures) {
    const std::string path = with.subfolder("containers") + "/new.well2";
    std::vector<double> made, opened;
    for (std::size_t round = 0; round < 9; ++round) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        const auto description = NORLEX_wellContainer::makeDescription(ts::strconv::fromUtf8(path));
        bool good = true;
        made.push_back(1e3 * timed([&] { good = NORLEX_wellContainer::create(description); }));
        if (!good)
            return failed("making a container");
    }
    auto large = newContainer(with.subfolder("containers") + "/large.well2");
    if (!large || !fillWells(*large->getBaseLink(), 10'000))
        return failed("filling a container");
    large.reset();
    for (std::size_t round = 0; round < 9; ++round) {
        bool good = true;
        opened.push_back(1e3 * timed([&] {
                             good = openContainer(with.subfolder("containers") + "/large.well2")
                                    != nullptr;
                         }));
        if (!good)
            return failed("opening a container");
    }
    add(figures, atMost("making a container", "ms", median(made), 150.0));
    add(figures, atMost("opening one of 10,000 wells", "ms", median(opened), 10.0));
    return true;
}

} // namespace

bool containers(const settings& with, std::vector<figure>& figures) {
    bool good = making(with, figures) && localRecords(with, figures);
    if (good && server::isThere())
        good = serverRecords(with, figures) && serverCopy(with, figures);
    std::error_code ignored;
    std::filesystem::remove_all(with.subfolder("containers"), ignored);
    return good;
}

} // namespace bench
