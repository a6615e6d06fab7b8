// One named data set of a well: a log, a marker set, a column and so on.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_export.h"
#include "NORLEX_fieldType.h"
#include "NORLEX_lasDescription.h"
#include "NORLEX_logSample.h"
#include "NORLEX_propDescription.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class NORLEX_inclinometry;
class NORLEX_wellVDM;
class odbc_database;

// One attribute field of a property.
struct NORLEX_propField {
    std::int64_t fieldId = 0;
    std::wstring name;
    NORLEX_fieldType type = NORLEX_fieldTypeUnknown;
};

// Measured depths run along the hole, absolute depths are altitude minus vertical depth.
// Apostrophes are dropped from names and groups wherever they are given. Neither database nor
// survey is owned.
class NORLEX_API NORLEX_wellProperty {
public:
    // Opens the property with the key `propertyId`; isOK() tells whether it was found. The survey
    // converts depths; without one, none is converted.
    NORLEX_wellProperty(odbc_database* db,
                        std::int64_t propertyId,
                        NORLEX_inclinometry* incl,
                        NORLEX_wellVDM* vdm = nullptr);

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

    [[nodiscard]] static bool
    isExist(odbc_database* db, std::uint32_t wellId, const NORLEX_propDescription& prop);
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

    // The samples of a log, in the order of its file. False when the property is no log, or its
    // file is missing or damaged.
    [[nodiscard]] bool getSamples(std::vector<NORLEX_logSample>& samples);
    // Replaces the samples in memory; commit() writes them.
    [[nodiscard]] bool setSamples(std::vector<NORLEX_logSample> samples);
    // Writes a log's samples back to its file. `announce` posts the change.
    [[nodiscard]] bool commit(bool announce);
    // Computes the absolute depths again from the measured ones and the survey, and stores them.
    [[nodiscard]] bool recalcDepth();

    // Smallest and largest value, missing ones left out, from the header of the sample file.
    // False, or 0.0, without a file or with one of the older format, which has no range.
    [[nodiscard]] bool getRange(double& smallest, double& largest);
    [[nodiscard]] double getMinValue();
    [[nodiscard]] double getMaxValue();

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
    [[nodiscard]] bool recalcSamples();
    [[nodiscard]] bool recalcRecords();
    void announceData() const;

    odbc_database* m_db = nullptr;
    NORLEX_inclinometry* m_incl = nullptr;
    NORLEX_wellVDM* m_vdm = nullptr;
    std::int64_t m_id = 0;
    std::uint32_t m_wellId = 0;
    NORLEX_propDescription m_descr;
    std::wstring m_comment;
    std::wstring m_templateName;
    NORLEX_dataType m_type = NORLEX_dataTypeUnknown;
    std::vector<NORLEX_propField> m_fields;
    std::vector<NORLEX_logSample> m_samples;
    bool m_samplesLoaded = false;
    bool m_ok = false;
};
