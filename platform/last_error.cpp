#include "platform/last_error.h"

#include "NORLEX_lastError.h"

#include <utility>

namespace {
std::wstring& line() {
    thread_local std::wstring text;
    return text;
}
} // namespace

const std::wstring& NORLEX_lastError() {
    return line();
}

bool refuse(std::wstring text) {
    line() = std::move(text);
    return false;
}
