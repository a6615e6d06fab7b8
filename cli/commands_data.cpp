#include "cli/commands.h"
#include "cli/json_out.h"
#include "cli/names.h"
#include "cli/number_text.h"
#include "cli/open_container.h"
#include "cli/output.h"
#include "cli/table.h"
#include "cli/text.h"

#include <array>
#include <cmath>

namespace {

// What programs know the kinds by.
std::string_view typeName(NORLEX_dataType type) {
    constexpr std::array<std::string_view, 12> words{"unknown",
                                                     "marker",
                                                     "interval",
                                                     "column",
                                                     "log",
                                                     "image",
                                                     "border",
                                                     "construction",
                                                     "work construction",
                                                     "series",
                                                     "interval velocity",
                                                     "average velocity"};
    const auto index = static_cast<std::size_t>(type);
    return index < words.size() ? words[index] : words[0];
}

json propertyOf(const NORLEX_propertyInfo& property) {
    const auto depth = [&](double value) {
        return property.range ? jsonOut::number(value) : json(nullptr);
    };
    const NORLEX_depthRange range = property.range.value_or(NORLEX_depthRange{});
    return {
        {"group", jsonOut::string(property.description.group)},
        {"name", jsonOut::string(property.description.name)},
        {"type", typeName(property.type)},
        {"template", jsonOut::string(property.templateName)},
        {"unit", jsonOut::string(property.unit)},
        {"comment", jsonOut::string(property.comment)},
        {"records", property.records},
        {"top", depth(range.top)},
        {"bottom", depth(range.bot)},
    };
}

void printProperties(const std::vector<NORLEX_propertyInfo>& properties) {
    using enum table::align;
    table rows({{"GROUP"},
                {"NAME"},
                {"TYPE"},
                {"TEMPLATE"},
                {"UNIT"},
                {"RECORDS", right},
                {"TOP", right},
                {"BOTTOM", right},
                {"COMMENT"}});
    for (const auto& p : properties)
        rows.add({text::shown(p.description.group),
                  text::shown(p.description.name),
                  std::string(typeName(p.type)),
                  text::shown(p.templateName),
                  text::shown(p.unit),
                  std::to_string(p.records),
                  p.range ? numberText::brief(p.range->top) : "",
                  p.range ? numberText::brief(p.range->bot) : "",
                  text::shown(p.comment)});
    rows.print();
}

// Empty for a value or a depth that is missing.
template <typename Spelling>
std::string cellOf(double value, double missingMark, Spelling spell) {
    return value == missingMark || !std::isfinite(value) ? std::string{} : spell(value);
}

struct row {
    std::string depth;
    std::string depthAbs;
    std::string value;

    // Programs get depths that read back the same, people get four decimals.
    row(const NORLEX_logSample& sample, resultForm form)
        : depth(cellOf(sample.depth, NORLEX_unknownDepth, depthSpelling(form))),
          depthAbs(cellOf(sample.depthAbs, NORLEX_unknownDepth, depthSpelling(form))),
          value(cellOf(sample.value, NORLEX_missingValue, numberText::shortest)) {}

private:
    using spelling = std::string (*)(double);
    static spelling depthSpelling(resultForm form) {
        return form == resultForm::table ? numberText::brief : numberText::shortest;
    }
};

// Rows are written one by one as they are read: a log may hold millions.
class rowWriter {
public:
    explicit rowWriter(resultForm form) : m_form(form) {
        if (form == resultForm::json)
            output::write(R"({"type":"log","columns":["depth","depth_abs","value"],"rows":[)");
        else if (form == resultForm::csv)
            output::write("depth,depth_abs,value\r\n"); // RFC 4180 ends lines with CR LF
        else
            writeAligned("DEPTH", "DEPTH ABS", "VALUE");
    }

    void add(const row& r) {
        if (m_form == resultForm::json)
            output::write((m_first ? "\n[" : ",\n[") + orNull(r.depth) + "," + orNull(r.depthAbs)
                          + "," + orNull(r.value) + "]");
        else if (m_form == resultForm::csv)
            output::write(r.depth + "," + r.depthAbs + "," + r.value + "\r\n");
        else
            writeAligned(r.depth, r.depthAbs, r.value);
        m_first = false;
    }

    void end() const {
        if (m_form == resultForm::json)
            output::line("\n]}");
    }

private:
    static std::string orNull(const std::string& cell) { return cell.empty() ? "null" : cell; }

    static void
    writeAligned(std::string_view depth, std::string_view depthAbs, std::string_view value) {
        constexpr std::size_t width = 18;
        using enum table::align;
        std::string line = padded(depth, width, right) + "  " + padded(depthAbs, width, right)
                           + "  " + padded(value, width, right);
        line.erase(line.find_last_not_of(' ') + 1);
        output::line(line);
    }

    resultForm m_form;
    bool m_first = true;
};

bool isWithin(double depth, const dataRequest& request) {
    return (!request.from || depth >= *request.from) && (!request.to || depth <= *request.to);
}

} // namespace

namespace commands {

int props(const wellRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    std::vector<NORLEX_propertyInfo> properties;
    opened.well->getPropertyInfoList(properties);
    if (request.form != resultForm::json) {
        printProperties(properties);
        return 0;
    }
    json rows = json::array();
    for (const auto& property : properties)
        rows.push_back(propertyOf(property));
    jsonOut::print(rows);
    return 0;
}

int data(const dataRequest& request) {
    const openedWell opened = openWell(request.file, request.well);
    if (!opened)
        return output::failure;
    const auto description = names::findProperty(*opened.well, request.property);
    if (!description)
        return output::failure;
    const auto property = opened.well->openProperty(*description);
    if (!property || !property->isOK())
        return output::refused();
    if (property->getType() != NORLEX_dataTypeLog)
        return output::refused(L"the property " + names::spelled(*description) + L" is of the kind "
                               + text::wide(typeName(property->getType()))
                               + L", which cannot be shown yet; logs can");
    std::vector<NORLEX_logSample> samples;
    if (!property->getSamples(samples))
        return output::refused();
    rowWriter writer(request.form);
    for (const auto& sample : samples) {
        if (output::isEnded())
            break;
        if (isWithin(sample.depth, request))
            writer.add(row(sample, request.form));
    }
    writer.end();
    return 0;
}

} // namespace commands
