// What an open property keeps in memory of the database.
#pragma once

#include "NORLEX_wellProperty.h"
#include "events/change_watch.h"
#include "wells/record_set.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

struct NORLEX_wellProperty::state {
    std::int64_t id = 0;
    std::uint32_t wellId = 0;
    NORLEX_propDescription descr;
    std::wstring comment;
    std::wstring templateName;
    NORLEX_dataType type = NORLEX_dataTypeUnknown;
    std::vector<NORLEX_propField> fields;
    std::optional<recordSet> records; // none until they are asked for
    std::vector<NORLEX_bulkRow> made; // by createPointData and createPlastData, not yet written
    std::vector<NORLEX_logSample> samples;
    bool samplesLoaded = false;
    bool samplesEdited = false; // in memory, not yet written
    bool ok = false;
    bool isStale = false; // to be read again
    // By position of the field; none until it is asked for, null where nothing is bound.
    std::map<std::size_t, std::shared_ptr<NORLEX_dictionary>> dictionaries;
    std::optional<changeWatch> watch;
};
