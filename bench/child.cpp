#include "bench/child.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace bench {

namespace {

[[noreturn]] void answer(int out, const std::function<std::vector<double>()>& work) {
    const std::vector<double> values = work();
    const std::size_t bytes = values.size() * sizeof(double);
    std::fflush(nullptr);
    const ssize_t written = write(out, values.data(), bytes); // far below the size of a pipe
    _exit(!values.empty() && written == static_cast<ssize_t>(bytes) ? 0 : 1);
}

} // namespace

std::optional<childResult> inChild(const std::function<std::vector<double>()>& work) {
    std::array<int, 2> ends{};
    std::fflush(nullptr);
    if (pipe(ends.data()) != 0)
        return std::nullopt;
    const pid_t child = fork();
    if (child == 0)
        answer(ends[1], work);
    close(ends[1]);
    childResult result;
    double value = 0.0;
    while (child > 0 && read(ends[0], &value, sizeof value) == static_cast<ssize_t>(sizeof value))
        result.values.push_back(value);
    close(ends[0]);
    int status = 0;
    rusage usage{};
    if (child <= 0 || wait4(child, &status, 0, &usage) != child || status != 0)
        return std::nullopt;
    result.peakBytes = static_cast<double>(usage.ru_maxrss) * 1024.0;
    return result;
}

double seconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

double timed(const std::function<void()>& work) {
    const double start = seconds();
    work();
    return seconds() - start;
}

double timedOnProcessor(const std::function<void()>& work) {
    const auto spent = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    const double start = spent();
    work();
    return spent() - start;
}

double residentBytes() {
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr)
        return 0.0;
    long total = 0;
    long resident = 0;
    const int fields = std::fscanf(file, "%ld %ld", &total, &resident);
    std::fclose(file);
    return fields == 2 ? static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE))
                       : 0.0;
}

} // namespace bench
