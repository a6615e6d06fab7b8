// A container with dictionaries, and statements of its connection that can be made to fail.
#pragma once

#include "NORLEX_dictionary.h"
#include "tests/support/failing_driver.h"
#include "tests/templates/template_fixture.h"

#include <functional>
#include <string>
#include <vector>

using D = NORLEX_dictionary;

using pairs = std::vector<std::pair<std::wstring, std::wstring>>;

inline const NORLEX_propDescription tops{L"tops", L"g"};

class DictionaryTest : public TemplateTest {
protected:
    // "code=value;" of every entry
    static std::wstring entries(const D& dictionary) {
        std::wstring out;
        for (const auto& entry : dictionary.getValueList())
            out += entry.code + L"=" + entry.value + L";";
        return out;
    }
    [[nodiscard]] std::wstring stored(const wchar_t* name) const { return entries(D(db(), name)); }

    // A dictionary "lit" of two rocks, bound to the field "rock" of "tops" and to the key "top".
    void fill() {
        ASSERT_TRUE(D::create(db(), L"lit")) << lastError();
        D lit(db(), L"lit");
        ASSERT_TRUE(lit.addValue(L"1", L"sand") && lit.addValue(L"2", L"clay")) << lastError();
        ASSERT_TRUE(D::createLink(db(), tops, L"rock", L"lit")) << lastError();
        change({L"INSERT INTO well_info_struct (key, type) VALUES ('top', 's'), ('bed', 's')"});
        ASSERT_TRUE(D::createInfoLink(db(), L"top", L"lit")) << lastError();
        heard.clear();
    }
    [[nodiscard]] bool isInEdit(const std::function<bool()>& edit) const {
        if (!container->beginTransaction())
            return false;
        const bool done = edit();
        container->rollbackTransaction();
        return done;
    }
    failing::statements faults;
};
