#include "NORLEX_dataCache.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(DataCacheTest, tellsChangesApartByKindAndObject) {
    using item = NORLEX_wellPropertyCacheItem;
    NORLEX_dataCache cache;
    cache.addItem({item::valueChanged, 7, {L"0.25"}});
    cache.addItem({item::geometryChanged, 8, {}});
    cache.addItem({item::borderTypeChanged, 9, {L"2"}});
    cache.addItem({99, 10, {}});
    const auto changes = [&](std::uint32_t object) {
        return std::string(cache.isObjectValueChanged(object) ? "v" : "")
               + (cache.isObjectGeomChanged(object) ? "g" : "")
               + (cache.isObjectBorderTypeChanged(object) ? "b" : "");
    };
    EXPECT_EQ(changes(7), "v");
    EXPECT_EQ(changes(8), "g");
    EXPECT_EQ(changes(9), "b");
    EXPECT_EQ(changes(10) + changes(11), "");
    cache.addItem({item::geometryChanged, 7, {}});
    EXPECT_EQ(changes(7), "vg");
    EXPECT_EQ(cache.items().size(), 5U);
}

} // namespace
