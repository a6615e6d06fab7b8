#include "derived/result_data.h"

#include "NORLEX_propTemplate.h"
#include "NORLEX_well.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "wells/header_attributes.h"
#include "wells/property_records.h"
#include "wells/query.h"

#include <algorithm>

namespace resultData {

bool writeLog(odbc_database* db,
              NORLEX_well& well,
              const NORLEX_propDescription& result,
              const std::wstring& description,
              const std::wstring& units,
              const std::vector<NORLEX_logSample>& samples) {
    if (!query::isOpen(db))
        return false;
    transaction edit(db);
    if (!edit.isOpen()
        || !NORLEX_wellProperty::createLAS(db, well.getID(), result, description, samples))
        return false;
    if (!units.empty()) {
        const auto log = well.openProperty(result);
        if (!log || !log->setAttribute(headerAttributes::units, units))
            return false;
    }
    return edit.commit();
}

bool writeRecords(odbc_database* db,
                  NORLEX_well& well,
                  NORLEX_dataType type,
                  const NORLEX_propDescription& result,
                  const std::vector<record>& records) {
    if (!query::isOpen(db))
        return false;
    transaction edit(db);
    if (!edit.isOpen() || !NORLEX_wellProperty::create(db, well.getID(), type, result))
        return false;
    const auto property = well.openProperty(result);
    if (!property)
        return false;
    std::vector<NORLEX_bulkRow> rows;
    for (const auto& [span, name, description] : records) {
        NORLEX_bulkRow row;
        row.top = span.top;
        row.bot = span.bot;
        row.topAbs = well.getIncl()->getAbs(span.top);
        row.botAbs = well.getIncl()->getAbs(span.bot);
        row.values = {name, description};
        row.values.resize(property->getFields().size()); // further fields of the template are empty
        rows.push_back(std::move(row));
    }
    return property->prepareBulk(rows) && edit.commit();
}

bool hasTemplate(odbc_database& db, NORLEX_dataType type) {
    return !propertyRecords::standardTemplate(db, type).empty()
           || NORLEX_propTemplate::createType(&db, type);
}

std::optional<std::size_t> numericField(const NORLEX_wellProperty& property) {
    const auto& fields = property.getFields();
    const auto found = std::find_if(fields.begin(), fields.end(), [](const auto& field) {
        return field.type == NORLEX_fieldTypeNumeric;
    });
    if (found == fields.end()) {
        refuse(L"the template " + property.getTemplateName() + L" has no numeric field for values");
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - fields.begin());
}

} // namespace resultData
