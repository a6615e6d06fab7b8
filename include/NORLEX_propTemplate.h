// Property templates: what kind of data a property is and which fields it carries.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_drawType.h"
#include "NORLEX_export.h"
#include "NORLEX_fieldDescr.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class NORLEX_selection;
class odbc_database;

// Opened by name; isOK() tells whether the template was found. The database is not owned.
//
// Without a database, or with one that is closed, every operation answers false or empty. Each
// change is one transaction, stamped, written to the action journal, and announced after the
// commit: the field, or an empty one for the template itself, and the data of its properties.
// Apostrophes are dropped from new names.
class NORLEX_API NORLEX_propTemplate {
public:
    NORLEX_propTemplate(odbc_database* db, const std::wstring& name);

    // What a data type allows.
    [[nodiscard]] static bool isCreatable(NORLEX_dataType type);       // users may make templates
    [[nodiscard]] static bool isImportable(NORLEX_dataType type);      // loadable from a file
    [[nodiscard]] static bool isGroupLoad(NORLEX_dataType type);       // for many wells at once
    [[nodiscard]] static bool isDataGUIEditable(NORLEX_dataType type); // by hand
    // By the named template's type; true for a template that does not exist.
    [[nodiscard]] static bool isEditable(odbc_database* db, const std::wstring& templateName);

    // Deletes every template and field and installs the standard templates of types 1 to 8.
    [[nodiscard]] static bool create(odbc_database* db);
    // Installs the standard template of one type; false when its name is taken.
    [[nodiscard]] static bool createType(odbc_database* db, NORLEX_dataType type);

