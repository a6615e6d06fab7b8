#include "NORLEX_corInterval.h"

#include "NORLEX_well.h"
#include "NORLEX_wellContainer.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/row_inserter.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_records.h"

#include <algorithm>
#include <cmath>
#include <set>

using namespace sqlText;

namespace {

// The property's fields are a list of keys rather than further joins: engines know little of how
// many wells bear a name, and begin with the millions of values otherwise.
constexpr const wchar_t* withValues =
    L" FROM interval_data INNER JOIN val ON val.obj_id = interval_data.obj_id WHERE ";

std::wstring ofProperty(const NORLEX_propDescription& prop, const NORLEX_wellDescription& well) {
    return sql(
        L"val.f_id IN (SELECT field.f_id FROM field WHERE field.pr_id IN (SELECT property.pr_id FROM property WHERE property.w_id IN (SELECT well_base.w_id FROM well_base WHERE well_base.name = ",
        quotedName(well.name),
        L" AND well_base.field = ",
        quotedName(well.field),
        L" AND well_base.work_object = ",
        quotedName(well.workObject),
        L") AND property.name = ",
        quotedName(prop.name),
        L" AND property.p_group = ",
        quotedName(prop.group),
        L"))");
}

bool areDepths(double a, double b) {
    return std::isfinite(a) && std::isfinite(b);
}

// The depth of the other pair of columns is stored with two decimals.
constexpr double sameDepth = 0.0051;

// The property of the well, open, with the well that holds its survey.
struct openProperty {
    openProperty(odbc_database* db,
                 const NORLEX_wellDescription& of,
                 const NORLEX_propDescription& prop)
        : well(db, of) {
        if (well.isOK())
            property = well.openProperty(prop);
        if (property
            && propertyRecords::geometryOf(property->getType())
                   != propertyRecords::geometry::intervals) {
            refuse(L"the property " + names::shown(prop) + L" holds no intervals");
            property.reset();
        }
    }
    explicit operator bool() const { return property != nullptr; }

    NORLEX_well well;
    std::unique_ptr<NORLEX_wellProperty> property;
};

bool removeRows(odbc_database& db,
                std::int64_t propertyId,
                const std::set<std::int64_t>& intervals,
                const std::vector<std::int64_t>& values) {
    return manyKeys::forEachPart(values,
                                 [&](const std::wstring& keys) {
                                     return db.exec(
                                         sql(L"DELETE FROM val WHERE v_id IN (", keys, L")"));
                                 })
           && manyKeys::forEachPart(
               std::vector(intervals.begin(), intervals.end()), [&](const std::wstring& keys) {
                   return db.exec(sql(L"DELETE FROM interval_data WHERE obj_id IN (", keys, L")"))
                          // files attached to the values
                          && db.exec(sql(
                              L"DELETE FROM prop_link WHERE fld_id IN (SELECT f_id FROM field WHERE pr_id = ",
                              key(propertyId),
                              L") AND obj_id IN (",
                              keys,
                              L")"));
               });
}

bool announceData(odbc_database& db,
                  const NORLEX_wellProperty& property,
                  const NORLEX_wellDescription& well) {
    announce::afterCommit(
        db,
        [well, prop = NORLEX_propDescription(property.getName(), property.getGroup())](
            auto& observer, const auto& container) {
            observer.updateDataProperty(0, container, well, prop);
        });
    return propertyRecords::touch(db, property.getID());
}

} // namespace

NORLEX_corInterval::NORLEX_corInterval(const NORLEX_contDescription& container,
                                       std::vector<NORLEX_wellDescription> wells,
                                       const NORLEX_propDescription& property,
                                       NORLEX_dataDirection direction)
    : m_container(std::make_unique<NORLEX_wellContainer>(container)), m_wells(std::move(wells)),
      m_property(names::plain(property)), m_direction(direction) {}

NORLEX_corInterval::~NORLEX_corInterval() = default;

bool NORLEX_corInterval::isOK() const {
    return m_container->isOK();
}

