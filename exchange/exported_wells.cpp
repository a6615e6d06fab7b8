#include "exchange/exported_wells.h"

#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "store/well_path.h"
#include "wells/sample_file.h"

using namespace sqlText;

namespace {

constexpr std::size_t logsAtOnce = 5000; // their attributes are held in memory

// A log without a file may have been renamed, or its well, since its row was read.
bool readSamples(odbc_database& db,
                 std::uint32_t wellId,
                 std::int64_t id,
                 std::wstring path,
                 std::vector<NORLEX_logSample>& samples) {
    samples.clear();
    if (!files::isFile(path))
        path =
            samplePathOf(NORLEX_getWellPath(&db, wellId), NORLEX_wellProperty::getDescr(&db, id));
    return !files::isFile(path) || sampleFile::read(path, samples);
}

} // namespace

bool exported_wells::open() {
    const auto rows = m_db->query(sql(
        L"SELECT property.w_id, property.pr_id FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE base_template.type = ",
        quoted(getDataTypeEnum(NORLEX_dataTypeLog)),
        L" ORDER BY property.p_group, property.name"));
    while (rows && rows->next())
        m_keys[static_cast<std::uint32_t>(rows->get_counter(0))].push_back(rows->get_counter(1));
    return rows || refuse(L"the logs cannot be read: " + m_db->last_error());
}

bool exported_wells::next(std::vector<exportedLogs::source>& logs) {
    logs.clear();
    if (m_at == m_end && !readPortion())
        return false;
    const auto& well = (*m_wells)[m_at++];
    const std::wstring folder = NORLEX_getWellPath(m_db, well);
    for (const std::int64_t id : keysOf(well)) {
        const auto found = m_logs.find(id);
        if (found == m_logs.end())
            continue; // removed since open()
        auto& log = logs.emplace_back(std::move(found->second.log));
        log.read = [db = m_db,
                    wellId = well.wellId,
                    id,
                    path = samplePathOf(folder, found->second.description)](auto& samples) {
            return readSamples(*db, wellId, id, path, samples);
        };
    }
    return true;
}

const exported_wells::keys& exported_wells::keysOf(const NORLEX_wellDescription& well) const {
    static const keys none;
    const auto found = m_keys.find(well.wellId);
    return found == m_keys.end() ? none : found->second;
}

bool exported_wells::readPortion() {
    m_logs.clear();
    keys logs;
    for (; m_end < m_wells->size() && logs.size() < logsAtOnce; ++m_end) {
        const auto& more = keysOf((*m_wells)[m_end]);
        logs.insert(logs.end(), more.begin(), more.end());
    }
    return logs.empty() || (readLogs(logs) && readAttributes(logs));
}

bool exported_wells::readLogs(const keys& logs) {
    const auto rows =
        m_db->query(sql(L"SELECT pr_id, name, p_group, description FROM property WHERE pr_id IN (",
                        keyList(logs),
                        L")"));
    while (rows && rows->next())
        m_logs[rows->get_counter(0)] = {{rows->get_text(1), rows->get_text(2)},
                                        {rows->get_text(1), rows->get_text(3), {}, {}}};
    return rows || refuse(L"the logs cannot be read: " + m_db->last_error());
}

bool exported_wells::readAttributes(const keys& logs) {
    const auto rows = m_db->query(
        sql(L"SELECT obj_id, key, value FROM meta WHERE m_group = 'property' AND obj_id IN (",
            keyList(logs),
            L") ORDER BY m_id"));
    while (rows && rows->next())
        if (const auto log = m_logs.find(rows->get_counter(0)); log != m_logs.end())
            log->second.log.attributes.emplace_back(rows->get_text(1), rows->get_text(2));
    return rows || refuse(L"the attributes of the logs cannot be read: " + m_db->last_error());
}
