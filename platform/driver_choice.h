// Which engine a connection string names.
#pragma once

#include "platform/sql_driver.h"

#include <functional>

// A driver for the kind of database that the connection string names.
[[nodiscard]] std::unique_ptr<sql_driver> makeDriver(const std::string& connectionString);

// Whether the string is made of "name=value;" pairs, which name a server, and is no path.
[[nodiscard]] bool namesServer(const std::string& connectionString);

// Every driver made from now on passes through `wrap`, so that a test can stand between a
// connection and its engine; an empty function ends that. Set while no other thread connects.
using driverWrapper = std::function<std::unique_ptr<sql_driver>(std::unique_ptr<sql_driver>)>;
void setDriverWrapper(driverWrapper wrap);
