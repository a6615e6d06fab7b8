// Where the program writes: results to standard output, messages to standard error.
#pragma once

#include <string>
#include <string_view>

namespace output {

// Buffered. After a failed write, what follows is dropped.
void write(std::string_view bytes);
void line(std::string_view bytes);
// One line for people: control characters written out.
void line(std::wstring_view text);

// Nobody reads any more, or nothing can be written: a long result may stop here.
[[nodiscard]] bool isEnded();

// Writes what is buffered. False when it could not be written, having said why; a reader that
// has closed its end (`| head`) is no failure.
[[nodiscard]] bool finish();

// "welldb: <message>" on standard error, in one line.
void say(std::wstring_view message);

inline constexpr int failure = 1; // the exit code of a refused or failed command

// Says why and answers `failure`: the given line, or the library's last error.
[[nodiscard]] int refused(std::wstring_view message);
[[nodiscard]] int refused();

// The library's reason for what it has just refused; never empty.
[[nodiscard]] std::wstring reason();

} // namespace output
