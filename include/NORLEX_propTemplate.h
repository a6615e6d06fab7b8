// Property templates: what kind of data a property is and which fields it carries.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_export.h"
#include "NORLEX_fieldDescr.h"

#include <cstdint>
#include <string>
#include <vector>

class odbc_database;

// Opened by name; isOK() tells whether the template was found. The database is not owned.
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

    [[nodiscard]] static bool isExist(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static std::uint32_t getID(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static std::wstring getName(odbc_database* db, std::uint32_t templateId);
    [[nodiscard]] static NORLEX_dataType getType(odbc_database* db, const std::wstring& name);
    [[nodiscard]] static NORLEX_dataType getType(odbc_database* db, std::uint32_t templateId);
    [[nodiscard]] static std::vector<std::wstring> getTemplateList(odbc_database* db);
    [[nodiscard]] static std::vector<std::wstring> getTemplateListForType(odbc_database* db,
                                                                          NORLEX_dataType type);
    [[nodiscard]] static std::vector<NORLEX_fieldDescr> getFieldList(odbc_database* db,
                                                                     const std::wstring& name);
    // The fields that the standard template of a type has, in order.
    static void getBaseFldListForType(NORLEX_dataType type, std::vector<NORLEX_fieldDescr>& fields);

    // Stamps the template and its properties as edited now.
    [[nodiscard]] static bool updateEditTime(odbc_database* db, std::uint32_t templateId);

    [[nodiscard]] bool isOK() const;
    [[nodiscard]] bool isExist() const; // still in the database
    [[nodiscard]] const std::wstring& getName() const;
    [[nodiscard]] const std::wstring& getDescription() const;
    [[nodiscard]] NORLEX_dataType getType() const;
    [[nodiscard]] std::uint32_t getID() const;

    // Adds a field to the template and to every property made from it, where each record gets an
    // empty value. Apostrophes are dropped from its names; an empty or a taken name is refused, and
    // one that a template of a kind not editable bears. The change is stamped and journalled;
    // `announce` tells subscribers. The short form takes a field without a short name, silently.
    [[nodiscard]] bool addField(const NORLEX_fieldDescr& field, bool announce);
    [[nodiscard]] bool addField(const std::wstring& name, NORLEX_fieldType type);
    [[nodiscard]] bool isFieldExist(const std::wstring& field) const;
    [[nodiscard]] std::vector<NORLEX_fieldDescr> getFieldList() const; // in order of creation
    [[nodiscard]] int getFieldCount() const;
    [[nodiscard]] NORLEX_fieldType getFieldType(const std::wstring& field) const;
    [[nodiscard]] int getFieldPrecision(const std::wstring& field) const;
    [[nodiscard]] std::wstring getFieldShortName(const std::wstring& field) const;

private:
    [[nodiscard]] bool insertField(const NORLEX_fieldDescr& field);

    odbc_database* m_db = nullptr;
    std::wstring m_name;
    std::wstring m_description;
    std::uint32_t m_id = 0;
    NORLEX_dataType m_type = NORLEX_dataTypeUnknown;
    bool m_ok = false;
};
