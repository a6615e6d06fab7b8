#include "wells/record_copy.h"

#include "NORLEX_inclinometry.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "templates/property_fields.h"
#include "wells/names.h"
#include "wells/record_depths.h"
#include "wells/record_set.h"
#include "wells/record_writer.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <vector>

using namespace sqlText;
using propertyRecords::geometry;

namespace recordCopy {

namespace {

// The depth and values by which a record is known again.
using fingerprint = std::tuple<double, double, std::wstring>;

constexpr wchar_t between = L'\x1f'; // unit separator

// The values of a record in the order of other fields, by name.
class translator {
public:
    translator(const std::vector<propertyFields::row>& source,
               const std::vector<propertyFields::row>& target) {
        for (const auto& field : target) {
            const auto at = std::find_if(
                source.begin(), source.end(), [&](const auto& f) { return f.name == field.name; });
            m_sources.push_back(static_cast<std::size_t>(at - source.begin()));
        }
    }
    [[nodiscard]] std::vector<std::wstring> values(const recordSet& from,
                                                   std::size_t record) const {
        std::vector<std::wstring> out;
        for (const std::size_t field : m_sources) // past the end reads as empty
            out.emplace_back(from.value(field, record));
        return out;
    }

private:
    std::vector<std::size_t> m_sources;
};

std::vector<std::int64_t> keysOf(const std::vector<propertyFields::row>& fields) {
    std::vector<std::int64_t> keys;
    keys.reserve(fields.size());
    for (const auto& field : fields)
        keys.push_back(field.fieldId);
    return keys;
}

// Fields that the source has and the target does not; a property may have more than its template.
bool addFields(odbc_database& db,
               std::int64_t target,
               const std::vector<propertyFields::row>& wanted) {
    const auto present = propertyFields::read(db, target);
    for (const auto& field : wanted)
        if (std::none_of(
                present.begin(), present.end(), [&](const auto& f) { return f.name == field.name; })
            && !propertyFields::addWithValues(db, target, field.name, field.type))
            return false;
    return true;
}

// The record in another well: the depths of `direction` stay, the others are converted.
std::wstring convert(NORLEX_geometryRecord& r,
                     bool arePoints,
                     NORLEX_dataDirection direction,
                     NORLEX_inclinometry& incl) {
    if (direction == NORLEX_dataDirectionMeasured)
        r.topAbs = r.botAbs = NORLEX_unknownDepth;
    else
        r.top = r.bot = NORLEX_unknownDepth;
    return arePoints ? recordDepths::completePoint(r, &incl)
                     : recordDepths::completeInterval(r, &incl);
}

fingerprint fingerprintOf(const NORLEX_geometryRecord& r,
                          NORLEX_dataDirection direction,
                          const std::vector<std::wstring>& values) {
    std::wstring text;
    for (const auto& value : values)
        (text += value) += between;
    return direction == NORLEX_dataDirectionMeasured ? fingerprint(r.top, r.bot, text)
                                                     : fingerprint(r.topAbs, r.botAbs, text);
}

// Attached files of the values, by the keys of their records before and after.
bool copyLinks(odbc_database& db,
               const std::vector<propertyFields::row>& source,
               const std::vector<propertyFields::row>& target,
               const std::map<std::int64_t, std::int64_t>& newKeys) {
    struct link {
        std::int64_t fieldId, recordId;
        std::wstring file, comment;
    };
    std::vector<link> found;
    for (const auto& from : source) {
        const auto to = std::find_if(
            target.begin(), target.end(), [&](const auto& f) { return f.name == from.name; });
        const auto rows =
            db.query(sql(L"SELECT obj_id, file_name, comment FROM prop_link WHERE fld_id = ",
                         key(from.fieldId)));
        while (rows && rows->next())
            if (const auto at = newKeys.find(rows->get_counter(0));
                at != newKeys.end() && to != target.end())
                found.push_back({to->fieldId, at->second, rows->get_text(1), rows->get_text(2)});
    }
    return std::all_of(found.begin(), found.end(), [&](const link& l) {
        return db.exec(sql(L"INSERT INTO prop_link (obj_id, fld_id, file_name, comment) VALUES (",
                           key(l.recordId),
                           L", ",
                           key(l.fieldId),
                           L", ",
                           quoted(l.file),
                           L", ",
                           quoted(l.comment),
                           L")"));
    });
}

} // namespace

bool run(odbc_database& db,
         std::int64_t source,
         const propertyRecords::row& target,
         geometry kind,
         NORLEX_dataDirection direction) {
    const auto sourceFields = propertyFields::read(db, source);
    if (!addFields(db, target.id, sourceFields))
        return false;
    const auto targetFields = propertyFields::read(db, target.id);
    recordSet from;
    recordSet present;
    if (!from.readRecords(db, kind, keysOf(sourceFields))
        || !present.readRecords(db, kind, keysOf(targetFields)))
        return false;
    std::set<fingerprint> known;
    const translator same(targetFields, targetFields);
    for (std::size_t i = 0; i < present.records().size(); ++i)
        known.insert(fingerprintOf(present.records()[i], direction, same.values(present, i)));
    NORLEX_inclinometry incl(&db, target.wellId);
    const translator translate(sourceFields, targetFields);
    const auto keys = keysOf(targetFields);
    recordWriter writer(db, kind);
    std::map<std::int64_t, std::int64_t> newKeys;
    for (std::size_t i = 0; i < from.records().size(); ++i) {
        auto record = from.records()[i];
        const auto values = translate.values(from, i);
        if (const auto why = convert(record, kind == geometry::points, direction, incl);
            !why.empty())
            return refuse(L"record " + std::to_wstring(i + 1) + L" of "
                          + names::shown(target.description) + L": " + why);
        if (!known.empty() && known.contains(fingerprintOf(record, direction, values)))
            continue;
        newKeys[record.obj_id] = writer.nextKey();
        if (!writer.add(record, keys, values))
            return false;
    }
    return writer.finish() && copyLinks(db, sourceFields, targetFields, newKeys);
}

} // namespace recordCopy
