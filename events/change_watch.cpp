#include "events/change_watch.h"

#include "odbc_database.h"

namespace {

// Above the ids that hosts are likely to use.
unsigned int newScope() {
    static std::atomic<unsigned int> last = 0x8000'0000U;
    return ++last;
}

} // namespace

changeWatch::changeWatch(odbc_database& db, std::uint32_t wellId, reaction react)
    : m_shared(std::make_shared<shared>()) {
    m_shared->container = db.get_identity();
    m_shared->wellId = wellId;
    m_shared->scope = newScope();
    m_shared->owner = std::this_thread::get_id();
    m_subscription = std::make_shared<globalEventObserver::callback>(
        [self = m_shared, react = std::move(react)](const eventMsgDescription& message) {
            if (!concerns(*self, message))
                return;
            if (std::this_thread::get_id() == self->owner)
                react(message);
            else
                self->isMissed = true;
        });
    globalEventObserver::Instance().subscribe(m_subscription);
}

bool changeWatch::concerns(const shared& self, const eventMsgDescription& message) {
    return message.container == self.container && message.scope != self.scope
           && (message.well.wellId == 0 || message.well.wellId == self.wellId);
}
