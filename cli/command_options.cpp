#include "cli/command_options.h"

#include "cli/column_list.h"
#include "cli/encodings.h"
#include "cli/number_text.h"
#include "cli/text.h"

#include <CLI/CLI.hpp>

#include <string_view>

namespace {

constexpr char guard = '\x01';

double numberOf(const std::string& option, const std::string& value) {
    if (const auto number = numberText::parse(value))
        return *number;
    throw CLI::ValidationError(option,
                               "\"" + value + "\" is not a number; write one like 1500 or -12.25");
}

// Calls `take` with the value as it was given.
template <typename Take>
CLI::Option* addValue(CLI::App& app, const std::string& name, const std::string& help, Take take) {
    return app.add_option_function<std::string>(
        name, [take](const std::string& value) { take(commandOptions::unguarded(value)); }, help);
}

template <typename Take>
CLI::Option* addValues(CLI::App& app, const std::string& name, const std::string& help, Take take) {
    return app.add_option_function<std::vector<std::string>>(
        name,
        [take](const std::vector<std::string>& values) {
            for (const auto& value : values)
                take(commandOptions::unguarded(value));
        },
        help);
}

} // namespace

namespace commandOptions {

std::string guarded(std::string argument) {
    if (argument.starts_with('[') || argument.starts_with('{'))
        argument.insert(argument.begin(), guard);
    return argument;
}

std::string unguarded(std::string message) {
    for (const std::string_view mark : {"\x01[", "\x01{"})
        for (auto at = message.find(mark); at != std::string::npos; at = message.find(mark, at))
            message.erase(at, 1);
    return message;
}

CLI::Option* addText(CLI::App& app,
                     const std::string& name,
                     const std::string& value,
                     std::wstring& target,
                     const std::string& help) {
    const auto take = [&target](const std::string& given) { target = text::wide(given); };
    return addValue(app, name, help, take)->type_name(value);
}

CLI::Option* addTexts(CLI::App& app,
                      const std::string& name,
                      const std::string& value,
                      std::vector<std::wstring>& target,
                      const std::string& help) {
    const auto take = [&target](const std::string& given) { target.push_back(text::wide(given)); };
    return addValues(app, name, help, take)->type_name(value);
}

CLI::Option* addNumber(CLI::App& app,
                       const std::string& name,
                       std::optional<double>& target,
                       const std::string& help) {
    const auto take = [&target, name](const std::string& value) { target = numberOf(name, value); };
    return addValue(app, name, help, take)->type_name("NUMBER");
}

CLI::Option* addNumbers(CLI::App& app,
                        const std::string& name,
                        std::vector<double>& target,
                        const std::string& help) {
    const auto take = [&target, name](const std::string& value) {
        target.push_back(numberOf(name, value));
    };
    return addValues(app, name, help, take)->type_name("NUMBER");
}

CLI::Option* addColumn(CLI::App& app,
                       const std::string& option,
                       NORLEX_columnRef& target,
                       const std::string& help) {
    return app
        .add_option_function<std::string>(
            option,
            [&target, option](const std::string& given) {
                target = columnList::column(text::wide(unguarded(given)));
                if (!target.isSet())
                    throw CLI::ValidationError(
                        option, "a column's number, from 1, or the text of its header is expected");
            },
            help)
        ->type_name("C");
}

void addFile(CLI::App& app, std::wstring& target) {
    addText(app, "FILE", "", target, "the container: a .well2 file or a server description")
        ->required();
}

void addWell(CLI::App& app, std::wstring& target) {
    addText(app, "--well", "W", target, "OBJECT/FIELD/NAME, or NAME where that is unique")
        ->required();
}

void addJson(CLI::App& app, resultForm& target) {
    const auto take = [&target] { target = resultForm::json; };
    app.add_flag_callback("--json", take, "the result as JSON");
}

void addCsv(CLI::App& app, resultForm& target) {
    const auto take = [&target] { target = resultForm::csv; };
    app.add_flag_callback("--csv", take, "the result as CSV (RFC 4180, UTF-8)")
        ->excludes(app.get_option("--json"));
}

void addEncoding(CLI::App& app, ts::strconv::encodings& target) {
    const auto take = [&target](const std::string& value) {
        const auto encoding = encodings::byName(value);
        if (!encoding)
            throw CLI::ValidationError(
                "--encoding", "\"" + value + "\" is not known; one of " + encodings::list());
        target = *encoding;
    };
    addValue(app, "--encoding", "of the text: windows-1251, cp866, utf-8, …; else detected", take)
        ->type_name("E");
}

void addOnExisting(CLI::App& app, NORLEX_onExisting& target) {
    const auto take = [&target](const std::string& value) {
        if (value != "skip" && value != "replace" && value != "fail")
            throw CLI::ValidationError("--on-existing",
                                       "\"" + value + "\" is not one of skip, replace, fail");
        target = value == "skip"      ? NORLEX_onExisting::skip
                 : value == "replace" ? NORLEX_onExisting::replace
                                      : NORLEX_onExisting::fail;
    };
    addValue(app, "--on-existing", "a log that the well has: skip, replace, or fail the file", take)
        ->type_name("skip|replace|fail");
}

void addWellChoice(CLI::App& app, NORLEX_lasImportOptions& target) {
    addValue(app,
             "--well-from",
             "the well's name: header entries and file (its own name), the first with a text",
             [&target](const std::string& value) {
                 const std::wstring list = text::wide(value) + L",";
                 for (std::size_t from = 0; from < list.size();) {
                     const std::size_t end = list.find(L',', from);
                     target.wellFrom.push_back(list.substr(from, end - from));
                     if (target.wellFrom.back().empty())
                         throw CLI::ValidationError(
                             "--well-from",
                             "\"" + value + "\" is no list of entries such as UWI,file");
                     from = end + 1;
                 }
             })
        ->type_name("ENTRY,…");
    const auto take = [&target](const std::string& value) {
        if (value != "exact" && value != "letters")
            throw CLI::ValidationError("--match", "\"" + value + "\" is not one of exact, letters");
        target.match = value == "exact" ? NORLEX_wellMatch::exact : NORLEX_wellMatch::letters;
    };
    addValue(app, "--match", "find existing wells by their letters and digits, too", take)
        ->type_name("exact|letters");
}

void refuseUsage(const std::string& message) {
    throw CLI::ValidationError(message);
}

} // namespace commandOptions
