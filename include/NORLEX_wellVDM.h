// The velocity-depth model of one well: points that pair an absolute depth with a two-way time.
//
// Units and signs as in NORLEX_vdm.h: metres, milliseconds, both falling on the way down. Between
// two points the relation is a straight line; above the first and below the last one a unit of time
// is a unit of depth, which marks what lies outside the model rather than continue it.
//
// A model is read when it is first asked for, from the top of the well down. It begins at the well
// head at time 0, unless the first stored point lies within 0.1 of the altitude.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_vdm.h"
#include "NORLEX_wellDescription.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class NORLEX_well;
class odbc_database;
class stationSearch;

class NORLEX_API NORLEX_wellVDM {
public:
    // Reads nothing yet. `db` is not owned and must outlive the object.
    NORLEX_wellVDM(odbc_database* db, std::uint32_t wellId, double altitude);

    // The time at a depth and the depth at a time. Where the points are out of order the first
    // interval that holds the argument counts.
    [[nodiscard]] double getTime(double depth);
    [[nodiscard]] double getDepth(double time);

    // `coverage` goes from the first point to the last one. False with fewer than two points.
    [[nodiscard]] bool getModelCoverageDepth(NORLEX_intervalValue& coverage);
    [[nodiscard]] bool getModelCoverageTime(NORLEX_intervalValue& coverage);

    void getList(std::vector<vdm_data>& points);
    // Empty with fewer than two points. `reload` reads the table again.
    void getVDModel(std::vector<NORLEX_vdmItem>& model, bool reload);

    // Each changes the table at once, and the model is read again when it is next asked for. The
    // well is neither stamped nor announced: NORLEX_well does that where it changes its model. A
    // number that is not finite is refused.
    [[nodiscard]] bool add(double depth, double time);
    // Of the points of getList(). One that is not stored, at the well head, is refused.
    [[nodiscard]] bool editDepth(std::size_t index, double depth);
    [[nodiscard]] bool editTime(std::size_t index, double time);
    [[nodiscard]] bool remove(std::size_t index);
    [[nodiscard]] bool remove(const std::vector<std::size_t>& indexes); // all or none
    [[nodiscard]] bool clear();

    // Whether points are stored of a well, of any well, of any well of a list: decimal keys with
    // commas between them. A list that holds anything else is refused.
    [[nodiscard]] static bool isExist(odbc_database* db, const NORLEX_wellDescription& well);
    [[nodiscard]] static bool isExist(odbc_database* db, long long wellId);
    [[nodiscard]] static bool isExistEny(odbc_database* db);
    [[nodiscard]] static bool isExistEny(odbc_database* db, const std::wstring& wellIds);

    // Copies the stored points, absolute depths and times as they are; the containers may differ.
    // A destination that has a model is refused, unless `replace` says that it goes. The
    // destination is stamped and announced.
    [[nodiscard]] static bool copy(NORLEX_well* from, NORLEX_well* to, bool replace);

private:
    void load();
    void init();
    [[nodiscard]] bool changePoint(std::size_t index, const wchar_t* statement, double value);
    [[nodiscard]] bool removePoint(std::size_t index);
    [[nodiscard]] bool isStored(std::size_t index);
    [[nodiscard]] bool changed(bool done);

    odbc_database* m_db = nullptr;
    double m_altitude = 0.0;
    std::wstring m_wellId; // decimal
    bool m_loaded = false;
    std::vector<vdm_data> m_points; // by depth, the highest first
    // Never changed once made, so copies share them.
    std::shared_ptr<const stationSearch> m_byDepth;
    std::shared_ptr<const stationSearch> m_byTime;
};
