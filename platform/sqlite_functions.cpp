#include "platform/sqlite_functions.h"

#include "platform/strconv.h"

#include <sqlite3.h>

#include <string>

namespace {

template <std::string (*Convert)(std::string_view)>
void convertText(sqlite3_context* context, int, sqlite3_value** arguments) {
    const auto* bytes = sqlite3_value_text(arguments[0]);
    if (bytes == nullptr)
        return sqlite3_result_null(context);
    const std::string converted =
        Convert({reinterpret_cast<const char*>(bytes),
                 static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]))});
    sqlite3_result_text64(
        context, converted.data(), converted.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

} // namespace

bool registerSqliteFunctions(sqlite3* db) {
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    return sqlite3_create_function(db,
                                   "lower",
                                   1,
                                   flags,
                                   nullptr,
                                   convertText<ts::strconv::lowerUtf8>,
                                   nullptr,
                                   nullptr)
               == SQLITE_OK
           && sqlite3_create_function(db,
                                      "upper",
                                      1,
                                      flags,
                                      nullptr,
                                      convertText<ts::strconv::upperUtf8>,
                                      nullptr,
                                      nullptr)
                  == SQLITE_OK;
}
