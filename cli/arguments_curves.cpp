#include "cli/arguments_curves.h"

#include "cli/command_options.h"
#include "cli/commands_curves.h"
#include "cli/help_curves.h"

using namespace commandOptions;

void addCurveCommands(CLI::App& app, command& chosen) {
    CLI::App& group = addGroup(app, helpTexts::curvesCommand);
    addCommand(group,
               chosen,
               helpTexts::curvesFind,
               commands::findCurve,
               [](CLI::App& c, curveRequest& r) {
                   addText(c, "NAME", "", r.name, "a mnemonic or a synonym")->required();
                   addJson(c, r.form);
               });
    addCommand(group,
               chosen,
               helpTexts::curvesList,
               commands::listCurves,
               [](CLI::App& c, curvesRequest& r) {
                   addText(c, "--type", "T", r.type, "curves of this type; all without it");
                   addJson(c, r.form);
               });
    addCommand(group,
               chosen,
               helpTexts::curvesTypes,
               commands::listCurveTypes,
               [](CLI::App& c, curvesRequest& r) { addJson(c, r.form); });
}
