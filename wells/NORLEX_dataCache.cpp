#include "NORLEX_dataCache.h"

#include <algorithm>

void NORLEX_dataCache::addItem(const NORLEX_wellPropertyCacheItem& item) {
    m_items.push_back(item);
}

bool NORLEX_dataCache::isObjectValueChanged(std::uint32_t objectId) const {
    return isChanged(NORLEX_wellPropertyCacheItem::valueChanged, objectId);
}

bool NORLEX_dataCache::isObjectGeomChanged(std::uint32_t objectId) const {
    return isChanged(NORLEX_wellPropertyCacheItem::geometryChanged, objectId);
}

bool NORLEX_dataCache::isObjectBorderTypeChanged(std::uint32_t objectId) const {
    return isChanged(NORLEX_wellPropertyCacheItem::borderTypeChanged, objectId);
}

bool NORLEX_dataCache::isChanged(int kind, std::uint32_t objectId) const {
    return std::ranges::any_of(m_items, [&](const NORLEX_wellPropertyCacheItem& item) {
        return item.kind == kind && item.objectId == objectId;
    });
}
