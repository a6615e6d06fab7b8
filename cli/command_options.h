// Options of the command line by the kind of their value. A wrong value is wrong usage, with a
// line that says what would do.
#pragma once

#include "cli/commands.h"

#include "NORLEX_columnRef.h"

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace commandOptions {

// The parser takes a value "[…]" or "{}" of a list apart: every argument is guarded against that
// before it is parsed, and the options here take the guard off again.
[[nodiscard]] std::string guarded(std::string argument);
[[nodiscard]] std::string unguarded(std::string message); // anywhere in it

// `value` is what the help calls the value.
CLI::Option* addText(CLI::App& app,
                     const std::string& name,
                     const std::string& value,
                     std::wstring& target,
                     const std::string& help);
CLI::Option* addTexts(CLI::App& app,
                      const std::string& name,
                      const std::string& value,
                      std::vector<std::wstring>& target,
                      const std::string& help);
CLI::Option* addNumber(CLI::App& app,
                       const std::string& name,
                       std::optional<double>& target,
                       const std::string& help);
CLI::Option* addNumbers(CLI::App& app,
                        const std::string& name,
                        std::vector<double>& target,
                        const std::string& help);

// A column of a table: its number, from 1, or the text of its header.
CLI::Option* addColumn(CLI::App& app,
                       const std::string& name,
                       NORLEX_columnRef& target,
                       const std::string& help);

void addFile(CLI::App& app, std::wstring& target); // the container
void addWell(CLI::App& app, std::wstring& target);
void addJson(CLI::App& app, resultForm& target);
void addCsv(CLI::App& app, resultForm& target); // after addJson: one of the two
void addEncoding(CLI::App& app, ts::strconv::encodings& target);
void addOnExisting(CLI::App& app, NORLEX_onExisting& target);
void addWellChoice(CLI::App& app, NORLEX_lasImportOptions& target); // which well a file belongs to

// Wrong usage for a reason of the command's own.
[[noreturn]] void refuseUsage(const std::string& message);

} // namespace commandOptions
