#include "cli/commands_tables.h"

#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table_reports.h"
#include "cli/temporary_file.h"
#include "cli/text.h"
#include "cli/type_names.h"

#include "NORLEX_propTemplate.h"

namespace {

using numberText::counted;

// A template by its name, or the first one of the kind that the word names.
std::wstring templateOf(odbc_database* db, const std::wstring& given) {
    if (NORLEX_propTemplate::isExist(db, given))
        return given;
    const auto type = typeNames::dataType(given);
    const auto ofType =
        type ? NORLEX_propTemplate::getTemplateListForType(db, *type) : std::vector<std::wstring>();
    return ofType.empty() ? given : ofType.front();
}

template <typename Result>
int tell(const Result& result, resultForm form, const json& counts, const std::string& words) {
    if (form == resultForm::json)
        jsonOut::print(tableReports::document(result.ok, result.report, counts, result.error));
    else if (result.ok || result.report.badCount > 0)
        tableReports::print(result.report, words);
    return result.ok ? 0 : output::refused(result.error);
}

// The wells and the property that a table is to be written of.
bool choose(odbc_database* db,
            const exportTableRequest& request,
            NORLEX_tableExportOptions& options) {
    if (request.well.empty()) {
        const auto property = names::newProperty(request.property);
        options.property = property.value_or(NORLEX_propDescription());
        return property.has_value();
    }
    const auto description = names::findWell(db, request.well);
    if (!description)
        return false;
    const NORLEX_well well(db, *description);
    const auto property = names::findProperty(well, request.property);
    options.property = property.value_or(NORLEX_propDescription());
    options.wells = {well.getID()};
    return property.has_value();
}

} // namespace

namespace commands {

int importTable(const importTableRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    auto options = request.options;
    const auto property = names::newProperty(request.property);
    const auto well =
        request.well.empty() ? NORLEX_wellDescription() : names::findWell(db, request.well);
    if (!property || !well)
        return output::failure;
    options.property = *property;
    options.well = *well;
    options.templateName = templateOf(db, options.templateName);
    NORLEX_tableImportResult result;
    tableReports::withProgress(
        [&] { result = NORLEX_tableImport(db, options).importFile(request.table); });
    return tell(
        result,
        request.form,
        {{"wells", result.wells}, {"properties_created", result.created}},
        counted(result.wells, "well") + ", "
            + (result.created == 1 ? "1 property" : std::to_string(result.created) + " properties")
            + " created");
}

int importWells(const importWellsRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    NORLEX_wellTableResult result;
    tableReports::withProgress([&] {
        result = NORLEX_wellTableImport(container->getBaseLink(), request.options)
                     .importFile(request.table);
    });
    return tell(result,
                request.form,
                {{"wells_created", result.created}, {"wells_updated", result.updated}},
                counted(result.created, "well") + " created, " + std::to_string(result.updated)
                    + " updated");
}

// Standard output gets the table once all of it is there.
int exportTable(const exportTableRequest& request) {
    const auto container = openContainer(request.file);
    if (!container)
        return output::failure;
    odbc_database* const db = container->getBaseLink();
    auto options = request.options;
    if (!choose(db, request, options))
        return output::failure;
    const temporaryFile between(request.out.empty());
    const std::wstring path = request.out.empty() ? between.path() : request.out;
    NORLEX_tableExportResult result;
    tableReports::withProgress([&] { result = NORLEX_exportTable(db, path, options); });
    if (!result.ok)
        return output::refused(result.error);
    if (request.out.empty())
        return between.copyToOutput() ? 0 : output::refused(L"the table cannot be read back");
    output::line(counted(static_cast<std::size_t>(result.rows), "row") + " of "
                 + counted(result.wells, "well") + " written to " + text::shown(request.out));
    return 0;
}

} // namespace commands
