// The commands of the construction and of the drilling record of a well.
#pragma once

#include "cli/commands.h"

#include "NORLEX_wellConstruction.h"
#include "NORLEX_wellDrilling.h"
#include "tableReader.h"

#include <cstdint>
#include <optional>
#include <string>

struct addSectionRequest {
    std::wstring file;
    std::wstring well;
    NORLEX_wellConstructionElement element;
};

struct addWorkElementRequest {
    std::wstring file;
    std::wstring well;
    NORLEX_wellConstructionWorkElement element;
};

struct loadConstructionRequest {
    std::wstring file;
    std::wstring well;
    std::wstring table;
    NORLEX_construction_load_options columns;
    tableRW::tableOptions format;
    bool replace = false;
    resultForm form = resultForm::table;
};

struct removeRowRequest {
    std::wstring file;
    std::wstring well;
    std::int64_t id = 0;
    bool isWorkElement = false;
};

struct drillingHeaderRequest {
    std::wstring file;
    std::wstring well;
    std::optional<std::wstring> type;
    std::optional<std::wstring> rig;
    std::optional<std::wstring> author;
    std::optional<std::wstring> checker;
};

struct addRunRequest {
    std::wstring file;
    std::wstring well;
    NORLEX_wellDrillingElement element;
};

struct personRequest {
    std::wstring file;
    std::wstring well;
    NORLEX_wellExecutor person;
};

namespace commands {

[[nodiscard]] int showConstruction(const wellRequest& request);
[[nodiscard]] int addSection(const addSectionRequest& request);
[[nodiscard]] int addWorkElement(const addWorkElementRequest& request);
[[nodiscard]] int loadConstruction(const loadConstructionRequest& request);
[[nodiscard]] int removeConstruction(const removeRowRequest& request);
[[nodiscard]] int clearConstruction(const wellRequest& request); // sections and working elements

[[nodiscard]] int showDrilling(const wellRequest& request);
[[nodiscard]] int setDrilling(const drillingHeaderRequest& request);
[[nodiscard]] int addRun(const addRunRequest& request);
[[nodiscard]] int removeRun(const removeRowRequest& request);
[[nodiscard]] int addPerson(const personRequest& request);
[[nodiscard]] int removePerson(const personRequest& request);

} // namespace commands
