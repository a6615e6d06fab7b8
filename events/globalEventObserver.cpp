#include "globalEventObserver.h"

#include "platform/uuid.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace {

// A message filled in the order in which it reads.
struct announcement : eventMsgDescription {
    announcement(const std::wstring& path, int objectKind, int doneAction) {
        container = path;
        kind = objectKind;
        action = doneAction;
    }
    announcement& of(const NORLEX_wellDescription& changedWell) {
        well = changedWell;
        return *this;
    }
    announcement& of(const NORLEX_propDescription& changedProperty) {
        property = changedProperty;
        return *this;
    }
    announcement& into(const NORLEX_propDescription& renamedProperty) {
        newProperty = renamedProperty;
        return *this;
    }
    announcement& with(const std::wstring& first,
                       const std::wstring& second = {},
                       const std::wstring& third = {}) {
        params = {first, second, third};
        return *this;
    }
    announcement& from(unsigned int callersId) {
        scope = callersId;
        return *this;
    }
};

using subscription = std::weak_ptr<globalEventObserver::callback>;

// While `subscriber` lives, the reference taken here is never the last one, so no callback is
// destroyed under the lock. The pointers are compared because several callbacks may share one
// owner.
bool isOf(const subscription& entry,
          const std::shared_ptr<globalEventObserver::callback>& subscriber) {
    const bool sameOwner = !entry.owner_before(subscriber) && !subscriber.owner_before(entry);
    return sameOwner && entry.lock() == subscriber;
}

bool isExpired(const subscription& entry) {
    return entry.expired();
}

} // namespace

// Tells this process's observer from those of others that work on the same container.
globalEventObserver::globalEventObserver()
    : m_id(static_cast<int>(std::hash<std::wstring>{}(newUuid())
                            & std::size_t{std::numeric_limits<int>::max()})) {}

globalEventObserver::~globalEventObserver() = default;

// Never destroyed: objects of static lifetime may still post and unsubscribe while the process
// ends.
globalEventObserver& globalEventObserver::Instance() {
    static globalEventObserver* const observer = new globalEventObserver;
    return *observer;
}

int globalEventObserver::getUUID() const {
    return m_id;
}

void globalEventObserver::subscribe(const std::shared_ptr<callback>& subscriber) {
    if (!subscriber)
        return;
    const std::scoped_lock lock(m_mutex);
    std::erase_if(m_subscribers, isExpired);
    const auto isThis = [&](const subscription& entry) { return isOf(entry, subscriber); };
    if (std::ranges::none_of(m_subscribers, isThis))
        m_subscribers.emplace_back(subscriber);
}

void globalEventObserver::unsubscribe(const std::shared_ptr<callback>& subscriber) {
    const std::scoped_lock lock(m_mutex);
    std::erase_if(m_subscribers, [&](const subscription& entry) {
        return isExpired(entry) || isOf(entry, subscriber);
    });
}

// The lock is held for the snapshot alone, so a callback may post, subscribe and unsubscribe. One
// that is dropped during the delivery but still alive gets this message as its last. An empty
// slot is a programming error and throws std::bad_function_call.
void globalEventObserver::post(const eventMsgDescription& message) {
    std::vector<subscription> snapshot;
    {
        const std::scoped_lock lock(m_mutex);
        std::erase_if(m_subscribers, isExpired);
        snapshot = m_subscribers;
    }
    for (const auto& entry : snapshot)
        if (const auto subscriber = entry.lock()) // held for the time of its own call only
            (*subscriber)(message);
}

void globalEventObserver::createWell(const std::wstring& path, const NORLEX_wellDescription& well) {
    post(announcement(path, eventKind::well, eventAction::create).of(well));
}

void globalEventObserver::deleteWell(const std::wstring& path, const NORLEX_wellDescription& well) {
    post(announcement(path, eventKind::well, eventAction::remove).of(well));
}

void globalEventObserver::renameWell(const std::wstring& path,
                                     const NORLEX_wellDescription& oldWell,
                                     const NORLEX_wellDescription& newWell) {
    post(announcement(path, eventKind::well, eventAction::rename)
             .of(oldWell)
             .with(newWell.workObject, newWell.field, newWell.name));
}

void globalEventObserver::updateWell(const std::wstring& path, const NORLEX_wellDescription& well) {
    post(announcement(path, eventKind::well, eventAction::update).of(well));
}

void globalEventObserver::createProperty(const std::wstring& path,
                                         const NORLEX_wellDescription& well,
                                         const NORLEX_propDescription& prop) {
    post(announcement(path, eventKind::property, eventAction::create).of(well).of(prop));
}

void globalEventObserver::deleteProperty(const std::wstring& path,
                                         const NORLEX_wellDescription& well,
                                         const NORLEX_propDescription& prop) {
    post(announcement(path, eventKind::property, eventAction::remove).of(well).of(prop));
}

void globalEventObserver::deleteProperty(const std::wstring& path,
                                         const NORLEX_propDescription& prop) {
    post(announcement(path, eventKind::property, eventAction::remove).of(prop));
}

void globalEventObserver::renameProperty(const std::wstring& path,
                                         const NORLEX_wellDescription& well,
                                         const NORLEX_propDescription& oldProp,
                                         const NORLEX_propDescription& newProp) {
    post(announcement(path, eventKind::property, eventAction::rename)
             .of(well)
             .of(oldProp)
             .into(newProp));
}

