#include "store/upgrade_files.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"
#include "store/plot_templates.h"
#include "store/schema.h"
#include "store/upgrade_copies.h"
#include "store/upgrade_tools.h"
#include "store/well_path.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

using namespace sqlText;

namespace upgrade {

namespace {

// With one kind of separator, for comparing.
std::wstring slashed(std::wstring path) {
    std::ranges::replace(path, L'\\', L'/');
    return path;
}

bool isAbsolute(const std::wstring& path) {
    const std::wstring plain = slashed(path);
    return plain.starts_with(L'/') || (plain.size() > 2 && plain[1] == L':' && plain[2] == L'/');
}

// What follows a folder named as the file directory, where that is a file of the file directory.
std::wstring behindFolderName(const std::wstring& root, const std::wstring& path) {
    const std::wstring bare = slashed(root).substr(0, root.size() - 1);
    const std::wstring folder = ts::strconv::lower(L"/" + files::nameOf(bare) + L"/");
    const std::wstring plain = ts::strconv::lower(slashed(path));
    if (plain.size() != path.size())
        return path; // letters whose lower case is longer: the places differ
    for (auto at = plain.find(folder); at != std::wstring::npos; at = plain.find(folder, at + 1)) {
        const std::wstring rest = path.substr(at + folder.size());
        if (!rest.empty() && files::isFile(root + rest))
            return rest;
    }
    return path;
}

std::wstring shortened(const odbc_database& db, const std::wstring& path) {
    const std::wstring root = NORLEX_getFilePath(db);
    if (root.empty() || !isAbsolute(path))
        return path;
    if (path.size() > root.size() && slashed(path).starts_with(slashed(root)))
        return path.substr(root.size());
    return behindFolderName(root, path);
}

struct pathRow {
    std::int64_t id = 0;
    std::wstring path;
};

// The rows of a query of key and path whose paths can be shortened, with the shorter path.
std::vector<pathRow> shortenedRows(odbc_database& db, std::wstring_view query) {
    std::vector<pathRow> found;
    const auto rows = db.query(query);
    while (rows && rows->next()) {
        const std::wstring path = rows->get_text(1);
        pathRow row{rows->get_counter(0), shortened(db, path)};
        if (row.path != path)
            found.push_back(std::move(row));
    }
    return found;
}

struct attachedFile {
    std::int64_t property = 0;
    std::wstring path;
    std::wstring name;
    std::wstring comment;
    std::int64_t document = 0; // 0: none
};

bool readAttached(odbc_database& db, std::vector<attachedFile>& out) {
    const auto rows = db.query(
        L"select file_link.pr_id, file_link.path, file_link.name, file_link.comment, file_link.doc_id, file_doc_link.name, file_doc_link.description, file_doc_link.category FROM file_link LEFT JOIN file_doc_link ON file_link.doc_id = file_doc_link.doc_id ORDER by file_link.pr_id, file_link.doc_id");
    while (rows && rows->next())
        out.push_back({rows->get_counter(0),
                       rows->get_text(1),
                       rows->get_text(2),
                       rows->get_text(3),
                       rows->is_null(5) ? 0 : rows->get_counter(4)}); // 5: the document's name
    return rows || refuse(db.last_error());
}

bool insertAttached(odbc_database& db, const attachedFile& file) {
    return db.exec(sql(L"INSERT INTO file_link (pr_id, path, name, comment, doc_id) VALUES(",
                       key(file.property),
                       L", ",
                       quoted(file.path),
                       L", ",
                       quoted(file.name),
                       L", ",
                       quoted(file.comment),
                       L", ",
                       file.document == 0 ? L"NULL" : key(file.document),
                       L")"));
}

// The folder of a property's files with a separator at its end; empty without the property.
std::wstring attachedFolder(odbc_database& db, std::int64_t property) {
    std::uint32_t well = 0;
    NORLEX_propDescription name;
    {
        const auto rows = db.query(
            sql(L"SELECT w_id, name, p_group FROM property WHERE pr_id = ", key(property)));
        if (!rows || !rows->next())
            return {};
        well = static_cast<std::uint32_t>(rows->get_counter(0));
        name = {rows->get_text(1), rows->get_text(2)};
    }
    const std::wstring wellFolder = NORLEX_getWellPath(&db, well);
    if (wellFolder.empty())
        return {};
    const std::wstring samples = samplePathOf(wellFolder, name);
    const auto stem = samples.size() - files::extensionOf(samples).size();
    return samples.substr(0, stem) + L"_files" + wellFolder.back();
}

// Files from outside that were copied, by their paths: several rows may name one.
using copies = std::map<std::pair<std::int64_t, std::wstring>, std::wstring>;

// A file that is not there, or whose property is not, keeps its path.
bool takeIn(odbc_database& db, attachedFile& file, copies& done) {
    file.path = shortened(db, file.path);
    if (!isAbsolute(file.path) || !files::isFile(file.path))
        return true;
    std::wstring& copy = done[{file.property, file.path}];
    if (copy.empty()) {
        const std::wstring folder = attachedFolder(db, file.property);
        if (folder.empty())
            return true;
        copy = copyInto(db, file.path, folder + files::nameOf(file.path));
        if (copy.empty())
            return false;
    }
    file.path = copy.substr(NORLEX_getFilePath(db).size());
    return true;
}

bool makeAnew(odbc_database& db, const std::vector<attachedFile>& attached) {
    return db.exec(L"DROP TABLE file_link") && schema::create(db, L"file_link")
           && std::ranges::all_of(
               attached, [&](const attachedFile& file) { return insertAttached(db, file); });
}

std::set<std::wstring> plotTemplateNames(odbc_database& db) {
    std::set<std::wstring> names;
    const auto rows = db.query(L"SELECT name FROM planshet_template");
    while (rows && rows->next())
        names.insert(rows->get_text(0));
    return names;
}

std::vector<std::wstring> plotTemplateFiles(const std::wstring& folder) {
    std::vector<std::wstring> found = files::list(folder);
    std::erase_if(found, [](const auto& path) { return files::extensionOf(path) != L".pt"; });
    return found;
}

// Paths of the templates in the folder that today's container keeps them in.
bool gatherPlotTemplates(odbc_database& db, std::vector<std::wstring>& gathered) {
    const std::wstring folder = plotTemplates::folder(db.get_file_container_path());
    gathered = plotTemplateFiles(folder);
    for (const auto& source : plotTemplateFiles(NORLEX_getFilePath(db) + L"planshetTmpl/")) {
        gathered.push_back(copyInto(db, source, folder + files::nameOf(source)));
        if (gathered.back().empty())
            return false;
    }
    return true;
}

} // namespace

bool shortenFilePaths(odbc_database& db) {
    return std::ranges::all_of(shortenedRows(db, L"SELECT rowid, path FROM file_link"),
                               [&](const pathRow& row) {
                                   return db.exec(sql(L"UPDATE file_link SET path = ",
                                                      quoted(row.path),
                                                      L" WHERE rowid = ",
                                                      key(row.id)));
                               });
}

bool shortenRasterPaths(odbc_database& db) {
    return std::ranges::all_of(
        shortenedRows(
            db,
            L"SELECT property.pr_id, property.description FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE base_template.type = 'NORLEX_dataTypeRastr'"),
        [&](const pathRow& row) {
            return db.exec(sql(L"UPDATE property SET description = ",
                               quoted(row.path),
                               L" WHERE pr_id = ",
                               key(row.id)));
        });
}

bool gatherAttachedFiles(odbc_database& db) {
    std::vector<attachedFile> attached;
    copies done;
    return schema::create(db, schema::attachedFileTables())
           && schema::create(db, L"file_folder_link") && readAttached(db, attached)
           && std::ranges::all_of(attached,
                                  [&](attachedFile& file) { return takeIn(db, file, done); })
           && makeAnew(db, attached);
}

bool importPlotTemplates(odbc_database& db) {
    if (NORLEX_getFilePath(db).empty())
        return true;
    std::vector<std::wstring> gathered;
    auto names = plotTemplateNames(db);
    return gatherPlotTemplates(db, gathered)
           && std::ranges::all_of(gathered, [&](const std::wstring& path) {
                  const std::wstring file = files::nameOf(path);
                  const std::wstring name = file.substr(0, file.rfind(L'.'));
                  return !names.insert(name).second
                         || db.exec(sql(
                             L"INSERT INTO planshet_template (name) VALUES (", quoted(name), L")"));
              });
}

} // namespace upgrade
