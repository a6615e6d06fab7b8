// The command line: which command is asked for, with what.
#pragma once

#include <functional>

// The command to run. Empty when the arguments ask for help or are wrong; `exitCode` is then what
// the program ends with, 0 or 2, and everything has been said.
[[nodiscard]] std::function<int()> parseArguments(int argc, const char* const* argv, int& exitCode);
