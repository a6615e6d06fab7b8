#include "templates/template_news.h"

#include "globalEventObserver.h"
#include "odbc_database.h"
#include "platform/sql_text.h"

using namespace sqlText;

namespace templateNews {

std::vector<NORLEX_propDescription> propertiesOf(odbc_database& db, std::uint32_t templateId) {
    std::vector<NORLEX_propDescription> found;
    const auto rows = db.query(
        sql(L"SELECT distinct(property.name), property.p_group FROM property WHERE bt_id = ",
            key(templateId),
            L" ORDER BY property.p_group, property.name"));
    while (rows && rows->next())
        found.emplace_back(rows->get_text(0), rows->get_text(1));
    return found;
}

void announce(odbc_database& db,
              const std::wstring& templateName,
              const std::vector<std::wstring>& fields,
              const std::vector<NORLEX_propDescription>& properties) {
    db.after_commit([path = db.get_identity(), templateName, fields, properties] {
        auto& observer = globalEventObserver::Instance();
        if (fields.empty())
            observer.updatePropTemplateField(path, templateName, {});
        for (const auto& field : fields)
            observer.updatePropTemplateField(path, templateName, field);
        for (const auto& property : properties)
            observer.updateDataAll(path, property);
    });
}

} // namespace templateNews
