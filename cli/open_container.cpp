#include "cli/open_container.h"

#include "cli/credentials.h"
#include "cli/names.h"
#include "cli/output.h"

std::optional<NORLEX_contDescription> describeContainer(const std::wstring& path) {
    NORLEX_contDescription description = NORLEX_wellContainer::makeDescription(path);
    if (!completeCredentials(description))
        return std::nullopt;
    return description;
}

std::unique_ptr<NORLEX_wellContainer> openContainer(const std::wstring& path) {
    const auto description = describeContainer(path);
    if (!description)
        return nullptr;
    auto container = std::make_unique<NORLEX_wellContainer>(*description);
    if (container->isOK())
        return container;
    output::say(output::reason());
    return nullptr;
}

openedWell openWell(const std::wstring& path, const std::wstring& reference) {
    openedWell out;
    out.container = openContainer(path);
    if (!out.container)
        return out;
    odbc_database* const db = out.container->getBaseLink();
    const auto description = names::findWell(db, reference);
    if (!description)
        return out;
    out.well = std::make_unique<NORLEX_well>(db, *description);
    if (!out.well->isOK()) {
        output::say(output::reason());
        out.well.reset();
    }
    return out;
}

bool editIn(NORLEX_wellContainer& container, const std::function<bool()>& change) {
    if (!container.beginTransaction())
        return false;
    if (change())
        return container.endTransaction();
    container.rollbackTransaction();
    return false;
}
