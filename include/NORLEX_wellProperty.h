// One named data set of a well: a log, a marker set, a column and so on.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_export.h"
#include "NORLEX_fieldType.h"
#include "NORLEX_lasDescription.h"
#include "NORLEX_logSample.h"
#include "NORLEX_propCopy.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_propRecord.h"
#include "NORLEX_tableColumns.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct eventMsgDescription;
class NORLEX_dictionary;
class NORLEX_inclinometry;
class NORLEX_wellVDM;
class odbc_database;
class recordSet;
struct NORLEX_wellDescription;

namespace tableRW {
class tableReader;
}

// A property of a well, where several are written at once.
struct NORLEX_bulkName {
    std::uint32_t wellId = 0;
    NORLEX_propDescription property;
};

// A file attached to one value of a property.
struct NORLEX_propLink {
    std::wstring file;
    std::wstring comment;
};

// How ore intervals are drawn from values.
struct NORLEX_oreOptions {
    double cutoff = 0.0;       // values at or above it are ore
    double minThickness = 0.0; // thinner ore is left out, after waste was taken in
    double maxWaste = 0.0;     // waste between two ores up to this thick is taken in while the
                               // whole stays at or above the cutoff
};

// One attribute field of a property.
struct NORLEX_propField {
    std::int64_t fieldId = 0;
    std::wstring name;
    NORLEX_fieldType type = NORLEX_fieldTypeUnknown;
};

// Measured depths run along the hole, absolute depths are altitude minus vertical depth; depths
// are stored with two decimals. Apostrophes are dropped from names, groups and values wherever they
// are given. Neither database nor survey is owned.
//
// An object that is held open follows the changes that are announced for its property: what it
// keeps in memory is read again when it is next asked for. What was set in memory and is not yet
// written stays.
class NORLEX_API NORLEX_wellProperty {
public:
    // Opens the property with the key `propertyId`; isOK() tells whether it was found. The survey
    // converts depths; without one, none is converted.
    NORLEX_wellProperty(odbc_database* db,
                        std::int64_t propertyId,
                        NORLEX_inclinometry* incl,
                        NORLEX_wellVDM* vdm = nullptr);
    ~NORLEX_wellProperty();
    NORLEX_wellProperty(const NORLEX_wellProperty&) = delete;
    NORLEX_wellProperty& operator=(const NORLEX_wellProperty&) = delete;

    // Makes an empty property from a template, by name or the standard one of a type. A name and
    // group that the well has already are refused.
    [[nodiscard]] static bool create(odbc_database* db,
                                     std::uint32_t wellId,
                                     const std::wstring& templateName,
                                     const NORLEX_propDescription& prop);
    [[nodiscard]] static bool create(odbc_database* db,
                                     std::uint32_t wellId,
                                     NORLEX_dataType type,
                                     const NORLEX_propDescription& prop);

    // Makes a log from absolute depths and values of equal number. The measured depths are the
    // survey's getReal of the listed ones; samples keep the order of the list. A missing value is
    // NORLEX_missingValue; a depth that is not finite is refused, a value that is not becomes
    // missing.
    [[nodiscard]] static bool createLAS(odbc_database* db,
                                        std::uint32_t wellId,
                                        const NORLEX_propDescription& prop,
                                        const std::wstring& description,
                                        const std::vector<double>& depthsAbs,
                                        const std::vector<double>& values,
                                        NORLEX_inclinometry* incl);
    // The result of a formula; described as "create by formula".
    [[nodiscard]] static bool createLAS(odbc_database* db,
                                        std::uint32_t wellId,
                                        const NORLEX_propDescription& prop,
                                        const std::vector<double>& depthsAbs,
                                        const std::vector<double>& values,
                                        NORLEX_inclinometry* incl);
    // Makes a log from samples whose two depths are known; they are stored as given.
    [[nodiscard]] static bool createLAS(odbc_database* db,
                                        std::uint32_t wellId,
                                        const NORLEX_propDescription& prop,
                                        const std::wstring& description,
                                        const std::vector<NORLEX_logSample>& samples);

