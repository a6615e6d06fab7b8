#include "store/audit.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/uuid.h"

using namespace sqlText;

namespace audit {

std::wstring touched(const odbc_database& db) {
    return sql(L"update_date = ", db.cur_time(), L", update_user = ", quoted(db.get_user()));
}

std::wstring created(const odbc_database& db) {
    const std::wstring now = db.cur_time();
    const std::wstring user = quoted(db.get_user());
    return sql(quoted(newUuid()), L", ", now, L", ", now, L", ", user, L", ", user);
}

} // namespace audit