void globalEventObserver::updateDataProperty(unsigned int scope,
                                             const std::wstring& path,
                                             const NORLEX_wellDescription& well,
                                             const NORLEX_propDescription& prop) {
    post(
        announcement(path, eventKind::property, eventAction::update).of(well).of(prop).from(scope));
}

void globalEventObserver::updateDataAll(unsigned int scope,
                                        const std::wstring& path,
                                        const NORLEX_propDescription& prop) {
    post(announcement(path, eventKind::allWellsData, eventAction::update).of(prop).from(scope));
}

void globalEventObserver::updateDataAll(const std::wstring& path,
                                        const NORLEX_propDescription& prop) {
    post(announcement(path, eventKind::allWellsData, eventAction::update).of(prop));
}

void globalEventObserver::updateWellMeta(const std::wstring& path,
                                         const NORLEX_wellDescription& well,
                                         const std::wstring& key) {
    post(announcement(path, eventKind::wellMeta, eventAction::update).of(well).with(key));
}

void globalEventObserver::removeWellMeta(const std::wstring& path,
                                         const NORLEX_wellDescription& well,
                                         const std::wstring& key) {
    post(announcement(path, eventKind::wellMeta, eventAction::remove).of(well).with(key));
}

void globalEventObserver::updateWellMetaAll(const std::wstring& path, const std::wstring& key) {
    post(announcement(path, eventKind::allWellsData, eventAction::update).with(key));
}

void globalEventObserver::updateDictionary(const std::wstring& path,
                                           const NORLEX_propDescription& prop,
                                           const std::wstring& field,
                                           const std::wstring& dictionary) {
    post(announcement(path, eventKind::dictionary, eventAction::update)
             .of(prop)
             .with(field, dictionary));
}

void globalEventObserver::updateDictionaryData(const std::wstring& path,
                                               const std::wstring& dictionary) {
    post(announcement(path, eventKind::dictionary, eventAction::update).with(dictionary));
}

void globalEventObserver::updatePropTemplateField(const std::wstring& path,
                                                  const std::wstring& templateName,
                                                  const std::wstring& field) {
    post(announcement(path, eventKind::templateField, eventAction::update)
             .with(templateName, field));
}

void globalEventObserver::createZone(const std::wstring& path, const std::wstring& name) {
    post(announcement(path, eventKind::zone, eventAction::create).with(name));
}

void globalEventObserver::updateZone(const std::wstring& path, const std::wstring& name) {
    post(announcement(path, eventKind::zone, eventAction::update).with(name));
}

void globalEventObserver::renameZone(const std::wstring& path,
                                     const std::wstring& oldName,
                                     const std::wstring& newName) {
    post(announcement(path, eventKind::zone, eventAction::rename).with(oldName, newName));
}

void globalEventObserver::deleteZone(const std::wstring& path, const std::wstring& name) {
    post(announcement(path, eventKind::zone, eventAction::remove).with(name));
}

void globalEventObserver::createCorrBorder(const std::wstring& path, const std::wstring& name) {
    post(announcement(path, eventKind::correlationBorder, eventAction::create).with(name));
}

void globalEventObserver::renameCorrBorder(const std::wstring& path,
                                           const std::wstring& oldName,
                                           const std::wstring& newName) {
    post(announcement(path, eventKind::correlationBorder, eventAction::rename)
             .with(oldName, newName));
}

void globalEventObserver::deleteCorrBorder(const std::wstring& path, const std::wstring& name) {
    post(announcement(path, eventKind::correlationBorder, eventAction::remove).with(name));
}

void globalEventObserver::updateGlobal(unsigned int scope, const std::wstring& path) {
    post(announcement(path, eventKind::container, eventAction::update).from(scope));
}

void globalEventObserver::deleteWellsGlobal(unsigned int scope, const std::wstring& path) {
    post(announcement(path, eventKind::container, eventAction::remove).from(scope));
}

void globalEventObserver::renamePropertyGlobal(unsigned int scope,
                                               const std::wstring& path,
                                               const NORLEX_propDescription& oldProp,
                                               const NORLEX_propDescription& newProp) {
    post(announcement(path, eventKind::allWellsProperty, eventAction::rename)
             .of(oldProp)
             .into(newProp)
             .from(scope));
}

void globalEventObserver::createWellStatisticTable(const std::wstring& path,
                                                   const std::wstring& name) {
    post(announcement(path, eventKind::statisticTable, eventAction::create).with(name));
}

void globalEventObserver::updateWellStatisticTable(const std::wstring& path,
                                                   const std::wstring& name) {
    post(announcement(path, eventKind::statisticTable, eventAction::update).with(name));
}

void globalEventObserver::deleteWellStatisticTable(const std::wstring& path,
                                                   const std::wstring& name) {
    post(announcement(path, eventKind::statisticTable, eventAction::remove).with(name));
}

void globalEventObserver::updateFilter(const std::wstring& path, const std::wstring& name) {
    post(announcement(path, eventKind::filter, eventAction::update).with(name));
}

void globalEventObserver::renameFilter(const std::wstring& path,
                                       const std::wstring& oldName,
                                       const std::wstring& newName) {
    post(announcement(path, eventKind::filter, eventAction::rename).with(oldName, newName));
}

void globalEventObserver::deleteFilter(const std::wstring& path, const std::wstring& name) {
    post(announcement(path, eventKind::filter, eventAction::remove).with(name));
}
