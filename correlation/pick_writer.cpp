#include "correlation/pick_writer.h"

#include "correlation/cor_rows.h"
#include "correlation/pick_rows.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/row_inserter.h"
#include "platform/sql_text.h"
#include "store/audit.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/record_depths.h"

#include <set>

using namespace sqlText;
using correlation::newPick;
using correlation::onExistingPick;

namespace {

std::uint64_t placeOf(std::uint32_t wellId, std::uint32_t border) {
    return (std::uint64_t{wellId} << 32U) | border;
}

bool refuseUnread(odbc_database& db, const wchar_t* what) {
    return refuse(std::wstring(what) + L" cannot be read: " + db.last_error());
}

} // namespace

pickWriter::pickWriter(corEdit& edit, onExistingPick onExisting)
    : m_edit(edit), m_onExisting(onExisting) {}

bool pickWriter::open() {
    return readWells() && readStations() && readBorders() && (m_borders.empty() || readPicks());
}

bool pickWriter::readWells() {
    auto& db = m_edit.db();
    const auto rows =
        db.query(L"SELECT w_id, work_object, field, name, altitude, x, y FROM well_base");
    if (!rows)
        return refuseUnread(db, L"the wells");
    while (rows->next()) {
        const auto id = static_cast<std::uint32_t>(rows->get_counter(0));
        auto& one = m_wells[id];
        one.names = {rows->get_text(1), rows->get_text(2), rows->get_text(3), id};
        one.head = {rows->get_double(4), rows->get_double(5), rows->get_double(6)};
    }
    return true;
}

// All at once: the table has no index by well.
bool pickWriter::readStations() {
    auto& db = m_edit.db();
    const auto rows =
        db.query(L"SELECT w_id, depth, angle, azimuth FROM inclinometry ORDER BY depth");
    if (!rows)
        return refuseUnread(db, L"the surveys");
    while (rows->next())
        if (const auto found = m_wells.find(static_cast<std::uint32_t>(rows->get_counter(0)));
            found != m_wells.end()) {
            inclData& station = found->second.stations.emplace_back();
            station.depth = rows->get_double(1);
            station.angle = rows->get_double(2);
            station.azimuth = rows->get_double(3);
        }
    return true;
}

bool pickWriter::readBorders() {
    std::vector<correlation::borderName> known;
    corRows::readBorders(m_edit.db(), L"cor_id =" + key(m_edit.id()), known);
    for (const auto& one : known) {
        m_borderByName.try_emplace(one.name, static_cast<std::uint32_t>(m_borders.size()));
        m_borders.push_back({one.borderId, one.name, one.group});
    }
    return true;
}

bool pickWriter::readPicks() {
    std::unordered_map<std::int64_t, std::uint32_t> byId;
    for (const auto& one : m_borders)
        byId[one.id] = m_borderByName[one.name];
    const auto rows = m_edit.db().query(
        sql(L"SELECT d_id, w_id, b_id FROM correlation_data WHERE b_id IN (SELECT b_id FROM "
            L"correlation_borders WHERE cor_id =",
            key(m_edit.id()),
            L")"));
    if (!rows)
        return refuseUnread(m_edit.db(), L"the picks");
    while (rows->next())
        m_present.try_emplace(
            placeOf(static_cast<std::uint32_t>(rows->get_counter(1)), byId[rows->get_counter(2)]),
            rows->get_counter(0));
    return true;
}

std::wstring pickWriter::complete(knownWell& of, NORLEX_geometryRecord& record) {
    if (!of.survey) {
        of.survey = std::make_unique<NORLEX_inclinometry>(
            &m_edit.db(), of.names.wellId, of.head, of.stations);
        of.stations = {};
    }
    return recordDepths::completePoint(record, of.survey.get());
}

std::uint32_t pickWriter::borderOf(const std::wstring& name, const std::wstring& group) {
    const auto [place, isNew] =
        m_borderByName.try_emplace(name, static_cast<std::uint32_t>(m_borders.size()));
    if (isNew)
        m_borders.push_back({0, name, plainName(group)});
    return place->second;
}

void pickWriter::addBorder(const std::wstring& name) {
    auto& one = m_borders[borderOf(plainName(name), {})];
    one.isUsed = one.isUsed || one.id == 0;
}

