#include "wells/property_removal.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/transaction_files.h"
#include "store/well_path.h"
#include "wells/geometry_rows.h"
#include "wells/property_records.h"
#include "wells/query.h"

#include <algorithm>
#include <span>

using namespace sqlText;
using propertyRecords::geometry;

namespace propertyRemoval {

namespace {

// Properties: their tables are scanned. Fields: their values are found by an index, and the keys of
// their records are held in memory.
constexpr std::size_t propertiesPerStatement = 5000;
constexpr std::size_t fieldsPerStatement = 500;

using keys = std::vector<std::int64_t>;

// " = 7" or " IN (7,8)", after a column.
template <typename Keys>
std::wstring isOneOf(const Keys& values) {
    return values.size() == 1 ? sql(L" = ", key(static_cast<std::int64_t>(values.front())))
                              : sql(L" IN (", keyList(values), L")");
}

// Does `action` on one part of a list after the other.
template <typename Value, typename Action>
bool inParts(const std::vector<Value>& all, std::size_t most, Action action) {
    for (auto rest = std::span(all); !rest.empty();) {
        const auto part = rest.first(std::min(most, rest.size()));
        if (!action(part))
            return false;
        rest = rest.subspan(part.size());
    }
    return true;
}

keys readKeys(odbc_database& db, const std::wstring& statement) {
    keys out;
    const auto rows = db.query(statement);
    while (rows && rows->next())
        if (!rows->is_null(0))
            out.push_back(rows->get_counter(0));
    return out;
}

// The wells of the properties for which `isMeant` holds, a key each.
template <typename Predicate>
keys wellsOf(std::span<const found> properties, Predicate isMeant) {
    keys out;
    for (const auto& property : properties)
        if (isMeant(property.type))
            out.push_back(property.wellId);
    return out;
}

// Every value of a record names its geometry, those of records that lost it name none.
bool removeGeometry(odbc_database& db, geometry kind, std::span<const std::int64_t> fields) {
    if (kind != geometry::points && kind != geometry::intervals)
        return true;
    keys records = readKeys(
        db,
        kind == geometry::points
            ? sql(
                L"SELECT cast(point_data.obj_id as text) as obj_id  FROM val LEFT JOIN point_data ON val.obj_id = point_data.obj_id  WHERE val.f_id",
                isOneOf(fields))
            : sql(
                L"SELECT cast(interval_data.obj_id as text) as obj_id  FROM val LEFT JOIN interval_data ON val.obj_id = interval_data.obj_id  WHERE val.f_id",
                isOneOf(fields)));
    std::sort(records.begin(), records.end());
    records.erase(std::unique(records.begin(), records.end()), records.end());
    return geometryRows::remove(db, kind, records);
}

// Of properties of one kind. The fields of a single one are taken one by one: a server that has no
// statistics yet goes through whole tables for two keys, by an index for one.
bool removeFields(odbc_database& db, geometry kind, const keys& properties) {
    if (properties.empty())
        return true;
    const keys all = readKeys(db, sql(L"SELECT f_id FROM field WHERE pr_id", isOneOf(properties)));
    const std::size_t most = properties.size() == 1 ? 1 : fieldsPerStatement;
    return inParts(all, most, [&](std::span<const std::int64_t> fields) {
        return removeGeometry(db, kind, fields)
               && db.exec(sql(L"DELETE FROM val WHERE f_id", isOneOf(fields)))
               && db.exec(sql(L"DELETE FROM field WHERE f_id", isOneOf(fields)))
               // files attached to the cells of the fields
               && db.exec(sql(L"DELETE FROM prop_link WHERE fld_id", isOneOf(fields)));
    });
}

bool removeFieldsByKind(odbc_database& db, std::span<const found> properties) {
    keys points;
    keys intervals;
    keys others;
    for (const auto& property : properties) {
        const auto kind = propertyRecords::geometryOf(property.type);
        auto& list = kind == geometry::points      ? points
                     : kind == geometry::intervals ? intervals
                                                   : others;
        list.push_back(property.id);
    }
    return removeFields(db, geometry::points, points)
           && removeFields(db, geometry::intervals, intervals)
           && removeFields(db, geometry::none, others);
}

// Either kind of construction clears both tables: they make one picture of the well.
bool removeConstructions(odbc_database& db, const keys& wells) {
    return wells.empty()
           || (db.exec(sql(L"DELETE FROM well_construction WHERE w_id", isOneOf(wells)))
               && db.exec(sql(L"DELETE FROM construction WHERE w_id", isOneOf(wells))));
}

bool removeSamples(odbc_database& db, const NORLEX_propDescription& prop, const keys& wells) {
    if (wells.empty())
        return true;
    std::vector<std::wstring> paths;
    {
        const auto rows = db.query(sql(
            L"SELECT work_object, field, name, w_id FROM well_base WHERE w_id", isOneOf(wells)));
        while (rows && rows->next())
            paths.push_back(samplePathOf(
                NORLEX_getWellPath(&db,
                                   NORLEX_wellDescription{
                                       rows->get_text(0), rows->get_text(1), rows->get_text(2), 0}),
                prop));
    }
    return db.files().remove(paths);
}

// The picks of the correlation that a border property mirrors; the two share their name.
bool removePicks(odbc_database& db, const std::wstring& name, const keys& wells) {
    const std::int64_t id =
        wells.empty()
            ? 0
            : query::counter(
                &db, sql(L"SELECT cor_id FROM correlation WHERE name = ", quotedName(name)));
    return id == 0
           || db.exec(sql(
               L"DELETE FROM correlation_data WHERE b_id IN (SELECT b_id FROM correlation_borders WHERE cor_id = ",
               key(id),
               L") AND w_id",
               isOneOf(wells)));
}

// What kinds of property keep outside their own rows.
bool removeKindData(odbc_database& db,
                    const NORLEX_propDescription& prop,
                    std::span<const found> properties) {
    const auto wellsWith = [&](geometry kind) {
        return wellsOf(properties,
                       [kind](auto type) { return propertyRecords::geometryOf(type) == kind; });
    };
    const keys models = wellsOf(properties, propertyRecords::isVelocity);
    return removeConstructions(db,
                               wellsOf(properties,
                                       [](auto type) {
                                           return type == NORLEX_dataTypeConstruction
                                                  || type == NORLEX_dataTypeWorkConstruction;
                                       }))
           && removeSamples(db, prop, wellsWith(geometry::samples))
           && removePicks(db, prop.name, wellsWith(geometry::picks))
           && (models.empty() || db.exec(sql(L"DELETE FROM vdm_data WHERE w_id", isOneOf(models))));
}

bool removePart(odbc_database& db,
                const NORLEX_propDescription& prop,
                std::span<const found> properties) {
    keys ids;
    for (const auto& property : properties)
        ids.push_back(property.id);
    return removeKindData(db, prop, properties) && removeFieldsByKind(db, properties)
           && db.exec(
               sql(L"DELETE FROM meta WHERE obj_id", isOneOf(ids), L" AND m_group = 'property'"))
           // attached files
           && db.exec(sql(L"DELETE FROM file_link WHERE pr_id", isOneOf(ids)))
           && db.exec(sql(L"DELETE FROM property WHERE pr_id", isOneOf(ids)));
}

} // namespace

std::vector<found> find(odbc_database& db, const NORLEX_propDescription& prop) {
    std::vector<found> out;
    const auto rows = db.query(sql(
        L"SELECT property.pr_id, property.w_id, base_template.type FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE property.name = ",
        quotedName(prop.name),
        L" AND property.p_group = ",
        quotedName(prop.group),
        L" ORDER BY property.w_id"));
    while (rows && rows->next())
        out.push_back({rows->get_counter(0),
                       static_cast<std::uint32_t>(rows->get_counter(1)),
                       getDataTypeByEnum(rows->get_text(2))});
    return out;
}

bool remove(odbc_database& db,
            const NORLEX_propDescription& prop,
            const std::vector<found>& properties) {
    return inParts(properties, propertiesPerStatement, [&](std::span<const found> part) {
        return removePart(db, prop, part);
    });
}

} // namespace propertyRemoval
