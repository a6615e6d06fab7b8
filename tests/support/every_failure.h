// Runs an operation over and over, each time with another of its statements failing.
#pragma once

#include "NORLEX_lastError.h"
#include "globalEventObserver.h"
#include "platform/last_error.h"
#include "tests/support/content_snapshot.h"
#include "tests/support/failing_driver.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace failing {

namespace detail {

constexpr int mostStatements = 500;

// Counts announcements while it lives.
struct listener {
    int heard = 0;
    std::shared_ptr<globalEventObserver::callback> callback =
        std::make_shared<globalEventObserver::callback>([this](const auto&) { ++heard; });
    listener() { globalEventObserver::Instance().subscribe(callback); }
};

} // namespace detail

// The operation with its 1st, 2nd, … writing call failing, until it is through without meeting the
// fault. Each time before, it must answer false with a line that says why, and leave everything as
// it was: rows, files, journal; nothing is announced. It is done in the end.
// `operation` answers whether it succeeded, and opens anew what it works on.
template <typename Operation>
void forEveryFailure(NORLEX_wellContainer& container,
                     statements& faults,
                     const std::string& where,
                     Operation operation) {
    const auto before = contentSnapshot::take(container);
    for (int n = 1; n < detail::mostStatements; ++n) {
        const detail::listener ears;
        refuse(L"");
        faults.failAt(n);
        const bool done = operation();
        faults.stop();
        const std::string at = where + ", call " + std::to_string(n) + ": " + faults.fault();
        if (faults.fault().empty()) {
            EXPECT_TRUE(done) << where << ": " << ts::strconv::toUtf8(NORLEX_lastError());
            EXPECT_GT(n, 1) << where << " writes nothing";
            return;
        }
        ASSERT_FALSE(done) << at;
        EXPECT_NE(NORLEX_lastError(), L"") << at;
        EXPECT_EQ(ears.heard, 0) << at;
        ASSERT_EQ(contentSnapshot::differences(before, contentSnapshot::take(container)), "") << at;
    }
    ADD_FAILURE() << where << ": more calls than are tried";
}

// The same with queries, of which many may fail without harm: whenever the operation succeeds in
// spite of it, what it leaves must be what it leaves otherwise. Everything is undone in the end.
template <typename Operation>
void forEveryFailedQuery(NORLEX_wellContainer& container,
                         statements& faults,
                         const std::string& where,
                         Operation operation) {
    using contentSnapshot::detail::shape;
    contentSnapshot::content expected;
    for (int n = 0; n < detail::mostStatements; ++n) { // none fails at first
        ASSERT_TRUE(container.beginTransaction());
        const auto before = contentSnapshot::take(container);
        if (n > 0)
            faults.failAt(n, kind::queries);
        const bool done = operation();
        faults.stop();
        const std::string at = where + ", query " + std::to_string(n) + ": " + faults.fault();
        if (n == 0) {
            EXPECT_TRUE(done) << where << ": " << ts::strconv::toUtf8(NORLEX_lastError());
            expected = contentSnapshot::take(container, shape);
        } else if (done) {
            EXPECT_EQ(
                contentSnapshot::differences(expected, contentSnapshot::take(container, shape)), "")
                << at;
        } else {
            EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(container)), "")
                << at;
        }
        container.rollbackTransaction();
        if (n > 0 && faults.fault().empty())
            return;
    }
    ADD_FAILURE() << where << ": more queries than are tried";
}

} // namespace failing
