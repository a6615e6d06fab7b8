// Tells subscribers of changes of templates.
#pragma once

#include "NORLEX_propDescription.h"

#include <cstdint>
#include <string>
#include <vector>

class odbc_database;

namespace templateNews {

// Properties made from a template, by group and name, each once.
[[nodiscard]] std::vector<NORLEX_propDescription> propertiesOf(odbc_database& db,
                                                               std::uint32_t templateId);

// After the commit: the fields of the template, or without any the template itself, then the data
// of the properties.
void announce(odbc_database& db,
              const std::wstring& templateName,
              const std::vector<std::wstring>& fields,
              const std::vector<NORLEX_propDescription>& properties);

} // namespace templateNews
