#include "cli/open_correlation.h"

#include "cli/names.h"
#include "cli/output.h"

#include "NORLEX_correlation.h"

using store = correlation::correlation;

std::optional<NORLEX_propDescription> correlationNamed(odbc_database* db,
                                                       const std::wstring& reference) {
    auto out = names::newProperty(reference);
    if (!out || names::split(reference).size() > 1)
        return out;
    std::vector<std::wstring> groups;
    store::getMirrorGroupList(db, *out, groups);
    if (groups.size() == 1)
        out->group = groups.front();
    return out;
}

openedCorrelation openCorrelation(const std::wstring& file, const std::wstring& reference) {
    openedCorrelation out;
    out.container = openContainer(file);
    if (!out.container)
        return out;
    auto found = correlationNamed(out.db(), reference);
    if (!found || store::isCorrelationExist(out.db(), *found)) {
        out.description = std::move(found);
        return out;
    }
    std::vector<std::wstring> all;
    store::getCorrelationList(out.db(), all);
    std::wstring listed;
    for (const auto& one : all)
        listed += (listed.empty() ? L"" : L", ") + one;
    output::say(L"the correlation \"" + found->name + L"\" was not found; there are: "
                + (listed.empty() ? L"none" : listed));
    return out;
}
