#include "platform/progress.h"

#include "NORLEX_host.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace {

struct holder {
    std::mutex mutex;
    std::shared_ptr<NORLEX_progressSink> sink;
};

holder& current() {
    static holder one;
    return one;
}

std::shared_ptr<NORLEX_progressSink> currentSink() {
    holder& h = current();
    const std::scoped_lock lock(h.mutex);
    return h.sink;
}

// Work between two reports, in the caller's units.
std::uint64_t reportStep(std::uint64_t total) {
    constexpr std::uint64_t unknownTotalStep = 65536;
    return total == 0 ? unknownTotalStep : std::max<std::uint64_t>(total / 100, 1);
}

} // namespace

progress::progress(const std::wstring& title, std::uint64_t total)
    : m_sink(currentSink()), m_total(total), m_next(reportStep(total)) {
    if (m_sink)
        m_sink->begin(title, total);
}

progress::~progress() {
    if (m_sink)
        m_sink->end();
}

void progress::advance(std::uint64_t done) {
    if (!m_sink || done < m_next)
        return;
    m_sink->advance(done);
    m_next = done + reportStep(m_total);
    if (done < m_total)
        m_next = std::min(m_next, m_total); // the end is always told
}

bool progress::isStopped() const {
    return m_sink && m_sink->isStopped();
}

void NORLEX_setProgressSink(std::shared_ptr<NORLEX_progressSink> sink) {
    holder& h = current();
    const std::scoped_lock lock(h.mutex);
    h.sink.swap(sink);
}
