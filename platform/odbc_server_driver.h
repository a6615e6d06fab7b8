// A database on a PostgreSQL server, through the ODBC driver manager.
#pragma once

#include "platform/sql_driver.h"

#include <memory>

[[nodiscard]] std::unique_ptr<sql_driver> makeServerDriver();
