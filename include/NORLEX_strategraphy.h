// The stratigraphic chart: the scale of geological time units that well data refer to.
//
// A unit has an index ("D2zv"), a name and a level. The chart file lists units from the oldest to
// the youngest, each line with the units of the higher levels that contain it; lists here have that
// order. docs/stratigraphy.md describes the file and the expressions over indexes.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_taxonType.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class NORLEX_wellContainer;

namespace strategraphy {

// One unit. Two are equal when level and index are.
struct element {
    std::wstring name;
    std::wstring index;
    NORLEX_taxonType type = NORLEX_taxonUndefined;
    // The units above and below it that stand in a line with it, by level and then by age; these
    // carry no such list themselves.
    std::vector<element> related;

    [[nodiscard]] bool operator==(const element& other) const {
        return type == other.type && index == other.index;
    }
    [[nodiscard]] bool operator!=(const element& other) const { return !(*this == other); }
};

// One line of the chart file: index and name of each of the eight levels, from the highest down.
using raw_data = std::array<std::wstring, 16>;

// The levels offered where a range of units is chosen, with their display texts: 0 to 5, 7 to 9.
[[nodiscard]] NORLEX_API std::vector<std::pair<NORLEX_taxonType, std::wstring>>
stratoRangeTypeModel();

// Does not change once it is loaded, so that several threads may read it. Without a chart file the
// last error names the file, and every look-up finds nothing. Pointers stay the chart's.
class NORLEX_API statoTable {
public:
    // The chart that is shipped with the program. The container is not looked at and may be null.
    explicit statoTable(NORLEX_wellContainer* container);
    // A chart of one's own, in UTF-8 or windows-1251.
    explicit statoTable(const std::wstring& path);
    ~statoTable();
    statoTable(const statoTable&) = delete;
    statoTable& operator=(const statoTable&) = delete;

    [[nodiscard]] bool isOK() const; // the file was read
    [[nodiscard]] const std::vector<raw_data>& getRawDataList() const;

    // The units that an index expression names: "D2", "J{1-3}", "D3fm-C1t + P". Each comes once,
    // as it is first named, those of a range from the oldest on. What is not in the chart names
    // nothing, and is told in `unknown`.
    void identify(const std::wstring& text, std::vector<element>& units) const;
    void identify(const std::wstring& text,
                  std::vector<element>& units,
                  std::vector<std::wstring>& unknown) const;
    // The units of a level that are, or contain, those of an expression, as an expression again:
    // "D-C" at the level of systems for "D3fm-C1t". `asNames` writes their names in place of
    // indexes. Empty where the level has none.
    [[nodiscard]] std::wstring
    getContaining(const std::wstring& text, NORLEX_taxonType level, bool asNames) const;

    // The first unit, from the highest level down, whose index or name is exactly the text; null
    // when there is none.
    [[nodiscard]] const element* identifySingle(const std::wstring& text) const;
    // Adds the units from one to the other, whichever is older, at the lower of their two levels:
    // a unit of a higher level is taken in its whole extent. Where the chart does not go down to
    // that level, the nearest unit there is stands. Units that `units` holds are not added again.
    void addRange(const element& first, const element& second, std::vector<element>& units) const;
    // An expression without its braces: "J1-J3" for "J{1-3}".
    [[nodiscard]] static std::wstring breakBraces(const std::wstring& text);

    // The unit of a level that contains the given one, or the given one itself where it is of that
    // level; null when there is none.
    [[nodiscard]] const element* findElement(const element& unit, NORLEX_taxonType level) const;
    // The same of the nearest higher level that has one.
    [[nodiscard]] const element* getUpper(const element& unit) const;
    // Add the units that contain the given one, and those within it, from the highest level down.
    void fillTaxonRangeUp(const element& unit, std::vector<element>& units) const;
    void fillTaxonRangeDown(const element& unit, std::vector<element>& units) const;

    // The units of one level, and their indexes; of a level that the chart has not, none.
    [[nodiscard]] const std::vector<element>& getElements(NORLEX_taxonType level) const;
    [[nodiscard]] std::vector<std::wstring> getUniqVals(NORLEX_taxonType level) const;
    [[nodiscard]] int findIndex(NORLEX_taxonType level, const std::wstring& index) const; // or -1
    // All stages, for a user to choose from.
    [[nodiscard]] std::vector<element> getUIYarusList() const;

private:
    void load(const std::wstring& path);

    struct content;
    std::unique_ptr<content> m_content;
};

} // namespace strategraphy

// How NORLEX_well::makeDefaultStratoLayer makes a layer.
struct NORLEX_def_strato_options {
    NORLEX_propDescription source; // intervals or a column
    std::wstring field;            // of it, with index expressions
    NORLEX_propDescription result;

    // The levels to be filled; the fields of the others stay empty.
    bool akro = true;     // acrothem
    bool system = true;   // system
    bool otdel = true;    // series
    bool subotdel = true; // subseries
    bool yarus = true;    // stage

    bool asNames = false; // names of units, in place of indexes

    // The template of the result, which is made where it is not there; empty: that of the name
    // "Стратиграфия", or "Stratigraphy" in English.
    std::wstring templateName;
    std::shared_ptr<const strategraphy::statoTable> chart; // null: the shipped one
};