    // Makes a template of a user's own: the standard fields of the type, then the given ones in
    // their order. An empty or a taken name, a field that is there twice, and lists of unequal
    // length are refused. The library itself makes properties of one template of borders and of
    // either kind of construction: a second one of those types is refused. `announce` tells
    // subscribers.
    [[nodiscard]] static bool createFromType(odbc_database* db,
                                             NORLEX_dataType type,
                                             const std::wstring& name,
                                             const std::vector<std::wstring>& fieldNames,
                                             const std::vector<NORLEX_fieldType>& fieldTypes,
                                             bool announce);
    [[nodiscard]] static bool createFromType(odbc_database* db,
                                             NORLEX_dataType type,
                                             const std::wstring& name,
                                             const std::vector<NORLEX_fieldDescr>& fields,
                                             bool announce);
    // The same with the type and the fields of another template, in place of the standard ones.
    [[nodiscard]] static bool createFromTemplate(odbc_database* db,
                                                 const std::wstring& sourceName,
                                                 const std::wstring& newName,
                                                 const std::vector<std::wstring>& fieldNames,
                                                 const std::vector<NORLEX_fieldType>& fieldTypes,
                                                 bool announce);
    [[nodiscard]] static bool createFromTemplate(odbc_database* db,
                                                 const std::wstring& sourceName,
                                                 const std::wstring& newName,
                                                 const std::vector<NORLEX_fieldDescr>& fields,
                                                 bool announce);
    // Refused while there are properties of the template: they would lose their type.
    [[nodiscard]] static bool remove(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static bool
    rename(odbc_database* db, const std::wstring& oldName, const std::wstring& newName);
    // Does nothing and answers false; see rename().
    [[nodiscard]] static bool
    renameTemplate(odbc_database* db, const std::wstring& oldName, const std::wstring& newName);

    // Templates, by name. A list of wells limits them to those that the wells' properties are of,
    // and so does a selection; no selection has no wells.
    [[nodiscard]] static std::vector<std::wstring> getTemplateList(odbc_database* db);
    [[nodiscard]] static std::vector<std::wstring>
    getTemplateList(odbc_database* db, const std::vector<std::uint32_t>& wells);
    [[nodiscard]] static std::vector<std::wstring>
    getTemplateList(odbc_database* db, const std::shared_ptr<NORLEX_selection>& wells);
    [[nodiscard]] static std::vector<std::wstring> getTemplateListForType(odbc_database* db,
                                                                          NORLEX_dataType type);
    [[nodiscard]] static std::vector<std::wstring> getTemplateGroupLoadList(odbc_database* db);
    [[nodiscard]] static std::vector<std::wstring> getTemplateImportList(odbc_database* db);
    // Those whose properties can be copied to another well: their records are points, intervals or
    // samples.
    [[nodiscard]] static std::vector<std::wstring> getTemplateCopyList(odbc_database* db);
    // Types of which there are templates, and records that are plain rows of fields: markers,
    // intervals, columns. By value.
    [[nodiscard]] static std::vector<NORLEX_dataType> getSimpleTypeList(odbc_database* db);
    // Types of which there are properties, by stored name.
    [[nodiscard]] static std::vector<NORLEX_dataType> getExistTypeList(odbc_database* db);

    [[nodiscard]] static bool isExist(odbc_database* db, const std::wstring& name);
    // Whether two templates have the same type and the same fields in the same order, by name and
    // type; false when either does not exist. The other may be of another database.
    [[nodiscard]] static bool
    isEqual(odbc_database* db, const std::wstring& name, const std::wstring& otherName);
    [[nodiscard]] static bool isEqual(odbc_database* db,
                                      const std::wstring& name,
                                      odbc_database* otherDb,
                                      const std::wstring& otherName);
    [[nodiscard]] static std::uint32_t getID(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static std::wstring getName(odbc_database* db, std::uint32_t templateId);
    [[nodiscard]] static std::wstring
    getName(odbc_database* db, std::uint32_t wellId, const NORLEX_propDescription& prop);
    [[nodiscard]] static NORLEX_dataType getType(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static NORLEX_dataType getType(odbc_database* db, std::uint32_t templateId);
    [[nodiscard]] static NORLEX_dataType
    getType(odbc_database* db, std::uint32_t wellId, const NORLEX_propDescription& prop);
    // The type as it is stored, whether it is known or not.
    [[nodiscard]] static std::wstring getDBType(odbc_database* db, const std::wstring& name);

    [[nodiscard]] static std::vector<NORLEX_fieldDescr> getFieldList(odbc_database* db,
                                                                     const std::wstring& name);
    static void
    getFieldList(odbc_database* db, const std::wstring& name, std::vector<std::wstring>& names);
    static void getFieldList(odbc_database* db,
                             const std::wstring& name,
                             NORLEX_fieldType type,
                             std::vector<std::wstring>& names);
    [[nodiscard]] static std::vector<std::wstring> getNumericFieldList(odbc_database* db,
                                                                       const std::wstring& name);
    // The same behind the display names of the depths that records of the type have: one of points
    // and samples, top and bottom of intervals, none of other types.
    [[nodiscard]] static std::vector<std::wstring>
    getNumericFieldListWithDepth(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static NORLEX_fieldType
    getFieldType(odbc_database* db, const std::wstring& name, const std::wstring& field);
    [[nodiscard]] static int
    getFieldPrecision(odbc_database* db, const std::wstring& name, const std::wstring& field);
    [[nodiscard]] static std::wstring
    getFieldShortName(odbc_database* db, const std::wstring& name, const std::wstring& field);
    // The fields that the standard template of a type has, in order.
    static void getBaseFldListForType(NORLEX_dataType type, std::vector<NORLEX_fieldDescr>& fields);

    // Who uses a template. A well counts once for each of its properties.
    [[nodiscard]] static std::int64_t getNumWellsWithProps(odbc_database* db,
                                                           const std::wstring& name);
    // Properties by group and name, each once however many wells have it.
    [[nodiscard]] static std::vector<NORLEX_propDescription>
    getPropertyFromTemplate(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static std::vector<NORLEX_propDescription>
    getPropertyFromType(odbc_database* db, NORLEX_dataType type);
    [[nodiscard]] static std::vector<NORLEX_propDescription> getPropertyFromType(
        odbc_database* db, NORLEX_dataType type, const std::vector<std::uint32_t>& wells);
    [[nodiscard]] static std::vector<NORLEX_propDescription> getPropertyFromType(
        odbc_database* db, NORLEX_dataType type, const std::shared_ptr<NORLEX_selection>& wells);
    // Wells that have properties of the template, or this one; by work object, field and name.
    [[nodiscard]] static std::vector<NORLEX_wellDescription>
    getWellsFromTemplate(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static std::vector<NORLEX_wellDescription> getWellsFromTemplate(
        odbc_database* db, const std::wstring& name, const NORLEX_propDescription& prop);

    // How properties of the template are drawn, as the text described in NORLEX_drawType.h.
    [[nodiscard]] static std::wstring getBasicDrawType(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static std::wstring getBasicDrawType(odbc_database* db, std::uint32_t templateId);
    [[nodiscard]] static std::wstring getDrawTypeString(NORLEX_drawType type,
                                                        const NORLEX_drawParams& params);
    // The default for a kind that is not known. A parameter without "=" has an empty value; of two
    // of a name the last one stands.
    [[nodiscard]] static NORLEX_drawType getDrawTypeFromString(const std::wstring& text);
    [[nodiscard]] static NORLEX_drawParams getDrawTypeParamsFromString(const std::wstring& text);

    // Stamps the template and its properties as edited now.
    [[nodiscard]] static bool updateEditTime(odbc_database* db, std::uint32_t templateId);

    [[nodiscard]] bool isOK() const;
    [[nodiscard]] bool isExist() const; // still in the database
    [[nodiscard]] const std::wstring& getName() const;
    [[nodiscard]] const std::wstring& getDescription() const;
    [[nodiscard]] NORLEX_dataType getType() const;
    [[nodiscard]] std::uint32_t getID() const;
    [[nodiscard]] std::int64_t numProps() const; // properties made from it
    [[nodiscard]] std::wstring getBasicDrawType() const;
    // Of the template and of every property made from it.
    [[nodiscard]] bool setBasicDrawType(NORLEX_drawType type, const NORLEX_drawParams& params);

    // The type by its stored name. Once there are properties an interval may become a column and
    // the reverse; the records of other types lie elsewhere, and the change is refused.
    [[nodiscard]] std::wstring getDataTypeString() const;
    [[nodiscard]] bool setDataTypeString(const std::wstring& storedName);

    // Adds a field to the template and to every property made from it, where each record gets an
    // empty value. An empty or a taken name is refused, and one that a template of a kind not
    // editable bears. `announce` tells subscribers. The short form takes a field without a short
    // name, silently.
    [[nodiscard]] bool addField(const NORLEX_fieldDescr& field, bool announce);
    [[nodiscard]] bool addField(const std::wstring& name, NORLEX_fieldType type);
    // Deletes a field with its values and attached files, here and in every property. Refused where
    // it is the only field of a property with records: a record is found by its values.
    [[nodiscard]] bool deleteField(const std::wstring& field);
    // The values stay, and so do the dictionaries that the field is bound to.
    [[nodiscard]] bool renameField(const std::wstring& oldName, const std::wstring& newName);
    // The values stay as they are: see checkNumericFldData. A field that becomes numeric gets two
    // decimals unless it has a number of them.
    [[nodiscard]] bool changeFieldType(const std::wstring& field, NORLEX_fieldType type);
    // Whether every value of the field reads as a number, with a decimal point or comma, or is
    // empty. Otherwise `message` says how many do not, and the well, property and value of the
    // first.
    [[nodiscard]] bool checkNumericFldData(const std::wstring& field, std::wstring& message) const;
    [[nodiscard]] std::int64_t numValues(const std::wstring& field) const; // that are not empty

    [[nodiscard]] bool isFieldExist(const std::wstring& field) const;
    [[nodiscard]] std::vector<NORLEX_fieldDescr> getFieldList() const; // in order of creation
    [[nodiscard]] int getFieldCount() const;
    [[nodiscard]] NORLEX_fieldType getFieldType(const std::wstring& field) const;
    // The field type of the host's tables, see fieldType_getDSType; 0 without such a field.
    [[nodiscard]] int getFieldMetaType(const std::wstring& field) const;
    [[nodiscard]] int getFieldPrecision(const std::wstring& field) const;
    [[nodiscard]] bool setFieldPrecision(const std::wstring& field, int decimals); // 0 to 15
    [[nodiscard]] std::wstring getFieldShortName(const std::wstring& field) const;
    [[nodiscard]] bool setFieldShortName(const std::wstring& field, const std::wstring& shortName);

private:
    [[nodiscard]] static bool makeTemplate(odbc_database* db,
                                           NORLEX_dataType type,
                                           const std::wstring& name,
                                           const std::vector<NORLEX_fieldDescr>& baseFields,
                                           const std::vector<NORLEX_fieldDescr>& fields,
                                           bool announce);
    [[nodiscard]] bool insertField(const NORLEX_fieldDescr& field);
    [[nodiscard]] bool hasField(const std::wstring& field, bool wanted);
    // The change with its stamps, its line in the journal and, after the commit, its news.
    [[nodiscard]] bool edit(const std::vector<std::wstring>& fields,
                            bool announce,
                            const std::function<bool()>& change);
    [[nodiscard]] std::wstring fieldText(const wchar_t* select, const std::wstring& field) const;

    odbc_database* m_db = nullptr;
    std::wstring m_name;
    std::wstring m_description;
    std::uint32_t m_id = 0;
    NORLEX_dataType m_type = NORLEX_dataTypeUnknown;
    bool m_ok = false;
};
