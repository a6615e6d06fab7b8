// What both query languages have in common: fields of properties, comparisons, quoted names.
#pragma once

#include "NORLEX_filterKinds.h"
#include "NORLEX_propDescription.h"
#include "selection/text_scanner.h"

#include <string>
#include <string_view>

namespace queryWords {

// GROUP/NAME.FIELD; a property of no group is NAME.FIELD.
struct fieldReference {
    NORLEX_propDescription prop;
    std::wstring field;
    bool hasField = false;
};
[[nodiscard]] bool readReference(textScanner& in, fieldReference& out);
[[nodiscard]] std::wstring spelled(const NORLEX_propDescription& prop, std::wstring_view field);

// A comparison other than existence, with its operand where it has one.
[[nodiscard]] bool
readComparison(textScanner& in, NORLEX_filterOperation& operation, std::wstring& operand);
// Empty for an operation that is none of them.
[[nodiscard]] std::wstring spelled(NORLEX_filterOperation operation, std::wstring_view operand);

// As it is where it reads back as one name that is no keyword, else in quotes.
[[nodiscard]] std::wstring spelledName(std::wstring_view name);
[[nodiscard]] std::wstring inQuotes(std::wstring_view text);

} // namespace queryWords
