// The construction of a well: drilled sections with their casing, and the working elements in it.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_tableColumns.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class odbc_database;

namespace tableRW {
struct tableOptions;
}

// Depths are measured, in metres, diameters in millimetres. Apostrophes are dropped from texts.
struct NORLEX_wellConstructionElement {
    std::int64_t u_id = 0;
    double from_dig = 0.0; // the drilled section
    double to_dig = 0.0;
    double diametr_dig = 0.0; // of the bit
    double from_pipe = 0.0;   // the part of it that is cased
    double to_pipe = 0.0;
    double diametr_concrete = 0.0; // of the casing
    std::wstring comment;
};

struct NORLEX_wellConstructionWorkElement {
    std::int64_t id = 0;
    int type = 0; // the host's number of the kind of element
    double inner_d = 0.0;
    double outer_d = 0.0;
    double top_real = 0.0; // measured depths
    double bot_real = 0.0;
    std::wstring text;
};

// The column of each value in a table, by its header or its number from 1; empty: there is none.
struct NORLEX_construction_load_options {
    std::wstring from_dig;
    std::wstring to_dig;
    std::wstring diametr_dig;
    std::wstring from_pipe;
    std::wstring to_pipe;
    std::wstring diametr_concrete;
    std::wstring comment;
};

// Each change is one transaction that stamps the well; a number that is not finite and an interval
// whose end lies above its beginning are refused. `announce` tells subscribers that the well was
// changed. The database is not owned.
class NORLEX_API NORLEX_wellConstruction {
public:
    NORLEX_wellConstruction(odbc_database* db, std::uint32_t wellId);

    [[nodiscard]] static bool isExist(odbc_database* db, std::uint32_t wellId);
    [[nodiscard]] static bool isWorkExist(odbc_database* db, std::uint32_t wellId);
    [[nodiscard]] static double getMaxDiametr(odbc_database* db, std::uint32_t wellId); // of a bit

    // Sections by the depth where they begin.
    [[nodiscard]] std::int64_t getElementCount() const;
    [[nodiscard]] std::vector<NORLEX_wellConstructionElement> getElementList() const;
    [[nodiscard]] bool addElement(const NORLEX_wellConstructionElement& element, bool announce);
    [[nodiscard]] bool removeElement(std::int64_t u_id);
    [[nodiscard]] bool updateElement(const NORLEX_wellConstructionElement& element); // by its key
    // Added to those that are there, all or none.
    [[nodiscard]] bool
    loadElementsFromData(const std::vector<NORLEX_wellConstructionElement>& elements);
    // The same from a table with a header; a cell that is empty is 0. The report holds each row
    // that cannot be taken: then none is.
    [[nodiscard]] bool loadElementsFromFile(const std::wstring& path,
                                            const tableRW::tableOptions& format,
                                            const NORLEX_construction_load_options& columns,
                                            NORLEX_tableReport& report);
    [[nodiscard]] bool clearConstruction();

    // Working elements by their tops.
    [[nodiscard]] std::int64_t getWorkElementCount() const;
    [[nodiscard]] std::vector<NORLEX_wellConstructionWorkElement> getWorkElementList() const;
    [[nodiscard]] bool addWorkElement(const NORLEX_wellConstructionWorkElement& element,
                                      bool announce);
    [[nodiscard]] bool removeWorkElement(std::int64_t id);
    [[nodiscard]] bool updateWorkElement(const NORLEX_wellConstructionWorkElement& element);
    [[nodiscard]] bool clearWorkElements();

    // Why an element is not stored; empty when it can be.
    [[nodiscard]] static std::wstring faultOf(const NORLEX_wellConstructionElement& element);

private:
    [[nodiscard]] bool insert(const NORLEX_wellConstructionElement& element);
    [[nodiscard]] bool edit(const std::function<bool()>& change, bool announce = true);

    odbc_database* m_db;
    std::uint32_t m_wellId;
};
