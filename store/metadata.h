// Key and value pairs of any object: the table `meta`.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class odbc_database;

namespace metadata {

// Kinds of owner, as stored.
inline constexpr const wchar_t* ofContainer = L"container"; // object 0
inline constexpr const wchar_t* ofWell = L"well";           // object = well key
inline constexpr const wchar_t* ofProperty = L"property";   // object = property key

using pairs = std::vector<std::pair<std::wstring, std::wstring>>;

[[nodiscard]] bool
isSet(odbc_database& db, const std::wstring& group, std::int64_t object, const std::wstring& key);
[[nodiscard]] std::wstring get(odbc_database& db, // empty when it is not set
                               const std::wstring& group,
                               std::int64_t object,
                               const std::wstring& key);
[[nodiscard]] pairs getAll(odbc_database& db, const std::wstring& group, std::int64_t object);

// Sets the value of a key, adding it where it is not there.
[[nodiscard]] bool set(odbc_database& db,
                       const std::wstring& group,
                       std::int64_t object,
                       const std::wstring& key,
                       const std::wstring& value);
// Adds pairs without looking for earlier ones, many rows to a statement.
[[nodiscard]] bool
add(odbc_database& db, const std::wstring& group, std::int64_t object, const pairs& values);
[[nodiscard]] bool renameKey(odbc_database& db,
                             const std::wstring& group,
                             std::int64_t object,
                             const std::wstring& oldKey,
                             const std::wstring& newKey);
[[nodiscard]] bool clear(odbc_database& db, const std::wstring& group, std::int64_t object);

} // namespace metadata
