// Checks of the numbers that a computation is told, and their spelling in descriptions.
#pragma once

#include <string>

namespace options {

// The shortest text that reads back as the same number.
[[nodiscard]] std::wstring shown(double number);
[[nodiscard]] std::wstring shown(double number, int decimals);

// Refuse, with a line that begins with `what`, any other number.
[[nodiscard]] bool isNumber(const wchar_t* what, double number); // finite
[[nodiscard]] bool isPositive(const wchar_t* what, double number);
[[nodiscard]] bool isNotNegative(const wchar_t* what, double number);
// A choice from 0 to `last`.
[[nodiscard]] bool isChoice(const wchar_t* what, int choice, int last);

} // namespace options
