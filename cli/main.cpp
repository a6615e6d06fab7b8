#include "cli/arguments.h"
#include "cli/output.h"
#include "cli/terminal.h"
#include "cli/text.h"

#include "NORLEX_host.h"

#include <cstdio>
#include <exception>

namespace {

// Asks on the terminal; without one the answer is no.
bool askYesNo(const std::wstring& question) {
    if (!terminal::isInput() || !terminal::isError())
        return false;
    std::fprintf(stderr, "%s [y/N] ", text::shown(question).c_str());
    std::fflush(stderr);
    const int first = std::fgetc(stdin);
    for (int c = first; c != EOF && c != '\n';)
        c = std::fgetc(stdin);
    return first == 'y' || first == 'Y';
}

int run(int argc, char** argv) {
    int exitCode = 0;
    const auto command = parseArguments(argc, argv, exitCode);
    if (command)
        exitCode = command();
    return output::finish() ? exitCode : output::failure;
}

} // namespace

int main(int argc, char** argv) {
    terminal::ignoreClosedPipes();
    // A refusal is told once, by the command; the library's box would say it twice.
    NORLEX_setErrorBox([](const std::wstring&) {});
    NORLEX_setYesNoBox(askYesNo);
    try {
        return run(argc, argv);
    } catch (const std::exception& error) { // out of memory
        std::fprintf(stderr, "welldb: %s\n", error.what());
        return output::failure;
    }
}
