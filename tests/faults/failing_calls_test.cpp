// Whatever file call of an operation fails, what it works on stays whole.
#include "NORLEX_lasImport.h"
#include "NORLEX_propTemplate.h"
#include "NORLEX_tableImport.h"
#include "NORLEX_wellTableImport.h"
#include "tests/faults/failing_calls.h"
#include "tests/faults/fault_fixture.h"
#include "tests/wells/well_fixture.h"

#include <functional>
#include <set>

namespace {

class FailingCallsTest : public FaultTest {
protected:
    void SetUp() override {
        FaultTest::SetUp();
        if (!IsSkipped())
            makeContainer();
    }
    // An operation on the container.
    void meetEvery(const std::function<bool(NORLEX_wellContainer&)>& run) {
        failing::calls faults(folder.path());
        failing::everyFault each(folder, faults);
        each.inside("", run);
        runFigures::tell("file calls made to fail", each.runs());
    }
};

using NewContainerTest = FaultTest;
using FileDirectoryTest = WellTest;

} // namespace

// The engine's, the standard library's, the archives' and our own.
TEST_F(FailingCallsTest, callsOfEveryLibraryAreMet) {
    std::set<std::string> met;
    failing::calls faults(folder.path());
    for (std::size_t n = 1; n == 1 || !faults.fault().empty(); ++n) {
        faults.failAt(failing::trouble::once, n);
        {
            NORLEX_wellContainer c(describe(path));
            if (c.isOK() && c.beginTransaction()) {
                static_cast<void>(NORLEX_well::remove(c.getBaseLink(), first));
                c.rollbackTransaction();
                static_cast<void>(c.backup(folder / L"a.zip"));
            }
        }
        faults.stop();
        met.insert(faults.fault().substr(0, faults.fault().find(' ')));
    }
    for (const char* call : {"open64",
                             "pwrite64",
                             "fdatasync",
                             "unlink",
                             "mkdir",
                             "rename",
                             "unlinkat",
                             "remove",
                             "fwrite",
                             "open",
                             "write",
                             "close"})
        EXPECT_TRUE(met.contains(call)) << call;
}

TEST_F(FailingCallsTest, aLogFileIsImportedOrNot) {
    folder.write(L"in.las", lasFile);
    meetEvery([this](NORLEX_wellContainer& c) {
        return NORLEX_lasImport(c.getBaseLink(), {}).importFile(folder / L"in.las").ok;
    });
}

TEST_F(FailingCallsTest, aTableOfRowsIsImportedOrNot) {
    folder.write(L"rows.csv", "O/F/W-1;10;n\nO/F/W-2;20;m\n");
    NORLEX_tableImportOptions options;
    options.templateName = L"Маркер";
    options.property = tops;
    options.wellColumn = {1, {}};
    options.depth = {2, {}};
    options.fields = {{L"Название", {3, {}}, {}}};
    options.format.separator = ';';
    options.rows.hasHeader = false;
    options.onExisting = NORLEX_onExistingData::replace;
    meetEvery([&](NORLEX_wellContainer& c) {
        return NORLEX_tableImport(c.getBaseLink(), options).importFile(folder / L"rows.csv").ok;
    });
}

TEST_F(FailingCallsTest, aTableOfWellsIsImportedOrNot) {
    folder.write(L"wells.csv", "W-3;1;2\nW-4;3;4\n");
    NORLEX_wellTableOptions options;
    options.name = {1, {}};
    options.x = {2, {}};
    options.y = {3, {}};
    options.workObject = L"O";
    options.fieldName = L"F";
    options.format.separator = ';';
    options.hasHeader = false;
    meetEvery([&](NORLEX_wellContainer& c) {
        NORLEX_wellTableImport import(c.getBaseLink(), options);
        return import.importFile(folder / L"wells.csv").ok;
    });
}

TEST_F(FailingCallsTest, samplesAreReplacedOrNot) {
    meetEvery(onProperty(first, {L"GR", L"LAS"}, [](NORLEX_wellProperty& log) {
        return log.setSamples(samples(200)) && log.commit(true);
    }));
}

TEST_F(FailingCallsTest, rowsAreAddedOrNot) {
    meetEvery(onProperty(first, tops, [](NORLEX_wellProperty& points) {
        return points.prepareBulk({1, 2, 3}, {L"x", L"y", L"z"}, NORLEX_dataDirectionMeasured);
    }));
}

TEST_F(FailingCallsTest, aLogIsCopiedOrNot) {
    meetEvery([](NORLEX_wellContainer& c) {
        return NORLEX_wellProperty::copy(
            c.getBaseLink(), 1, 2, {L"GR", L"LAS"}, false, NORLEX_dataDirectionMeasured);
    });
}

TEST_F(FailingCallsTest, aCorrelationIsRemovedOrNot) {
    meetEvery([this](NORLEX_wellContainer& c) {
        return correlation::correlation::removeCorrelation(c.getBaseLink(), cor);
    });
}

TEST_F(FailingCallsTest, aLogIsRenamedOrNot) {
    meetEvery(onWell(first, [](NORLEX_well& well) {
        return well.renameProperty({L"GR", L"LAS"}, {L"Gamma", L"Logs"});
    }));
}

TEST_F(FailingCallsTest, aWellIsRenamedOrNot) {
    meetEvery(onWell(first, [](NORLEX_well& well) { return well.setName(L"W-9", L"G"); }));
}

TEST_F(FailingCallsTest, aTemplateIsRenamedOrNot) {
    meetEvery([](NORLEX_wellContainer& c) {
        return NORLEX_propTemplate::rename(c.getBaseLink(), L"Маркер", L"Метка");
    });
}

