#include "cli/help_format.h"

#include "cli/char_width.h"
#include "cli/table.h"

#include <sstream>

namespace {

constexpr std::size_t pageWidth = 92;
constexpr std::size_t optionColumns = 30;
constexpr std::size_t commandColumns = 16;

std::string folded(const std::string& paragraph) {
    std::istringstream words(paragraph);
    std::string out;
    std::size_t columns = 0;
    for (std::string word; words >> word;) {
        const std::size_t width = columnsOf(word);
        const bool fits = columns + 1 + width <= pageWidth;
        if (!out.empty())
            out += fits ? ' ' : '\n';
        columns = fits && !out.empty() ? columns + 1 + width : width;
        out += word;
    }
    return out;
}

// Lines that begin with a blank stay as they are: lists of forms.
std::string paragraphs(const std::string& text) {
    std::istringstream lines(text);
    std::string out;
    std::string prose;
    const auto add = [&](const std::string& part) {
        if (!part.empty())
            out += (out.empty() ? "" : "\n") + part;
    };
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(' ')) {
            prose += line + ' ';
            continue;
        }
        add(folded(prose));
        prose.clear();
        add(line);
    }
    add(folded(prose));
    return out;
}

} // namespace

helpFormat::helpFormat() {
    column_width(optionColumns);
    label("REQUIRED", "(required)");
    label("SUBCOMMAND", "COMMAND");
}

std::string helpFormat::make_description(const CLI::App* app) const {
    const std::string description = app->get_description();
    const auto end = description.find('\n');
    return paragraphs(end == std::string::npos ? description : description.substr(end + 1))
           + "\n\n";
}

std::string helpFormat::make_subcommand(const CLI::App* sub) const {
    const std::string description = sub->get_description();
    return "  " + padded(sub->get_name(), commandColumns, table::align::left)
           + description.substr(0, description.find('\n')) + "\n";
}
