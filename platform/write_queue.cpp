#include "platform/write_queue.h"

#include "NORLEX_lastError.h"
#include "platform/last_error.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

namespace {
constexpr std::size_t mostWaiting = 4;
} // namespace

void write_queue::add(std::size_t change, task write) {
    const keptReason why;
    std::unique_lock lock(m_mutex);
    const std::size_t most = startThread() ? mostWaiting : 0;
    m_waiting.emplace_back(change, std::move(write));
    m_changed.notify_all();
    while (m_waiting.size() > most)
        writeNext(lock);
}

// False where the system gives no more threads: each file is written at once then.
bool write_queue::startThread() {
    try {
        if (!m_thread.joinable())
            m_thread = std::jthread([this](const std::stop_token& stop) { run(stop); });
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void write_queue::wait() {
    const keptReason why;
    std::unique_lock lock(m_mutex);
    while (!m_waiting.empty())
        writeNext(lock);
    m_changed.wait(lock, [this] { return m_underway == 0; });
}

std::wstring write_queue::failure() const {
    const std::scoped_lock lock(m_mutex);
    return m_failed.empty() ? std::wstring() : m_failed.front().why;
}

void write_queue::forgetFailures(std::size_t firstChange) {
    const std::scoped_lock lock(m_mutex);
    std::erase_if(m_failed, [&](const failed& one) { return one.change >= firstChange; });
}

void write_queue::run(const std::stop_token& stop) {
    std::unique_lock lock(m_mutex);
    while (m_changed.wait(lock, stop, [this] { return !m_waiting.empty(); }))
        writeNext(lock);
}

void write_queue::writeNext(std::unique_lock<std::mutex>& lock) {
    auto [change, write] = std::move(m_waiting.front());
    m_waiting.pop_front();
    ++m_underway;
    lock.unlock();
    bool written = false;
    try {
        written = write();
    } catch (const std::bad_alloc&) {
        refuse(L"there is not enough memory to write a file");
    }
    write = nullptr; // what it holds goes now
    lock.lock();
    if (!written)
        m_failed.push_back({change, NORLEX_lastError()});
    --m_underway;
    m_changed.notify_all();
}
