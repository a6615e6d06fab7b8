// Correlations: named sets of borders, and the depths at which these are picked on wells.
#pragma once

#include "NORLEX_corPoint.h"
#include "NORLEX_depthRange.h"
#include "NORLEX_export.h"
#include "NORLEX_propCopy.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class NORLEX_well;
class odbc_database;

namespace correlation {

// A well, by its names or by an object that is open on it.
class NORLEX_API wellRef {
public:
    wellRef(const NORLEX_wellDescription& well) : m_well(well) {} // its key is not looked at
    wellRef(const NORLEX_well& well);

    // With its key; a well that is not there is refused.
    [[nodiscard]] std::optional<NORLEX_wellDescription> find(odbc_database& db) const;

private:
    NORLEX_wellDescription m_well;
    bool m_isOpen = false;
};

// A correlation is named by its description's `name`. On every well that it has picks on it is
// shown as a property of the type NORLEX_dataTypeBorder, its mirror, of that name and of the
// description's `group`; all mirrors of one correlation are of one group. A mirror is made with
// the first pick of a well.
//
// Apostrophes are dropped from names and groups wherever they are given. Depths are stored with two
// decimals. A border lies once in a well. The absolute depths of picks follow the well's survey and
// altitude. Every change is one transaction, stamped, written to the action journal and announced
// after the commit; one that is refused leaves everything as it was and sets the last-error line.
// Lists are replaced; without a database, or without what is asked for, they stay empty.
class NORLEX_API correlation {
public:
    correlation() = delete;

    // Correlations.
    [[nodiscard]] static std::int64_t getCorrelationID(odbc_database* db, // 0 when there is none
                                                       const NORLEX_propDescription& cor);
    static void getCorrelationList(odbc_database* db, std::vector<std::wstring>& names);
    [[nodiscard]] static bool isCorrelationExist(odbc_database* db,
                                                 const NORLEX_propDescription& cor);
    // The groups of the mirrors: one, or none while nothing is picked.
    static void getMirrorGroupList(odbc_database* db,
                                   const NORLEX_propDescription& cor,
                                   std::vector<std::wstring>& groups);
    // One that exists is left as it is.
    [[nodiscard]] static bool createCorrelationLayer(odbc_database* db,
                                                     const NORLEX_propDescription& cor);
    // The mirrors of all wells follow. Refused where a correlation, or a property of any well and
    // kind, has the new name.
    [[nodiscard]] static bool
    rename(odbc_database* db, const NORLEX_propDescription& cor, const std::wstring& newName);
    // With its picks, border names and mirrors.
    [[nodiscard]] static bool removeCorrelation(odbc_database* db,
                                                const NORLEX_propDescription& cor);
    // Of all wells, or of one; false without a pick.
    [[nodiscard]] static bool
    getDepthRange(odbc_database* db, const NORLEX_propDescription& cor, NORLEX_depthRange& range);
    [[nodiscard]] static bool getDepthRange(odbc_database* db,
                                            const NORLEX_propDescription& cor,
                                            const wellRef& well,
                                            NORLEX_depthRange& range);

    // Wells.
    //
    // Removes the picks and the mirror of one well.
    [[nodiscard]] static bool
    clearWell(odbc_database* db, const NORLEX_propDescription& cor, const wellRef& well);
    // Makes the picks of one well on another. Depths of `direction` stay as they are, the others
    // are those of the destination's survey. Borders that are picked there already stay.
    [[nodiscard]] static bool
    copyWell(odbc_database* db,
             const NORLEX_propDescription& cor,
             const wellRef& from,
             const wellRef& to,
             NORLEX_dataDirection direction = NORLEX_dataDirectionMeasured);
    static void getCorrelationListForWell(odbc_database* db, // that have picks on it
                                          const wellRef& well,
                                          std::vector<std::wstring>& names);

    // Border names.
    [[nodiscard]] static std::int64_t getBorderNameID(odbc_database* db, // 0 when there is none
                                                      const NORLEX_propDescription& cor,
                                                      const std::wstring& border);
    // Answers the name that was given: a taken one gets " (2)", " (3)" … at its end. Empty when it
    // was refused.
    [[nodiscard]] static std::wstring createBorderName(odbc_database* db,
                                                       const NORLEX_propDescription& cor,
                                                       const std::wstring& border,
                                                       const std::wstring& group);
    // A taken name is refused.
    [[nodiscard]] static bool renameBorder(odbc_database* db,
                                           const NORLEX_propDescription& cor,
                                           const std::wstring& border,
                                           const std::wstring& newName);
    // The name itself, with its picks on every well.
    [[nodiscard]] static bool
    deleteBorder(odbc_database* db, const NORLEX_propDescription& cor, const std::wstring& border);
    // Whether a correlation has the name, by description or by key; whether any has it; whether it
    // is picked on a well.
    [[nodiscard]] static bool isBorderNameExist(odbc_database* db,
                                                const NORLEX_propDescription& cor,
                                                const std::wstring& border);
    [[nodiscard]] static bool
    isBorderNameExist(odbc_database* db, std::int64_t correlationId, const std::wstring& border);
    [[nodiscard]] static bool isBorderNameExist(odbc_database* db, const std::wstring& border);
    [[nodiscard]] static bool isBorderNameExist(odbc_database* db,
                                                const NORLEX_propDescription& cor,
                                                const wellRef& well,
                                                const std::wstring& border);
    // Of a correlation in the order in which they were made, of a well from the top down.
    static void getBorderList(odbc_database* db,
                              const NORLEX_propDescription& cor,
                              std::vector<std::wstring>& borders);
    static void getBorderList(odbc_database* db,
                              const NORLEX_propDescription& cor,
                              std::vector<borderName>& borders);
    static void getBorderList(odbc_database* db,
                              const NORLEX_propDescription& cor,
                              const wellRef& well,
                              std::vector<std::wstring>& borders);
    static void getBorderList(odbc_database* db,
                              const NORLEX_propDescription& cor,
                              const wellRef& well,
                              std::vector<borderName>& borders);
    // By the correlation's key.
    static void
    getBordersBase(odbc_database* db, std::int64_t correlationId, std::vector<borderName>& borders);
    static void getBordersForGroupBase(odbc_database* db,
                                       std::int64_t correlationId,
                                       const std::wstring& group,
                                       std::vector<borderName>& borders);
    // The wells on which a border is picked, by work object, field and name; their number.
    static void getWellListForBorder(odbc_database* db,
                                     const NORLEX_propDescription& cor,
                                     const std::wstring& border,
                                     std::vector<NORLEX_wellDescription>& wells);
    [[nodiscard]] static std::size_t getBorderNameWellCount(odbc_database* db,
                                                            const NORLEX_propDescription& cor,
                                                            const std::wstring& border);
    // The borders between which a zone lies; false when there is no such zone.
    [[nodiscard]] static bool getZoneBorders(odbc_database* db,
                                             const std::wstring& zone,
                                             std::wstring& top,
                                             std::wstring& bottom);

