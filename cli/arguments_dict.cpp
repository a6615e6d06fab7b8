#include "cli/arguments_dict.h"

#include "cli/arguments_tables.h"
#include "cli/command_options.h"
#include "cli/commands_dict.h"
#include "cli/help_dict.h"

namespace {

using namespace commandOptions;

template <typename Request>
void dictOptions(CLI::App& app, Request& request) {
    addFile(app, request.file);
    addText(app, "DICT", "", request.name, "the dictionary")->required();
}

void importOptions(CLI::App& app, dictImportRequest& request) {
    dictOptions(app, request);
    addText(app, "TABLE", "", request.table, "the table to read")->required();
    addColumn(app, "--code", request.code, "the column of the codes; 1 without it");
    addColumn(app, "--value", request.value, "the column of the values; 2 without it");
    addTableFormat(app,
                   request.options.format,
                   request.options.hasHeader,
                   request.options.keepGoodRows,
                   request.form);
}

void exportOptions(CLI::App& app, dictExportRequest& request) {
    dictOptions(app, request);
    addText(app, "OUT", "", request.out, "the file to write")->required();
    addEncoding(app, request.encoding);
}

void checkExport(const dictExportRequest& request) {
    if (request.encoding == ts::strconv::detect)
        refuseUsage("--encoding: there is nothing to detect it from; utf-8, windows-1251, …");
}

void addField(CLI::App& app, dictLinkRequest& request) {
    addText(app, "PROP", "", request.property, "the property, GROUP/NAME or NAME")->required();
    addText(app, "FIELD", "", request.field, "its field")->required();
}

void listOptions(CLI::App& app, fileRequest& request) {
    addFile(app, request.file);
    addJson(app, request.form);
}

void addLinkCommands(CLI::App& group, command& chosen) {
    addCommand(group,
               chosen,
               helpTexts::dictLink,
               commands::linkDict,
               [](CLI::App& c, dictLinkRequest& r) {
                   dictOptions(c, r);
                   addField(c, r);
               });
    addCommand(group,
               chosen,
               helpTexts::dictUnlink,
               commands::unlinkDict,
               [](CLI::App& c, dictLinkRequest& r) {
                   addFile(c, r.file);
                   addField(c, r);
               });
    addCommand(group, chosen, helpTexts::dictLinks, commands::listDictLinks, listOptions);
}

} // namespace

void addDictCommands(CLI::App& app, command& chosen) {
    CLI::App& group = addGroup(app, helpTexts::dictCommand);
    addCommand(group, chosen, helpTexts::dictList, commands::listDicts, listOptions);
    addCommand(
        group, chosen, helpTexts::dictShow, commands::showDict, [](CLI::App& c, dictRequest& r) {
            dictOptions(c, r);
            addJson(c, r.form);
        });
    addCommand(
        group, chosen, helpTexts::dictCreate, commands::createDict, dictOptions<dictRequest>);
    addCommand(group,
               chosen,
               helpTexts::dictRename,
               commands::renameDict,
               [](CLI::App& c, dictRequest& r) {
                   dictOptions(c, r);
                   addText(c, "--to", "D2", r.to, "the new name")->required();
               });
    addCommand(
        group, chosen, helpTexts::dictAdd, commands::addToDict, [](CLI::App& c, dictAddRequest& r) {
            dictOptions(c, r);
            addText(c, "CODE", "", r.code, "the code, as cells hold it")->required();
            addText(c, "VALUE", "", r.value, "what people read")->required();
        });
    addCommand(group, chosen, helpTexts::dictImport, commands::importDict, importOptions);
    addCommand(
        group, chosen, helpTexts::dictExport, commands::exportDict, exportOptions, checkExport);
    addLinkCommands(group, chosen);
    addCommand(group, chosen, helpTexts::dictSwap, commands::swapDict, dictOptions<dictRequest>);
    addCommand(
        group, chosen, helpTexts::dictRemove, commands::removeDict, dictOptions<dictRequest>);
}
