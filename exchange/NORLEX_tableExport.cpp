#include "NORLEX_tableExport.h"

#include "NORLEX_lastError.h"
#include "exchange/exported_data.h"
#include "exchange/table_writer.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/progress.h"
#include "wells/names.h"
#include "wells/query.h"

#include <algorithm>
#include <cerrno>

using propertyRecords::geometry;

namespace {

using sources = std::vector<exportedData::source>;

// The fields of all properties, each once; the only one of a log is its value.
std::vector<exportedData::column> fieldsOf(const sources& properties) {
    if (properties.front().kind == geometry::samples)
        return {{L"value", nullptr}};
    std::vector<exportedData::column> out;
    for (const auto& property : properties)
        for (const auto& field : property.fieldNames)
            if (std::ranges::find(out, field, &exportedData::column::field) == out.end())
                out.push_back({field, nullptr});
    return out;
}

// A dictionary is bound to a field of the property in every well.
void findDictionaries(odbc_database& db,
                      const NORLEX_propDescription& prop,
                      std::vector<exportedData::column>& fields) {
    for (auto& column : fields)
        if (const auto name = NORLEX_dictionary::getDictFromLink(&db, prop, column.field);
            !name.empty())
            column.dictionary = std::make_shared<NORLEX_dictionary>(&db, name);
}

bool areWritable(const sources& properties, const NORLEX_propDescription& prop) {
    if (properties.empty())
        return refuse(L"no well has a property " + names::shown(prop));
    const auto kind = properties.front().kind;
    if (kind == geometry::none)
        return refuse(L"the property " + names::shown(prop)
                      + L" is of a kind that has no records in depth; points, intervals, picks and"
                        L" logs can be written");
    for (const auto& property : properties)
        if (property.kind != kind)
            return refuse(L"the property " + names::shown(prop)
                          + L" is of another kind in the well " + names::shown(property.well)
                          + L" than in " + names::shown(properties.front().well)
                          + L"; choose the wells");
    return true;
}

bool writeHeader(const sources& properties,
                 const std::vector<exportedData::column>& fields,
                 tableWriter& table) {
    table.add(L"well");
    for (const auto& column : exportedData::depthColumns(properties.front().kind))
        table.add(column);
    for (const auto& column : fields)
        table.add(column.field);
    return table.endRow();
}

bool writeRows(odbc_database& db,
               const std::wstring& path,
               const NORLEX_tableExportOptions& options,
               const sources& properties,
               tableWriter& table,
               NORLEX_tableExportResult& result) {
    auto fields = fieldsOf(properties);
    if (options.dictionaryValues)
        findDictionaries(db, properties.front().description, fields);
    if (!writeHeader(properties, fields, table))
        return false;
    progress steps(path, properties.size());
    for (const auto& property : properties) {
        if (steps.isStopped())
            return refuse(L"writing " + path + L" was stopped");
        if (!exportedData::write(db, property, fields, table, result.rows))
            return false;
        steps.advance(++result.wells);
    }
    return table.finish();
}

bool writeTable(odbc_database& db,
                const std::wstring& path,
                const NORLEX_tableExportOptions& options,
                const sources& properties,
                NORLEX_tableExportResult& result) {
    return files::replace(path, [&](std::FILE* file) {
        tableWriter table(file, options.separator, options.encoding);
        const bool done = writeRows(db, path, options, properties, table, result);
        if (!NORLEX_lastError().empty())
            errno = 0; // what the database left there is not why
        return done;
    });
}

bool writeAll(odbc_database* db,
              const std::wstring& path,
              const NORLEX_tableExportOptions& options,
              NORLEX_tableExportResult& result) {
    if (!query::isOpen(db) || !tableWriter::accepts(options.separator, options.encoding))
        return false;
    sources properties;
    return exportedData::find(*db, options.property, options.wells, properties)
           && areWritable(properties, options.property)
           && writeTable(*db, path, options, properties, result);
}

} // namespace

NORLEX_tableExportResult NORLEX_exportTable(odbc_database* db,
                                            const std::wstring& path,
                                            const NORLEX_tableExportOptions& options) {
    NORLEX_tableExportResult result;
    refuse({}); // so that the line found afterwards is of this table
    result.ok = writeAll(db, path, options, result);
    if (result.ok)
        return result;
    result.rows = 0;
    result.wells = 0;
    if (NORLEX_lastError().empty())
        refuse(L"cannot write " + path);
    result.error = NORLEX_lastError();
    return result;
}
