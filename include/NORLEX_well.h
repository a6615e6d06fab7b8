// One borehole: its identity, position, properties and survey.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_depthRange.h"
#include "NORLEX_derivedData.h"
#include "NORLEX_export.h"
#include "NORLEX_inclinometry.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"
#include "NORLEX_wellProperty.h"
#include "NORLEX_wellVDM.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class changeWatch;
class NORLEX_wellConstruction;
class NORLEX_wellDrilling;
class globalEventObserver;
struct NORLEX_VDMtableOptions;
struct NORLEX_def_strato_options;
struct eventMsgDescription;
struct NORLEX_inclRead_descr;
class odbc_database;

namespace tableRW {
class tableReader;
}

// A metadata entry of a well or of its logs.
struct NORLEX_metaEntry {
    std::wstring group; // "well" or "property"
    std::wstring key;
    std::wstring value;
};

// What a property list shows of each property.
struct NORLEX_propertyInfo {
    NORLEX_propDescription description;
    std::int64_t propertyId = 0;
    NORLEX_dataType type = NORLEX_dataTypeUnknown;
    std::wstring templateName;
    std::wstring unit; // attribute "UNITS"
    std::wstring comment;
    std::uint64_t records = 0;
    std::optional<NORLEX_depthRange> range; // none without records
};

// What a well list shows of each well.
struct NORLEX_wellInfo {
    NORLEX_wellDescription description;
    double altitude = 0.0;
    double x = 0.0;
    double y = 0.0;
    std::optional<double> bottom; // none while it is not set
    std::int64_t properties = 0;
    std::int64_t stations = 0; // stored survey rows
};

// The triple (work object, field, name) is unique in a container; work object and field may be
// empty, a name may not. Apostrophes are dropped from names wherever they are given. A name whose
// spelling as a file name is longer than 240 bytes is refused. The database is not owned. An object
// that is held open follows announced changes: its survey is read again, and it is not OK any more
// once the well is deleted.
class NORLEX_API NORLEX_well {
public:
    NORLEX_well(odbc_database* db, const NORLEX_wellDescription& description);
    NORLEX_well(odbc_database* db, std::uint32_t wellId);
    ~NORLEX_well();
    NORLEX_well(const NORLEX_well&) = delete;
    NORLEX_well& operator=(const NORLEX_well&) = delete;

    // A new well stands at altitude 0 and position (0, 0). An existing triple is refused.
    [[nodiscard]] static bool create(odbc_database* db, const NORLEX_wellDescription& description);
    [[nodiscard]] static bool isExist(odbc_database* db, const NORLEX_wellDescription& description);
    // Deletes the well with every row and file that belongs to it, in one transaction.
    [[nodiscard]] static bool remove(odbc_database* db, const NORLEX_wellDescription& description);
    [[nodiscard]] static std::uint32_t getID(odbc_database* db, // 0 when there is none
                                             const NORLEX_wellDescription& description);
    [[nodiscard]] static std::wstring getWellNameByID(odbc_database* db, std::uint32_t wellId);
    [[nodiscard]] static std::wstring getWellFieldByID(odbc_database* db, std::uint32_t wellId);
    [[nodiscard]] static std::wstring getWellWorkObjectByID(odbc_database* db,
                                                            std::uint32_t wellId);
    [[nodiscard]] static NORLEX_wellDescription getDescription(odbc_database* db,
                                                               std::uint32_t wellId);

    static void getWorkObjectList(odbc_database* db, std::vector<std::wstring>& workObjects);
    static void getFieldList(odbc_database* db, std::vector<std::wstring>& fields);
    static void getFieldList(odbc_database* db,
                             const std::wstring& workObject,
                             std::vector<std::wstring>& fields);
    // Ordered by work object, field and name: all, of one field, of one work object's field.
    static void getWellList(odbc_database* db, std::vector<NORLEX_wellDescription>& wells);
    static void getWellList(odbc_database* db,
                            const std::wstring& field,
                            std::vector<NORLEX_wellDescription>& wells);
    static void getWellList(odbc_database* db,
                            const std::wstring& workObject,
                            const std::wstring& field,
                            std::vector<NORLEX_wellDescription>& wells);
    // The same order, with position and counts, in a constant number of statements.
    static void getWellInfoList(odbc_database* db, std::vector<NORLEX_wellInfo>& wells);

