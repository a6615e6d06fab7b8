// The local database: one file, through the SQLite C API.
#pragma once

#include "platform/sql_driver.h"

#include <memory>

[[nodiscard]] std::unique_ptr<sql_driver> makeSqliteDriver();
