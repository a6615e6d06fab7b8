// The catalogue of log curves: what a mnemonic of a LAS file means.
#pragma once

#include "NORLEX_export.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

class odbc_database;

// In the column order of the catalogue.
struct NORLEX_curveDescription {
    std::wstring method_id; // empty: no such curve
    std::wstring mnemonic;
    std::wstring common_units;
    std::wstring rus_units;
    std::wstring comment;
    std::wstring type; // kind of log, such as "Гамма-каротаж"
};

// Opens "strategraphy/LAS_methods.db" in the folder of shipped data, or the file given. Without
// the file, which is never made, every look-up is empty and every change is refused;
// NORLEX_lastError() says so. For look-ups, file and folder need not be writable.
class NORLEX_API NORLEX_curveIdentification {
public:
    NORLEX_curveIdentification();
    explicit NORLEX_curveIdentification(const std::wstring& path);
    ~NORLEX_curveIdentification();
    NORLEX_curveIdentification(const NORLEX_curveIdentification&) = delete;
    NORLEX_curveIdentification& operator=(const NORLEX_curveIdentification&) = delete;

    [[nodiscard]] bool isOK() const;

    // By mnemonic in any case, else by synonym as it is written.
    [[nodiscard]] NORLEX_curveDescription getCurve(const std::wstring& name) const;
    [[nodiscard]] NORLEX_curveDescription isSynonym(const std::wstring& name) const;
    [[nodiscard]] std::vector<NORLEX_curveDescription>
    getCurvesFromType(const std::wstring& type) const;
    [[nodiscard]] std::vector<NORLEX_curveDescription> getAllCurves() const;
    [[nodiscard]] std::vector<std::wstring> getTypeList() const; // in ascending order
    // Pairs of mnemonic and synonym, by mnemonic.
    void getSynonymList(std::vector<std::pair<std::wstring, std::wstring>>& synonyms) const;

    // Refused are an empty name, a curve that is not in the catalogue, a new name that is a synonym
    // or, in any case of letters, a mnemonic already, an old one that is no synonym, and a file or
    // folder that cannot be written to.
    [[nodiscard]] bool addSynonym(const NORLEX_curveDescription& curve, const std::wstring& name);
    [[nodiscard]] bool editSynonym(const std::wstring& oldName, const std::wstring& newName);
    [[nodiscard]] bool delSynonym(const std::wstring& name);

private:
    std::unique_ptr<odbc_database> m_db; // null while closed
};
