// One open well database and the factory of everything in it.
#pragma once

#include "NORLEX_checkFinding.h"
#include "NORLEX_contDescription.h"
#include "NORLEX_export.h"
#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class NORLEX_selection;
class odbc_database;

namespace strategraphy {
class statoTable;
}

// What became of one well of a bulk export.
struct NORLEX_exportedWell {
    NORLEX_wellDescription well;
    std::wstring path;   // of its file; empty where it has no logs
    std::wstring reason; // why it was not written; empty where it was
};

enum class NORLEX_versionStatus : int { current = 0, needsUpgrade = 1, unreadable = 2 };

// Objects made from a container borrow its connection and must not outlive it.
class NORLEX_API NORLEX_wellContainer {
public:
    static constexpr int currentVersion = 36; // of the schema

    // Opens the database at once; isOK() tells whether that succeeded.
    explicit NORLEX_wellContainer(const NORLEX_contDescription& description);
    ~NORLEX_wellContainer();
    NORLEX_wellContainer(const NORLEX_wellContainer&) = delete;
    NORLEX_wellContainer& operator=(const NORLEX_wellContainer&) = delete;

    // A local file becomes type 1, with its files in a folder of its name beside it; a server
    // description file becomes type 2 and is read.
    [[nodiscard]] static NORLEX_contDescription makeDescription(const std::wstring& path);

    // True only when the first line is exactly "[TESSARO_welldb_Server_Description]".
    [[nodiscard]] static bool isServerDBFile(const std::wstring& path);

    // Adds the settings of a server description file to `description`.
    static void makeServerConnectionString(const std::wstring& path,
                                           NORLEX_contDescription& description);

    // Makes a new database with the standard templates. An existing local file is deleted first;
    // one that is in use is left as it was, and the answer is false.
    [[nodiscard]] static bool create(const NORLEX_contDescription& description);

    // Whether opening would succeed as far as can be told without changing anything: path,
    // extension, connection and a readable version no newer than this library's.
    [[nodiscard]] static bool isContCanOpen(const NORLEX_contDescription& description);

    [[nodiscard]] bool isOK() const;
    [[nodiscard]] int getVersionNumber() const; // 0 when it cannot be read
    [[nodiscard]] NORLEX_versionStatus getVersionStatus() const;

    // Brings an older schema to the current version after asking the user.
    [[nodiscard]] bool updateVersion();

    // Points the open container at another ".well2" file; its connection object stays the same. A
    // path that is refused or an open transaction leave the container as it was; a file that then
    // cannot be opened leaves it closed.
    [[nodiscard]] bool updateConnectionPath(const std::wstring& newPath);

    [[nodiscard]] const NORLEX_contDescription& getContDescription() const;
    [[nodiscard]] std::wstring getConnectionPath() const;
    [[nodiscard]] std::wstring getFileContainerPath() const;
    [[nodiscard]] odbc_database* getBaseLink() const; // null while closed; stays the container's
    [[nodiscard]] std::wstring getUUID() const;

    [[nodiscard]] std::wstring getCreateDate() const;
    [[nodiscard]] std::wstring getCreateUser() const;
    [[nodiscard]] std::wstring getUpdateDate() const;
    [[nodiscard]] std::wstring getUpdateUser() const;

    // The stratigraphic chart, which is read when it is first asked for, and again while it could
    // not be read. Never null.
    [[nodiscard]] std::shared_ptr<const strategraphy::statoTable> getStrategraphy();

    // The container's projection, a PROJ.4 text.
    [[nodiscard]] std::wstring getProjection() const;
    [[nodiscard]] bool setProjection(const std::wstring& projection);

    [[nodiscard]] std::int64_t getWellCount() const;
    [[nodiscard]] std::int64_t getPropertyCount() const;
    [[nodiscard]] std::int64_t getTemplateCount() const;

    // Stamp the container, wells, or one property of wells, as edited now by the current user.
    // `wellKeys` is a comma-separated list of well keys.
    [[nodiscard]] bool updateEditTimeContainer();
    [[nodiscard]] bool updateEditTimeWell(const std::wstring& wellKeys);
    [[nodiscard]] bool updateEditTimeProp(const std::wstring& wellKeys,
                                          const std::wstring& propName,
                                          const std::wstring& propGroup);

