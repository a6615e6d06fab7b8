// Imports one LAS file that is read already.
#pragma once

#include "NORLEX_lasImport.h"
#include "NORLEX_lasfileExt.h"
#include "exchange/curve_types.h"
#include "exchange/exact_notes.h"
#include "exchange/las_import_logs.h"
#include "exchange/las_import_samples.h"
#include "exchange/well_index.h"
#include "wells/log_records.h"

#include <string>
#include <vector>

class odbc_database;

// One file on its way into the container: what it was given is taken whole, in one transaction, or
// refused with the last error set. The well index learns nothing here.
class las_file_import {
public:
    las_file_import(odbc_database& db,
                    const NORLEX_lasImportOptions& options,
                    const std::wstring& path,
                    NORLEX_lasImportResult& result,
                    NORLEX_lasfileExt file,
                    wellIndex* letters,
                    const curveTypes& types);

    [[nodiscard]] bool run();

private:
    [[nodiscard]] bool readFile();
    [[nodiscard]] bool check();
    [[nodiscard]] bool write();
    [[nodiscard]] bool matchWell();
    [[nodiscard]] bool openWell();
    [[nodiscard]] bool sortExisting(const logRecords::maker& logs);
    [[nodiscard]] bool removeExisting();
    [[nodiscard]] bool writeLogs(logRecords::maker& logs);
    void addSkipped();

    odbc_database& m_db;
    const NORLEX_lasImportOptions& m_options;
    const std::wstring& m_path;
    NORLEX_lasImportResult& m_result;
    NORLEX_lasfileExt m_file;
    wellIndex* m_letters; // null: wells are found by their names alone
    const curveTypes& m_types;
    exactNotes::notes m_notes;
    lasImportSamples::depth_column m_depths;
    std::vector<lasImportLogs::target> m_targets; // one a curve
    bool m_writesLater = true;                    // in a thread, until the commit
};
