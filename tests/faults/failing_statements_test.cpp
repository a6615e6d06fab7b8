// Whatever statement or query of an operation on a container as a whole fails, it is done wholly or
// not at all.
#include "NORLEX_lasImport.h"
#include "tests/faults/fault_fixture.h"
#include "tests/support/failing_driver.h"

namespace {

class failedStatements final : public failing::faultSource {
public:
    [[nodiscard]] std::size_t manners() const override { return 2; }
    [[nodiscard]] std::string nameOf(std::size_t manner) const override {
        return manner == 0 ? "statement fails" : "query fails";
    }
    void failAt(std::size_t manner, std::size_t n) override {
        m_statements.failAt(static_cast<int>(n),
                            manner == 0 ? failing::kind::writes : failing::kind::queries);
    }
    // What fails later has reasons of its own.
    void stop() override {
        m_fault = m_statements.fault();
        m_statements.failAt(0);
        m_statements.stop();
    }
    [[nodiscard]] std::string fault() const override { return m_fault; }
    [[nodiscard]] std::wstring told(const std::wstring&) const override { return L"made to fail"; }

private:
    failing::statements m_statements;
    std::string m_fault;
};

class FailingStatementsTest : public FaultTest {
protected:
    failedStatements faults;
};

} // namespace

TEST_F(FailingStatementsTest, containersAreMadeOrNot) {
    failing::everyFault each(folder, faults);
    each.outside("create", [this] { return NORLEX_wellContainer::create(describe(path)); });
    runFigures::tell("statements made to fail", each.runs());
}

TEST_F(FailingStatementsTest, containersAreReplacedOrNot) {
    makeContainer();
    failing::everyFault each(folder, faults);
    each.mayStay({L".wpdb"}); // of the old wells, where they cannot be listed
    each.outside("create over", [this] { return NORLEX_wellContainer::create(describe(path)); });
    runFigures::tell("statements made to fail", each.runs());
}

TEST_F(FailingStatementsTest, copiesAndImportsAreMadeOrNot) {
    makeContainer();
    folder.write(L"in.las", lasFile);
    failing::everyFault each(folder, faults);
    each.inside("copy", [this](NORLEX_wellContainer& c) {
        return c.copyTo(describe(folder / L"copy.well2"));
    });
    each.inside("backup", [this](NORLEX_wellContainer& c) { return c.backup(folder / L"a.zip"); });
    each.inside("LAS import", [this](NORLEX_wellContainer& c) {
        return NORLEX_lasImport(c.getBaseLink(), {}).importFile(folder / L"in.las").ok;
    });
    runFigures::tell("statements made to fail", each.runs());
}

TEST_F(FailingStatementsTest, archivesAreRestoredOrNot) {
    makeContainer();
    keepArchive();
    failing::everyFault each(folder, faults);
    meetRestore(each);
    runFigures::tell("statements made to fail", each.runs());
}

// Of version 3, which takes every step.
TEST_F(FailingStatementsTest, containersAreUpgradedOrNot) {
    make(3);
    failing::everyFault each(folder, faults);
    each.mayStay({L".bak"});
    each.inside("upgrade", [](NORLEX_wellContainer&) { return true; });
    runFigures::tell("statements made to fail", each.runs());
}

// Interrupted again and again, it comes to its end.
TEST_F(FailingStatementsTest, openingPutsRightWhatKilledProgramsLeft) {
    makeContainer();
    leaveChanges();
    failing::everyFault each(folder, faults);
    each.inside("opening", [](NORLEX_wellContainer&) { return true; });
    runFigures::tell("statements made to fail", each.runs());
}
