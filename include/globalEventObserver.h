// Tells every subscriber of the process about a change, at once and on the changing thread.
#pragma once

#include "NORLEX_export.h"
#include "eventMsgDescription.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

// Posting takes a snapshot of the subscribers, then calls each that is still alive, in the order
// of subscription, with its own copy of the message. Messages of every container reach every
// subscriber; compare eventMsgDescription::container. Safe to use from several threads and from
// inside a callback: subscribers may be added, dropped or destroyed during a delivery.
class NORLEX_API globalEventObserver {
public:
    using callback = std::function<void(eventMsgDescription)>;

    [[nodiscard]] static globalEventObserver& Instance();

    // The observer keeps no ownership: dropping the last reference to `subscriber` ends the
    // subscription. A subscriber that is subscribed already stays where it is.
    void subscribe(const std::shared_ptr<callback>& subscriber);
    void unsubscribe(const std::shared_ptr<callback>& subscriber);

    // The observer's identifier, the same for the life of the process.
    [[nodiscard]] int getUUID() const;

    // `path` is the container concerned; `scope` is an id of the caller's own.
    void createWell(const std::wstring& path, const NORLEX_wellDescription& well);
    void deleteWell(const std::wstring& path, const NORLEX_wellDescription& well);
    void renameWell(const std::wstring& path,
                    const NORLEX_wellDescription& oldWell,
                    const NORLEX_wellDescription& newWell);
    void updateWell(const std::wstring& path, const NORLEX_wellDescription& well);

    void createProperty(const std::wstring& path,
                        const NORLEX_wellDescription& well,
                        const NORLEX_propDescription& prop);
    void deleteProperty(const std::wstring& path,
                        const NORLEX_wellDescription& well,
                        const NORLEX_propDescription& prop);
    void deleteProperty(const std::wstring& path, const NORLEX_propDescription& prop);
    void renameProperty(const std::wstring& path,
                        const NORLEX_wellDescription& well,
                        const NORLEX_propDescription& oldProp,
                        const NORLEX_propDescription& newProp);
    void updateDataProperty(unsigned int scope,
                            const std::wstring& path,
                            const NORLEX_wellDescription& well,
                            const NORLEX_propDescription& prop);
    void
    updateDataAll(unsigned int scope, const std::wstring& path, const NORLEX_propDescription& prop);
    void updateDataAll(const std::wstring& path, const NORLEX_propDescription& prop);

    void updateWellMeta(const std::wstring& path,
                        const NORLEX_wellDescription& well,
                        const std::wstring& key);
    void removeWellMeta(const std::wstring& path,
                        const NORLEX_wellDescription& well,
                        const std::wstring& key);
    void updateWellMetaAll(const std::wstring& path, const std::wstring& key);

    void updateDictionary(const std::wstring& path,
                          const NORLEX_propDescription& prop,
                          const std::wstring& field,
                          const std::wstring& dictionary);
    void updateDictionaryData(const std::wstring& path, const std::wstring& dictionary);
    void updatePropTemplateField(const std::wstring& path,
                                 const std::wstring& templateName,
                                 const std::wstring& field);

    void createZone(const std::wstring& path, const std::wstring& name);
    void updateZone(const std::wstring& path, const std::wstring& name);
    void
    renameZone(const std::wstring& path, const std::wstring& oldName, const std::wstring& newName);
    void deleteZone(const std::wstring& path, const std::wstring& name);

    void createCorrBorder(const std::wstring& path, const std::wstring& name);
    void renameCorrBorder(const std::wstring& path,
                          const std::wstring& oldName,
                          const std::wstring& newName);
    void deleteCorrBorder(const std::wstring& path, const std::wstring& name);

    void updateGlobal(unsigned int scope, const std::wstring& path);
    void deleteWellsGlobal(unsigned int scope, const std::wstring& path);
    void renamePropertyGlobal(unsigned int scope,
                              const std::wstring& path,
                              const NORLEX_propDescription& oldProp,
                              const NORLEX_propDescription& newProp);

    void createWellStatisticTable(const std::wstring& path, const std::wstring& name);
    void updateWellStatisticTable(const std::wstring& path, const std::wstring& name);
    void deleteWellStatisticTable(const std::wstring& path, const std::wstring& name);

    void updateFilter(const std::wstring& path, const std::wstring& name);
    void renameFilter(const std::wstring& path,
                      const std::wstring& oldName,
                      const std::wstring& newName);
    void deleteFilter(const std::wstring& path, const std::wstring& name);

private:
    globalEventObserver();
    ~globalEventObserver();
    globalEventObserver(const globalEventObserver&) = delete;
    globalEventObserver& operator=(const globalEventObserver&) = delete;

    void post(const eventMsgDescription& message);

    std::mutex m_mutex;
    std::vector<std::weak_ptr<callback>> m_subscribers;
    int m_id = 0;
};
