#include "platform/files.h"
#include "platform/messages.h"
#include "platform/module_path.h"
#include "platform/progress.h"
#include "platform/uuid.h"
#include "tests/support/temp_folder.h"

#include "NORLEX_host.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <vector>

TEST(Messages, goToTheHostsBoxesAndWithoutThemToStandardError) {
    ::testing::internal::CaptureStderr();
    messages::showError(L"Нет файла");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Нет файла\n");
    EXPECT_FALSE(messages::askYesNo(L"Upgrade?"));

    std::vector<std::wstring> told;
    NORLEX_setErrorBox([&](const std::wstring& text) {
        told.push_back(text);
        NORLEX_setErrorBox({}); // a box may change the boxes
    });
    NORLEX_setYesNoBox([&](const std::wstring& text) { return text == L"Upgrade?"; });
    ::testing::internal::CaptureStderr();
    messages::showError(L"one");
    messages::showError(L"two");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "two\n");
    EXPECT_EQ(told, std::vector<std::wstring>{L"one"});
    EXPECT_TRUE(messages::askYesNo(L"Upgrade?"));
    EXPECT_FALSE(messages::askYesNo(L"Other?"));
    NORLEX_setYesNoBox({});
    EXPECT_FALSE(messages::askYesNo(L"Upgrade?"));
}

namespace {

struct recorder : NORLEX_progressSink {
    void begin(const std::wstring&, std::uint64_t total) override { totals.push_back(total); }
    void advance(std::uint64_t done) override { reports.push_back(done); }
    void end() override { ++ends; }
    bool isStopped() override { return reports.size() >= stopAfter; }
    std::vector<std::uint64_t> totals;
    std::vector<std::uint64_t> reports;
    std::size_t stopAfter = 1000;
    int ends = 0;
};

} // namespace

TEST(Progress, reportsEachHundredthAndTheEnd) {
    const struct {
        const char* where;
        std::uint64_t total;
        std::uint64_t step; // of the calls
        std::size_t reports;
        std::uint64_t last;
    } cases[] = {
        {"small steps", 10000, 1, 100, 10000},
        {"steps greater than a hundredth", 1000, 300, 4, 1200},
        {"fewer units than reports", 5, 1, 5, 5},
        {"a rest behind the last hundredth", 1055, 1, 106, 1055}, // each 10
        {"unknown total", 0, 1000, 3, 198000},                    // each 65536
    };
    for (const auto& c : cases) {
        const auto sink = std::make_shared<recorder>();
        NORLEX_setProgressSink(sink);
        {
            progress p(L"import", c.total);
            const std::uint64_t end = c.total == 0 ? 200000 : c.total;
            for (std::uint64_t done = 0; done < end;)
                p.advance(done += c.step);
            EXPECT_EQ(sink->ends, 0) << c.where;
        }
        EXPECT_EQ(sink->totals, std::vector<std::uint64_t>{c.total}) << c.where;
        EXPECT_EQ(sink->reports.size(), c.reports) << c.where;
        EXPECT_EQ(sink->reports.back(), c.last) << c.where;
        EXPECT_EQ(sink->ends, 1) << c.where;
    }
    NORLEX_setProgressSink(nullptr);
}

TEST(Progress, keepsTheSinkItBeganWithAndTellsItsStop) {
    const auto sink = std::make_shared<recorder>();
    sink->stopAfter = 2;
    NORLEX_setProgressSink(sink);
    progress p(L"import", 10);
    NORLEX_setProgressSink(nullptr);
    p.advance(1);
    EXPECT_FALSE(p.isStopped());
    p.advance(2);
    EXPECT_TRUE(p.isStopped());
    progress silent(L"import", 10);
    silent.advance(10);
    EXPECT_FALSE(silent.isStopped());
    EXPECT_EQ(sink->reports.size(), 2U);
}

TEST(Uuid, isRandomAndOfVersionFour) {
    std::set<std::wstring> seen;
    for (int i = 0; i < 100; ++i) {
        const std::wstring id = newUuid();
        ASSERT_EQ(id.size(), 36U);
        for (std::size_t k = 0; k < id.size(); ++k) {
            const bool isHyphen = k == 8 || k == 13 || k == 18 || k == 23;
            EXPECT_EQ(id[k] == L'-', isHyphen);
            EXPECT_NE(std::wstring_view(L"-0123456789abcdef").find(id[k]), std::wstring_view::npos);
        }
        EXPECT_EQ(id[14], L'4');
        EXPECT_NE(std::wstring_view(L"89ab").find(id[19]), std::wstring_view::npos);
        EXPECT_TRUE(seen.insert(id).second);
    }
}

TEST(ModulePath, isTheChosenFolderElseTheOneThatHoldsTheData) {
    setenv("WELLDB_DATA", "/srv/data", 1);
    EXPECT_EQ(ts_options_get_main_module_path(), L"/srv/data/");
    setenv("WELLDB_DATA", "/srv/data/", 1);
    EXPECT_EQ(ts_options_get_main_module_path(), L"/srv/data/");
    unsetenv("WELLDB_DATA");
    const std::wstring found = ts_options_get_main_module_path();
    EXPECT_EQ(found.back(), L'/');
    EXPECT_TRUE(files::isFolder(found + L"planshet"));
    EXPECT_TRUE(files::isFile(found + L"strategraphy/LAS_methods.db"));
}
