#include "store/well_path.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/strconv.h"

using namespace sqlText;

namespace {

constexpr std::wstring_view sampleExtension = L".wpdb";

// The separator that the container's paths are written with.
std::wstring separatorOf(const std::wstring& path) {
    const auto last = path.find_last_of(L"\\/");
    return last == std::wstring::npos ? L"/" : std::wstring(1, path[last]);
}

// A group's folder lies beside the files of logs without a group: it must not look like one.
std::wstring groupFolder(const std::wstring& group) {
    std::wstring name = files::fileName(group);
    if (ts::strconv::lower(name).ends_with(sampleExtension))
        name.replace(name.size() - sampleExtension.size(), 1, L"%2E");
    return name;
}

} // namespace

std::wstring NORLEX_getFilePath(const std::wstring& fileDirectory) {
    std::wstring path = fileDirectory;
    if (!path.empty() && path.back() != L'/' && path.back() != L'\\')
        path += separatorOf(path);
    return path;
}

std::wstring NORLEX_getFilePath(const odbc_database& db) {
    return NORLEX_getFilePath(db.get_file_container_path());
}

std::wstring NORLEX_getFieldPath(const odbc_database* db,
                                 const std::wstring& workObject,
                                 const std::wstring& field) {
    const std::wstring root = NORLEX_getFilePath(*db);
    const std::wstring separator = separatorOf(root);
    return sql(root, files::fileName(workObject), separator, files::fileName(field), separator);
}

std::wstring NORLEX_getWellPath(const odbc_database* db, const NORLEX_wellDescription& well) {
    std::wstring path = NORLEX_getFieldPath(db, well.workObject, well.field);
    path += files::fileName(well.name);
    return path + separatorOf(path);
}

std::wstring NORLEX_getWellPath(odbc_database* db, std::uint32_t wellId) {
    NORLEX_wellDescription well;
    {
        const auto rows = db->query(sql(
            L"SELECT work_object, field, name, w_id FROM well_base WHERE w_id = ", key(wellId)));
        if (!rows || !rows->next())
            return {};
        well = {rows->get_text(0), rows->get_text(1), rows->get_text(2), wellId};
    }
    return NORLEX_getWellPath(db, well);
}

std::wstring samplePathOf(const std::wstring& wellPath, const NORLEX_propDescription& prop) {
    std::wstring path = wellPath;
    if (!prop.group.empty())
        path += groupFolder(prop.group) + separatorOf(wellPath);
    return sql(path, files::fileName(prop.name), sampleExtension);
}

bool isStorableName(const std::wstring& name, const wchar_t* what) {
    if (name.find(L'\0') != std::wstring::npos || !ts::strconv::isText(name))
        return refuse(sql(what, L" cannot be stored: it holds code points that are no characters"));
    const std::size_t length = ts::strconv::toUtf8(files::fileName(name)).size();
    if (length > files::longestFileName)
        return refuse(sql(what,
                          L" of ",
                          key(static_cast<std::int64_t>(length)),
                          L" bytes is too long: as a file name it may have ",
                          key(files::longestFileName),
                          L" (\"",
                          name.substr(0, 40),
                          L"…\")"));
    return true;
}
