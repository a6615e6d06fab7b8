// A container with a log of three samples, and what is asked of it when its surroundings are bad.
#pragma once

#include "tests/support/content_snapshot.h"
#include "tests/wells/well_fixture.h"

#include <memory>
#include <string>
#include <vector>

class EnvironmentTest : public WellTest {
protected:
    const NORLEX_propDescription gr{L"GR", L"LAS"};

    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(makeLog(gr)) << lastError();
    }
    [[nodiscard]] std::unique_ptr<NORLEX_wellProperty> log(const NORLEX_propDescription& prop) {
        m_well = std::make_unique<NORLEX_well>(db(), names);
        return m_well->openProperty(prop);
    }
    [[nodiscard]] std::size_t samplesOf(const NORLEX_propDescription& prop) {
        std::vector<NORLEX_logSample> samples;
        EXPECT_TRUE(log(prop)->getSamples(samples)) << lastError();
        return samples.size();
    }
    [[nodiscard]] bool rewrite(std::vector<NORLEX_logSample> samples) {
        const auto written = log(gr);
        return written->setSamples(std::move(samples)) && written->commit(false);
    }
    // "kind × count" of each.
    [[nodiscard]] std::wstring findings() const {
        std::vector<NORLEX_checkFinding> found;
        EXPECT_TRUE(container->check(found)) << lastError();
        std::wstring out;
        for (const auto& one : found)
            out += one.kind + L" × " + std::to_wstring(one.count) + L"\n";
        return out;
    }
    static void expectLineNames(const std::wstring& what, const char* where) {
        EXPECT_NE(NORLEX_lastError().find(what), std::wstring::npos)
            << where << ": " << lastError() << " names no " << ts::strconv::toUtf8(what);
    }

private:
    std::unique_ptr<NORLEX_well> m_well; // a property borrows its survey
};
