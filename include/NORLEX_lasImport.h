// Turns a LAS file into a well and its logs.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_lasfileExt.h"
#include "NORLEX_wellDescription.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class curveTypes;
class odbc_database;
class wellIndex;

// What to do when the well has a log of the same name and group already.
enum class NORLEX_onExisting : int { fail, skip, replace };

// Which existing well a file belongs to.
enum class NORLEX_wellMatch : int {
    exact,   // the one of its work object, field and name
    letters, // else the only one whose name has the same letters and digits, in any case of
             // letters, of those of the options' work object and field where these are not empty
};

struct NORLEX_lasImportOptions {
    std::wstring workObject; // of the well, where the file is to be filed
    std::wstring field;      // empty: the file's own FLD entry
    // Header entries, in any case of letters, and "file" for the file's name without its
    // extension: the first that is not empty names the well. None given: entries WELL, UWI, API,
    // then the file.
    std::vector<std::wstring> wellFrom;
    NORLEX_wellMatch match = NORLEX_wellMatch::exact;
    std::wstring group = L"LAS"; // group of the logs
    ts::strconv::encodings encoding = ts::strconv::detect;
    NORLEX_onExisting onExisting = NORLEX_onExisting::fail;
    bool dryRun = false; // read and check everything, write nothing
};

struct NORLEX_lasImportResult {
    bool ok = false;
    NORLEX_wellDescription well;
    bool wellCreated = false;
    std::size_t curves = 0;   // in the file
    std::size_t existing = 0; // of these, logs that the well had already
    std::size_t created = 0;  // logs written; in a dry run, those that would be
    std::size_t rows = 0;
    std::uint64_t skippedCount = 0;
    std::vector<NORLEX_lasSkippedLine> skipped; // the first 1000; line 0: not a single line
    std::wstring error;                         // why not ok; one line
};

// Each file is one transaction of the container: its rows and sample files are there wholly or
// not at all. The well is found by work object, field and name, or as the options say, or created;
// a new well takes its position and altitude from the header where it has them. Several wells that
// are alike by their letters are refused. Depths in feet are stored in metres.
// Samples are stored in increasing measured depth with the file's null value as "missing". A log
// whose name the shipped catalogue of curves knows has its type as the attribute "TYPE".
class NORLEX_API NORLEX_lasImport {
public:
    NORLEX_lasImport(odbc_database* db, NORLEX_lasImportOptions options);
    ~NORLEX_lasImport();
    NORLEX_lasImport(const NORLEX_lasImport&) = delete;
    NORLEX_lasImport& operator=(const NORLEX_lasImport&) = delete;

    [[nodiscard]] NORLEX_lasImportResult importFile(const std::wstring& path);
    // The same, and reads the file that will be asked for next while this one is stored. A large
    // one is not read ahead; asking for another one then is no failure.
    [[nodiscard]] NORLEX_lasImportResult importFile(const std::wstring& path,
                                                    const std::wstring& next);

private:
    struct ahead;

    void readAhead(const std::wstring& path);
    [[nodiscard]] NORLEX_lasfileExt read(const std::wstring& path);
    [[nodiscard]] bool readLetters();
    void shrinkMemory();

    odbc_database* m_db;
    NORLEX_lasImportOptions m_options;
    std::unique_ptr<ahead> m_ahead;
    std::unique_ptr<wellIndex> m_letters; // wells by the letters of their names, read once
    std::unique_ptr<curveTypes> m_types;  // of curves, read once
    unsigned m_files = 0;                 // imported so far
};
