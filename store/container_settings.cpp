#include "store/container_settings.h"

#include "odbc_database.h"
#include "store/metadata.h"

namespace containerSettings {

namespace {
constexpr const wchar_t* projectionKey = L"projection";
}

std::wstring projection(odbc_database& db) {
    return metadata::get(db, metadata::ofContainer, 0, projectionKey);
}

bool setProjection(odbc_database& db, const std::wstring& projection) {
    return metadata::set(db, metadata::ofContainer, 0, projectionKey, projection);
}

std::wstring text(odbc_database& db, std::wstring_view query) {
    const auto rows = db.query(query);
    return rows && rows->next() ? rows->get_text(0) : std::wstring();
}

std::int64_t count(odbc_database& db, std::wstring_view query) {
    const auto rows = db.query(query);
    return rows && rows->next() ? rows->get_counter(0) : 0;
}

} // namespace containerSettings
