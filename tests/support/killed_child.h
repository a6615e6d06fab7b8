// Programs that are killed while they work. A test starts one, lets some of its operations return,
// kills it a while later, and learns how many had returned: what it finds then must be the work of
// these, or of one more.
//
// What such a program does is a function, registered by name:
//     const killedChild::program writer("writer", [](const killedChild::task& task) { … });
// It says when it is ready, and then of each operation whether it succeeded. The test program is
// started anew for it, so that no thread or connection of the test is in it.
#pragma once

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <thread>

namespace killedChild {

inline constexpr int statusPipe = 3;
inline constexpr const char* option = "--killed-child";

// How often a test kills: what WELLDB_KILL_ROUNDS says, else as usual.
inline int rounds(int usual) {
    const char* const asked = std::getenv("WELLDB_KILL_ROUNDS");
    return asked == nullptr ? usual : std::atoi(asked);
}

// What the started program is told, and tells.
struct task {
    std::string argument; // of the test: a path
    std::string round;    // for names that no other round gave

    void ready() const { tell('o'); }
    // False when nobody listens any more.
    [[nodiscard]] bool returned(bool done) const { return tell(done ? '+' : '-') && done; }

private:
    static bool tell(char c) { return write(statusPipe, &c, 1) == 1; }
};

using body = void (*)(const task&);

inline std::map<std::string, body, std::less<>>& programs() {
    static std::map<std::string, body, std::less<>> all;
    return all;
}

struct program {
    program(const char* name, body what) { programs()[name] = what; }
};

// For main(): does what it was started for. False for a program that is to run its tests.
inline bool run(int argc, char** argv) {
    if (argc != 5 || std::string_view(argv[1]) != option)
        return false;
    const auto found = programs().find(std::string_view(argv[2]));
    if (found == programs().end())
        _exit(127);
    found->second({argv[3], argv[4]});
    for (;;) // what is done is killed as well
        pause();
}

class killer {
public:
    killer(std::string name, std::string argument)
        : m_name(std::move(name)), m_argument(std::move(argument)) {}

    // Starts the program, kills it after `before` operations and a part of the next one, and
    // answers how many returned. The first call measures one operation and kills behind it. The
    // parts are spread over an operation and a fifth more, so that one kill in six comes too late;
    // the length of an operation follows the machine to keep that share.
    std::size_t kill(std::size_t before = 0) {
        start();
        std::size_t returned = 0;
        while (returned < before && next('+'))
            ++returned;
        const bool isFirst = m_whole == seconds::zero();
        if (isFirst)
            returned += measured() ? 1U : 0U;
        else
            std::this_thread::sleep_for(m_part(m_random) * m_whole);
        returned += end();
        if (!isFirst)
            m_whole *= returned > before ? 0.8 : 1.05;
        m_inside += returned == before ? 1U : 0U;
        return returned;
    }
    // Starts the program and kills it once `isThere` says so.
    template <typename Condition>
    void killWhen(Condition isThere) {
        start();
        bool isSo = isThere();
        for (int i = 0; i < 30'000 && !isSo; ++i, isSo = isThere())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        EXPECT_TRUE(isSo) << m_name << " does not come to where it is to be killed";
        end();
    }

    [[nodiscard]] std::size_t killed() const { return m_killed; }
    [[nodiscard]] std::size_t inside() const { return m_inside; } // of an operation

private:
    using seconds = std::chrono::duration<double>;

    void start() {
        ++m_round;
        const std::string round = std::to_string(m_round);
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        m_child = fork();
        if (m_child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            const int nowhere = open("/dev/null", O_WRONLY);
            if (ends[1] == statusPipe) // a copy onto itself would keep the flag
                fcntl(statusPipe, F_SETFD, 0);
            else
                dup2(ends[1], statusPipe);
            dup2(nowhere, STDOUT_FILENO);
            execl("/proc/self/exe",
                  "killed",
                  option,
                  m_name.c_str(),
                  m_argument.c_str(),
                  round.c_str(),
                  nullptr);
            _exit(127);
        }
        close(ends[1]);
        m_end = ends[0];
        EXPECT_TRUE(next('o')) << m_name << " does not start";
    }
    // Answers how many operations had returned that nobody has heard of yet.
    std::size_t end() {
        ::kill(m_child, SIGKILL);
        std::size_t returned = 0;
        while (next('+'))
            ++returned;
        close(m_end);
        int status = 0;
        waitpid(m_child, &status, 0);
        const bool isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        EXPECT_TRUE(isKilled) << m_name << " ended by itself, with status " << status;
        m_killed += isKilled ? 1U : 0U;
        return returned;
    }
    bool next(char expected) const {
        char byte = 0;
        const bool got = read(m_end, &byte, 1) == 1;
        EXPECT_TRUE(!got || byte == expected) << "an operation of " << m_name << " failed";
        return got && byte == expected;
    }
    bool measured() {
        const auto begin = std::chrono::steady_clock::now();
        const bool done = next('+');
        m_whole = std::chrono::steady_clock::now() - begin;
        return done;
    }

    std::string m_name;
    std::string m_argument;
    std::mt19937 m_random{std::random_device{}()};
    std::uniform_real_distribution<double> m_part{0.0, 1.2};
    seconds m_whole{0};
    int m_round = 0;
    pid_t m_child = -1;
    int m_end = -1;
    std::size_t m_killed = 0;
    std::size_t m_inside = 0;
};

} // namespace killedChild