    // Makes a data set of the samples of a log, one record a sample, missing ones left out; the
    // standard template of data sets is made where there is none.
    [[nodiscard]] static bool createSerialFromLAS(odbc_database* db,
                                                  std::uint32_t wellId,
                                                  const NORLEX_propDescription& log,
                                                  const NORLEX_propDescription& serial);
    // Makes intervals of ore from a numeric field of an interval property, or from a log (`field`
    // empty). Each is named and described by its thickness-weighted mean value.
    [[nodiscard]] static bool createOreInterval(odbc_database* db,
                                                std::uint32_t wellId,
                                                const NORLEX_propDescription& source,
                                                const std::wstring& field,
                                                const NORLEX_propDescription& ore,
                                                const NORLEX_oreOptions& options);
    // Writes records of many properties, of one type and of any wells: `target` of each row says
    // of which. Properties that are not there are made from the standard template. All or nothing;
    // the line of a refusal names the row, counted from 1.
    [[nodiscard]] static bool createDataBulk(odbc_database* db,
                                             const std::vector<NORLEX_bulkName>& names,
                                             const std::vector<NORLEX_bulkRow>& rows,
                                             NORLEX_dataType type);

    // Copies a property with its records, fields, attributes and samples. The depths of
    // `direction` stay as they are, the others are those of the destination's survey. `replace`
    // deletes a property of the name that the destination has; without it that is refused.
    [[nodiscard]] static bool copy(odbc_database* db,
                                   std::uint32_t srcWell,
                                   std::uint32_t dstWell,
                                   const NORLEX_propDescription& prop,
                                   bool replace,
                                   NORLEX_dataDirection direction);
    // The same under another name or group, in another well or the same one. A merge needs the
    // same template. A log that is merged gets the samples at depths that it does not have.
    [[nodiscard]] static bool copy(odbc_database* db,
                                   std::uint32_t srcWell,
                                   const NORLEX_propDescription& srcProp,
                                   std::uint32_t dstWell,
                                   const NORLEX_propDescription& dstProp,
                                   NORLEX_db_prop_merge merge,
                                   NORLEX_dataDirection direction);

    [[nodiscard]] static bool
    isExist(odbc_database* db, std::uint32_t wellId, const NORLEX_propDescription& prop);
    [[nodiscard]] static bool isExist(odbc_database* db,
                                      const NORLEX_wellDescription& well,
                                      const NORLEX_propDescription& prop);
    // The stored name of the property's data type; empty when there is no such property.
    [[nodiscard]] static std::wstring getDataTypeStringByName(odbc_database* db,
                                                              std::uint32_t wellId,
                                                              const NORLEX_propDescription& prop);
    [[nodiscard]] static bool
    isExistGroup(odbc_database* db, std::uint32_t wellId, const std::wstring& group);
    [[nodiscard]] static bool isExistAny(odbc_database* db, // in any group
                                         std::uint32_t wellId,
                                         const std::wstring& name);
    [[nodiscard]] static std::int64_t getID(odbc_database* db, // 0 when there is none
                                            std::uint32_t wellId,
                                            const NORLEX_propDescription& prop);
    [[nodiscard]] static NORLEX_propDescription getDescr(odbc_database* db,
                                                         std::int64_t propertyId);
    static void getGroupList(odbc_database* db,
                             std::uint32_t wellId,
                             std::vector<std::wstring>& groups); // the empty group is left out
    static void getListForGroup(odbc_database* db,
                                std::uint32_t wellId,
                                const std::wstring& group,
                                std::vector<std::wstring>& names);
    [[nodiscard]] static bool
    setComment(odbc_database* db, std::int64_t propertyId, const std::wstring& text);

    // Deletes the property with its values, geometry, fields, attributes and sample file, without
    // an announcement, in one transaction.
    [[nodiscard]] static bool
    removeSilent(odbc_database* db, std::uint32_t wellId, const NORLEX_propDescription& prop);
    // The same, announced.
    [[nodiscard]] bool remove();

    [[nodiscard]] bool isOK() const;
    [[nodiscard]] std::int64_t getID() const;
    [[nodiscard]] std::uint32_t getWellID() const;
    [[nodiscard]] const std::wstring& getName() const;
    [[nodiscard]] const std::wstring& getGroup() const;
    [[nodiscard]] const std::wstring& getComment() const;
    [[nodiscard]] NORLEX_dataType getType() const;
    [[nodiscard]] const std::wstring& getTemplateName() const;
    [[nodiscard]] const std::vector<NORLEX_propField>& getFields() const; // in order

    // Adds a field, with an empty value for every record the property holds. A taken name is
    // refused. `announce` posts the change.
    [[nodiscard]] bool createField(const std::wstring& name, NORLEX_fieldType type, bool announce);
    [[nodiscard]] bool removeField(const std::wstring& name);

