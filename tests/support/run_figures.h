// Counts of what a test tried or survived, for the table of figures in README.md.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace runFigures {

// Adds `count` to the figure `what` of this run, say "statements made to fail": the line of a file
// of this test and figure below the folder of WELLDB_FIGURES, which `./run test` sets; without it
// nothing is done. A test tells a figure once, at its end; one that failed tells nothing.
inline void tell(const std::string& what, std::size_t count) {
    const char* const folder = std::getenv("WELLDB_FIGURES");
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    if (folder == nullptr || test == nullptr || testing::Test::HasFailure())
        return;
    const char* const engine = std::getenv("WELLDB_TEST_ENGINE");
    const std::string path = std::string(folder) + "/" + test->test_suite_name() + "."
                             + test->name() + "." + (engine == nullptr ? "local" : engine) + "."
                             + what;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "w"),
                                                               &std::fclose);
    ASSERT_TRUE(file) << path;
    std::fprintf(file.get(), "%s\t%zu\n", what.c_str(), count);
}

} // namespace runFigures
