// Many records at once: of one property, of many, from a table.
#include "NORLEX_inclinometry.h"
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "tableReader.h"
#include "templates/property_fields.h"
#include "wells/announce.h"
#include "wells/bulk_rows.h"
#include "wells/names.h"
#include "wells/property_state.h"
#include "wells/query.h"
#include "wells/record_writer.h"
#include "wells/table_rows.h"
#include "wells/well_records.h"

#include <cmath>
#include <map>

using propertyRecords::geometry;

namespace {

bool holdsRecords(geometry kind) {
    return kind == geometry::points || kind == geometry::intervals;
}

// One of the properties that createDataBulk writes.
struct target {
    std::uint32_t wellId = 0;
    std::int64_t id = 0;
    std::vector<std::int64_t> fields;
    NORLEX_inclinometry* incl = nullptr;
};

using surveys = std::map<std::uint32_t, NORLEX_inclinometry>;

// Finds the property, or makes it. One of another type is refused.
bool prepare(odbc_database& db,
             const NORLEX_bulkName& name,
             NORLEX_dataType type,
             surveys& known,
             target& out) {
    const auto prop = names::plain(name.property);
    out.wellId = name.wellId;
    out.id = propertyRecords::find(db, name.wellId, prop);
    if (out.id == 0) {
        if (!NORLEX_wellProperty::create(&db, name.wellId, type, prop))
            return false;
        out.id = propertyRecords::find(db, name.wellId, prop);
    } else if (const auto row = propertyRecords::read(db, out.id); !row || row->type != type)
        return refuse(L"the property " + names::shown(prop) + L" is of another type than "
                      + getDataTypeEnum(type));
    for (const auto& field : propertyFields::read(db, out.id))
        out.fields.push_back(field.fieldId);
    out.incl = &known.try_emplace(name.wellId, &db, name.wellId).first->second;
    return true;
}

bool writeRows(odbc_database& db,
               geometry kind,
               const std::vector<target>& targets,
               const std::vector<NORLEX_bulkRow>& rows) {
    recordWriter writer(db, kind);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::wstring reason;
        NORLEX_geometryRecord record;
        if (rows[i].target >= targets.size())
            reason = L"there is no target " + std::to_wstring(rows[i].target) + L"; a number below "
                     + std::to_wstring(targets.size()) + L" is expected";
        else
            record = bulkRows::toRecord(rows[i],
                                        kind == geometry::points,
                                        targets[rows[i].target].fields.size(),
                                        targets[rows[i].target].incl,
                                        reason);
        if (!reason.empty())
            return refuse(L"row " + std::to_wstring(i + 1) + L": " + reason);
        if (!writer.add(record, targets[rows[i].target].fields, rows[i].values))
            return false;
    }
    return writer.finish();
}

bool stampAndAnnounce(odbc_database& db,
                      const std::vector<NORLEX_bulkName>& names,
                      const std::vector<target>& targets) {
    for (std::size_t i = 0; i < targets.size(); ++i) {
        const auto well = wellRecords::read(db, targets[i].wellId);
        if (!well || !propertyRecords::touch(db, targets[i].id))
            return false;
        const NORLEX_propDescription prop = names::plain(names[i].property);
        announce::afterCommit(db, [well = *well, prop](auto& observer, const auto& container) {
            observer.updateDataProperty(0, container, well, prop);
        });
    }
    return true;
}

} // namespace

bool NORLEX_wellProperty::createDataBulk(odbc_database* db,
                                         const std::vector<NORLEX_bulkName>& names,
                                         const std::vector<NORLEX_bulkRow>& rows,
                                         NORLEX_dataType type) {
    const auto kind = propertyRecords::geometryOf(type);
    if (!query::isOpen(db))
        return false;
    if (!holdsRecords(kind))
        return refuse(L"records cannot be loaded into properties of type " + std::to_wstring(type)
                      + L"; points or intervals are expected");
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    surveys known;
    std::vector<target> targets(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        if (!prepare(*db, names[i], type, known, targets[i]))
            return false;
    return writeRows(*db, kind, targets, rows) && stampAndAnnounce(*db, names, targets)
           && edit.commit();
}

bool NORLEX_wellProperty::prepareBulk(const std::vector<NORLEX_bulkRow>& rows) {
    refresh();
    const auto kind = propertyRecords::geometryOf(m_state->type);
    if (!m_state->ok || !holdsRecords(kind))
        return refuse(L"the property " + names::shown(m_state->descr)
                      + L" is not open or holds neither points nor intervals");
    return rows.empty()
           || editRecords([&] { return bulkRows::write(*m_db, kind, fieldKeys(), m_incl, rows); },
                          true);
}

bool NORLEX_wellProperty::prepareBulk(const std::vector<double>& depths,
                                      const std::vector<std::wstring>& values,
                                      NORLEX_dataDirection direction) {
    if (!holds(geometryKind::points))
        return false;
    if (depths.size() != values.size())
        return refuse(std::to_wstring(depths.size()) + L" depths and "
                      + std::to_wstring(values.size())
                      + L" values are given; equal numbers are expected");
    std::vector<NORLEX_bulkRow> rows(depths.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        (direction == NORLEX_dataDirectionMeasured ? rows[i].top : rows[i].topAbs) = depths[i];
        rows[i].values.resize(m_state->fields.size());
        if (!rows[i].values.empty())
            rows[i].values.front() = values[i];
    }
    return prepareBulk(rows);
}

bool NORLEX_wellProperty::prepareBulkPow(double top,
                                         const std::vector<NORLEX_thicknessRow>& rows,
                                         NORLEX_dataDirection direction) {
    if (!holds(geometryKind::intervals))
        return false;
    const bool isMeasured = direction == NORLEX_dataDirectionMeasured;
    std::vector<NORLEX_bulkRow> layers;
    layers.reserve(rows.size());
    for (const auto& row : rows) {
        if (!std::isfinite(row.thickness) || row.thickness <= 0.0)
            return refuse(L"row " + std::to_wstring(layers.size() + 1)
                          + L": the thickness is no number above 0");
        const double bot = isMeasured ? top + row.thickness : top - row.thickness;
        NORLEX_bulkRow layer;
        (isMeasured ? layer.top : layer.topAbs) = top;
        (isMeasured ? layer.bot : layer.botAbs) = bot;
        layer.values = row.values;
        layers.push_back(std::move(layer));
        top = bot;
    }
    return prepareBulk(layers);
}

bool NORLEX_wellProperty::prepareBulk(tableRW::tableReader& reader,
                                      const NORLEX_tableColumns& columns,
                                      const NORLEX_tableOptions& options,
                                      NORLEX_tableReport& report) {
    report = {};
    refresh();
    const auto kind = propertyRecords::geometryOf(m_state->type);
    if (!m_state->ok || !holdsRecords(kind))
        return refuse(L"the property " + names::shown(m_state->descr)
                      + L" is not open or holds neither points nor intervals");
    const tableRows::parser parser(columns, options, m_state->fields, kind == geometry::points);
    if (!parser.fault().empty())
        return refuse(parser.fault());
    return editRecords(
        [&] {
            recordWriter writer(*m_db, kind);
            const auto write = [&](const NORLEX_geometryRecord& record,
                                   const std::vector<std::wstring>& values) {
                return writer.add(record, fieldKeys(), values);
            };
            return tableRows::readAll(reader, parser, options, m_incl, write, report)
                   && writer.finish();
        },
        true);
}
