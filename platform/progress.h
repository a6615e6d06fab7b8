// One long operation as the host's progress window shows it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

class NORLEX_progressSink;

// Begins on construction and ends with the scope. Costs next to nothing without a sink: call
// advance() as often as convenient, it reports only when a hundredth of the work has gone by.
class progress {
public:
    progress(const std::wstring& title, std::uint64_t total);
    ~progress();
    progress(const progress&) = delete;
    progress& operator=(const progress&) = delete;

    void advance(std::uint64_t done);
    [[nodiscard]] bool isStopped() const;

private:
    std::shared_ptr<NORLEX_progressSink> m_sink;
    std::uint64_t m_total;
    std::uint64_t m_next = 0;
};
