// Tables read into the properties of a well.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "wells/names.h"

bool NORLEX_well::appendDataFromReader(tableRW::tableReader& reader,
                                       const std::wstring& templateName,
                                       const NORLEX_propDescription& given,
                                       const NORLEX_tableColumns& columns,
                                       const NORLEX_tableOptions& options,
                                       NORLEX_tableReport& report) {
    report = {};
    if (!m_ok)
        return refuse(L"the well is not open");
    const auto prop = names::plain(given);
    transaction edit(m_db);
    if (!edit.isOpen()
        || (!isPropertyExist(prop) && !createPropertyFromTemplate(templateName, prop)))
        return false;
    const auto property = openProperty(prop);
    return property && property->prepareBulk(reader, columns, options, report) && edit.commit();
}
