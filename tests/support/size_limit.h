// A disk that has no more room.
#pragma once

#include <csignal>
#include <sys/resource.h>

#include <cstdint>

// Files may grow up to so many bytes while the object lives: a write beyond fails as on a full
// disk.
class size_limit {
public:
    explicit size_limit(std::uintmax_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        m_set = setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }
    ~size_limit() { setrlimit(RLIMIT_FSIZE, &m_old); }
    size_limit(const size_limit&) = delete;
    size_limit& operator=(const size_limit&) = delete;
    [[nodiscard]] bool isSet() const { return m_set; }

private:
    rlimit m_old{};
    bool m_set = false;
};
