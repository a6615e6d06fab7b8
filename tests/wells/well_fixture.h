// A container with a well "W-1" of field "F" and work object "O" in it.
#pragma once

#include "NORLEX_well.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/well_path.h"
#include "tests/support/container_fixture.h"

#include <map>
#include <string>
#include <vector>

class WellTest : public ContainerTest {
protected:
    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(NORLEX_well::create(db(), names)) << lastError();
    }

    [[nodiscard]] NORLEX_well well() const { return {db(), names}; }
    [[nodiscard]] std::uint32_t wellId() const { return NORLEX_well::getID(db(), names); }

    [[nodiscard]] std::wstring samplePath(const NORLEX_propDescription& prop) const {
        return samplePathOf(NORLEX_getWellPath(db(), wellId()), prop);
    }

    // A log of samples at 10, 20 and 30 metres, measured and absolute depths as given.
    [[nodiscard]] bool makeLog(const NORLEX_propDescription& prop) const {
        return NORLEX_wellProperty::createLAS(
            db(), wellId(), prop, L"made", {{10, 90, 1.5}, {20, 80, 2.5}, {30, 70, 3.5}});
    }

    static inclData station(double depth, double angle, double azimuth) {
        inclData s;
        s.depth = depth;
        s.angle = angle;
        s.azimuth = azimuth;
        return s;
    }

    // Everything that wells may change: row counts of the tables and the bytes of the files, the
    // action journal, the plot templates and the markers of finished file changes aside.
    [[nodiscard]] std::map<std::wstring, std::string> everything() const {
        std::map<std::wstring, std::string> out;
        for (const auto* table : tables)
            out[table] = ts::strconv::toUtf8(cell(std::wstring(L"SELECT count(*) FROM ") + table
                                                  + (std::wstring_view(table) == L"meta"
                                                         ? L" WHERE m_group IN ('well', 'property')"
                                                         : L"")));
        for (const auto& path : files::listTree(container->getFileContainerPath()))
            if (!files::nameOf(path).starts_with(L"journal.db") && !path.ends_with(L".pt")
                && !path.ends_with(L".changes")) // nor the journals of an open connection
                out[path] = temp_folder::read(path);
        return out;
    }

    static constexpr const wchar_t* tables[] = {L"well_base",
                                                L"property",
                                                L"field",
                                                L"val",
                                                L"point_data",
                                                L"interval_data",
                                                L"meta",
                                                L"prop_link",
                                                L"inclinometry",
                                                L"well_info",
                                                L"file_link",
                                                L"well_executors",
                                                L"construction",
                                                L"well_construction",
                                                L"well_drilling",
                                                L"well_stat_vals",
                                                L"vdm_data",
                                                L"correlation_data",
                                                L"well_info_values",
                                                L"file_folder_link"};

    const NORLEX_wellDescription names{L"O", L"F", L"W-1", 0};
};
