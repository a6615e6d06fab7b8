// The drilling record of a well: daily runs, the header of the record, the people on it.
#pragma once

#include "NORLEX_export.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class odbc_database;

// One run. All but the depths, which are measured, is text as it was written.
struct NORLEX_wellDrillingElement {
    std::wstring date;
    std::wstring smena; // shift
    std::wstring diametr;
    std::wstring materials;
    double from_depth = 0.0;
    double to_depth = 0.0;
    std::wstring kern; // core
    std::wstring ugol; // angle
    std::wstring others;
    std::int64_t u_id = 0;
};

struct NORLEX_wellExecutor {
    std::wstring name;
    std::wstring position;
};

// Each change is one transaction that stamps the well; a depth that is not finite and a run that
// ends above its beginning are refused. `announce` tells subscribers that the well was changed.
// Apostrophes are dropped from texts. The database is not owned.
class NORLEX_API NORLEX_wellDrilling {
public:
    NORLEX_wellDrilling(odbc_database* db, std::uint32_t wellId);

    [[nodiscard]] static bool isExist(odbc_database* db, std::uint32_t wellId); // a run

    // Runs by the depth where they begin.
    [[nodiscard]] std::int64_t getElementCount() const;
    [[nodiscard]] std::vector<NORLEX_wellDrillingElement> getElementList() const;
    [[nodiscard]] bool addElement(const NORLEX_wellDrillingElement& element, bool announce);
    [[nodiscard]] bool removeElement(std::int64_t u_id);
    [[nodiscard]] bool updateElement(const NORLEX_wellDrillingElement& element); // by its key

    // The header; empty texts until one of them is set.
    [[nodiscard]] std::wstring getDrillingType() const;
    [[nodiscard]] bool setDrillingType(const std::wstring& text);
    [[nodiscard]] std::wstring getDrillingRig() const;
    [[nodiscard]] bool setDrillingRig(const std::wstring& text);
    [[nodiscard]] std::wstring getDrillingDocAuther() const;
    [[nodiscard]] bool setDrillingDocAuther(const std::wstring& text);
    [[nodiscard]] std::wstring getDrillingDocChecker() const;
    [[nodiscard]] bool setDrillingDocChecker(const std::wstring& text);

    // People by name. One is known by name and position alone: two that are alike are changed and
    // removed together.
    [[nodiscard]] std::int64_t getExecutorCount() const;
    [[nodiscard]] std::vector<NORLEX_wellExecutor> getExecutorList() const;
    [[nodiscard]] bool isExecutorExist(const NORLEX_wellExecutor& executor) const;
    [[nodiscard]] bool addExecutor(const NORLEX_wellExecutor& executor, bool announce);
    [[nodiscard]] bool removeExecutor(const NORLEX_wellExecutor& executor);
    [[nodiscard]] bool updateExecutor(const NORLEX_wellExecutor& executor,
                                      const NORLEX_wellExecutor& changed);

private:
    [[nodiscard]] bool edit(const std::function<bool()>& change, bool announce = true);
    [[nodiscard]] bool createWellRecord();
    [[nodiscard]] std::wstring header(const wchar_t* select) const;
    [[nodiscard]] bool setHeader(const wchar_t* update, const std::wstring& text);

    odbc_database* m_db;
    std::uint32_t m_wellId;
};
