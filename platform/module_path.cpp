#include "platform/module_path.h"
#include "platform/files.h"

#include <dlfcn.h>

#include <cstdlib>
#include <vector>

namespace {

std::wstring withSeparator(std::wstring folder) {
    if (!folder.empty() && folder.back() != L'/' && folder.back() != L'\\')
        folder += L'/';
    return folder;
}

// The folder of the file that holds this code: the shared library, or a program linked to it
// statically.
std::wstring libraryFolder() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&ts_options_get_main_module_path), &info) == 0)
        return {};
    return info.dli_fname == nullptr ? std::wstring()
                                     : files::folderOf(files::wide(info.dli_fname));
}

// Beside the library, where it is installed, and in the build tree, for programs that are linked to
// the library's parts and lie elsewhere.
std::vector<std::wstring> candidates() {
    const std::wstring library = libraryFolder();
    return {library + L"data/",
            library + files::wide(WELLDB_DATA_FROM_LIBRARY),
            files::wide(WELLDB_BUILT_DATA)};
}

} // namespace

std::wstring ts_options_get_main_module_path() {
    const char* const chosen = std::getenv("WELLDB_DATA");
    if (chosen != nullptr && *chosen != '\0')
        return withSeparator(files::wide(chosen));
    const std::vector<std::wstring> folders = candidates();
    for (const std::wstring& folder : folders) {
        if (files::isFolder(folder + L"planshet") || files::isFolder(folder + L"strategraphy"))
            return folder;
    }
    return folders.front(); // callers name the missing file by it
}
