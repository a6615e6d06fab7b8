// Files read and written: LAS, delimited tables, survey listings.
#include "NORLEX_correlation.h"
#include "NORLEX_correlationTable.h"
#include "NORLEX_lasImport.h"
#include "NORLEX_propTemplate.h"
#include "NORLEX_tableExport.h"
#include "NORLEX_tableImport.h"
#include "NORLEX_wellTableImport.h"
#include "fuzz/container/steps.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/strconv.h"

#include <vector>

namespace fuzzContainer {

namespace {

std::wstring writeFile(const world& at, const std::wstring& name, const std::wstring& text) {
    const std::wstring path = at.scratch(name);
    const auto file = files::openWrite(path);
    require(file && files::put(file.get(), ts::strconv::toUtf8(text)), "a file for the library");
    return path;
}

std::wstring newLas(choices& by) {
    const auto well = by.name(), field = by.name(), first = by.name(), second = by.name();
    std::wstring text = L"~V\nVERS. 2.0:\nWRAP. NO:\n~W\nNULL. -999.25:\nWELL. " + well
                        + L":\nFLD. " + field + L":\n~C\nDEPT." + (by.flag() ? L"M" : L"FT")
                        + L":\n" + first + L".:\n" + second + L".:\n~A\n";
    for (std::size_t row = by.below(4); row > 0; --row) {
        text += std::to_wstring(by.depth()) + L" ";
        text += by.text() + L" ";
        text += by.text() + L"\n";
    }
    return text;
}

outcome importLas(world& at, choices& by) {
    const auto path = writeFile(at, L"in.las", newLas(by));
    NORLEX_lasImportOptions options;
    options.workObject = by.name();
    options.group = by.name();
    options.onExisting = static_cast<NORLEX_onExisting>(by.below(3));
    options.match = static_cast<NORLEX_wellMatch>(by.below(2));
    options.dryRun = by.below(8) == 0;
    const auto result = NORLEX_lasImport(at.db(), options).importFile(path);
    require(result.ok || !result.error.empty(), "an import is refused without a reason");
    require(!result.ok || options.dryRun || NORLEX_well::isExist(at.db(), result.well),
            "the well of an import is not there");
    return result.ok && options.dryRun ? outcome::asked : of(result.ok);
}

// All logs of a well, and what the reader makes of the file.
outcome exportLas(world& at, choices& by) {
    NORLEX_well well(at.db(), by.well(at.db()));
    std::vector<NORLEX_propDescription> properties;
    well.getPropertyList(properties);
    std::vector<std::unique_ptr<NORLEX_wellProperty>> opened;
    std::vector<NORLEX_wellProperty*> logs;
    for (const auto& prop : properties)
        if (auto one = well.openProperty(prop); one && one->getType() == NORLEX_dataTypeLog)
            logs.push_back(opened.emplace_back(std::move(one)).get());
    const auto path = at.scratch(L"out.las");
    well.exportLAS(path, logs);
    if (!well.exportLASExact(path, logs))
        return outcome::asked;
    const NORLEX_lasfileExt file(path, false);
    require(file.isOK() && file.getSkippedCount() == 0, "an exported file cannot be read");
    NORLEX_lasImportOptions options;
    options.group = by.name();
    options.onExisting = static_cast<NORLEX_onExisting>(by.below(3));
    return of(NORLEX_lasImport(at.db(), options).importFile(path).ok);
}

NORLEX_tableImportOptions tableOptions(world& at, choices& by) {
    NORLEX_tableImportOptions options;
    options.templateName = by.oneOf(NORLEX_propTemplate::getTemplateList(at.db()));
    std::vector<std::wstring> fields;
    NORLEX_propTemplate::getFieldList(at.db(), options.templateName, fields);
    options.property = by.newProperty();
    options.wellColumn.number = 1;
    options.depth.number = options.top.number = 2;
    options.bot.number = 3;
    options.fields = {{by.oneOf(fields), {4, {}}, L""}};
    options.onExisting = static_cast<NORLEX_onExistingData>(by.below(3));
    options.rows.keepGoodRows = by.flag();
    const NORLEX_well well(at.db(), by.well(at.db()));
    if (by.flag())
        options.property = by.property(well);
    return options;
}

outcome importTable(world& at, choices& by) {
    const auto options = tableOptions(at, by);
    std::wstring text = L"well;depth;bottom;value\n";
    for (std::size_t row = by.below(4); row > 0; --row) {
        const auto well = by.well(at.db());
        text +=
            (by.flag() ? well.name : well.workObject + L"/" + well.field + L"/" + well.name) + L";";
        text += std::to_wstring(by.depth()) + L";";
        text += std::to_wstring(by.depth() + 63) + L";";
        text += by.text() + L"\n";
    }
    const auto result =
        NORLEX_tableImport(at.db(), options).importFile(writeFile(at, L"in.csv", text));
    require(result.ok || !result.error.empty(), "a table is refused without a reason");
    require(result.report.taken <= result.report.rows, "more rows were taken than there are");
    return of(result.ok);
}

outcome exportTable(world& at, choices& by) {
    const NORLEX_well well(at.db(), by.well(at.db()));
    NORLEX_tableExportOptions options;
    options.property = by.property(well);
    options.dictionaryValues = by.flag();
    options.separator = by.flag() ? ';' : '\t';
    const auto result = NORLEX_exportTable(at.db(), at.scratch(L"out.csv"), options);
    require(result.ok || !result.error.empty(), "an export is refused without a reason");
    return outcome::asked;
}

outcome importWells(world& at, choices& by) {
    NORLEX_wellTableOptions options;
    options.name.number = 1;
    options.x.number = 2;
    options.altitude.number = 3;
    options.bottom.number = 4;
    options.attributes = {{by.name(), {4, {}}}};
    options.workObject = by.name();
    options.fieldName = by.name();
    options.keepGoodRows = by.flag();
    options.onExisting = static_cast<NORLEX_onExistingWell>(by.below(3));
    std::wstring text = L"n;x;alt;bottom\n";
    for (std::size_t row = by.below(4); row > 0; --row) {
        text += by.name() + L";";
        text += std::to_wstring(by.depth()) + L";";
        text += (by.below(4) == 0 ? by.text() : L"1") + L";";
        text += (by.below(4) == 0 ? by.text() : L"2") + L"\n";
    }
    const auto result =
        NORLEX_wellTableImport(at.db(), options).importFile(writeFile(at, L"wells.csv", text));
    require(result.ok || !result.error.empty(), "a table is refused without a reason");
    return of(result.ok);
}

// A correlation written as a table, and read into one of another name.
outcome correlationTable(world& at, choices& by) {
    std::vector<std::wstring> names;
    correlation::correlation::getCorrelationList(at.db(), names);
    NORLEX_correlationExportOptions written;
    written.correlation = {by.oneOf(names), by.name()};
    written.areAbsolute = by.flag();
    const auto path = at.scratch(L"cor.csv");
    const auto out = NORLEX_exportCorrelation(at.db(), path, written);
    if (!out.ok)
        return outcome::asked;
    NORLEX_correlationTableOptions read;
    read.correlation = by.newProperty();
    read.isWide = true;
    read.areAbsolute = written.areAbsolute;
    read.onExisting = static_cast<correlation::onExistingPick>(by.below(3));
    const auto result = NORLEX_importCorrelation(at.db(), path, read);
    require(result.ok || !result.error.empty(), "a table is refused without a reason");
    require(!result.ok || result.report.rows == out.wells, "an exported correlation lost wells");
    return of(result.ok);
}

outcome listing(world& at, choices& by) {
    std::wstring text = L"x\n=====\ny\n=====\n";
    for (std::size_t row = by.below(4); row > 0; --row) {
        text += std::to_wstring(by.depth()) + L" ";
        text += by.text() + L" ";
        text += std::to_wstring(by.depth()) + L"\n";
    }
    const auto path = writeFile(at, L"in.lst", text + L"=====\n");
    return onWell(at, by, [&](NORLEX_well& well) {
        return well.loadInclFromLST(path, !at.announced(by.flag()));
    });
}

constexpr step steps[] = {{L"exchange.importLas", importLas},
                          {L"exchange.exportLas", exportLas},
                          {L"exchange.importTable", importTable},
                          {L"exchange.exportTable", exportTable},
                          {L"exchange.importWells", importWells},
                          {L"exchange.correlationTable", correlationTable},
                          {L"exchange.listing", listing}};

} // namespace

std::span<const step> exchangeSteps() {
    return steps;
}

} // namespace fuzzContainer
