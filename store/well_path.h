// Where the files of a well lie below the container's file directory.
#pragma once

#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <cstdint>
#include <string>

class odbc_database;

// A file directory with a separator at its end; empty when there is none.
[[nodiscard]] std::wstring NORLEX_getFilePath(const std::wstring& fileDirectory);
[[nodiscard]] std::wstring NORLEX_getFilePath(const odbc_database& db); // the container's

// Each ends in a separator. The folders are work object, field and name, each as a file name.
[[nodiscard]] std::wstring NORLEX_getWellPath(odbc_database* db,
                                              std::uint32_t wellId); // empty: none
[[nodiscard]] std::wstring NORLEX_getWellPath(const odbc_database* db,
                                              const NORLEX_wellDescription& well);
[[nodiscard]] std::wstring NORLEX_getFieldPath(const odbc_database* db,
                                               const std::wstring& workObject,
                                               const std::wstring& field);

// The sample file of a log: group as a folder (none for an empty group), name + ".wpdb".
[[nodiscard]] std::wstring samplePathOf(const std::wstring& wellPath,
                                        const NORLEX_propDescription& prop);

// Refuses, with a line, a name that cannot be a part of these paths: longer than
// files::longestFileName bytes as a file name, or no text. `what` names it: "a well's name".
[[nodiscard]] bool isStorableName(const std::wstring& name, const wchar_t* what);
