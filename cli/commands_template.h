// The commands of property templates.
#pragma once

#include "cli/commands.h"

#include "NORLEX_dataType.h"
#include "NORLEX_fieldDescr.h"

#include <optional>
#include <string>
#include <vector>

struct templateRequest {
    std::wstring file;
    std::wstring name;
    std::wstring to; // the new name
    resultForm form = resultForm::table;
};

// Of one type, or like another template.
struct templateCreateRequest {
    std::wstring file;
    std::wstring name;
    std::optional<NORLEX_dataType> type;
    std::wstring from;
    std::vector<NORLEX_fieldDescr> fields;
};

struct templateFieldRequest {
    std::wstring file;
    std::wstring name; // of the template
    NORLEX_fieldDescr field;
    std::wstring to; // its new name
    bool force = false;
};

namespace commands {

[[nodiscard]] int listTemplates(const fileRequest& request);
[[nodiscard]] int showTemplate(const templateRequest& request);
[[nodiscard]] int createTemplate(const templateCreateRequest& request);
[[nodiscard]] int removeTemplate(const templateRequest& request);
[[nodiscard]] int renameTemplate(const templateRequest& request);

[[nodiscard]] int addTemplateField(const templateFieldRequest& request);
[[nodiscard]] int renameTemplateField(const templateFieldRequest& request);
[[nodiscard]] int setTemplateFieldType(const templateFieldRequest& request);
[[nodiscard]] int removeTemplateField(const templateFieldRequest& request);

} // namespace commands
