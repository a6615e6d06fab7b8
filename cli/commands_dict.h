// The commands of dictionaries.
#pragma once

#include "cli/commands.h"

#include "NORLEX_columnRef.h"
#include "NORLEX_dictionary.h"

#include <string>

struct dictRequest {
    std::wstring file;
    std::wstring name;
    std::wstring to; // the new name
    resultForm form = resultForm::table;
};

struct dictAddRequest {
    std::wstring file;
    std::wstring name;
    std::wstring code;
    std::wstring value;
};

struct dictImportRequest {
    std::wstring file;
    std::wstring name;
    std::wstring table;
    NORLEX_columnRef code{1, {}};
    NORLEX_columnRef value{2, {}};
    NORLEX_dictTableOptions options{{}, true, false};
    resultForm form = resultForm::table;
};

struct dictExportRequest {
    std::wstring file;
    std::wstring name;
    std::wstring out;
    ts::strconv::encodings encoding = ts::strconv::utf8;
};

struct dictLinkRequest {
    std::wstring file;
    std::wstring name;
    std::wstring property;
    std::wstring field;
};

namespace commands {

[[nodiscard]] int listDicts(const fileRequest& request);
[[nodiscard]] int showDict(const dictRequest& request);
[[nodiscard]] int createDict(const dictRequest& request);
[[nodiscard]] int renameDict(const dictRequest& request);
[[nodiscard]] int removeDict(const dictRequest& request);

[[nodiscard]] int addToDict(const dictAddRequest& request);
[[nodiscard]] int importDict(const dictImportRequest& request);
[[nodiscard]] int exportDict(const dictExportRequest& request);
[[nodiscard]] int swapDict(const dictRequest& request);

[[nodiscard]] int linkDict(const dictLinkRequest& request);
[[nodiscard]] int unlinkDict(const dictLinkRequest& request);
[[nodiscard]] int listDictLinks(const fileRequest& request);

} // namespace commands
