#include "exchange/exported_logs.h"

#include "NORLEX_wellProperty.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "store/well_path.h"

#include <algorithm>

namespace exportedLogs {

namespace {

bool hasSamples(odbc_database& db, NORLEX_wellProperty& log) {
    return log.getRecordCount() > 0
           || files::isFile(samplePathOf(NORLEX_getWellPath(&db, log.getWellID()),
                                         {log.getName(), log.getGroup()}));
}

} // namespace

std::wstring source::attribute(std::wstring_view key) const {
    const auto found = std::ranges::find(attributes, key, &metadata::pairs::value_type::first);
    return found == attributes.end() ? std::wstring() : found->second;
}

bool of(odbc_database& db,
        const std::vector<NORLEX_wellProperty*>& properties,
        std::vector<source>& out) {
    for (NORLEX_wellProperty* const log : properties) {
        if (log == nullptr)
            return refuse(L"a log to write is missing from the list (null pointer)");
        if (log->getType() != NORLEX_dataTypeLog)
            return refuse(L"'" + log->getName() + L"' is no log and has no samples to write");
        out.push_back({log->getName(),
                       log->getComment(),
                       log->getAttributeKeyValueList(),
                       [&db, log](std::vector<NORLEX_logSample>& samples) {
                           samples.clear();
                           return !hasSamples(db, *log) || log->getSamples(samples);
                       }});
    }
    return true;
}

} // namespace exportedLogs
