#include "cli/progress_bar.h"

#include "cli/char_width.h"
#include "cli/table.h"
#include "cli/terminal.h"
#include "cli/text.h"

#include <algorithm>
#include <csignal>
#include <cstdio>

namespace {

constexpr auto firstDelay = std::chrono::milliseconds(300);
constexpr auto interval = std::chrono::milliseconds(100);
constexpr std::size_t titleColumns = 48;
constexpr std::size_t barColumns = 20;
constexpr const char* eraseLine = "\r\x1b[K";

volatile std::sig_atomic_t interrupted = 0;

extern "C" void onInterrupt(int signal) {
    interrupted = 1;
    // Not to be caught again: a second Ctrl-C ends the program.
    static_cast<void>(std::signal(signal, SIG_DFL));
}

std::string barOf(double share) {
    const auto filled = static_cast<std::size_t>(share * static_cast<double>(barColumns));
    std::string out = " ";
    for (std::size_t i = 0; i < barColumns; ++i)
        out += i < filled ? "█" : "░";
    const std::string percent = std::to_string(static_cast<int>(share * 100.0));
    return out + padded(percent, 4, table::align::right) + " %";
}

} // namespace

progressBar::progressBar() : m_terminal(terminal::isError()), m_next(clock::now() + firstDelay) {}

progressBar::~progressBar() {
    clear();
}

void progressBar::begin(const std::wstring& title, std::uint64_t total) {
    if (m_parts == 0)
        m_title = title;
    m_total = total;
    m_done = 0;
    draw();
}

void progressBar::advance(std::uint64_t done) {
    m_done = done;
    draw();
}

void progressBar::end() {
    m_total = 0;
    draw();
}

bool progressBar::isStopped() {
    return isInterrupted();
}

void progressBar::setPart(const std::wstring& title, std::size_t done, std::size_t total) {
    m_part = done;
    m_parts = total;
    m_title = title;
    begin(title, 0);
}

void progressBar::clear() {
    if (m_drawn)
        static_cast<void>(std::fputs(eraseLine, stderr));
    m_drawn = false;
}

void progressBar::catchInterrupt() {
    static_cast<void>(std::signal(SIGINT, onInterrupt));
}

bool progressBar::isInterrupted() {
    return interrupted != 0;
}

double progressBar::share() const {
    const double inner =
        m_total == 0 ? 0.0
                     : std::min(1.0, static_cast<double>(m_done) / static_cast<double>(m_total));
    if (m_parts != 0)
        return (static_cast<double>(m_part) + inner) / static_cast<double>(m_parts);
    return m_total == 0 ? -1.0 : inner;
}

void progressBar::draw() {
    if (!m_terminal || clock::now() < m_next)
        return;
    m_next = clock::now() + interval;
    std::string words = text::shown(m_title);
    if (m_parts > 1)
        words = "[" + std::to_string(m_part + 1) + "/" + std::to_string(m_parts) + "] " + words;
    std::string line = padded(shortened(words, titleColumns), titleColumns, table::align::left);
    if (const double done = share(); done >= 0.0)
        line += barOf(done);
    static_cast<void>(std::fputs((eraseLine + line).c_str(), stderr));
    static_cast<void>(std::fflush(stderr));
    m_drawn = true;
}
