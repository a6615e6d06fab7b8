// Whether a person is at the other end, and what the terminal can do.
#pragma once

namespace terminal {

[[nodiscard]] bool isInput();  // standard input
[[nodiscard]] bool isOutput(); // standard output
[[nodiscard]] bool isError();  // standard error

// A closed pipe makes a write fail from here on instead of ending the process.
void ignoreClosedPipes();

} // namespace terminal
