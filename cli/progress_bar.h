// Shows long work on standard error while it is a terminal, and carries Ctrl-C to the library.
#pragma once

#include "NORLEX_host.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

class progressBar : public NORLEX_progressSink {
public:
    progressBar();
    ~progressBar() override;
    progressBar(const progressBar&) = delete;
    progressBar& operator=(const progressBar&) = delete;

    void begin(const std::wstring& title, std::uint64_t total) override;
    void advance(std::uint64_t done) override;
    void end() override;
    [[nodiscard]] bool isStopped() override;

    // The work is one part, the one after `done`, of `total` parts: their number stands before the
    // title, and the bar is that of the whole.
    void setPart(const std::wstring& title, std::size_t done, std::size_t total);
    void clear(); // takes the bar off the screen

    // From here on the first Ctrl-C asks the work to stop at its next safe point; a second one
    // ends the program at once.
    static void catchInterrupt();
    [[nodiscard]] static bool isInterrupted();

private:
    using clock = std::chrono::steady_clock;
    [[nodiscard]] double share() const; // of the work that is done; negative when not known
    void draw();

    bool m_terminal;
    bool m_drawn = false;
    clock::time_point m_next; // no earlier drawing: work of a moment shows nothing
    std::size_t m_part = 0;
    std::size_t m_parts = 0; // 0: the work has no parts
    std::wstring m_title;
    std::uint64_t m_total = 0; // 0: unknown
    std::uint64_t m_done = 0;
};