    [[nodiscard]] static double getAltitude(odbc_database* db, const NORLEX_wellDescription& well);
    [[nodiscard]] static double getBottomBaseValue(odbc_database* db,
                                                   const NORLEX_wellDescription& well);
    [[nodiscard]] static double getXCoord(odbc_database* db, const NORLEX_wellDescription& well);
    [[nodiscard]] static double getYCoord(odbc_database* db, const NORLEX_wellDescription& well);
    [[nodiscard]] static bool
    setPosition(odbc_database* db, const NORLEX_wellDescription& well, double x, double y);
    [[nodiscard]] static std::int64_t getPropertyCount(odbc_database* db,
                                                       const NORLEX_wellDescription& well);

    // Wells whose attribute `attribute` has the value, by key.
    [[nodiscard]] static std::vector<std::uint32_t>
    getObjectList(odbc_database* db, const std::wstring& attribute, const std::wstring& value);
    // What differs between two wells, a line each: position, survey, properties. Empty: nothing.
    [[nodiscard]] static std::wstring
    compareWells(odbc_database* db, std::uint32_t first, std::uint32_t second);

    // Identity. Renaming moves the well's files; a failed move undoes it, and so does a triple that
    // another well has. It is announced. A rename to the present names changes nothing.
    [[nodiscard]] bool open(const NORLEX_wellDescription& description);
    [[nodiscard]] bool isOK() const;
    [[nodiscard]] std::uint32_t getID() const;
    [[nodiscard]] const std::wstring& getUUID() const;
    [[nodiscard]] std::wstring getName() const;
    [[nodiscard]] std::wstring getFld() const;
    [[nodiscard]] std::wstring getWorkObjectName() const;
    [[nodiscard]] NORLEX_wellDescription getDescription() const;
    [[nodiscard]] bool setName(const std::wstring& name);
    [[nodiscard]] bool setName(const std::wstring& name, const std::wstring& field);
    [[nodiscard]] bool setFld(const std::wstring& field);
    // All three at once.
    [[nodiscard]] bool rename(const NORLEX_wellDescription& newDescription);
    [[nodiscard]] std::wstring getCreateDate() const;
    [[nodiscard]] std::wstring getCreateUser() const;
    [[nodiscard]] std::wstring getUpdateDate() const;
    [[nodiscard]] std::wstring getUpdateUser() const;
    [[nodiscard]] bool updateEditTime();

    // Position. A number that is not finite is refused. Setting the altitude moves every absolute
    // depth of the well: surveys and logs follow.
    [[nodiscard]] double getAltitude() const;
    [[nodiscard]] bool setAltitude(double altitude);
    [[nodiscard]] double getXCoord() const;
    [[nodiscard]] bool setXCoord(double x);
    [[nodiscard]] double getYCoord() const;
    [[nodiscard]] bool setYCoord(double y);
    // Coordinates of the hole at an absolute depth, in the container's projection.
    // At the mark of an unknown depth, NORLEX_unknownDepth, x and y are left as they were.
    void getCoord(double absDepth, double& x, double& y);
    [[nodiscard]] bool setPosition(double x, double y);
    [[nodiscard]] bool setPosition(double x, double y, double altitude);
    // The stored bottom; where none is set, the largest measured depth that survey and logs know.
    [[nodiscard]] double getBottom();
    [[nodiscard]] double getBottomBaseValue() const; // 0.0 while none is set
    [[nodiscard]] bool setBottom(double depth);      // stored with two decimals
    [[nodiscard]] bool resetBottom();
    // A few lines that tell a person what the well is: names, position, survey, bottom, properties.
    [[nodiscard]] std::wstring getInfoString();

