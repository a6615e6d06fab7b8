#include "store/plot_templates.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/module_path.h"
#include "platform/sql_text.h"
#include "store/well_path.h"

#include <set>

using namespace sqlText;

namespace plotTemplates {

namespace {

constexpr std::wstring_view extension = L".pt";

// Later folders do not replace what earlier ones gave.
bool copyTo(const std::wstring& target, const std::wstring& source) {
    return files::isFile(target)
           || (files::makeFolder(files::folderOf(target)) && files::copy(source, target));
}

} // namespace

std::wstring folder(const std::wstring& fileDirectory) {
    return fileDirectory.empty() ? fileDirectory : NORLEX_getFilePath(fileDirectory) + L"planshet/";
}

bool install(odbc_database& db) {
    const std::wstring target = folder(db.get_file_container_path());
    if (target.empty())
        return true;
    std::set<std::wstring> names;
    for (const wchar_t* shipped : {L"planshet", L"strategraphy"})
        for (const auto& source : files::list(ts_options_get_main_module_path() + shipped)) {
            const std::wstring file = files::nameOf(source);
            if (files::extensionOf(file) != extension)
                continue;
            if (!copyTo(target + file, source))
                return false;
            names.insert(file.substr(0, file.size() - extension.size()));
        }
    for (const auto& name : names)
        if (!db.exec(sql(L"INSERT INTO planshet_template (name) VALUES (", quoted(name), L")")))
            return false;
    return true;
}

} // namespace plotTemplates
