// A container to be met by faults, in a folder of its own.
#pragma once

#include "NORLEX_correlation.h"
#include "NORLEX_well.h"
#include "tests/faults/every_fault.h"
#include "tests/store/upgrade_fixture.h"
#include "tests/support/run_figures.h"

#include <string>
#include <vector>

// A container with two wells, of which the first has logs and points, and a correlation.
class FaultTest : public UpgradeTest {
protected:
    void SetUp() override {
        SKIP_ON_SERVER();
        UpgradeTest::SetUp();
    }

    static NORLEX_contDescription describe(const std::wstring& path) {
        return NORLEX_wellContainer::makeDescription(path);
    }

    void makeContainer() {
        ASSERT_TRUE(NORLEX_wellContainer::create(describe(path))) << lastError();
        const NORLEX_wellContainer c(describe(path));
        odbc_database* const db = c.getBaseLink();
        ASSERT_TRUE(files::removeTree(folder / L"wells/planshet")); // many files for each run
        for (const auto& names : {first, second})
            ASSERT_TRUE(NORLEX_well::create(db, names)) << lastError();
        NORLEX_well well(db, first);
        ASSERT_TRUE(well.setAttribute(L"key", L"value"));
        for (const wchar_t* log : {L"GR", L"DT"})
            ASSERT_TRUE(NORLEX_wellProperty::createLAS(
                db, well.getID(), {log, L"LAS"}, L"made", samples(100)));
        const auto points = well.createPropertyPtr(NORLEX_dataTypeMarker, tops);
        ASSERT_TRUE(points->prepareBulk({10, 20}, {L"a", L"b"}, NORLEX_dataDirectionMeasured));
        ASSERT_TRUE(correlation::correlation::createCorrelationLayer(db, cor)
                    && !correlation::correlation::createBorderName(db, cor, L"top", L"").empty()
                    && correlation::correlation::createBorder(db, cor, first, L"top", 10))
            << lastError();
    }

    // What two programs left that were killed: one before its commit, the other behind it.
    void leaveChanges() {
        NORLEX_wellContainer c(describe(path));
        ASSERT_TRUE(c.getBaseLink()->exec(
            L"INSERT INTO meta (m_group, obj_id, key, value) VALUES ('file_changes', 0, 'b-1', '')"));
        folder.write(
            L"wells/.pending/a.changes",
            "T\ta-1\nC\tO/F/W-1/LAS/SP.wpdb\nR\tO/F/W-1/LAS/GR.wpdb\t.pending/a/1.old\n"
            "C\tO/F/W-1/LAS/GR.wpdb\nD\tO/F/W-3\nM\tO/F/W-1/LAS/DT.wpdb\tO/F/W-3/DT.wpdb\n");
        const std::wstring logs = folder / L"wells/O/F/W-1/LAS/";
        ASSERT_TRUE(files::makeFolder(folder / L"wells/.pending/a")
                    && files::makeFolder(folder / L"wells/O/F/W-3")
                    && files::move(logs + L"GR.wpdb", folder / L"wells/.pending/a/1.old")
                    && files::move(logs + L"DT.wpdb", folder / L"wells/O/F/W-3/DT.wpdb"));
        disk::write(logs + L"SP.wpdb", "not committed");
        disk::write(logs + L"GR.wpdb", "not committed");
        folder.write(L"wells/.pending/b.changes",
                     "T\tb-1\nR\tO/F/W-1/LAS/Old.wpdb\t.pending/b/1.old\n");
        folder.write(L"wells/.pending/b/1.old", "removed");
    }

    // An archive of the container, which then lacks the first well.
    void keepArchive() {
        NORLEX_wellContainer c(describe(path));
        ASSERT_TRUE(c.backup(folder / L"a.zip")) << lastError();
        ASSERT_TRUE(NORLEX_well::remove(c.getBaseLink(), first));
    }
    void meetRestore(failing::everyFault& each) {
        each.outside("restore", [this] {
            return NORLEX_wellContainer::restore(
                folder / L"a.zip", describe(folder / L"new.well2"), false);
        });
        each.outside("restore over", [this] {
            return NORLEX_wellContainer::restore(folder / L"a.zip", describe(path), true);
        });
    }

    static std::vector<NORLEX_logSample> samples(int count) {
        std::vector<NORLEX_logSample> out;
        for (int i = 0; i < count; ++i)
            out.push_back({1.0 * i, -1.0 * i, 0.5 * i});
        return out;
    }

    static constexpr const char* lasFile =
        "~V\nVERS. 2.0 :\nWRAP. NO :\n~W\nNULL. -999.25 :\nWELL. W-3 :\nFLD. F :\n~C\n"
        "DEPT.M :\nA. :\nB. :\n~A\n1 2 3\n2 3 4\n";
    const NORLEX_wellDescription first{L"O", L"F", L"W-1", 0};
    const NORLEX_wellDescription second{L"O", L"F", L"W-2", 0};
    const NORLEX_propDescription tops{L"Tops", L""};
    const NORLEX_propDescription cor{L"Cor", L"G"};
};

// Runs `change` on the property of the first well.
template <typename Change>
auto onProperty(const NORLEX_wellDescription& names,
                const NORLEX_propDescription& name,
                Change change) {
    return [names, name, change](NORLEX_wellContainer& c) {
        NORLEX_well well(c.getBaseLink(), names);
        const auto property = well.openProperty(name);
        return property && change(*property);
    };
}

template <typename Change>
auto onWell(const NORLEX_wellDescription& names, Change change) {
    return [names, change](NORLEX_wellContainer& c) {
        NORLEX_well well(c.getBaseLink(), names);
        return well.isOK() && change(well);
    };
}
