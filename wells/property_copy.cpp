// Copying a property: between wells, and under another name.
#include "NORLEX_inclinometry.h"
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/metadata.h"
#include "wells/names.h"
#include "wells/property_state.h"
#include "wells/query.h"
#include "wells/record_copy.h"

#include <algorithm>
#include <iterator>
#include <set>

using namespace sqlText;
using propertyRecords::geometry;

namespace {

// Samples at depths that `present` does not have are added to it, in increasing measured depth.
std::vector<NORLEX_logSample> merged(std::vector<NORLEX_logSample> present,
                                     const std::vector<NORLEX_logSample>& added) {
    std::set<double> depths;
    for (const auto& sample : present)
        depths.insert(sample.depth);
    std::copy_if(added.begin(), added.end(), std::back_inserter(present), [&](const auto& s) {
        return !depths.contains(s.depth);
    });
    std::stable_sort(present.begin(), present.end(), [](const auto& a, const auto& b) {
        return a.depth < b.depth;
    });
    return present;
}

bool copySamples(odbc_database& db,
                 std::int64_t source,
                 const propertyRecords::row& target,
                 bool isNew,
                 NORLEX_dataDirection direction) {
    NORLEX_inclinometry incl(&db, target.wellId);
    NORLEX_wellProperty from(&db, source, &incl);
    NORLEX_wellProperty to(&db, target.id, &incl);
    if (from.getRecordCount() == 0)
        return true; // made from a template and never filled
    std::vector<NORLEX_logSample> samples;
    if (!from.getSamples(samples))
        return false;
    for (auto& sample : samples)
        if (direction == NORLEX_dataDirectionMeasured)
            sample.depthAbs = incl.getAbs(sample.depth);
        else
            sample.depth = incl.getReal(sample.depthAbs);
    std::vector<NORLEX_logSample> present;
    if (!isNew && to.getRecordCount() != 0 && !to.getSamples(present))
        return false;
    if (!present.empty())
        samples = merged(std::move(present), samples);
    return to.setSamples(std::move(samples)) && to.commit(!isNew);
}

// What the row says of the property besides its names; attributes that the target has stay.
bool copyAttributes(odbc_database& db, std::int64_t source, std::int64_t target) {
    const auto present = metadata::getAll(db, metadata::ofProperty, target);
    auto values = metadata::getAll(db, metadata::ofProperty, source);
    std::erase_if(values, [&](const auto& value) {
        return std::any_of(
            present.begin(), present.end(), [&](const auto& p) { return p.first == value.first; });
    });
    return values.empty() || metadata::add(db, metadata::ofProperty, target, values);
}

bool copyLooks(odbc_database& db, std::int64_t source, std::int64_t target) {
    std::wstring comment;
    std::wstring drawType;
    {
        const auto rows = db.query(
            sql(L"SELECT description, draw_type FROM property WHERE pr_id = ", key(source)));
        if (!rows || !rows->next())
            return true;
        comment = rows->get_text(0);
        drawType = rows->get_text(1);
    }
    return db.exec(sql(L"UPDATE property SET description = ",
                       quoted(comment),
                       L", draw_type = ",
                       quoted(drawType),
                       L" WHERE pr_id = ",
                       key(target)));
}

bool copyData(odbc_database& db,
              std::int64_t source,
              const propertyRecords::row& target,
              bool isNew,
              NORLEX_dataDirection direction) {
    const auto kind = propertyRecords::geometryOf(target.type);
    if (kind == geometry::samples)
        return copySamples(db, source, target, isNew, direction);
    return recordCopy::run(db, source, target, kind, direction);
}

} // namespace

bool NORLEX_wellProperty::copy(odbc_database* db,
                               std::uint32_t srcWell,
                               const NORLEX_propDescription& givenSource,
                               std::uint32_t dstWell,
                               const NORLEX_propDescription& givenTarget,
                               NORLEX_db_prop_merge merge,
                               NORLEX_dataDirection direction) {
    if (!query::isOpen(db))
        return false;
    const auto srcProp = names::plain(givenSource);
    const auto dstProp = names::plain(givenTarget);
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    const std::int64_t sourceId = propertyRecords::find(*db, srcWell, srcProp);
    const auto source = sourceId != 0 ? propertyRecords::read(*db, sourceId) : std::nullopt;
    if (!source)
        return refuseMissing(db,
                             L"the well with the key " + key(srcWell) + L" has no property "
                                 + names::shown(srcProp));
    const auto kind = propertyRecords::geometryOf(source->type);
    if (kind != geometry::points && kind != geometry::intervals && kind != geometry::samples)
        return refuse(L"the property " + names::shown(srcProp)
                      + L" cannot be copied; one with points, intervals or samples is expected");
    if (propertyRecords::isVelocity(source->type))
        return refuse(L"the property " + names::shown(srcProp)
                      + L" shows the velocity model of its well; that model may be copied, and "
                        L"velocities be made of the copy");
    if (srcWell == dstWell && srcProp == dstProp)
        return refuse(L"the property " + names::shown(srcProp) + L" would be copied onto itself");
    std::int64_t targetId = propertyRecords::find(*db, dstWell, dstProp);
    if (targetId != 0 && merge == NORLEX_db_prop_merge_skip)
        return edit.commit();
    if (targetId != 0 && merge == NORLEX_db_prop_merge_replace) {
        if (!removeSilent(db, dstWell, dstProp))
            return false;
        targetId = 0;
    }
    const bool isNew = targetId == 0;
    if (isNew) {
        if (!create(db, dstWell, source->templateName, dstProp))
            return false;
        targetId = propertyRecords::find(*db, dstWell, dstProp);
    }
    const auto target = propertyRecords::read(*db, targetId);
    if (!target || (!isNew && target->templateName != source->templateName))
        return refuse(L"the property " + names::shown(dstProp) + L" is of another template than "
                      + source->templateName);
    if (!copyData(*db, sourceId, *target, isNew, direction)
        || !copyAttributes(*db, sourceId, targetId)
        || (isNew && !copyLooks(*db, sourceId, targetId)))
        return false;
    NORLEX_wellProperty changed(db, targetId, nullptr);
    return changed.editRecords([] { return true; }, !isNew) && edit.commit();
}

bool NORLEX_wellProperty::copy(odbc_database* db,
                               std::uint32_t srcWell,
                               std::uint32_t dstWell,
                               const NORLEX_propDescription& prop,
                               bool replace,
                               NORLEX_dataDirection direction) {
    if (!query::isOpen(db))
        return false;
    if (!replace && isExist(db, dstWell, names::plain(prop)))
        return refuse(L"the destination has a property " + names::shown(prop)
                      + L" already; another well is expected, or that it may be replaced");
    return copy(db, srcWell, prop, dstWell, prop, NORLEX_db_prop_merge_replace, direction);
}
