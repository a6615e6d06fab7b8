// Display texts and messages by number, in two languages.
#pragma once

#include <string>

namespace stringTable {

// The text under `id` in the current language; empty when there is none.
[[nodiscard]] std::wstring text(unsigned int id);

// A message with every "%1" replaced by `argument`.
[[nodiscard]] std::wstring text(unsigned int id, const std::wstring& argument);

// Numbers that the code uses by name. The first 39 are display names of types.
enum : unsigned int {
    borderTemplateName = 8,
    fieldName = 40,        // "Название"
    fieldDescription = 41, // "Описание"
    upgradeFailed = 439,   // %1: path of the database
    upgradeQuestion = 440, // %1: path of the database
};

} // namespace stringTable
