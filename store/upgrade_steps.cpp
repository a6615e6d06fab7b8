#include "store/upgrade_steps.h"

#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/string_table.h"
#include "store/container_settings.h"
#include "store/schema.h"
#include "store/upgrade_files.h"
#include "store/upgrade_logs.h"
#include "store/upgrade_passport.h"
#include "store/upgrade_stamps.h"
#include "store/upgrade_tools.h"

#include <algorithm>
#include <array>

using namespace sqlText;

namespace upgrade {

namespace {

struct statement {
    std::wstring_view table;
    std::wstring_view text;
};

bool run(odbc_database& db, std::span<const statement> statements) {
    return std::ranges::all_of(
        statements, [&](const statement& one) { return change(db, one.table, one.text); });
}

// The blanks inside are part of the text.
bool setOldProjection(odbc_database& db) {
    return !hasTable(db, L"meta")
           || containerSettings::setProjection(
               db, L"+proj=longlat +towgs84 = 28, -130, -95, 0, 0, 0, 0 + ellps = krass +no_defs");
}

// clang-format off
constexpr std::array<statement, 7> fieldTypes = {{
    {L"field_template", L"UPDATE field_template SET type = 'NORLEX_fieldTypeNumeric' WHERE type = 'NORLEX_fieldTypeInteger' OR type = 'NORLEX_fieldTypeDouble'"},
    {L"field_template", L"UPDATE field_template SET type = 'NORLEX_fieldTypeString' WHERE type = 'NORLEX_fieldTypeDict'"},
    {L"field", L"UPDATE field SET type = 'NORLEX_fieldTypeNumeric' WHERE type = 'NORLEX_fieldTypeInteger' OR type = 'NORLEX_fieldTypeDouble'"},
    {L"field", L"UPDATE field SET type = 'NORLEX_fieldTypeString' WHERE type = 'NORLEX_fieldTypeDict'"},
    {L"enums", L"DROP TABLE enums"},
    {L"field", L"UPDATE field SET type = 'NORLEX_fieldTypeBigstring' WHERE name = 'fld_description'"},
    {L"field_template", L"UPDATE field_template SET type = 'NORLEX_fieldTypeBigstring' WHERE name = 'fld_description'"},
}};

constexpr std::array<statement, 2> columnTypes = {{
    {L"base_template", L"UPDATE base_template SET type = 'NORLEX_dataTypeColumn' WHERE type = 'NORLEX_dataTypeStratigraphy'"},
    {L"base_template", L"UPDATE base_template SET type = 'NORLEX_dataTypeColumn' WHERE type = 'NORLEX_dataTypeLitology'"},
}};

// What the correlations were before they had stamps and types of picks.
constexpr std::array<schema::table, 3> firstCorrelations = {{
    {L"correlation",
     L"CREATE TABLE IF NOT EXISTS correlation (cor_id ",
     L", name TEXT)"},
    {L"correlation_borders",
     L"CREATE TABLE IF NOT EXISTS correlation_borders (b_id ",
     L", cor_id INTEGER, name TEXT, b_group TEXT)"},
    {L"correlation_data",
     L"CREATE TABLE IF NOT EXISTS correlation_data (d_id ",
     L", w_id INTEGER, b_id INTEGER, depth_real DOUBLE PRECISION, depth_abs DOUBLE PRECISION)"},
}};
// clang-format on

bool convertFieldTypes(odbc_database& db) {
    return run(db, fieldTypes);
}

bool convertColumnTypes(odbc_database& db) {
    return run(db, columnTypes);
}

// Names of fields that were codes once, in the order of the texts that replace them.
bool renameFields(odbc_database& db, std::wstring_view table, std::wstring_view column) {
    static constexpr std::array<std::wstring_view, 13> codes = {L"fld_name",
                                                                L"fld_description",
                                                                L"fld_border_type",
                                                                L"fld_value",
                                                                L"fld_age_index",
                                                                L"fld_yarus",
                                                                L"fld_sub_yarus",
                                                                L"fld_subject_type",
                                                                L"fld_subject_name",
                                                                L"fld_subject_index",
                                                                L"fld_subject_sub_name",
                                                                L"fld_subject_sub_index",
                                                                L"fld_VSEGEI_code"};
    unsigned int text = stringTable::fieldName;
    return std::ranges::all_of(codes, [&](std::wstring_view code) {
        return change(db,
                      table,
                      sql(L"UPDATE ",
                          table,
                          L" SET ",
                          column,
                          L" = ",
                          quoted(stringTable::text(text++)),
                          L" WHERE ",
                          column,
                          L" = ",
                          quoted(code)));
    });
}

bool renameTemplateFields(odbc_database& db) {
    return renameFields(db, L"field_template", L"name");
}

bool renamePropertyFields(odbc_database& db) {
    return renameFields(db, L"field", L"name") && renameFields(db, L"dict_link", L"field");
}

bool addPrecision(odbc_database& db) {
    return addColumn(db, L"field_template", L"prec", L"ALTER TABLE field_template ADD prec TEXT");
}

bool addShortName(odbc_database& db) {
    return addColumn(
        db, L"field_template", L"short_name", L"ALTER TABLE field_template ADD short_name TEXT");
}

// A template is written with all the columns of today, which later steps bring. One that cannot be
// made, because its name is taken, is not part of the container.
bool installTemplate(odbc_database& db, NORLEX_dataType type) {
    if (!addAuditColumns(db, L"base_template") || !addPrecision(db) || !addShortName(db))
        return false;
    static_cast<void>(NORLEX_propTemplate::createType(&db, type));
    return true;
}

bool installBorders(odbc_database& db) {
    return installTemplate(db, NORLEX_dataTypeBorder);
}

bool installConstruction(odbc_database& db) {
    return installTemplate(db, NORLEX_dataTypeConstruction);
}

bool installRasters(odbc_database& db) {
    const bool isConstruction = [&] {
        const auto rows =
            db.query(L"SELECT name FROM base_template WHERE type = 'NORLEX_dataTypeConstruction'");
        return rows && rows->next();
    }();
    return isConstruction || installTemplate(db, NORLEX_dataTypeRastr);
}

bool createProfiles(odbc_database& db) {
    return schema::create(db, L"profils");
}

bool createZones(odbc_database& db) {
    return schema::create(db, L"zones");
}

bool createDrilling(odbc_database& db) {
    return createFirstPassport(db) && schema::create(db, L"well_executors")
           && schema::create(db, L"well_drilling") && schema::create(db, L"well_construction");
}

// The borders of a correlation got groups in the place of types.
bool nameGroupField(odbc_database& db) {
    return change(
        db,
        L"field_template",
        sql(L"UPDATE field_template SET name = ",
            quoted(stringTable::text(stringTable::fieldGroup)),
            L" WHERE field_template.bt_id = (SELECT base_template.bt_id FROM base_template WHERE name = ",
            quoted(stringTable::text(stringTable::borderTemplateName)),
            L") AND field_template.name = ",
            quoted(stringTable::text(stringTable::fieldBorderType))));
}

bool createCorrelations(odbc_database& db) {
    return change(db, L"borders", L"DROP TABLE borders") && schema::create(db, firstCorrelations)
           && nameGroupField(db);
}

bool addFileComments(odbc_database& db) {
    return addColumn(db, L"file_link", L"comment", L"ALTER TABLE file_link ADD comment TEXT");
}

bool createConstruction(odbc_database& db) {
    return change(db, L"construction", L"DROP TABLE construction")
           && schema::create(db, L"construction");
}

bool createStatistics(odbc_database& db) {
    return schema::create(db, schema::statisticsTables());
}

bool createAttachedFiles(odbc_database& db) {
    return schema::create(db, schema::attachedFileTables())
           && addColumn(db, L"file_link", L"doc_id", L"ALTER TABLE file_link ADD doc_id INTEGER");
}

bool fillPrecision(odbc_database& db) {
    return addPrecision(db)
           && change(
               db,
               L"field_template",
               L"UPDATE field_template SET prec = '2' WHERE type = 'NORLEX_fieldTypeNumeric'");
}

bool addPointTypes(odbc_database& db) {
    return addColumn(db, L"point_data", L"type", L"ALTER TABLE point_data ADD type INTEGER")
           && change(db, L"point_data", L"UPDATE point_data SET type = 0");
}

bool createPlotTemplates(odbc_database& db) {
    return schema::create(db, schema::plotTemplateTables());
}

bool createVelocities(odbc_database& db) {
    return schema::create(db, L"vdm_data");
}

bool addPickTypes(odbc_database& db) {
    return addColumn(
               db, L"correlation_data", L"type", L"ALTER TABLE correlation_data ADD type INTEGER")
           && change(db, L"correlation_data", L"UPDATE correlation_data SET type = 0");
}

bool addShortNames(odbc_database& db) {
    return addShortName(db)
           && addColumn(db,
                        L"well_info_struct",
                        L"short_key",
                        L"ALTER TABLE well_info_struct ADD short_key TEXT");
}

// clang-format off
constexpr std::array<step, 31> chain = {{
    {5, setOldProjection},
    {6, convertFieldTypes},
    {7, moveSamplesToFiles},
    {9, convertColumnTypes},
    {10, shortenFilePaths},
    {11, createProfiles},
    {12, renameTemplateFields},
    {13, installBorders},
    {14, renamePropertyFields},
    {15, createZones},
    {16, createDrilling},
    {17, createCorrelations},
    {18, addFileComments},
    {19, installConstruction},
    {20, createConstruction},
    {21, createStatistics},
    {22, stampRows},
    {23, installRasters},
    {24, movePassport},
    {25, createAttachedFiles},
    {26, shortenRasterPaths},
    {27, gatherAttachedFiles},
    {28, fillPrecision},
    {29, addPointTypes},
    {30, createPlotTemplates},
    {31, importPlotTemplates},
    {32, createVelocities},
    {33, addPickTypes},
    {34, addShortNames},
    {35, fillShortKeys},
    {36, moveMetadata},
}};
// clang-format on

} // namespace

std::span<const step> steps() {
    return chain;
}

} // namespace upgrade
