#include "cli/commands_curves.h"

#include "cli/json_out.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

#include "NORLEX_curveIdentification.h"

#include <map>

namespace {

using synonymLists = std::map<std::wstring, std::vector<std::wstring>>; // by mnemonic

synonymLists synonymsOf(const NORLEX_curveIdentification& catalogue) {
    std::vector<std::pair<std::wstring, std::wstring>> pairs;
    catalogue.getSynonymList(pairs);
    synonymLists out;
    for (const auto& [mnemonic, synonym] : pairs)
        out[mnemonic].push_back(synonym);
    return out;
}

std::wstring joined(const std::vector<std::wstring>& names) {
    std::wstring out;
    for (const auto& name : names)
        out += (out.empty() ? L"" : L" ") + name;
    return out;
}

json document(const NORLEX_curveDescription& curve, const std::vector<std::wstring>& synonyms) {
    json names = json::array();
    for (const auto& synonym : synonyms)
        names.push_back(jsonOut::string(synonym));
    return {{"mnemonic", jsonOut::string(curve.mnemonic)},
            {"unit", jsonOut::string(curve.common_units)},
            {"unit_ru", jsonOut::string(curve.rus_units)},
            {"type", jsonOut::string(curve.type)},
            {"comment", jsonOut::string(curve.comment)},
            {"synonyms", names}};
}

void print(const NORLEX_curveDescription& curve, const std::vector<std::wstring>& synonyms) {
    printPairs({{"mnemonic", text::shown(curve.mnemonic)},
                {"unit", text::shown(curve.common_units)},
                {"unit (ru)", text::shown(curve.rus_units)},
                {"type", text::shown(curve.type)},
                {"comment", text::shown(curve.comment)},
                {"synonyms", text::shown(joined(synonyms))}});
}

} // namespace

namespace commands {

int findCurve(const curveRequest& request) {
    const NORLEX_curveIdentification catalogue;
    if (!catalogue.isOK())
        return output::refused();
    const auto curve = catalogue.getCurve(request.name);
    if (curve.method_id.empty())
        return output::refused(L"the catalogue of curves has no mnemonic or synonym \""
                               + request.name + L"\"; synonyms are looked for as they are written");
    const auto synonyms = synonymsOf(catalogue)[curve.mnemonic];
    if (request.form == resultForm::json)
        jsonOut::print(document(curve, synonyms));
    else
        print(curve, synonyms);
    return 0;
}

int listCurves(const curvesRequest& request) {
    const NORLEX_curveIdentification catalogue;
    if (!catalogue.isOK())
        return output::refused();
    const auto curves =
        request.type.empty() ? catalogue.getAllCurves() : catalogue.getCurvesFromType(request.type);
    if (curves.empty() && !request.type.empty())
        return output::refused(L"the catalogue of curves has no type \"" + request.type
                               + L"\"; `curves types` lists those that there are");
    auto synonyms = synonymsOf(catalogue);
    table rows({{"MNEMONIC"}, {"UNIT"}, {"UNIT (RU)"}, {"TYPE"}, {"COMMENT"}});
    json list = json::array();
    for (const auto& curve : curves)
        if (request.form == resultForm::json)
            list.push_back(document(curve, synonyms[curve.mnemonic]));
        else
            rows.add({text::shown(curve.mnemonic),
                      text::shown(curve.common_units),
                      text::shown(curve.rus_units),
                      text::shown(curve.type),
                      text::shown(curve.comment)});
    if (request.form == resultForm::json)
        jsonOut::print(list);
    else
        rows.print();
    return 0;
}

int listCurveTypes(const curvesRequest& request) {
    const NORLEX_curveIdentification catalogue;
    if (!catalogue.isOK())
        return output::refused();
    using enum table::align;
    table rows({{"TYPE"}, {"CURVES", right}});
    json list = json::array();
    for (const auto& type : catalogue.getTypeList()) {
        const auto curves = catalogue.getCurvesFromType(type).size();
        rows.add({text::shown(type), std::to_string(curves)});
        list.push_back({{"type", jsonOut::string(type)}, {"curves", curves}});
    }
    if (request.form == resultForm::json)
        jsonOut::print(list);
    else
        rows.print();
    return 0;
}

} // namespace commands