    // Number of samples of a log, or of records of any other kind.
    [[nodiscard]] std::uint64_t getRecordCount();

    // Records of points, intervals and correlation picks: shallowest first by absolute depth.
    // Empty for other kinds. Good until the next call that changes or reloads them.
    [[nodiscard]] const std::vector<NORLEX_geometryRecord>& getRecords();
    // The value of a field in a record, both by position; empty past the ends. Of picks, field 0
    // is the border's name and field 1 its group.
    [[nodiscard]] std::wstring getValue(std::size_t field, std::size_t record);
    // The dictionary that the field at a position is bound to, for as long as it is held; null when
    // there is none. Bindings are of the property's name and group, in every well.
    [[nodiscard]] std::shared_ptr<NORLEX_dictionary> getFieldDictionary(std::size_t field);
    // For people: what the dictionary has for the stored code, or the stored value itself where
    // there is no dictionary or no such code.
    [[nodiscard]] std::wstring getShownValue(std::size_t field, std::size_t record);
    // The value as a number, decimal comma or point; nothing when it is none.
    [[nodiscard]] std::optional<double> getNumber(std::size_t field, std::size_t record);

    // Writes a point, or an interval, at once. NORLEX_unknownDepth in one depth system is computed
    // from the other; the pair of an interval may be given in either order. Refused without a
    // write: a property of another kind, a depth unknown in both systems or not finite, a value
    // list that has not one value a field.
    [[nodiscard]] bool
    createPointCommit(double depth, double depthAbs, const std::vector<std::wstring>& values);
    [[nodiscard]] bool createPlastCommit(double top,
                                         double bot,
                                         double topAbs,
                                         double botAbs,
                                         const std::vector<std::wstring>& values);
    // The same in memory, behind the other records; commit() writes them.
    [[nodiscard]] bool
    createPointData(double depth, double depthAbs, const std::vector<std::wstring>& values);
    [[nodiscard]] bool createPlastData(double top,
                                       double bot,
                                       double topAbs,
                                       double botAbs,
                                       const std::vector<std::wstring>& values);

    // Write many records in one transaction, all or nothing; the line of a refusal names the row,
    // counted from 1.
    [[nodiscard]] bool prepareBulk(const std::vector<NORLEX_bulkRow>& rows);
    // Points at depths of one system, and the values of the first field.
    [[nodiscard]] bool prepareBulk(const std::vector<double>& depths,
                                   const std::vector<std::wstring>& values,
                                   NORLEX_dataDirection direction);
    // The rows of a table. The report holds each row that is not taken.
    [[nodiscard]] bool prepareBulk(tableRW::tableReader& reader,
                                   const NORLEX_tableColumns& columns,
                                   const NORLEX_tableOptions& options,
                                   NORLEX_tableReport& report);
    // Intervals one below the other by their thicknesses, from a top in the depth system of
    // `direction` downwards.
    [[nodiscard]] bool prepareBulkPow(double top,
                                      const std::vector<NORLEX_thicknessRow>& rows,
                                      NORLEX_dataDirection direction);

    // Makes a column of this marker property: each marker's values reach down to the next one, the
    // last one's to `bottom`, a measured depth.
    [[nodiscard]] bool markerToColumn(const NORLEX_propDescription& column, double bottom);
    // Makes intervals between neighbouring picks of this border property, named by the upper one.
    [[nodiscard]] bool makeIntervalsFromBorders(const NORLEX_propDescription& intervals);

    // Each changes one record and is stamped and announced. A record by its position, or by its
    // key `obj_id`.
    [[nodiscard]] bool updateValue(std::size_t field, std::size_t record, const std::wstring& text);
    // Of points and picks the measured and the absolute depth, either of them NORLEX_unknownDepth;
    // of intervals the measured top and bottom.
    [[nodiscard]] bool updateDepth(std::int64_t obj_id, double depth, double depth2);
    [[nodiscard]] bool setBorderType(std::size_t record, NORLEX_borderType type);
    [[nodiscard]] bool removeGeometry(std::int64_t obj_id);
    [[nodiscard]] bool removeGeometryByID(const std::vector<std::int64_t>& keys);

