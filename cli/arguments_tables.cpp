#include "cli/arguments_tables.h"

#include "cli/column_list.h"
#include "cli/command_options.h"
#include "cli/commands_tables.h"
#include "cli/help_tables.h"
#include "cli/text.h"

#include <algorithm>
#include <utility>

namespace {

using namespace commandOptions;

// A word of the list of columns, and what it sets.
template <typename Options>
struct columnWord {
    std::wstring_view word;
    NORLEX_columnRef Options::*column;
};

constexpr columnWord<NORLEX_tableImportOptions> depthWords[] = {
    {L"depth", &NORLEX_tableImportOptions::depth},
    {L"depth_abs", &NORLEX_tableImportOptions::depthAbs},
    {L"top", &NORLEX_tableImportOptions::top},
    {L"bot", &NORLEX_tableImportOptions::bot},
    {L"top_abs", &NORLEX_tableImportOptions::topAbs},
    {L"bot_abs", &NORLEX_tableImportOptions::botAbs},
};
constexpr columnWord<NORLEX_wellTableOptions> wellWords[] = {
    {L"name", &NORLEX_wellTableOptions::name},
    {L"object", &NORLEX_wellTableOptions::object},
    {L"field", &NORLEX_wellTableOptions::field},
    {L"x", &NORLEX_wellTableOptions::x},
    {L"y", &NORLEX_wellTableOptions::y},
    {L"altitude", &NORLEX_wellTableOptions::altitude},
    {L"bottom", &NORLEX_wellTableOptions::bottom},
};

[[noreturn]] void
refuseValue(const std::string& option, const std::string& value, const std::string& expected) {
    throw CLI::ValidationError(option, "\"" + value + "\" is not " + expected);
}

// An option whose value `take` accepts, or answers false.
template <typename Take>
CLI::Option* addParsed(CLI::App& app,
                       const std::string& option,
                       const std::string& form,
                       const std::string& help,
                       Take take) {
    return app
        .add_option_function<std::vector<std::string>>(
            option,
            [option, form, take](const std::vector<std::string>& values) {
                for (const auto& value : values)
                    if (!take(text::wide(unguarded(value))))
                        refuseValue(option, unguarded(value), "of the form " + form);
            },
            help)
        ->type_name(form)
        ->allow_extra_args(false);
}

// A word of the program's own among the entries; null for a field.
template <typename Options, std::size_t N>
NORLEX_columnRef*
columnOf(Options& options, const columnWord<Options> (&words)[N], const columnList::entry& entry) {
    const auto known = std::find_if(std::begin(words), std::end(words), [&](const auto& word) {
        return !entry.isPlain && word.word == entry.name;
    });
    return known == std::end(words) ? nullptr : &(options.*(known->column));
}

void addSeparator(CLI::App& app, char& target, const std::string& help) {
    app.add_option_function<std::string>(
           "--separator",
           [&target](const std::string& value) {
               if (value == "tab" || value == "\\t")
                   target = '\t';
               else if (value == ";" || value == "," || value == "\t")
                   target = value.front();
               else
                   refuseValue("--separator", value, "one of \";\", \",\", tab");
           },
           help)
        ->type_name("S");
}

template <typename Policy>
void addPolicy(CLI::App& app,
               Policy& target,
               std::vector<std::pair<std::string, Policy>> words,
               const std::string& help) {
    std::string form;
    for (const auto& word : words)
        form += (form.empty() ? "" : "|") + word.first;
    const auto take = [&target, words = std::move(words)](const std::wstring& value) {
        for (const auto& [word, policy] : words)
            if (text::wide(word) == value) {
                target = policy;
                return true;
            }
        return false;
    };
    addParsed(app, "--on-existing", form, help, take);
}

bool takeTableColumns(const std::wstring& list, NORLEX_tableImportOptions& options) {
    std::vector<columnList::entry> entries;
    if (!columnList::parse(list, entries))
        return false;
    for (const auto& entry : entries)
        if (auto* const column = columnOf(options, depthWords, entry))
            *column = entry.column;
        else
            options.fields.push_back({entry.name, entry.column, {}});
    return true;
}

bool takeWellColumns(const std::wstring& list, NORLEX_wellTableOptions& options) {
    std::vector<columnList::entry> entries;
    if (!columnList::parse(list, entries))
        return false;
    for (const auto& entry : entries) {
        auto* const column = columnOf(options, wellWords, entry);
        if (column == nullptr)
            refuseValue("--columns",
                        text::bytes(entry.name),
                        "one of name, object, field, x, y, altitude, bottom");
        *column = entry.column;
    }
    return true;
}

// A table of codes belongs to a field of --columns, which may come behind it on the line: the
// columns of such fields are joined when everything is read.
void joinLookups(NORLEX_tableImportOptions& options,
                 const std::vector<std::pair<std::wstring, std::wstring>>& lookups) {
    for (const auto& lookup : lookups) {
        const auto field = std::find_if(options.fields.begin(),
                                        options.fields.end(),
                                        [&](const auto& f) { return f.name == lookup.first; });
        if (field == options.fields.end())
            refuseUsage("--lookup: the field \"" + text::bytes(lookup.first)
                        + "\" is not in --columns");
        field->lookup = lookup.second;
    }
}

struct tableRequest : importTableRequest {
    std::vector<std::pair<std::wstring, std::wstring>> lookups;
};

void addWells(CLI::App& app, tableRequest& request) {
    auto& options = request.options;
    auto* const well = addText(
        app, "--well", "W", request.well, "the well of all rows, OBJECT/FIELD/NAME or NAME");
    auto* const column = addParsed(
        app, "--well-column", "C", "the column that names the well", [&options](const auto& text) {
            options.wellColumn = columnList::column(text);
            return options.wellColumn.isSet();
        });
    column->excludes(well);
    addText(app,
            "--well-key",
            "ATTRIBUTE",
            options.wellAttribute,
            "that column holds values of this attribute of the wells")
        ->needs(column);
}

void tableOptions(CLI::App& app, tableRequest& request) {
    auto& options = request.options;
    addFile(app, request.file);
    addText(app, "TABLE", "", request.table, "the table to read")->required();
    addWells(app, request);
    addText(app,
            "--template",
            "T",
            options.templateName,
            "template of the property: its name, or marker, interval, column")
        ->required();
    addText(app, "--prop", "P", request.property, "the property, GROUP/NAME or NAME")->required();
    addParsed(app,
              "--columns",
              "NAME=COLUMN,…",
              "columns of depth, depth_abs, or top, bot, top_abs, bot_abs, and of fields",
              [&options](const auto& list) { return takeTableColumns(list, options); })
        ->required();
    addParsed(app,
              "--lookup",
              "FIELD=FILE",
              "the field's cells are codes of this table of codes and values",
              [&request](const auto& given) {
                  return columnList::split(given, request.lookups.emplace_back());
              });
    app.add_flag("--skip-without-depth",
                 options.rows.skipWithoutDepth,
                 "pass over rows whose depth cells are empty");
    using enum NORLEX_onExistingData;
    addPolicy<NORLEX_onExistingData>(app,
                                     options.onExisting,
                                     {{"append", append}, {"replace", replace}, {"fail", fail}},
                                     "a property that the well has; append without it");
    addTableFormat(
        app, options.format, options.rows.hasHeader, options.rows.keepGoodRows, request.form);
}

int runImportTable(const tableRequest& given) {
    tableRequest request = given;
    joinLookups(request.options, request.lookups);
    return commands::importTable(request);
}

void checkTable(const tableRequest& request) {
    if (request.well.empty() && !request.options.wellColumn.isSet())
        refuseUsage("the rows need a well: --well W, or --well-column C");
    auto options = request.options;
    joinLookups(options, request.lookups);
}

void wellsOptions(CLI::App& app, importWellsRequest& request) {
    auto& options = request.options;
    addFile(app, request.file);
    addText(app, "TABLE", "", request.table, "the table to read")->required();
    addParsed(app,
              "--columns",
              "NAME=COLUMN,…",
              "columns of name, object, field, x, y, altitude, bottom",
              [&options](const auto& list) { return takeWellColumns(list, options); })
        ->required();
    addParsed(app,
              "--attribute",
              "KEY=COLUMN",
              "a column that becomes an attribute of the wells; may be repeated",
              [&options](const auto& given) {
                  columnList::entry entry;
                  if (!columnList::parseOne(given, entry))
                      return false;
                  options.attributes.push_back({entry.name, entry.column});
                  return true;
              });
    addText(app, "--object", "O", options.workObject, "work object, where no column says one");
    addText(app, "--field", "F", options.fieldName, "field, where no column says one");
    using enum NORLEX_onExistingWell;
    addPolicy<NORLEX_onExistingWell>(app,
                                     options.onExisting,
                                     {{"skip", skip}, {"update", update}, {"fail", fail}},
                                     "a well that is there; fail without it");
    addTableFormat(app, options.format, options.hasHeader, options.keepGoodRows, request.form);
}

void checkWells(const importWellsRequest& request) {
    if (!request.options.name.isSet())
        refuseUsage("--columns needs the column of the wells' names: name=COLUMN");
}

void exportOptions(CLI::App& app, exportTableRequest& request) {
    addFile(app, request.file);
    addText(app, "--prop", "P", request.property, "the property, GROUP/NAME or NAME")->required();
    addText(app, "--well", "W", request.well, "of this well alone, else of all that have it");
    addText(app, "-o,--out", "F", request.out, "the file to write; else standard output");
    request.options.dictionaryValues = true;
    app.add_flag_callback(
        "--codes",
        [&request] { request.options.dictionaryValues = false; },
        "codes, not what dictionaries have for them");
    addSeparator(app, request.options.separator, "\";\", \",\" or tab; a comma without it");
    addEncoding(app, request.options.encoding);
}

void checkExport(const exportTableRequest& request) {
    if (request.options.encoding == ts::strconv::detect)
        refuseUsage("--encoding: there is nothing to detect it from; utf-8, windows-1251, …");
}

} // namespace

void addTableFormat(CLI::App& app,
                    tableRW::tableOptions& format,
                    bool& hasHeader,
                    bool& keepGoodRows,
                    resultForm& form) {
    app.add_flag_callback(
        "--no-header", [&hasHeader] { hasHeader = false; }, "the first row holds data");
    addSeparator(app, format.separator, "\";\", \",\" or tab; else found out");
    addEncoding(app, format.encoding);
    app.add_flag("--partial", keepGoodRows, "take the good rows when others are bad");
    addJson(app, form);
}

void addTableCommands(CLI::App& import, CLI::App& exportGroup, command& chosen) {
    addCommand(import, chosen, helpTexts::importTable, runImportTable, tableOptions, checkTable);
    addCommand(
        import, chosen, helpTexts::importWells, commands::importWells, wellsOptions, checkWells);
    addCommand(exportGroup,
               chosen,
               helpTexts::exportTable,
               commands::exportTable,
               exportOptions,
               checkExport);
}
