#pragma once

#include <string>

class odbc_database;

// Sets the last error because the query just made found nothing: to `nothing`, or, where the engine
// did not answer it, to the reason of that. Answers false.
bool refuseMissing(const odbc_database* db, const std::wstring& nothing);