    // Operations on the wells of a selection of this container, which is computed anew. No
    // selection, one of another container and one that cannot be computed are refused.
    [[nodiscard]] bool updateEditTimeWell(const std::shared_ptr<NORLEX_selection>& wells);
    [[nodiscard]] bool updateEditTimeProp(const std::shared_ptr<NORLEX_selection>& wells,
                                          const NORLEX_propDescription& prop);
    // The properties of the wells, each once, by group and name; the templates of these, by name.
    [[nodiscard]] bool getPropertyList(const std::shared_ptr<NORLEX_selection>& wells,
                                       std::vector<NORLEX_propDescription>& properties) const;
    [[nodiscard]] bool getTemplateList(const std::shared_ptr<NORLEX_selection>& wells,
                                       std::vector<std::wstring>& templates) const;
    // Deletes the property wherever the wells have it, in one transaction, and announces that once.
    // `removed` counts the wells that had it.
    [[nodiscard]] bool removeProperty(const std::shared_ptr<NORLEX_selection>& wells,
                                      const NORLEX_propDescription& prop,
                                      std::size_t& removed);
    // Writes the logs of each well that has some into a LAS file of its own in the folder, which is
    // made where it lacks: NAME.las, or OBJECT-FIELD-NAME.las where several of the wells bear one
    // name. `exact` as in NORLEX_well::exportLASExact. A file that cannot be written does not keep
    // the others back; false when one could not, or the user stopped it.
    [[nodiscard]] bool exportLAS(const std::shared_ptr<NORLEX_selection>& wells,
                                 const std::wstring& folder,
                                 bool exact,
                                 std::vector<NORLEX_exportedWell>& files) const;

    // Drop the schema's three indexes before a bulk load; build them again after it, and let the
    // engine look at how the rows are distributed.
    [[nodiscard]] bool beginBatchLoad();
    [[nodiscard]] bool endBatchLoad();

    // Group what follows into one transaction; levels nest. end() answers false and undoes the
    // level when something inside it failed.
    [[nodiscard]] bool beginTransaction();
    [[nodiscard]] bool endTransaction();
    void rollbackTransaction();

    // Looks through the whole container for rows and files that do not belong together, for wells,
    // properties, templates and fields that are there twice, and for damage. False when it could
    // not be read.
    [[nodiscard]] bool check(std::vector<NORLEX_checkFinding>& findings);
    // Removes what such a check calls repairable, in one transaction, after a backup into the
    // archive `backupPath`, which must not exist.
    [[nodiscard]] bool repair(const std::wstring& backupPath,
                              std::vector<NORLEX_checkFinding>& removed);

    // Writes the database, the action journal and the file directory into one zip archive.
    [[nodiscard]] bool backup(const std::wstring& archive);
    // Makes the container of an archive at `target`, once all of the archive was read and checked.
    // A local container that is there is replaced, with its file directory, only on `replace`.
    [[nodiscard]] static bool
    restore(const std::wstring& archive, const NORLEX_contDescription& target, bool replace);
    // Copies the whole container, keys included, into a new one, between a file and a server in
    // either direction.
    [[nodiscard]] bool copyTo(const NORLEX_contDescription& target);

    // Indexes beyond the three of the schema: for large containers, on request only.
    [[nodiscard]] bool createSearchIndexes();
    [[nodiscard]] bool dropSearchIndexes();
    [[nodiscard]] bool hasSearchIndexes() const;
    // Lets the engine look at how its rows are distributed, which decides how it joins tables.
    [[nodiscard]] bool updateStatistics();

    // The version that a description's database is of, without opening it as a container; 0 when
    // it cannot be read.
    [[nodiscard]] static int storedVersion(const NORLEX_contDescription& description);

private:
    class openFile;

    [[nodiscard]] bool openContainer(const NORLEX_contDescription& description);
    [[nodiscard]] bool connectTo(const NORLEX_contDescription& description);

    NORLEX_contDescription m_description;
    std::unique_ptr<odbc_database> m_db;
    std::unique_ptr<openFile> m_openFile;
    std::shared_ptr<const strategraphy::statoTable> m_strategraphy;
};
