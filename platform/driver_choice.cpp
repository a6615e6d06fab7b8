#include "platform/driver_choice.h"

#include "platform/odbc_server_driver.h"
#include "platform/sqlite_driver.h"

#include <utility>

namespace {

driverWrapper& wrapper() {
    static driverWrapper current;
    return current;
}

} // namespace

// A path may hold "=" and ";" too: only a text whose part before the first "=" is a plain word and
// that ends in ";" is taken for pairs.
bool namesServer(const std::string& connectionString) {
    const auto equals = connectionString.find('=');
    if (equals == std::string::npos || equals == 0 || connectionString.back() != ';')
        return false;
    return connectionString.find_first_not_of(
               "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_ ")
           == equals;
}

std::unique_ptr<sql_driver> makeDriver(const std::string& connectionString) {
    auto driver = namesServer(connectionString) ? makeServerDriver() : makeSqliteDriver();
    return wrapper() ? wrapper()(std::move(driver)) : std::move(driver);
}

void setDriverWrapper(driverWrapper wrap) {
    wrapper() = std::move(wrap);
}
