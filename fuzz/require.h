// What must hold for any input: a target that finds otherwise tells what, with the library's own
// last line, and stops there.
#pragma once

#include "NORLEX_lastError.h"
#include "platform/strconv.h"

#include <cstdio>
#include <cstdlib>

#define require(...) requireThat((__VA_ARGS__), #__VA_ARGS__)

inline void requireThat(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr,
                 "does not hold: %s\nlast error: %s\n",
                 what,
                 ts::strconv::toUtf8(NORLEX_lastError()).c_str());
    std::abort();
}
