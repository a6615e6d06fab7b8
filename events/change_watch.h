// Follows the announcements that concern an object held open.
#pragma once

#include "eventMsgDescription.h"
#include "globalEventObserver.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>

class odbc_database;

// Announcements come in the thread that made the change. In the owner's own thread `react` is
// called at once; a change made in another thread is kept until the owner asks, since its objects
// and its connection are the owner's alone.
class changeWatch {
public:
    using reaction = std::function<void(const eventMsgDescription&)>;

    // Messages of this database about the well, or about no well in particular, reach `react`.
    // `wellId` 0: only the latter.
    changeWatch(odbc_database& db, std::uint32_t wellId, reaction react);
    changeWatch(const changeWatch&) = delete;
    changeWatch& operator=(const changeWatch&) = delete;

    // Announcements made with this scope are the owner's own and do not come back to it.
    [[nodiscard]] unsigned int scope() const { return m_shared->scope; }

    // Whether another thread changed something since this was last asked.
    [[nodiscard]] bool takeMissed() { return m_shared->isMissed.exchange(false); }

private:
    // What the callback may touch in any thread.
    struct shared {
        std::wstring container;
        std::uint32_t wellId = 0;
        unsigned int scope = 0;
        std::thread::id owner;
        std::atomic<bool> isMissed = false;
    };
    [[nodiscard]] static bool concerns(const shared& self, const eventMsgDescription& message);

    std::shared_ptr<shared> m_shared;
    std::shared_ptr<globalEventObserver::callback> m_subscription;
};
