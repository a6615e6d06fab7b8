// What changed in the data of a property since it was read.
#pragma once

#include "NORLEX_export.h"

#include <cstdint>
#include <string>
#include <vector>

// One change of a record.
struct NORLEX_wellPropertyCacheItem {
    static constexpr int geometryChanged = 3;
    static constexpr int valueChanged = 4;
    static constexpr int borderTypeChanged = 5;

    int kind = 0;
    std::uint32_t objectId = 0;
    std::vector<std::wstring> values; // as they are after the change
};

// Items are never removed one by one; the whole cache goes with its property.
class NORLEX_API NORLEX_dataCache {
public:
    void addItem(const NORLEX_wellPropertyCacheItem& item);
    [[nodiscard]] bool isObjectValueChanged(std::uint32_t objectId) const;
    [[nodiscard]] bool isObjectGeomChanged(std::uint32_t objectId) const;
    [[nodiscard]] bool isObjectBorderTypeChanged(std::uint32_t objectId) const;
    [[nodiscard]] const std::vector<NORLEX_wellPropertyCacheItem>& items() const { return m_items; }

private:
    [[nodiscard]] bool isChanged(int kind, std::uint32_t objectId) const;

    std::vector<NORLEX_wellPropertyCacheItem> m_items;
};