    // Files attached to the value of a field in a record. One file is attached once to a value.
    [[nodiscard]] bool setLink(std::size_t field,
                               std::int64_t obj_id,
                               const std::wstring& file,
                               const std::wstring& comment);
    [[nodiscard]] std::vector<NORLEX_propLink> getLinks(std::size_t field, std::int64_t obj_id);
    [[nodiscard]] bool delLink(std::size_t field, std::int64_t obj_id, const std::wstring& file);
    [[nodiscard]] bool setCommentLink(std::size_t field,
                                      std::int64_t obj_id,
                                      const std::wstring& file,
                                      const std::wstring& comment);

    // The samples of a log, in the order of its file. False when the property is no log, or its
    // file is missing or damaged.
    [[nodiscard]] bool getSamples(std::vector<NORLEX_logSample>& samples);
    // Replaces the samples in memory; commit() writes them.
    [[nodiscard]] bool setSamples(std::vector<NORLEX_logSample> samples);
    // Writes a log's samples back to its file, and the records that were made in memory to their
    // rows. `announce` posts the change.
    [[nodiscard]] bool commit(bool announce);
    // Computes the absolute depths again from the measured ones and the survey, and stores those
    // that change. `announce` posts the change.
    [[nodiscard]] bool recalcDepth(bool announce = true);

    // Smallest and largest value, missing ones left out, from the header of the sample file.
    // False, or 0.0, without a value or a file, or with one of the older format that has none.
    [[nodiscard]] bool getRange(double& smallest, double& largest);
    [[nodiscard]] double getMinValue();
    [[nodiscard]] double getMaxValue();

    // What a change elsewhere means to this object; called by the observer.
    void onGlobalUpdate(const eventMsgDescription& message);

    // Attributes: key and value pairs of the property, such as "UNITS".
    [[nodiscard]] bool setAttribute(const std::wstring& key, const std::wstring& value); // or adds
    [[nodiscard]] bool createAttribute(const std::wstring& key, const std::wstring& value);
    [[nodiscard]] bool updateAttribute(const std::wstring& key, const std::wstring& value);
    [[nodiscard]] bool updateKey(const std::wstring& oldKey, const std::wstring& newKey);
    [[nodiscard]] std::wstring getAttribute(const std::wstring& key);
    [[nodiscard]] std::vector<std::wstring> getAttributeList();
    [[nodiscard]] std::vector<std::pair<std::wstring, std::wstring>> getAttributeKeyValueList();
    // The header entries kept from the file that a log came from: well, parameter, curve block.
    [[nodiscard]] std::vector<lasDescription> getAttributeWellList();
    [[nodiscard]] std::vector<lasDescription> getAttributeParamList();
    [[nodiscard]] std::vector<lasDescription> getAttributeCurveList();

private:
    [[nodiscard]] bool isLog() const;
    [[nodiscard]] std::wstring samplePath() const;
    [[nodiscard]] bool loadSamples();
    [[nodiscard]] bool storeSamples(bool announce);
    void dropSamples();
    [[nodiscard]] bool recalcSamples(bool announce);
    [[nodiscard]] bool recalcRecords(bool announce);
    void announceData() const;
    // Reads the row and the fields; false when the property is gone.
    bool readRow() const;
    // Reads again what an announcement has made out of date.
    void refresh() const;
    enum class geometryKind { points, intervals };
    [[nodiscard]] bool holds(geometryKind wanted) const;
    [[nodiscard]] recordSet& records();
    [[nodiscard]] std::vector<std::int64_t> fieldKeys() const;
    [[nodiscard]] std::int64_t fieldKey(std::size_t field) const; // 0 and refused past the end
    [[nodiscard]] bool addAtOnce(const NORLEX_bulkRow& row, geometryKind kind);
    [[nodiscard]] bool addInMemory(const NORLEX_bulkRow& row, geometryKind kind);
    [[nodiscard]] bool editRecords(const std::function<bool()>& change, bool announce);
    [[nodiscard]] bool editOne(std::size_t record,
                               const std::function<std::wstring(std::int64_t)>& statement,
                               const std::function<void(recordSet&)>& inMemory);
    [[nodiscard]] bool isOwn(std::int64_t obj_id);
    [[nodiscard]] bool editLink(std::size_t field,
                                std::int64_t obj_id,
                                const std::wstring& file,
                                const std::wstring& statement);
    [[nodiscard]] bool
    makeIntervals(const NORLEX_propDescription& result, NORLEX_dataType type, double bottom);

    struct state;
    odbc_database* m_db = nullptr;
    NORLEX_inclinometry* m_incl = nullptr;
    NORLEX_wellVDM* m_vdm = nullptr;
    std::unique_ptr<state> m_state; // what is read from the database
};