    // Groups of borders, texts of any kind.
    static void getGroupListBase(odbc_database* db,
                                 std::int64_t correlationId,
                                 std::vector<std::wstring>& groups);
    [[nodiscard]] static std::wstring getBorderGroup(odbc_database* db,
                                                     const NORLEX_propDescription& cor,
                                                     const std::wstring& border);
    [[nodiscard]] static bool
    isGroupExist(odbc_database* db, const NORLEX_propDescription& cor, const std::wstring& group);
    [[nodiscard]] static bool moveBorderElementToGroup(odbc_database* db,
                                                       const NORLEX_propDescription& cor,
                                                       const std::wstring& border,
                                                       const std::wstring& group);
    // A group that is there already is refused.
    [[nodiscard]] static bool renameGroup(odbc_database* db,
                                          const NORLEX_propDescription& cor,
                                          const std::wstring& group,
                                          const std::wstring& newName);

    // Picks. A border that the correlation lacks, one that is picked on the well already, a well
    // that is not there and depths that are none are refused. A depth of NORLEX_unknownDepth is
    // computed from the other one with the well's survey.
    [[nodiscard]] static bool createBorder(odbc_database* db,
                                           const NORLEX_propDescription& cor,
                                           const wellRef& well,
                                           const std::wstring& border,
                                           double measured);
    [[nodiscard]] static bool createBorder(odbc_database* db,
                                           const NORLEX_propDescription& cor,
                                           const wellRef& well,
                                           const std::wstring& border,
                                           double measured,
                                           double absolute);
    // The same by the absolute depth, with a type.
    [[nodiscard]] static bool insertPoint(odbc_database* db,
                                          const NORLEX_propDescription& cor,
                                          const wellRef& well,
                                          const std::wstring& border,
                                          double absolute,
                                          double measured = NORLEX_unknownDepth,
                                          NORLEX_borderType type = 0);
    // Many at once; all or nothing. Border names that are missing are made. The line of a refusal
    // names the pick, counted from 1.
    [[nodiscard]] static bool insertPoints(odbc_database* db,
                                           const NORLEX_propDescription& cor,
                                           const std::vector<newPick>& picks,
                                           onExistingPick onExisting,
                                           pickSums& sums);
    [[nodiscard]] static bool moveBorder(odbc_database* db,
                                         const NORLEX_propDescription& cor,
                                         const wellRef& well,
                                         const std::wstring& border,
                                         double measured,
                                         double absolute = NORLEX_unknownDepth);
    // 0 to 255; 0 is a plain border. What the others mean is the caller's.
    [[nodiscard]] static bool setBorderType(odbc_database* db,
                                            const NORLEX_propDescription& cor,
                                            const wellRef& well,
                                            const std::wstring& border,
                                            NORLEX_borderType type);
    // One well's pick of a border, of all wells, of a group's borders on wells by their keys. The
    // names stay. Without such a pick the first is refused, the others change nothing.
    [[nodiscard]] static bool deleteBorder(odbc_database* db,
                                           const NORLEX_propDescription& cor,
                                           const wellRef& well,
                                           const std::wstring& border);
    [[nodiscard]] static bool deleteBorderFromAllWells(odbc_database* db,
                                                       const NORLEX_propDescription& cor,
                                                       const std::wstring& border);
    [[nodiscard]] static bool deleteBordersFromGroup(odbc_database* db,
                                                     const NORLEX_propDescription& cor,
                                                     const std::wstring& group,
                                                     const std::vector<std::uint32_t>& wells);
    // By the pick's key.
    [[nodiscard]] static bool
    deletePoint(odbc_database* db, const NORLEX_propDescription& cor, std::int64_t pickId);
    // The border picked on a well nearest to an absolute depth and within `tolerance` metres of it;
    // empty when there is none.
    [[nodiscard]] static std::wstring findPoint(odbc_database* db,
                                                const NORLEX_propDescription& cor,
                                                const wellRef& well,
                                                double absolute,
                                                double tolerance = 0.5);
    [[nodiscard]] static bool getDepth(odbc_database* db,
                                       const NORLEX_propDescription& cor,
                                       const wellRef& well,
                                       const std::wstring& border,
                                       double& measured,
                                       double& absolute);
    // The picks of a well with their depths of one direction, the shallowest first.
    [[nodiscard]] static bool loadData(odbc_database* db,
                                       const NORLEX_propDescription& cor,
                                       const wellRef& well,
                                       NORLEX_dataDirection direction,
                                       std::vector<point>& points);
};

} // namespace correlation