void NORLEX_corInterval::setDataDirection(NORLEX_dataDirection direction) {
    m_direction = direction;
}

void NORLEX_corInterval::updateWellList(std::vector<NORLEX_wellDescription> wells) {
    m_wells = std::move(wells);
}

const NORLEX_wellDescription* NORLEX_corInterval::wellAt(std::size_t well) const {
    return well < m_wells.size() && m_container->isOK() ? &m_wells[well] : nullptr;
}

bool NORLEX_corInterval::isAny(std::size_t well, const std::wstring& condition) const {
    const auto* const of = wellAt(well);
    const auto rows =
        of != nullptr
            ? m_container->getBaseLink()->query(sql(L"SELECT distinct(interval_data.obj_id)",
                                                    withValues,
                                                    condition,
                                                    L" AND ",
                                                    ofProperty(m_property, *of)))
            : nullptr;
    return rows && rows->next();
}

bool NORLEX_corInterval::isObjectAtDepth(std::size_t well, double depth1, double depth2) const {
    if (!areDepths(depth1, depth2))
        return false;
    const std::wstring low = number(std::min(depth1, depth2));
    const std::wstring high = number(std::max(depth1, depth2));
    return isAny(
        well,
        m_direction == NORLEX_dataDirectionMeasured
            ? sql(L"interval_data.top <= ", high, L" AND interval_data.bot >= ", low)
            : sql(L"interval_data.top_abs >= ", low, L" AND interval_data.bot_abs <= ", high));
}

bool NORLEX_corInterval::isBorderAtDepth(std::size_t well, double depth1, double depth2) const {
    if (!areDepths(depth1, depth2))
        return false;
    const std::wstring low = number(std::min(depth1, depth2));
    const std::wstring high = number(std::max(depth1, depth2));
    return isAny(well,
                 m_direction == NORLEX_dataDirectionMeasured
                     ? sql(L"((interval_data.top <=",
                           high,
                           L" AND interval_data.top >=",
                           low,
                           L") OR (interval_data.bot <=",
                           high,
                           L" AND interval_data.bot >=",
                           low,
                           L"))")
                     : sql(L"((interval_data.top_abs <=",
                           high,
                           L" AND interval_data.top_abs >=",
                           low,
                           L") OR (interval_data.bot_abs <=",
                           high,
                           L" AND interval_data.bot_abs >=",
                           low,
                           L"))"));
}

bool NORLEX_corInterval::getIntervals(std::size_t well, std::vector<interval>& intervals) const {
    intervals.clear();
    const auto* const of = wellAt(well);
    if (of == nullptr)
        return false;
    const bool isMeasured = m_direction == NORLEX_dataDirectionMeasured;
    auto& db = *m_container->getBaseLink();
    const auto rows = db.query(
        sql(isMeasured ? L"SELECT distinct(interval_data.top), interval_data.bot"
                       : L"SELECT distinct(interval_data.top_abs), interval_data.bot_abs",
            withValues,
            ofProperty(m_property, *of),
            isMeasured ? L" ORDER BY interval_data.top ASC, interval_data.bot ASC"
                       : L" ORDER BY interval_data.top_abs DESC, interval_data.bot_abs DESC"));
    if (!rows)
        return refuse(L"the intervals cannot be read: " + db.last_error());
    while (rows->next())
        intervals.emplace_back(rows->get_double(0), rows->get_double(1));
    return true;
}

bool NORLEX_corInterval::foundInterval(std::size_t well,
                                       double depth,
                                       double& top,
                                       double& bottom) const {
    std::vector<interval> all;
    if (!getIntervals(well, all))
        return false;
    const bool isMeasured = m_direction == NORLEX_dataDirectionMeasured;
    const auto holds = [&](const interval& one) {
        return isMeasured ? one.first <= depth && depth <= one.second
                          : one.first >= depth && depth >= one.second;
    };
    const auto found = std::find_if(all.rbegin(), all.rend(), holds);
    if (found == all.rend())
        return false;
    top = found->first;
    bottom = found->second;
    return true;
}

