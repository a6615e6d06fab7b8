// Adds words and commands to the command line.
#pragma once

#include "cli/help_texts.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <memory>
#include <string>

using command = std::function<int()>; // what the program does, by its exit code

inline CLI::App& addWord(CLI::App& parent, const helpText& help) {
    auto* const app =
        parent.add_subcommand(help.name, std::string(help.brief) + "\n" + help.paragraph);
    app->footer(std::string("Example:\n  ") + help.example);
    return *app;
}

// A word before other words: "well" of "well add".
inline CLI::App& addGroup(CLI::App& parent, const helpText& help) {
    CLI::App& app = addWord(parent, help);
    app.require_subcommand(1);
    return app;
}

// Adds a command: `options` fills the request from the command line, `check` refuses what does not
// go together. When the command is the one asked for, `chosen` becomes its run.
template <typename Request, typename Options>
void addCommand(
    CLI::App& parent,
    command& chosen,
    const helpText& help,
    int (*run)(const Request&),
    Options options,
    void (*check)(const Request&) = [](const Request&) {}) {
    CLI::App& app = addWord(parent, help);
    // The option callbacks refer to the request, so it lives as long as the command does.
    const auto request = std::make_shared<Request>();
    options(app, *request);
    app.callback([&chosen, request, run, check] {
        check(*request);
        chosen = [request, run] { return run(*request); };
    });
}
