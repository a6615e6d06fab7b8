#include "bench/database.h"

#include "platform/strconv.h"

namespace bench {

std::unique_ptr<NORLEX_wellContainer> openContainer(const std::string& path) {
    const auto description = NORLEX_wellContainer::makeDescription(ts::strconv::fromUtf8(path));
    auto container = std::make_unique<NORLEX_wellContainer>(description);
    return container->isOK() ? std::move(container) : nullptr;
}

std::unique_ptr<NORLEX_wellContainer> newContainer(const std::string& path) {
    const auto description = NORLEX_wellContainer::makeDescription(ts::strconv::fromUtf8(path));
    return NORLEX_wellContainer::create(description) ? openContainer(path) : nullptr;
}

} // namespace bench