bool NORLEX_corInterval::addInterval(std::size_t well, double top, double bottom) {
    const auto* const of = wellAt(well);
    if (of == nullptr)
        return false;
    const openProperty open(m_container->getBaseLink(), *of, m_property);
    if (!open)
        return false;
    const std::vector<std::wstring> values(open.property->getFields().size());
    constexpr double unknown = NORLEX_unknownDepth;
    return m_direction == NORLEX_dataDirectionMeasured
               ? open.property->createPlastCommit(top, bottom, unknown, unknown, values)
               : open.property->createPlastCommit(unknown, unknown, top, bottom, values);
}

bool NORLEX_corInterval::moveIntervalBorder(std::size_t well, double oldDepth, double newDepth) {
    const auto* const of = wellAt(well);
    if (of == nullptr)
        return false;
    if (!areDepths(oldDepth, newDepth))
        return refuse(L"a depth of the border is not finite; a number is expected");
    auto* const db = m_container->getBaseLink();
    openProperty open(db, *of, m_property);
    transaction edit(db);
    if (!open || !edit.isOpen())
        return false;
    const bool isMeasured = m_direction == NORLEX_dataDirectionMeasured;
    const double measured = isMeasured ? newDepth : open.well.getIncl()->getReal(newDepth);
    auto& survey = *open.well.getIncl();
    const auto isThere = [&](double depth) { return std::abs(depth - oldDepth) < sameDepth; };
    bool isMoved = false;
    const auto records = open.property->getRecords(); // a copy: edits read them anew
    for (const auto& record : records) {
        // in a hole that rises the top is the lower end
        const bool rises = survey.getAbs(record.bot) > survey.getAbs(record.top);
        const double topAbs = rises ? record.botAbs : record.topAbs;
        const double botAbs = rises ? record.topAbs : record.botAbs;
        const bool isTop = isThere(isMeasured ? record.top : topAbs);
        const bool isBottom = !isTop && isThere(isMeasured ? record.bot : botAbs);
        if (!isTop && !isBottom)
            continue;
        const double top = isTop ? measured : record.top;
        const double bottom = isBottom ? measured : record.bot;
        if (!(top < bottom))
            return refuse(L"an interval of " + names::shown(m_property)
                          + L" would have no thickness; a depth between its ends is expected");
        isMoved = true;
        if (!open.property->updateDepth(record.obj_id, top, bottom))
            return false;
    }
    if (!isMoved)
        return refuse(L"the property " + names::shown(m_property)
                      + L" has neither a top nor a bottom at this depth");
    return edit.commit();
}

bool NORLEX_corInterval::delInterval(std::size_t well, double depth) {
    const auto* const of = wellAt(well);
    if (of == nullptr || !std::isfinite(depth))
        return false;
    auto* const db = m_container->getBaseLink();
    const openProperty open(db, *of, m_property);
    transaction edit(db);
    if (!open || !edit.isOpen())
        return false;
    std::set<std::int64_t> intervals;
    std::vector<std::int64_t> values;
    {
        const std::wstring at = number(depth);
        const auto rows = db->query(sql(L"SELECT distinct(interval_data.obj_id), val.v_id",
                                        withValues,
                                        m_direction == NORLEX_dataDirectionMeasured
                                            ? sql(L"top <=", at, L" AND bot >=", at)
                                            : sql(L"top_abs >=", at, L" AND bot_abs <=", at),
                                        L" AND ",
                                        ofProperty(m_property, *of)));
        while (rows && rows->next()) {
            intervals.insert(rows->get_counter(0));
            values.push_back(rows->get_counter(1));
        }
    }
    if (intervals.empty())
        return refuse(L"the property " + names::shown(m_property)
                      + L" has no interval around this depth");
    return removeRows(*db, open.property->getID(), intervals, values)
           && announceData(*db, *open.property, open.well.getDescription()) && edit.commit();
}
