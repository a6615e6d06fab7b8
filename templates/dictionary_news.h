// Tells subscribers and the journal of changes of dictionaries.
#pragma once

#include "NORLEX_propDescription.h"

#include <string>

class odbc_database;

namespace dictionaryNews {

// After the commit. Of a dictionary or its entries; of the binding of a field, or of a key of the
// well information.
void data(odbc_database& db, const std::wstring& dictionary);
void link(odbc_database& db,
          const NORLEX_propDescription& prop,
          const std::wstring& field,
          const std::wstring& dictionary);
void infoKey(odbc_database& db, const std::wstring& key);

// A line of the journal, with an action of eventAction.
void note(odbc_database& db, int action, const std::wstring& comment);

// "group/name: field", for messages and the journal.
[[nodiscard]] std::wstring shown(const NORLEX_propDescription& prop, const std::wstring& field);

} // namespace dictionaryNews
