// How --help is laid out.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

// A description's first line is what the list of commands shows; the command's own help shows the
// rest of it, folded to the width of a page.
class helpFormat : public CLI::Formatter {
public:
    helpFormat();

    std::string make_description(const CLI::App* app) const override;
    std::string make_subcommand(const CLI::App* sub) const override;
};
