#include "store/schema.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"

#include <algorithm>
#include <array>

using namespace sqlText;

namespace schema {

namespace {

// In the order in which a new container makes them. The blanks inside the texts are part of them.
// clang-format off
constexpr std::array<table, 36> container = {{
    {L"base_version",
     L"CREATE TABLE IF NOT EXISTS base_version (id INTEGER PRIMARY KEY, version INTEGER, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)",
     {}},
    {L"base_template",
     L"CREATE TABLE IF NOT EXISTS base_template (bt_id ",
     L", name TEXT NOT NULL, description TEXT, type TEXT NOT NULL, draw_type TEXT, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)"},
    {L"field_template",
     L"CREATE TABLE IF NOT EXISTS field_template (ft_id ",
     L", bt_id INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL, is_base INTEGER NOT NULL, prec TEXT, short_name TEXT)"},
    {L"well_base",
     L"CREATE TABLE IF NOT EXISTS well_base (w_id ",
     L", work_object TEXT, name TEXT NOT NULL, field TEXT, altitude DOUBLE PRECISION, bottom DOUBLE PRECISION, x DOUBLE PRECISION, y DOUBLE PRECISION, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)"},
    {L"inclinometry",
     L"CREATE TABLE IF NOT EXISTS inclinometry (w_id INTEGER NOT NULL, depth DOUBLE PRECISION NOT NULL, angle DOUBLE PRECISION NOT NULL, azimuth DOUBLE PRECISION NOT NULL )",
     {}},
    {L"property",
     L"CREATE TABLE IF NOT EXISTS property (pr_id ",
     L", w_id INTEGER NOT NULL, bt_id INTEGER NOT NULL, name TEXT NOT NULL, p_group TEXT, description TEXT, draw_type TEXT, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)"},
    {L"field",
     L"CREATE TABLE IF NOT EXISTS field (f_id ",
     L", pr_id INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL, is_base INTEGER NOT NULL)"},
    {L"val",
     L"CREATE TABLE IF NOT EXISTS val (v_id ",
     L", f_id INTEGER NOT NULL, value TEXT, obj_id INTEGER NOT NULL)"},
    {L"point_data",
     L"CREATE TABLE IF NOT EXISTS point_data (obj_id ",
     L", depth REAL NOT NULL, depth_abs REAL NOT NULL, type INTEGER NOT NULL)"},
    {L"interval_data",
     L"CREATE TABLE IF NOT EXISTS interval_data (obj_id ",
     L", top REAL NOT NULL, bot REAL NOT NULL, top_abs REAL NOT NULL, bot_abs REAL NOT NULL)"},
    {L"meta",
     L"CREATE TABLE IF NOT EXISTS meta (m_id ",
     L", m_group TEXT NOT NULL, obj_id INTEGER NOT NULL, key TEXT NOT NULL, value TEXT)"},
    {L"prop_link",
     L"CREATE TABLE IF NOT EXISTS prop_link (obj_id INTEGER NOT NULL, fld_id INTEGER NOT NULL, file_name TEXT NOT NULL, comment TEXT)",
     {}},
    {L"profils",
     L"CREATE TABLE IF NOT EXISTS profils  (prf_id ",
     L",   name TEXT NOT NULL,   comment TEXT,   well_ids TEXT)"},
    {L"zones",
     L"CREATE TABLE IF NOT EXISTS zones (z_id ",
     L",  top_name TEXT NOT NULL,  bot_name TEXT NOT NULL,  name TEXT NOT NULL,  comment TEXT)"},
    {L"well_info",
     L"CREATE TABLE IF NOT EXISTS well_info (w_id INTEGER NOT NULL, drillingType TEXT, drillingRig TEXT, drillingDocAuther TEXT, drillingDocChecker TEXT)",
     {}},
    {L"well_executors",
     L"CREATE TABLE IF NOT EXISTS well_executors (w_id INTEGER NOT NULL, name TEXT, position TEXT)",
     {}},
    {L"well_drilling",
     L"CREATE TABLE IF NOT EXISTS well_drilling (u_id ",
     L", w_id INTEGER NOT NULL, date TEXT, smena TEXT, diametr TEXT, materials TEXT, from_depth DOUBLE PRECISION, to_depth DOUBLE PRECISION, kern TEXT, ugol TEXT, others TEXT)"},
    {L"well_construction",
     L"CREATE TABLE IF NOT EXISTS well_construction (u_id ",
     L", w_id INTEGER NOT NULL, from_dig DOUBLE PRECISION, to_dig DOUBLE PRECISION, diametr_dig DOUBLE PRECISION, from_pipe DOUBLE PRECISION, to_pipe DOUBLE PRECISION, diametr_concrete DOUBLE PRECISION, comment TEXT)"},
    {L"construction",
     L"CREATE TABLE IF NOT EXISTS construction (id ",
     L", w_id INTEGER NOT NULL, type INTEGER NOT NULL, inner_d DOUBLE PRECISION, outer_d DOUBLE PRECISION, top_real DOUBLE PRECISION, bot_real DOUBLE PRECISION, text TEXT )"},
    {L"correlation",
     L"CREATE TABLE IF NOT EXISTS correlation (cor_id ",
     L", name TEXT, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)"},
    {L"correlation_borders",
     L"CREATE TABLE IF NOT EXISTS correlation_borders (b_id ",
     L", cor_id INTEGER, name TEXT, b_group TEXT, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)"},
    {L"correlation_data",
     L"CREATE TABLE IF NOT EXISTS correlation_data (d_id ",
     L", w_id INTEGER, b_id INTEGER, depth_real DOUBLE PRECISION, depth_abs DOUBLE PRECISION, type INTEGER)"},
    {L"well_stat_table",
     L"CREATE TABLE IF NOT EXISTS well_stat_table (wt_id ",
     L", name TEXT NOT NULL, creation_date TEXT, update_date TEXT, calc_date TEXT, create_user TEXT, update_user TEXT, UUID TEXT)"},
    {L"well_stat_fld",
     L"CREATE TABLE IF NOT EXISTS well_stat_fld (wf_id ",
     L", wt_id INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL)"},
    {L"well_stat_vals",
     L"CREATE TABLE IF NOT EXISTS well_stat_vals (w_id INTEGER NOT NULL, wf_id INTEGER NOT NULL, value TEXT)",
     {}},
    {L"well_stat_fld_formula",
     L"CREATE TABLE IF NOT EXISTS well_stat_fld_formula (wf_id INTEGER NOT NULL, formula TEXT)",
     {}},
    {L"well_stat_fld_stat",
     L"CREATE TABLE IF NOT EXISTS well_stat_fld_stat (wf_id INTEGER NOT NULL, propName TEXT, propGroup TEXT, propFld TEXT, statistic INTEGER)",
     {}},
    {L"well_stat_fld_filter",
     L"CREATE TABLE IF NOT EXISTS well_stat_fld_filter (wf_id INTEGER NOT NULL, propFld TEXT, operation INTEGER, value TEXT, linkCond INTEGER, orderCond INTEGER)",
     {}},
    {L"well_info_struct",
     L"CREATE TABLE IF NOT EXISTS well_info_struct (i_id ",
     L", order_num INTEGER, category TEXT, key TEXT NOT NULL, short_key TEXT, type TEXT NOT NULL, link_id TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT, UUID TEXT)"},
    {L"well_info_values",
     L"CREATE TABLE IF NOT EXISTS well_info_values (i_id INTEGER NOT NULL, w_id INTEGER NOT NULL, value TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT, UUID TEXT)",
     {}},
    {L"dict_info_link",
     L"CREATE TABLE IF NOT EXISTS dict_info_link (link_id ",
     L", i_id INTEGER NOT NULL, dict_id INTEGER NOT NULL )"},
    {L"file_link",
     L"CREATE TABLE IF NOT EXISTS file_link (id ",
     L", pr_id INTEGER NOT NULL, doc_id INTEGER, f_id INTEGER, path TEXT NOT NULL, name TEXT NOT NULL, comment TEXT)"},
    {L"file_doc_link",
     L"CREATE TABLE IF NOT EXISTS file_doc_link (doc_id ",
     L", name TEXT NOT NULL, description TEXT, category TEXT)"},
    {L"file_folder_link",
     L"CREATE TABLE IF NOT EXISTS file_folder_link (f_id ",
     L", w_id INTEGER, name TEXT NOT NULL, description TEXT)"},
    {L"planshet_template",
     L"CREATE TABLE IF NOT EXISTS planshet_template (t_id ",
     L", name TEXT NOT NULL)"},
    {L"vdm_data",
     L"CREATE TABLE IF NOT EXISTS vdm_data (dt_id ",
     L", w_id INTEGER NOT NULL, depth DOUBLE PRECISION, time DOUBLE PRECISION)"},
}};

constexpr std::array<table, 3> dictionary = {{
    {L"dict_main",
     L"CREATE TABLE IF NOT EXISTS dict_main (dict_id ",
     L", name TEXT NOT NULL, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)"},
    {L"dict_values",
     L"CREATE TABLE IF NOT EXISTS dict_values (v_id ",
     L", code TEXT NOT NULL, value TEXT NOT NULL, dict_id INTEGER NOT NULL)"},
    {L"dict_link",
     L"CREATE TABLE IF NOT EXISTS dict_link (link_id ",
     L", p_group TEXT NOT NULL, prop TEXT NOT NULL, field TEXT NOT NULL, dict_id INTEGER NOT NULL, UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)"},
}};

// No key; `user` is a column name here.
constexpr std::array<table, 1> journal = {{
    {L"log_table",
     L"CREATE TABLE IF NOT EXISTS log_table (user TEXT, cur_date TEXT, object TEXT, action TEXT, comment TEXT)",
     {}},
}};
// clang-format on

struct index {
    std::wstring_view create;
    std::wstring_view drop;
};

constexpr std::array<index, 3> indexes = {{
    {L"CREATE INDEX IF NOT EXISTS property_index ON property (pr_id)",
     L"DROP INDEX IF EXISTS property_index"},
    {L"CREATE INDEX IF NOT EXISTS field_index ON field (f_id)",
     L"DROP INDEX IF EXISTS field_index"},
    {L"CREATE INDEX IF NOT EXISTS val_field_index ON val (f_id)",
     L"DROP INDEX IF EXISTS val_field_index"},
}};

// The tables from the one named `first` on.
constexpr std::span<const table> group(std::wstring_view first, std::size_t count) {
    const auto found = std::find_if(
        container.begin(), container.end(), [&](const table& t) { return t.name == first; });
    return std::span(container).subspan(static_cast<std::size_t>(found - container.begin()), count);
}

} // namespace

std::span<const table> containerTables() {
    return container;
}

std::span<const table> statisticsTables() {
    static constexpr auto tables = group(L"well_stat_table", 6);
    return tables;
}

std::span<const table> passportTables() {
    static constexpr auto tables = group(L"well_info_struct", 3);
    return tables;
}

std::span<const table> attachedFileTables() {
    static constexpr auto tables = group(L"file_link", 2);
    return tables;
}

std::span<const table> plotTemplateTables() {
    static constexpr auto tables = group(L"planshet_template", 1);
    return tables;
}

std::span<const table> dictionaryTables() {
    return dictionary;
}

std::span<const table> journalTables() {
    return journal;
}

bool create(odbc_database& db, std::span<const table> tables) {
    return std::all_of(tables.begin(), tables.end(), [&](const table& t) {
        if (t.after.empty())
            return db.exec(t.before);
        return db.exec(sql(t.before, db.primary_key(), t.after));
    });
}

bool create(odbc_database& db, std::wstring_view name) {
    const auto found = std::find_if(
        container.begin(), container.end(), [&](const table& t) { return t.name == name; });
    if (found == container.end())
        return refuse(
            sql(L"cannot create the table ", name, L": the schema has none of this name"));
    return create(db, std::span(found, 1));
}

bool createIndexes(odbc_database& db) {
    return std::all_of(
        indexes.begin(), indexes.end(), [&](const index& i) { return db.exec(i.create); });
}

bool dropIndexes(odbc_database& db) {
    return std::all_of(
        indexes.begin(), indexes.end(), [&](const index& i) { return db.exec(i.drop); });
}

} // namespace schema
