#include "exchange/las_fields.h"

#include "exchange/las_number.h"
#include "exchange/las_sections.h"
#include "platform/numbers.h"

#include <algorithm>

namespace lasFields {

namespace {

constexpr std::string_view blanks = " \t\r\n";

void splitByBlanks(std::string_view line, std::vector<std::string_view>& fields) {
    for (auto at = line.find_first_not_of(blanks); at != std::string_view::npos;) {
        const auto end = std::min(line.find_first_of(blanks, at), line.size());
        fields.push_back(line.substr(at, end - at));
        at = line.find_first_not_of(blanks, end);
    }
}

// End of the field at `begin`: its separator, or the end of the line.
std::size_t fieldEnd(std::string_view line, std::size_t begin, char separator) {
    bool quoted = false;
    for (std::size_t at = begin; at < line.size(); ++at) {
        if (separator == ',' && line[at] == '"')
            quoted = !quoted;
        else if (line[at] == separator && !quoted)
            return at;
    }
    // A quote that is never closed is a character like any other.
    return quoted ? std::min(line.find(separator, begin), line.size()) : line.size();
}

std::string_view withoutQuotes(std::string_view field) {
    const bool isQuoted = field.size() > 1 && field.front() == '"' && field.back() == '"';
    return isQuoted ? field.substr(1, field.size() - 2) : field;
}

void splitBy(char separator, std::string_view line, std::vector<std::string_view>& fields) {
    for (std::size_t at = 0;;) {
        const auto end = fieldEnd(line, at, separator);
        fields.push_back(withoutQuotes(numbers::trimmed(line.substr(at, end - at))));
        if (end == line.size())
            return;
        at = end + 1;
    }
}

// A data line is told by its number of fields and by its depth.
bool fits(const std::vector<std::string_view>& fields, std::size_t width, bool decimalComma) {
    return fields.size() == width && lasNumber::whole(fields.front(), decimalComma).has_value();
}

constexpr int sampleLines = 50;

} // namespace

void split(std::string_view line, delimiter by, std::vector<std::string_view>& fields) {
    fields.clear();
    if (numbers::trimmed(line).empty())
        return;
    if (by == delimiter::blank)
        splitByBlanks(line, fields);
    else
        splitBy(by == delimiter::tab ? '\t' : ',', line, fields);
}

delimiter choose(std::string_view block, std::size_t width, delimiter declared) {
    int byBlanks = 0;
    int byCommas = 0;
    std::vector<std::string_view> fields;
    for (int line = 0; line < sampleLines && !block.empty(); ++line) {
        const auto trimmed = numbers::trimmed(takeLine(block));
        if (trimmed.empty() || trimmed.front() == '#')
            continue;
        if (lasSections::isTitle(trimmed))
            break;
        split(trimmed, delimiter::blank, fields);
        byBlanks += fits(fields, width, true) ? 1 : 0;
        split(trimmed, delimiter::comma, fields);
        byCommas += width > 1 && fits(fields, width, false) ? 1 : 0;
    }
    if (byCommas > 0 && (byBlanks == 0 || declared == delimiter::comma))
        return delimiter::comma;
    return declared == delimiter::tab ? delimiter::tab : delimiter::blank;
}

std::string_view takeLine(std::string_view& block) {
    const auto end = std::min(block.find('\n'), block.size());
    const auto line = block.substr(0, end);
    block.remove_prefix(std::min(end + 1, block.size()));
    return line;
}

} // namespace lasFields
