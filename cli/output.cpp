#include "cli/output.h"

#include "cli/text.h"

#include "NORLEX_lastError.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace {

constexpr std::size_t bufferSize = std::size_t{1} << 16U;

struct {
    std::string buffer;
    int error = 0; // errno of the first failed write
} out;

void flush() {
    if (out.error == 0 && !out.buffer.empty()) {
        errno = 0;
        const std::size_t size = out.buffer.size();
        if (std::fwrite(out.buffer.data(), 1, size, stdout) != size || std::fflush(stdout) != 0)
            out.error = errno == 0 ? EIO : errno;
    }
    out.buffer.clear();
}

} // namespace

namespace output {

void write(std::string_view bytes) {
    if (out.error != 0)
        return;
    out.buffer += bytes;
    if (out.buffer.size() >= bufferSize)
        flush();
}

void line(std::string_view bytes) {
    write(bytes);
    write("\n");
}

void line(std::wstring_view wide) {
    line(std::string_view(text::shown(wide)));
}

bool isEnded() {
    return out.error != 0;
}

bool finish() {
    flush();
    if (out.error == 0 || out.error == EPIPE)
        return true;
    const std::string why = std::generic_category().message(out.error);
    say(L"the result was not written to standard output: " + text::wide(why)
        + L"; make room there, or send it elsewhere");
    return false;
}

void say(std::wstring_view message) {
    flush(); // on a terminal, results stand before the message about them
    const std::string bytes = "welldb: " + text::shown(message) + "\n";
    static_cast<void>(std::fwrite(bytes.data(), 1, bytes.size(), stderr));
}

int refused(std::wstring_view message) {
    say(message);
    return failure;
}

int refused() {
    return refused(reason());
}

std::wstring reason() {
    const std::wstring& error = NORLEX_lastError();
    return error.empty() ? L"the library refused and gave no reason" : error;
}

} // namespace output
