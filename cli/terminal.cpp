#include "cli/terminal.h"

#include <csignal>
#include <cstdio>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool isTerminal(std::FILE* stream) {
#if defined(_WIN32)
    return _isatty(_fileno(stream)) != 0;
#else
    return isatty(fileno(stream)) != 0;
#endif
}

} // namespace

namespace terminal {

bool isInput() {
    return isTerminal(stdin);
}

bool isOutput() {
    return isTerminal(stdout);
}

bool isError() {
    return isTerminal(stderr);
}

void ignoreClosedPipes() {
#if defined(SIGPIPE)
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
#endif
}

} // namespace terminal
