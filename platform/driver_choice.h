// Which engine a connection string names.
#pragma once

#include "platform/sql_driver.h"

// A driver for the kind of database that the connection string names.
[[nodiscard]] std::unique_ptr<sql_driver> makeDriver(const std::string& connectionString);

// Whether the string is made of "name=value;" pairs, which name a server, and is no path.
[[nodiscard]] bool namesServer(const std::string& connectionString);