    // Attributes of the well: key and value. Setting one is announced.
    [[nodiscard]] bool setAttribute(const std::wstring& attribute, const std::wstring& value);
    [[nodiscard]] std::wstring getAttribute(const std::wstring& attribute) const;
    // The distinct metadata of the well and of its properties, by group and key.
    [[nodiscard]] std::vector<NORLEX_metaEntry> getDistinctLasMeta() const;
    // The path of a file attached to the well, which need not exist.
    [[nodiscard]] std::wstring getFileName(const std::wstring& file) const;

    // Properties.
    [[nodiscard]] bool createProperty(NORLEX_dataType type, const NORLEX_propDescription& prop);
    [[nodiscard]] bool createPropertyFromTemplate(const std::wstring& templateName,
                                                  const NORLEX_propDescription& prop);
    [[nodiscard]] std::unique_ptr<NORLEX_wellProperty> // null when there is none
    openProperty(const NORLEX_propDescription& prop);
    // Made and opened.
    [[nodiscard]] std::unique_ptr<NORLEX_wellProperty>
    createPropertyPtr(NORLEX_dataType type, const NORLEX_propDescription& prop);
    [[nodiscard]] std::unique_ptr<NORLEX_wellProperty>
    createPropertyFromTemplatePtr(const std::wstring& templateName,
                                  const NORLEX_propDescription& prop);
    [[nodiscard]] bool removeProperty(const NORLEX_propDescription& prop);
    // Moves a log's samples too; a name and group that the well has already are refused.
    [[nodiscard]] bool renameProperty(const NORLEX_propDescription& oldProp,
                                      const NORLEX_propDescription& newProp);
    // Moves a log to another group.
    [[nodiscard]] bool renamePropertyGroupLAS(const NORLEX_propDescription& prop,
                                              const std::wstring& newGroup);
    void getPropertyListAny(std::vector<std::wstring>& names) const; // each once, in any group
    void getPropertyList(std::vector<NORLEX_propDescription>& properties) const; // by group, name
    void getPropertyInfoList(std::vector<NORLEX_propertyInfo>& properties) const;
    [[nodiscard]] std::int64_t getPropertyCount() const;
    [[nodiscard]] bool isPropertyExist(const NORLEX_propDescription& prop) const;
    [[nodiscard]] bool isPropertyExistAny(const std::wstring& name) const;
    void getPropertyGroupList(std::vector<std::wstring>& groups) const;
    void getPropertyForGroup(const std::wstring& group, std::vector<std::wstring>& names) const;
    // From the first and the last sample of a log, the shallower as the top; false when it is none
    // or has no samples.
    [[nodiscard]] bool getPropertyLasDepthRange(const NORLEX_propDescription& prop,
                                                NORLEX_depthRange& range) const;

    // The extent of a property of any kind that has depths; false without a record.
    [[nodiscard]] bool getPropertyDepthRange(const NORLEX_propDescription& prop,
                                             NORLEX_depthRange& range) const;
    // Of one kind each: rows of points and intervals, picks of a border property, a data set.
    [[nodiscard]] bool getPropertyBaseDepthRange(const NORLEX_propDescription& prop,
                                                 NORLEX_depthRange& range) const;
    [[nodiscard]] bool getPropertyBordersRange(const NORLEX_propDescription& prop,
                                               NORLEX_depthRange& range) const;
    [[nodiscard]] bool getPropertySerialDepthRange(const NORLEX_propDescription& prop,
                                                   NORLEX_depthRange& range) const;

