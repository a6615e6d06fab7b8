#include "store/upgrade_passport.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/string_table.h"
#include "store/audit.h"
#include "store/schema.h"
#include "store/upgrade_tools.h"

#include "platform/uuid.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
#include <tuple>
#include <vector>

using namespace sqlText;

namespace upgrade {

namespace {

// Short names of the keys that were columns, in the order of the columns. A key's name is a text of
// the string table, from passportWellType on in the same order.
// clang-format off
constexpr std::array<std::wstring_view, 26> shortKeys = {
    L"WellType", // wellType
    L"DrillBegin", // dataBeginDrilling
    L"DrillEnd", // dataEndDrilling
    L"Closed", // dataWellClose
    L"WaterLevel", // waterLevel
    L"Drilled", // allDrillingValue
    L"Core_m", // allKernValue_m
    L"Core_p", // allKernValue_p
    L"DepthPlan", // projectDepth
    L"Depth", // currentDepth
    L"AnglePlan", // projectAngle
    L"Angle", // currentAngle
    L"AzimPlan", // projectAzimuth
    L"Azimuth", // currentAzimuth
    L"AngleDelta", // angelProjectDelta
    L"CorePlan_p", // projectKernValue_p
    L"CoreFact_p", // currentKernValue_p
    L"CoreWPlan", // projectKernWeight
    L"CoreWeight", // currentKernWeight
    L"CoreDiam", // kernDiametr
    L"Samples", // numProbe
    L"ThinSect", // numShlifProbe
    L"Specimens", // numExamplesProbe
    L"Boxes", // numProbeBoxes
    L"TestEnd", // dataEndTesting
    L"TestLoad", // dataTestLoading
};
// clang-format on

std::wstring keyName(std::size_t column) {
    return stringTable::text(stringTable::passportWellType + static_cast<unsigned int>(column));
}

using keyMap = std::map<std::wstring, std::int64_t>;

keyMap readKeys(odbc_database& db) {
    keyMap keys;
    const auto rows = db.query(L"SELECT key, i_id FROM well_info_struct");
    while (rows && rows->next())
        keys.emplace(rows->get_text(0), rows->get_counter(1));
    return keys;
}

std::int64_t lastOrder(odbc_database& db) {
    const auto rows = db.query(L"SELECT max(order_num) FROM well_info_struct");
    return rows && rows->next() ? rows->get_counter(0) : 0;
}

// A key for each of `names`, behind those that are there. What they hold is free text.
bool addKeys(odbc_database& db, std::span<const std::wstring> names, keyMap& keys) {
    keys = readKeys(db);
    std::int64_t order = lastOrder(db);
    for (const auto& name : names)
        if (!keys.contains(name)
            && !db.exec(sql(
                L"INSERT INTO well_info_struct (order_num, category, key, type, UUID, create_date, update_date, create_user, update_user) VALUES (",
                key(++order),
                L", '', ",
                quoted(name),
                L", 'NORLEX_fieldTypeString', ",
                audit::created(db),
                L")")))
            return false;
    keys = readKeys(db);
    return true;
}

struct passportValue {
    std::int64_t well = 0;
    std::wstring key;
    std::wstring value;
};

using knownValues = std::set<std::tuple<std::int64_t, std::int64_t, std::wstring>>;

knownValues readValues(odbc_database& db) {
    knownValues known;
    const auto rows = db.query(L"SELECT w_id, i_id, value FROM well_info_values");
    while (rows && rows->next())
        known.emplace(rows->get_counter(0), rows->get_counter(1), rows->get_text(2));
    return known;
}

bool insertValue(odbc_database& db, const passportValue& given, std::int64_t keyId) {
    const std::wstring now = db.cur_time();
    const std::wstring user = quoted(db.get_user());
    return db.exec(sql(
        L"INSERT INTO well_info_values (w_id, i_id, value, create_user, update_user, create_date, update_date, UUID) VALUES (",
        key(given.well),
        L", ",
        key(keyId),
        L", ",
        quoted(given.value),
        L", ",
        user,
        L", ",
        user,
        L", ",
        now,
        L", ",
        now,
        L", ",
        quoted(newUuid()),
        L")"));
}

// A value that its well has already, from a run that did not come to its end, is not added again.
bool addValues(odbc_database& db, const std::vector<passportValue>& values, const keyMap& keys) {
    const knownValues known = readValues(db);
    return std::ranges::all_of(values, [&](const passportValue& given) {
        const auto found = keys.find(given.key);
        return found != keys.end()
               && (known.contains({given.well, found->second, given.value})
                   || insertValue(db, given, found->second));
    });
}

struct drillingHeader {
    std::int64_t well = 0;
    std::array<std::wstring, 4> texts;
};

struct firstPassport {
    std::vector<passportValue> values; // that are not empty
    std::vector<drillingHeader> headers;
    std::vector<std::wstring> keys; // of the values, in the order of the columns
};

// Nothing where the table is not of 31 columns.
firstPassport readFirstPassport(odbc_database& db) {
    firstPassport found;
    std::set<std::size_t> used;
    const auto rows = db.query(
        L"SELECT w_id, wellType, dataBeginDrilling, dataEndDrilling, dataWellClose, waterLevel, allDrillingValue, allKernValue_m, allKernValue_p, projectDepth, currentDepth, projectAngle, currentAngle, projectAzimuth, currentAzimuth, angelProjectDelta, projectKernValue_p, currentKernValue_p, projectKernWeight, currentKernWeight, kernDiametr, numProbe, numShlifProbe, numExamplesProbe, numProbeBoxes, dataEndTesting, dataTestLoading, drillingType, drillingRig, drillingDocAuther, drillingDocChecker FROM well_info");
    while (rows && rows->next()) {
        const std::int64_t well = rows->get_counter(0);
        for (std::size_t i = 0; i < shortKeys.size(); ++i)
            if (std::wstring value = rows->get_text(static_cast<int>(i) + 1); !value.empty()) {
                found.values.push_back({well, keyName(i), std::move(value)});
                used.insert(i);
            }
        found.headers.push_back(
            {well,
             {rows->get_text(27), rows->get_text(28), rows->get_text(29), rows->get_text(30)}});
    }
    for (const std::size_t column : used)
        found.keys.push_back(keyName(column));
    return found;
}

bool keepHeader(odbc_database& db, const drillingHeader& header) {
    return db.exec(sql(
        L"INSERT INTO well_info_tmp (w_id, drillingType, drillingRig, drillingDocAuther, drillingDocChecker) VALUES (",
        key(header.well),
        L", ",
        quoted(header.texts[0]),
        L", ",
        quoted(header.texts[1]),
        L", ",
        quoted(header.texts[2]),
        L", ",
        quoted(header.texts[3]),
        L")"));
}

// A table `well_info_tmp` of an earlier run is part of what is still in `well_info`.
bool replaceFirstPassport(odbc_database& db, const std::vector<drillingHeader>& headers) {
    return change(db, L"well_info_tmp", L"DROP TABLE well_info_tmp")
           && db.exec(
               L"CREATE TABLE IF NOT EXISTS well_info_tmp (w_id INTEGER NOT NULL, drillingType TEXT, drillingRig TEXT, drillingDocAuther TEXT, drillingDocChecker TEXT)")
           && std::ranges::all_of(headers, [&](const auto& one) { return keepHeader(db, one); })
           && db.exec(L"DROP TABLE well_info");
}

bool moveFirstPassport(odbc_database& db) {
    const firstPassport found = readFirstPassport(db);
    keyMap keys;
    return addKeys(db, found.keys, keys) && addValues(db, found.values, keys)
           && replaceFirstPassport(db, found.headers);
}

std::vector<std::wstring> metadataKeys(odbc_database& db) {
    std::vector<std::wstring> keys;
    const auto rows = db.query(L"SELECT distinct(key) FROM meta WHERE m_group = 'well'");
    while (rows && rows->next())
        keys.push_back(rows->get_text(0));
    return keys;
}

std::vector<passportValue> metadataValues(odbc_database& db) {
    std::vector<passportValue> values;
    const auto rows = db.query(L"SELECT obj_id, value, key FROM meta WHERE m_group = 'well'");
    while (rows && rows->next())
        values.push_back({rows->get_counter(0), rows->get_text(2), rows->get_text(1)});
    return values;
}

} // namespace

bool createFirstPassport(odbc_database& db) {
    return db.exec(
        L"CREATE TABLE IF NOT EXISTS well_info (w_id INTEGER NOT NULL, wellType TEXT, dataBeginDrilling TEXT, dataEndDrilling TEXT, dataWellClose TEXT, waterLevel TEXT, allDrillingValue TEXT, allKernValue_m TEXT, allKernValue_p TEXT, projectDepth TEXT, currentDepth TEXT, projectAngle TEXT, currentAngle TEXT, projectAzimuth TEXT, currentAzimuth TEXT, angelProjectDelta TEXT, projectKernValue_p TEXT, currentKernValue_p TEXT, projectKernWeight TEXT, currentKernWeight TEXT, kernDiametr TEXT, numProbe TEXT, numShlifProbe TEXT, numExamplesProbe TEXT, numProbeBoxes TEXT, dataEndTesting TEXT, dataTestLoading TEXT, drillingType TEXT, drillingRig TEXT, drillingDocAuther TEXT, drillingDocChecker TEXT)");
}

// An earlier run may have got as far as dropping the old table.
bool movePassport(odbc_database& db) {
    if (!schema::create(db, schema::passportTables()))
        return false;
    if (hasColumn(db, L"well_info", L"wellType") && !moveFirstPassport(db))
        return false;
    return hasTable(db, L"well_info")
           || change(db, L"well_info_tmp", L"ALTER TABLE well_info_tmp RENAME TO well_info");
}

bool fillShortKeys(odbc_database& db) {
    for (std::size_t i = 0; i < shortKeys.size(); ++i)
        if (!change(db,
                    L"well_info_struct",
                    sql(L"UPDATE well_info_struct SET short_key = ",
                        quoted(shortKeys[i]),
                        L" WHERE key = ",
                        quoted(keyName(i)))))
            return false;
    return true;
}

bool moveMetadata(odbc_database& db) {
    keyMap keys;
    return addKeys(db, metadataKeys(db), keys) && addValues(db, metadataValues(db), keys)
           && change(db, L"meta", L"DELETE FROM meta WHERE m_group = 'well'");
}

} // namespace upgrade
