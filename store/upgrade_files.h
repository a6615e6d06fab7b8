// The paths of attached files, rasters and plot templates in older containers.
//
// Paths become relative to the container's file directory. No file is moved or removed: the copy of
// the older database still finds each where it was.
#pragma once

class odbc_database;

namespace upgrade {

// A path below the file directory loses the part that names it; so does one through a folder of the
// same name elsewhere, where the rest names a file of the file directory: the container was moved.
[[nodiscard]] bool shortenFilePaths(odbc_database& db);
// The same for the paths of rasters, which their properties' descriptions hold.
[[nodiscard]] bool shortenRasterPaths(odbc_database& db);

// Makes the table of attached files anew. A file from outside the file directory is copied into the
// folder "<property>_files" beside the property's samples.
[[nodiscard]] bool gatherAttachedFiles(odbc_database& db);

// Gives each "*.pt" file of the folders "planshet" and "planshetTmpl" a row of its name, and those
// of the second a copy in the first.
[[nodiscard]] bool importPlotTemplates(odbc_database& db);

} // namespace upgrade