    // Data made from data. Each makes the new property `result`, which must not exist, in one
    // transaction, or leaves the well as it was. Values that are missing or no numbers take no part
    // and stay missing.
    //
    // A log of the numeric field of points or intervals: `step` metres apart, the interval's value
    // inside it, between points on the straight line.
    [[nodiscard]] bool makeLogFromData(const NORLEX_propDescription& source,
                                       const std::wstring& field,
                                       double step,
                                       const NORLEX_propDescription& result);
    // A log's mean or median within half a window of measured depth to each side of every sample.
    [[nodiscard]] bool windowFilter(const NORLEX_propDescription& log,
                                    NORLEX_windowKind kind,
                                    double window,
                                    const NORLEX_propDescription& result);
    // Samples of a log from which straight lines stay within `tolerance`, in the unit of its
    // values, of all the others: Ramer 1972, Douglas and Peucker 1973, the distance being taken
    // along the value axis. Missing samples split the log.
    [[nodiscard]] bool propSimplify(const NORLEX_propDescription& log,
                                    double tolerance,
                                    const NORLEX_propDescription& result);
    // Markers where a log crosses a cutoff, at the depth of the straight line between the samples.
    [[nodiscard]] bool makeMarkerFromLAS(const NORLEX_propDescription& log,
                                         double cutoff,
                                         NORLEX_crossing crossing,
                                         const NORLEX_propDescription& result);
    // One log of several runs. Where two cover the same depths, `overlap` says whose samples stand.
    [[nodiscard]] bool joinLas(const std::vector<NORLEX_propDescription>& runs,
                               NORLEX_lasOverlap overlap,
                               const NORLEX_propDescription& result);
    // Writes a statistic of a log within each interval of a property into a field of it, which is
    // added to the property where it is not there. An interval without a value gets an empty text.
    [[nodiscard]] bool calcAttributeToColumn(const NORLEX_propDescription& log,
                                             const NORLEX_propDescription& column,
                                             const std::wstring& field,
                                             NORLEX_statistic statistic);
    // Intervals where a log, or a numeric field of points or intervals, lies within the options'
    // range.
    [[nodiscard]] bool createIntervalsFromProp(const NORLEX_propDescription& source,
                                               const std::wstring& field,
                                               const NORLEX_intervalOptions& options,
                                               const NORLEX_propDescription& result);
    // A stratigraphic column of index expressions: a record for each interval of the source, with
    // its depths, its expression, and for each level the units that it lies in. What is not in the
    // chart leaves the levels empty.
    [[nodiscard]] bool makeDefaultStratoLayer(const NORLEX_def_strato_options& options);
    // Adds the rows of a table to a property, which is made from the template where it is not
    // there.
    [[nodiscard]] bool appendDataFromReader(tableRW::tableReader& reader,
                                            const std::wstring& templateName,
                                            const NORLEX_propDescription& prop,
                                            const NORLEX_tableColumns& columns,
                                            const NORLEX_tableOptions& options,
                                            NORLEX_tableReport& report);

    // Records beside the properties; each is as good as the database is open.
    [[nodiscard]] NORLEX_wellConstruction getConstruction() const;
    [[nodiscard]] NORLEX_wellDrilling getDrillingInfo() const;

    // Survey. The pointer stays the well's and is valid while the well is.
    [[nodiscard]] NORLEX_inclinometry* getIncl();
    [[nodiscard]] bool clearIncl();
    [[nodiscard]] bool checkIncl();
    // Replaces the stored survey, reloads it, recomputes the absolute depths of the well's logs,
    // announces the change unless `silent`, and stamps the well. Stations equal to those held
    // change nothing.
    [[nodiscard]] bool loadInclFromData(const std::vector<inclData>& stations, bool silent);
    // The same from a survey listing: text whose data lie between the second and the third line
    // with a "=", depth, angle and azimuth first on each line.
    [[nodiscard]] bool loadInclFromLST(const std::wstring& path, bool silent);
    // The same from a table, and from curves of a LAS file. The report holds each row that was not
    // taken; rows of a LAS file without an angle or an azimuth are passed over.
    [[nodiscard]] bool loadInclFromReader(tableRW::tableReader& reader,
                                          const NORLEX_inclRead_descr& description,
                                          NORLEX_tableReport& report,
                                          bool silent);
    [[nodiscard]] bool loadInclFromLAS(const std::wstring& path,
                                       const NORLEX_inclRead_descr& description,
                                       NORLEX_tableReport& report,
                                       bool silent);

