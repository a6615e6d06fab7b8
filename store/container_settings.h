// What a container says of itself: one row of `base_version`, and metadata of object 0.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class odbc_database;

namespace containerSettings {

// PROJ.4. Longitude and latitude on the GSK-2011 ellipsoid.
inline constexpr const wchar_t* defaultProjection =
    L"+proj=longlat +towgs84=0.013,-0.092,-0.03,-0.0017,0.0036,-0.0043,0.0074 +ellps=GSK2011 +lon_wrap=45 +no_defs";

[[nodiscard]] std::wstring projection(odbc_database& db);
[[nodiscard]] bool setProjection(odbc_database& db, const std::wstring& projection);

// The first column of the only row of a query; empty or 0 without one.
[[nodiscard]] std::wstring text(odbc_database& db, std::wstring_view query);
[[nodiscard]] std::int64_t count(odbc_database& db, std::wstring_view query);

} // namespace containerSettings
