// A container with the wells A (altitude 100), B (altitude 50) and a second A in another field, and
// helpers to read tables into it.
#pragma once

#include "NORLEX_tableImport.h"
#include "NORLEX_well.h"
#include "platform/numbers.h"
#include "tests/support/container_fixture.h"

#include <string>

class TableTest : public ContainerTest {
protected:
    static inline const NORLEX_wellDescription a{L"O", L"F", L"A", 0};
    static inline const NORLEX_wellDescription b{L"O", L"F", L"B", 0};
    static inline const NORLEX_wellDescription otherA{L"O", L"G/H", L"A", 0};
    static inline const NORLEX_propDescription tops{L"Tops", L""};

    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        for (const auto& well : {a, b, otherA})
            ASSERT_TRUE(NORLEX_well::create(db(), well)) << lastError();
        ASSERT_TRUE(NORLEX_well(db(), a).setAltitude(100)) << lastError();
        ASSERT_TRUE(NORLEX_well(db(), b).setAltitude(50)) << lastError();
    }

    static NORLEX_columnRef column(int number) { return {number, {}}; }

    // Points of the well in column 1: depth, name and description in columns 2 to 4.
    static NORLEX_tableImportOptions points() {
        NORLEX_tableImportOptions out;
        out.templateName = L"Маркер";
        out.property = tops;
        out.wellColumn = column(1);
        out.depth = column(2);
        out.fields = {{L"Название", column(3), {}}, {L"Описание", column(4), {}}};
        out.format.separator = ';';
        out.rows.hasHeader = false;
        return out;
    }

    NORLEX_tableImportResult load(const std::string& text,
                                  const NORLEX_tableImportOptions& options) {
        return NORLEX_tableImport(db(), options).importFile(folder.write(L"table.csv", text));
    }

    static std::wstring spelled(double depth) {
        const std::string text = numbers::shortest(depth);
        return {text.begin(), text.end()};
    }

    // "top/topAbs" of points, "top-bot/topAbs-botAbs" of intervals, then the values, of each
    // record; "none" without the property.
    std::wstring records(const NORLEX_wellDescription& of, const NORLEX_propDescription& prop) {
        NORLEX_well well(db(), of);
        const auto property = well.openProperty(prop);
        if (!property)
            return L"none";
        std::wstring out;
        const auto& all = property->getRecords();
        for (std::size_t i = 0; i < all.size(); ++i) {
            const bool isPoint = property->getType() == NORLEX_dataTypeMarker;
            out += spelled(all[i].top) + (isPoint ? L"" : L"-" + spelled(all[i].bot)) + L"/"
                   + spelled(all[i].topAbs) + (isPoint ? L"" : L"-" + spelled(all[i].botAbs));
            for (std::size_t f = 0; f < property->getFields().size(); ++f)
                out += L" " + property->getValue(f, i);
            out += L"; ";
        }
        return out;
    }
};