    // Velocity-depth model, of units and signs as in NORLEX_vdm.h. The pointer stays the well's and
    // is valid while the well is; it follows changes of the altitude and announced changes.
    [[nodiscard]] NORLEX_wellVDM* getVDM();
    [[nodiscard]] bool clearVDM();
    // Each replaces the stored model in one transaction, stamps the well and announces it, or
    // leaves everything as it was.
    //
    // Points as a model holds them; their keys are not looked at.
    [[nodiscard]] bool VDMimport_fromPoints(const std::vector<vdm_data>& points);
    // Intervals, in order, with their velocities in m/s as text: from the altitude down. Those of
    // an empty velocity, of 0 or less are passed over. In time the first point is at the first top;
    // in depth it is at time 0, and intervals that end above it are passed over.
    [[nodiscard]] bool VDMimport_fromModel(const std::vector<NORLEX_intervalValue>& intervals,
                                           NORLEX_vdmType type);
    // Markers and a field with their times, which grow downwards. Records without a time take no
    // part. A marker above the well head, or one whose time is not greater than that of the one
    // above it, is refused.
    [[nodiscard]] bool VDMimport_fromMarkers(const NORLEX_propDescription& markers,
                                             const std::wstring& field,
                                             const NORLEX_VDMcreateOptions& options);
    // A sonic log, its interval transit times integrated over vertical depth from the tie point
    // down. Samples without a value, or with one of 0 or less, take the last value above them, as
    // far as `maxGap`; a longer stretch is refused.
    [[nodiscard]] bool VDMimport_fromSonic(const NORLEX_propDescription& log,
                                           const NORLEX_VDMcreateOptions& options);
    // A table of depths and times, or of intervals and velocities. Times grow downwards. The report
    // holds each row that is not taken.
    [[nodiscard]] bool VDMimport_fromTable(const std::wstring& path,
                                           const NORLEX_VDMtableOptions& options,
                                           NORLEX_tableReport& report);
    // Shows the model as a property of interval or average velocities, intervals in m/s. One that
    // is there is made anew; later changes of the model do not reach it. Removing such a property
    // removes the model.
    [[nodiscard]] bool VDMmakeIntervalVelocity(const NORLEX_propDescription& result);
    [[nodiscard]] bool VDMmakeAverageVelocity(const NORLEX_propDescription& result);

    // Writes logs into one LAS 2.0 file on a common depth grid: depths with one decimal, values
    // with three. Nothing is returned: an empty list, a step of 0 or a file that cannot be opened
    // leaves no file.
    void exportLAS(const std::wstring& path, const std::vector<NORLEX_wellProperty*>& properties);
    // Writes every sample at its own depth, with as many decimals as read back the same number,
    // the file's own null value and header entries, in UTF-8.
    [[nodiscard]] bool exportLASExact(const std::wstring& path,
                                      const std::vector<NORLEX_wellProperty*>& properties);

    [[nodiscard]] globalEventObserver& getEventObserver() const;
    // What a change elsewhere means to this object; called by the observer.
    void onGlobalUpdate(const eventMsgDescription& message);

private:
    [[nodiscard]] bool openRow(std::uint32_t wellId);
    // The column that `statement`, up to the well's key, selects.
    [[nodiscard]] std::wstring textOf(const wchar_t* statement) const;
    [[nodiscard]] double numberOf(const wchar_t* statement) const;
    [[nodiscard]] bool editPosition(const std::function<bool()>& change);
    [[nodiscard]] bool editTrajectory(const std::function<bool()>& change, bool silent);
    [[nodiscard]] bool recalcProperties(bool announce);
    [[nodiscard]] bool rangeOf(const NORLEX_propDescription& prop,
                               const std::function<bool(NORLEX_dataType)>& isMeant,
                               NORLEX_depthRange& range) const;
    void announceUpdate();
    void followMissed();
    void renewVDM();
    [[nodiscard]] bool editVDM(const std::function<bool(NORLEX_wellVDM&)>& change);
    [[nodiscard]] bool makeVelocity(NORLEX_dataType type,
                                    double NORLEX_vdmItem::*velocity,
                                    const NORLEX_propDescription& result);

    odbc_database* m_db = nullptr;
    std::uint32_t m_wellId = 0;
    std::wstring m_uuid;
    std::unique_ptr<NORLEX_inclinometry> m_incl; // made when it is first asked for
    std::unique_ptr<NORLEX_wellVDM> m_vdm;       // the same
    std::unique_ptr<changeWatch> m_watch;
    bool m_ok = false;
};
