#include "cli/commands.h"
#include "cli/encodings.h"
#include "cli/input_files.h"
#include "cli/json_out.h"
#include "cli/number_text.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

#include "NORLEX_lasfileExt.h"

namespace {

// Smallest and largest of a curve without any value, and depths of one without points.
json ifAny(std::size_t count, double value) {
    return count == 0 ? json(nullptr) : jsonOut::number(value);
}

json curveOf(const NORLEX_lasCurve& curve) {
    json out;
    out["name"] = jsonOut::string(curve.getName());
    out["unit"] = jsonOut::string(curve.getUnits());
    out["description"] = jsonOut::string(curve.getComment());
    out["points"] = curve.getPointsCount();
    out["count"] = curve.getCount();
    out["min"] = ifAny(curve.getCount(), curve.getMinimum());
    out["max"] = ifAny(curve.getCount(), curve.getMaximum());
    out["first_depth"] = ifAny(curve.getPointsCount(), curve.getTop());
    out["last_depth"] = ifAny(curve.getPointsCount(), curve.getBot());
    return out;
}

json entryOf(const lasDescription& entry) {
    return {
        {"mnemonic", jsonOut::string(entry.mnemonic)},
        {"unit", jsonOut::string(entry.unit)},
        {"value", jsonOut::string(entry.value)},
        {"description", jsonOut::string(entry.description)},
    };
}

json lasOf(const NORLEX_lasfileExt& file) {
    json well = json::array();
    for (const auto& entry : file.getWellInf())
        well.push_back(entryOf(entry));
    json curves = json::array();
    for (std::size_t i = 0; i < file.getNumCurves(); ++i)
        curves.push_back(curveOf(*file.getCurveByIndex(i)));
    json skipped = json::array();
    for (const auto& [line, reason] : file.getSkippedLines())
        skipped.push_back({{"line", line}, {"reason", jsonOut::string(reason)}});
    return {
        {"ok", file.isOK()},
        {"version", jsonOut::string(file.getVersionText())},
        {"wrap", file.isWrap()},
        {"start", jsonOut::number(file.getStart())},
        {"stop", jsonOut::number(file.getStop())},
        {"step", jsonOut::number(file.getStep())},
        {"null", jsonOut::number(file.getNodata())},
        {"encoding", encodings::name(file.getEncoding())},
        {"well", std::move(well)},
        {"curves", std::move(curves)},
        {"rows", file.getRowCount()},
        {"skipped", std::move(skipped)},
        {"skipped_count", file.getSkippedCount()},
    };
}

void printEntries(const NORLEX_lasfileExt& file) {
    if (file.getWellInf().empty())
        return;
    table entries({{"MNEM"}, {"UNIT"}, {"VALUE"}, {"DESCRIPTION"}});
    for (const auto& e : file.getWellInf())
        entries.add({text::shown(e.mnemonic),
                     text::shown(e.unit),
                     text::shown(e.value),
                     text::shown(e.description)});
    output::line("");
    entries.print();
}

void printCurves(const NORLEX_lasfileExt& file) {
    using enum table::align;
    table curves({{"CURVE"},
                  {"UNIT"},
                  {"POINTS", right},
                  {"VALUES", right},
                  {"MIN", right},
                  {"MAX", right},
                  {"TOP", right},
                  {"BOTTOM", right},
                  {"DESCRIPTION"}});
    for (std::size_t i = 0; i < file.getNumCurves(); ++i) {
        const NORLEX_lasCurve& c = *file.getCurveByIndex(i);
        const bool any = c.getCount() != 0;
        const bool points = c.getPointsCount() != 0;
        curves.add({text::shown(c.getName()),
                    text::shown(c.getUnits()),
                    std::to_string(c.getPointsCount()),
                    std::to_string(c.getCount()),
                    any ? numberText::brief(c.getMinimum()) : "",
                    any ? numberText::brief(c.getMaximum()) : "",
                    points ? numberText::brief(c.getTop()) : "",
                    points ? numberText::brief(c.getBot()) : "",
                    text::shown(c.getComment())});
    }
    output::line("");
    curves.print();
}

void printSkipped(const NORLEX_lasfileExt& file) {
    if (file.getSkippedCount() == 0)
        return;
    table skipped({{"LINE", table::align::right}, {"NOT TAKEN BECAUSE"}});
    for (const auto& [line, reason] : file.getSkippedLines())
        skipped.add({std::to_string(line), text::shown(reason)});
    output::line("");
    skipped.print();
    if (file.getSkippedCount() > file.getSkippedLines().size())
        output::line("… " + std::to_string(file.getSkippedCount()) + " lines in all");
}

void printFile(const NORLEX_lasfileExt& file) {
    printPairs({
        {"version", text::shown(file.getVersionText())},
        {"wrap", file.isWrap() ? "yes" : "no"},
        {"start", numberText::brief(file.getStart())},
        {"stop", numberText::brief(file.getStop())},
        {"step", numberText::brief(file.getStep())},
        {"null", numberText::brief(file.getNodata())},
        {"encoding", std::string(encodings::name(file.getEncoding()))},
        {"rows", std::to_string(file.getRowCount())},
        {"lines skipped", std::to_string(file.getSkippedCount())},
    });
    printEntries(file);
    printCurves(file);
    printSkipped(file);
}

} // namespace

namespace commands {

int las(const lasRequest& request) {
    if (const std::wstring why = whyNoInput(request.file); !why.empty())
        return output::refused(why);
    const NORLEX_lasfileExt file(request.file, request.headerOnly, request.encoding);
    if (request.form == resultForm::json)
        jsonOut::print(lasOf(file));
    if (!file.isOK())
        return output::refused();
    if (request.form != resultForm::json)
        printFile(file);
    return 0;
}

} // namespace commands