TEST_F(FailingCallsTest, aLogIsRemovedOrNot) {
    meetEvery(
        onProperty(first, {L"GR", L"LAS"}, [](NORLEX_wellProperty& log) { return log.remove(); }));
}

TEST_F(FailingCallsTest, aWellIsRemovedOrNot) {
    meetEvery(
        [this](NORLEX_wellContainer& c) { return NORLEX_well::remove(c.getBaseLink(), first); });
}

// The place of a file that was removed is taken by another one: undone in the wrong order, or
// twice, one of them is lost.
TEST_F(FailingCallsTest, anOuterTransactionIsRolledBack) {
    meetEvery([this](NORLEX_wellContainer& c) {
        NORLEX_well well(c.getBaseLink(), second);
        const bool done = c.beginTransaction() && NORLEX_well::remove(c.getBaseLink(), first)
                          && NORLEX_wellProperty::createLAS(
                              c.getBaseLink(), well.getID(), {L"SP", L""}, L"", samples(10))
                          && well.setName(L"W-1");
        c.rollbackTransaction();
        return done;
    });
}

TEST_F(FailingCallsTest, aFieldOfManyRecordsIsAddedToAllOrToNone) {
    {
        const NORLEX_wellContainer c(describe(path));
        NORLEX_well well(c.getBaseLink(), first);
        std::vector<double> depths;
        for (int i = 0; i < 1000; ++i)
            depths.push_back(100 + i);
        ASSERT_TRUE(well.openProperty(tops)->prepareBulk(
            depths, std::vector<std::wstring>(depths.size(), L"n"), NORLEX_dataDirectionMeasured));
    }
    meetEvery([](NORLEX_wellContainer& c) {
        NORLEX_propTemplate points(c.getBaseLink(), L"Маркер");
        return points.addField(L"Новое", NORLEX_fieldTypeString);
    });
}

TEST_F(NewContainerTest, isMadeOrNot) {
    failing::calls faults(folder.path());
    failing::everyFault each(folder, faults);
    each.outside("create", [this] { return NORLEX_wellContainer::create(describe(path)); });
    runFigures::tell("file calls made to fail", each.runs());
}

TEST_F(FailingCallsTest, aContainerIsReplacedOrNot) {
    failing::calls faults(folder.path());
    failing::everyFault each(folder, faults);
    each.mayStay({L".wpdb", L".pt"}); // of the old wells and new, where removing fails
    each.outside("", [this] { return NORLEX_wellContainer::create(describe(path)); });
    runFigures::tell("file calls made to fail", each.runs());
}

TEST_F(FailingCallsTest, aContainerIsCopiedOrNot) {
    meetEvery(
        [this](NORLEX_wellContainer& c) { return c.copyTo(describe(folder / L"copy.well2")); });
}

TEST_F(FailingCallsTest, aContainerIsBackedUpOrNot) {
    meetEvery([this](NORLEX_wellContainer& c) { return c.backup(folder / L"a.zip"); });
}

TEST_F(FailingCallsTest, anArchiveIsRestoredOrNot) {
    keepArchive();
    failing::calls faults(folder.path());
    failing::everyFault each(folder, faults);
    meetRestore(each);
    runFigures::tell("file calls made to fail", each.runs());
}

TEST_F(NewContainerTest, anOldOneIsUpgradedOrNot) {
    make(3);
    failing::calls faults(folder.path());
    failing::everyFault each(folder, faults);
    each.mayStay({L".v3.bak"});
    each.inside("upgrade", [](NORLEX_wellContainer&) { return true; });
    runFigures::tell("file calls made to fail", each.runs());
}

// Interrupted again and again, it comes to its end.
TEST_F(FailingCallsTest, openingPutsRightWhatKilledProgramsLeft) {
    leaveChanges();
    meetEvery([](NORLEX_wellContainer&) { return true; });
}

// On either engine: what is rolled back leaves the file directory as it was, though a call of it
// failed, at the latest when the container is opened again.
TEST_F(FileDirectoryTest, rolledBackFilesComeBack) {
    ASSERT_TRUE(makeLog({L"GR", L"LAS"}) && makeLog({L"DT", L"LAS"})
                && NORLEX_well::create(db(), {L"O", L"F", L"W-2", 0}))
        << lastError();
    const std::pair<const char*, std::function<bool()>> operations[] = {
        {"new log",
         [this] {
             return makeLog({L"SP", L"LAS"});
         }},
        {"renamed well", [this] { return well().setName(L"W-3"); }},
        {"well gone", [this] { return NORLEX_well::remove(db(), names); }},
        {"log replaced",
         [this] {
             return NORLEX_wellProperty::removeSilent(db(), wellId(), {L"GR", L"LAS"})
                    && makeLog({L"GR", L"LAS"});
         }},
    };
    failing::calls faults(folder / L"wells");
    const auto before = contentSnapshot::take(*container);
    std::size_t runs = 0;
    for (const auto& [name, run] : operations)
        for (const auto what : {failing::trouble::once, failing::trouble::gone})
            for (std::size_t n = 1;; ++n, ++runs) {
                ASSERT_TRUE(container->beginTransaction()) << lastError();
                faults.failAt(what, n);
                const bool done = run();
                container->rollbackTransaction();
                faults.stop();
                if (faults.fault().empty()) {
                    EXPECT_TRUE(done && n > 1) << name << ": " << lastError();
                    break;
                }
                reopen();
                ASSERT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)),
                          "")
                    << name << ", call " << n << ": " << faults.fault();
            }
    runFigures::tell("file calls made to fail", runs);
}
