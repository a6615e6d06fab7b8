// Attributes of a well and of its properties, and the files that lie in its folder.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/metadata.h"
#include "store/well_path.h"
#include "wells/announce.h"
#include "wells/query.h"

using namespace sqlText;

bool NORLEX_well::setAttribute(const std::wstring& attribute, const std::wstring& value) {
    if (!m_ok || attribute.empty())
        return refuse(L"an attribute needs an open well and a key that is not empty");
    transaction edit(m_db);
    if (!edit.isOpen() || !metadata::set(*m_db, metadata::ofWell, m_wellId, attribute, value)
        || !updateEditTime())
        return false;
    announce::afterCommit(
        *m_db, [well = getDescription(), attribute](auto& observer, const auto& container) {
            observer.updateWellMeta(container, well, attribute);
        });
    return edit.commit();
}

std::wstring NORLEX_well::getAttribute(const std::wstring& attribute) const {
    return m_ok ? metadata::get(*m_db, metadata::ofWell, m_wellId, attribute) : std::wstring();
}

// By the group of the entry too: a well and a property may bear the same key.
std::vector<NORLEX_metaEntry> NORLEX_well::getDistinctLasMeta() const {
    std::vector<NORLEX_metaEntry> out;
    const auto rows =
        m_ok ? m_db->query(sql(
            L"SELECT DISTINCT m_group, key, value FROM (SELECT m_group, key, value FROM meta where obj_id=",
            key(m_wellId),
            L" AND m_group = 'well' union all SELECT  m_group, key, value FROM meta LEFT JOIN property ON obj_id = pr_id where w_id =",
            key(m_wellId),
            L" AND m_group = 'property') AS entries order by m_group, key, value"))
             : nullptr;
    while (rows && rows->next())
        out.push_back({rows->get_text(0), rows->get_text(1), rows->get_text(2)});
    return out;
}

std::vector<std::uint32_t> NORLEX_well::getObjectList(odbc_database* db,
                                                      const std::wstring& attribute,
                                                      const std::wstring& value) {
    std::vector<std::uint32_t> out;
    const auto rows =
        query::isOpen(db)
            ? db->query(sql(L"SELECT obj_id FROM meta WHERE m_group = 'well' AND key = ",
                            quoted(attribute),
                            L" AND value = ",
                            quoted(value),
                            L" ORDER BY obj_id"))
            : nullptr;
    while (rows && rows->next())
        out.push_back(static_cast<std::uint32_t>(rows->get_counter(0)));
    return out;
}

std::wstring NORLEX_well::getFileName(const std::wstring& file) const {
    return m_ok ? NORLEX_getWellPath(m_db, m_wellId) + files::fileName(file) : std::wstring();
}
