// Files that a transaction writes while it goes on with its rows.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

// A thread, started with the first file, writes one after the other. Whoever has to wait for files
// writes along.
class write_queue {
public:
    // Answers false with the last error set when the file cannot be written.
    using task = std::function<bool()>;

    // `change` is the place of the file among the changes of its transaction. While several files
    // wait already they are written first, so that what they are made of does not pile up in
    // memory.
    void add(std::size_t change, task write);
    void wait(); // until all are written, or failed

    // Why a file was not written; empty: all were, as far as it is known.
    [[nodiscard]] std::wstring failure() const;
    void forgetFailures(std::size_t firstChange); // of this change and later ones

private:
    struct failed {
        std::size_t change;
        std::wstring why;
    };

    [[nodiscard]] bool startThread();
    void run(const std::stop_token& stop);
    void writeNext(std::unique_lock<std::mutex>& lock);

    mutable std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<std::pair<std::size_t, task>> m_waiting;
    std::size_t m_underway = 0; // being written
    std::vector<failed> m_failed;
    std::jthread m_thread; // the last member: it ends first
};