pickWriter::outcome pickWriter::add(const newPick& pick, std::wstring& reason) {
    const auto found = m_wells.find(pick.wellId);
    if (found == m_wells.end()) {
        reason = L"there is no well with the key " + key(pick.wellId);
        return outcome::bad;
    }
    if (plainName(pick.border).empty()) {
        reason = L"the name of the border is empty; one character or more is expected";
        return outcome::bad;
    }
    if (pick.type < 0 || pick.type > pickRows::lastType) {
        reason = L"the border type " + std::to_wstring(pick.type)
                 + L" is not known; 0 to 255 are expected";
        return outcome::bad;
    }
    NORLEX_geometryRecord record;
    record.top = pick.depth;
    record.topAbs = pick.depthAbs;
    reason = complete(found->second, record);
    if (!reason.empty())
        return outcome::bad;
    const std::uint32_t border = borderOf(plainName(pick.border), pick.group);
    const auto [place, isNew] = m_present.try_emplace(placeOf(pick.wellId, border), 0);
    const std::int64_t presentId = place->second;
    if (!isNew && (presentId == 0 || m_onExisting == onExistingPick::fail)) {
        reason = L"the border " + corRows::quote(m_borders[border].name)
                 + (presentId == 0 ? L" comes twice on the well " : L" is picked on the well ")
                 + names::shown(found->second.names) + (presentId == 0 ? L"" : L" already");
        return outcome::bad;
    }
    if (!isNew && m_onExisting == onExistingPick::skip)
        return outcome::passedOver;
    place->second = 0;
    m_pending.push_back({presentId, pick.wellId, border, record.top, record.topAbs, pick.type});
    return outcome::taken;
}

void pickWriter::cutBack(std::size_t count) {
    for (; m_pending.size() > count; m_pending.pop_back()) {
        const auto& last = m_pending.back();
        if (last.movedId == 0)
            m_present.erase(placeOf(last.wellId, last.border));
        else
            m_present[placeOf(last.wellId, last.border)] = last.movedId;
    }
}

bool pickWriter::makeBorders() {
    auto& db = m_edit.db();
    rowInserter batch(
        db,
        L"INSERT INTO correlation_borders (cor_id, name, b_group, UUID, create_date, update_date, create_user, update_user) VALUES ");
    for (const auto& one : m_borders) {
        if (one.id != 0 || !one.isUsed)
            continue;
        ++m_sums.borders;
        announce::afterCommit(db, [name = one.name](auto& observer, const auto& container) {
            observer.createCorrBorder(container, name);
        });
        if (!batch.add(sql(L"(",
                           key(m_edit.id()),
                           L", ",
                           quoted(one.name),
                           L", ",
                           quoted(one.group),
                           L", ",
                           audit::created(db),
                           L")")))
            return false;
    }
    if (!batch.finish())
        return false;
    std::vector<correlation::borderName> known;
    corRows::readBorders(db, L"cor_id =" + key(m_edit.id()), known);
    for (const auto& one : known)
        if (const auto at = m_borderByName.find(one.name);
            at != m_borderByName.end() && m_borders[at->second].id == 0)
            m_borders[at->second].id = one.borderId;
    for (const auto& one : m_borders)
        if (one.isUsed && one.id == 0)
            return refuseUnread(db, L"the new border names");
    return true;
}

bool pickWriter::writePicks() {
    auto& db = m_edit.db();
    rowInserter batch(
        db, L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs, type) VALUES ");
    for (const auto& one : m_pending) {
        const std::wstring real = fixed(one.depth, 2);
        const std::wstring abs = fixed(one.depthAbs, 2);
        if (one.movedId != 0) {
            ++m_sums.moved;
            if (!db.exec(sql(L"UPDATE correlation_data SET depth_real =",
                             real,
                             L", depth_abs =",
                             abs,
                             L" WHERE d_id =",
                             key(one.movedId))))
                return false;
            continue;
        }
        ++m_sums.inserted;
        if (!batch.add(sql(L"(",
                           key(one.wellId),
                           L",",
                           key(m_borders[one.border].id),
                           L",",
                           real,
                           L",",
                           abs,
                           L",",
                           key(one.type),
                           L")")))
            return false;
    }
    return batch.finish();
}

bool pickWriter::stamp() {
    std::vector<std::int64_t> borders;
    for (const auto& one : m_borders)
        if (one.isUsed)
            borders.push_back(one.id);
    std::set<std::uint32_t> used;
    for (const auto& one : m_pending)
        used.insert(one.wellId);
    std::vector<NORLEX_wellDescription> wells;
    wells.reserve(used.size());
    for (const std::uint32_t id : used)
        wells.push_back(m_wells[id].names);
    mirrors::found have;
    if (!mirrors::ensure(m_edit.db(), m_edit.prop(), wells, have))
        return false;
    m_sums.wells = wells.size();
    m_sums.mirrors = have.created.size();
    return corRows::touchBorders(m_edit.db(), borders)
           && mirrors::tell(m_edit.db(), m_edit.prop(), wells, have);
}

bool pickWriter::finish() {
    for (const auto& one : m_pending)
        m_borders[one.border].isUsed = true;
    return makeBorders() && (m_pending.empty() || (writePicks() && stamp()));
}
