#include "platform/write_turn.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <thread>

write_turn::write_turn(const std::string& databasePath) {
    const auto folder = std::filesystem::path(databasePath).parent_path();
    m_folder = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

write_turn::~write_turn() {
    if (m_folder >= 0)
        ::close(m_folder); // and with it the lock
}

void write_turn::take(std::chrono::milliseconds longest) {
    if (m_folder < 0)
        return;
    const auto end = std::chrono::steady_clock::now() + longest;
    while (!(m_isTaken = ::flock(m_folder, LOCK_EX | LOCK_NB) == 0) && errno == EWOULDBLOCK
           && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void write_turn::giveBack() {
    if (m_isTaken)
        ::flock(m_folder, LOCK_UN);
    m_isTaken = false;
}
