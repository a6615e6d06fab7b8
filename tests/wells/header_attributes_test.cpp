#include "wells/header_attributes.h"

#include <gtest/gtest.h>

using headerAttributes::block;

// What an import keeps comes back as it was, in its order, from among other attributes.
TEST(HeaderAttributes, entriesComeBackByBlock) {
    const lasDescription entries[] = {
        {L"COMP", L"", L"Oil; Gas \"& Co.\"", L"COMPANY : of record"},
        {L"BHT", L"DEGC", L"35.5000", L"BOTTOM HOLE TEMPERATURE"},
        {L"A.B.C", L"м", L"", L""},
        {L"", L"", L"", L""},
        {L"COMP", L"", L"the second of the name", L""},
    };
    metadata::pairs attributes = {{headerAttributes::units, L"GAPI"}, {L"WELLNESS", L"x"}};
    for (const auto& entry : entries)
        headerAttributes::add(attributes, block::well, entry);
    headerAttributes::add(attributes, block::param, entries[1]);

    const auto back = headerAttributes::entries(attributes, block::well);
    ASSERT_EQ(back.size(), std::size(entries));
    for (std::size_t i = 0; i < back.size(); ++i) {
        EXPECT_EQ(back[i].mnemonic, entries[i].mnemonic) << i;
        EXPECT_EQ(back[i].unit, entries[i].unit) << i;
        EXPECT_EQ(back[i].value, entries[i].value) << i;
        EXPECT_EQ(back[i].description, entries[i].description) << i;
    }
    EXPECT_EQ(headerAttributes::entries(attributes, block::param).size(), 1U);
    EXPECT_TRUE(headerAttributes::entries(attributes, block::curve).empty());
}

TEST(HeaderAttributes, readsWhatOthersWrote) {
    const auto read = [](const wchar_t* value) {
        return headerAttributes::entries({{L"CURVE.GR", value}}, block::curve).front();
    };
    EXPECT_EQ(read(L"GAPI").unit, L"GAPI");
    EXPECT_EQ(read(L"GAPI").description, L"");
    EXPECT_EQ(read(L"\x1F\x1Fgamma\x1Fray").description, L"gamma\x1Fray");

    metadata::pairs attributes;
    headerAttributes::add(attributes,
                          block::curve,
                          {L"GR",
                           L"a\x1F"
                           L"b",
                           L"1",
                           L"2"});
    EXPECT_EQ(headerAttributes::entries(attributes, block::curve).front().unit, L"a b");
    EXPECT_EQ(headerAttributes::entries(attributes, block::curve).front().value, L"1");
}
