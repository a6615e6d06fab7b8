#include "store/upgrade_logs.h"

#include "NORLEX_logSample.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/transaction_files.h"
#include "store/well_path.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <vector>

using namespace sqlText;

namespace upgrade {

namespace {

// Samples go to the disk as they lie in memory.
static_assert(std::endian::native == std::endian::little && sizeof(NORLEX_logSample) == 24);

struct log {
    std::int64_t property = 0;
    std::uint32_t well = 0;
    NORLEX_propDescription name;
};

std::vector<log> readLogs(odbc_database& db) {
    std::vector<log> logs;
    const auto rows = db.query(
        L"SELECT property.pr_id, property.w_id, property.name, property.p_group FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE base_template.type = 'NORLEX_dataTypeLog'");
    while (rows && rows->next())
        logs.push_back({rows->get_counter(0),
                        static_cast<std::uint32_t>(rows->get_counter(1)),
                        {rows->get_text(2), rows->get_text(3)}});
    return logs;
}

// The field that held the values: the one of this name, else the first; 0 without fields.
std::int64_t valueField(odbc_database& db, const log& one) {
    std::int64_t found = 0;
    const auto rows = db.query(
        sql(L"SELECT f_id, name FROM field WHERE pr_id = ", key(one.property), L" ORDER BY f_id"));
    while (rows && rows->next())
        if (found == 0 || rows->get_text(1) == L"fld_value")
            found = rows->get_counter(0);
    return found;
}

// Older programs wrote the decimal sign of the user's country. A text that is no number is a
// missing sample.
double sampleValue(std::wstring text) {
    std::ranges::replace(text, L',', L'.');
    const auto value = numbers::toDouble(std::wstring_view(text));
    return value && std::isfinite(*value) ? *value : NORLEX_missingValue;
}

std::vector<NORLEX_logSample> readSamples(odbc_database& db, std::int64_t field) {
    std::vector<NORLEX_logSample> samples;
    const auto rows = db.query(sql(
        L"SELECT point_data.depth, point_data.depth_abs, val.value FROM val INNER JOIN point_data ON val.obj_id = point_data.obj_id WHERE val.f_id = ",
        key(field),
        L" ORDER BY point_data.depth, point_data.obj_id"));
    while (rows && rows->next())
        samples.push_back(
            {rows->get_double(0), rows->get_double(1), sampleValue(rows->get_text(2))});
    return samples;
}

// The sample file of today (docs/formats.md), which holds the range of the values: a mark and a
// reserved number of 4 bytes each, ten doubles, the count, and the missing mark again.
std::array<char, 100> header(const std::vector<NORLEX_logSample>& samples) {
    constexpr double missing = NORLEX_missingValue;
    double smallest = missing;
    double largest = -missing;
    for (const auto& sample : samples)
        if (sample.value != missing) {
            smallest = std::min(smallest, sample.value);
            largest = std::max(largest, sample.value);
        }
    const double whole = (largest - smallest) * 0.5;
    const double half = std::isfinite(whole) ? whole : largest * 0.5 - smallest * 0.5;
    const std::array<double, 10> numbers = {smallest, largest, half, missing};
    constexpr std::int32_t mark = -2;
    const auto count = static_cast<std::uint32_t>(samples.size());
    std::array<char, 100> bytes{};
    std::memcpy(bytes.data(), &mark, sizeof mark);
    std::memcpy(bytes.data() + 8, numbers.data(), sizeof numbers);
    std::memcpy(bytes.data() + 88, &count, sizeof count);
    std::memcpy(bytes.data() + 92, &missing, sizeof missing);
    return bytes;
}

bool writeSamples(std::FILE* file, const std::vector<NORLEX_logSample>& samples) {
    const auto head = header(samples);
    return files::put(file, {head.data(), head.size()})
           && std::fwrite(samples.data(), sizeof(NORLEX_logSample), samples.size(), file)
                  == samples.size();
}

// A point that another field of the log has a value for stays.
bool removeRows(odbc_database& db, const log& one, std::int64_t field) {
    return db.exec(sql(
               L"DELETE FROM point_data WHERE obj_id IN (SELECT obj_id FROM val WHERE f_id = ",
               key(field),
               L") AND obj_id NOT IN (SELECT val.obj_id FROM val INNER JOIN field ON field.f_id = val.f_id WHERE field.pr_id = ",
               key(one.property),
               L" AND field.f_id <> ",
               key(field),
               L")"))
           && db.exec(sql(L"DELETE FROM val WHERE f_id = ", key(field)));
}

bool moveToFile(odbc_database& db, const log& one) {
    const std::int64_t field = valueField(db, one);
    const auto samples = readSamples(db, field);
    const std::wstring folder = NORLEX_getWellPath(&db, one.well);
    if (samples.empty() || folder.empty())
        return true; // the samples lie in a file already, or there is no such well
    return db.files().write(samplePathOf(folder, one.name), [&](std::FILE* file) {
        return writeSamples(file, samples);
    }) && removeRows(db, one, field);
}

} // namespace

bool moveSamplesToFiles(odbc_database& db) {
    const auto logs = readLogs(db);
    return std::ranges::all_of(logs, [&](const log& one) { return moveToFile(db, one); });
}

} // namespace upgrade
