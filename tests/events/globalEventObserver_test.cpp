#include "globalEventObserver.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>

namespace {

using callback = globalEventObserver::callback;

globalEventObserver& observer() {
    return globalEventObserver::Instance();
}

// A subscriber that keeps what it was told.
struct listener {
    std::vector<eventMsgDescription> heard;
    std::shared_ptr<callback> slot = std::make_shared<callback>(
        [this](eventMsgDescription message) { heard.push_back(std::move(message)); });

    listener() { observer().subscribe(slot); }
};

std::shared_ptr<callback> subscribed(callback call) {
    auto slot = std::make_shared<callback>(std::move(call));
    observer().subscribe(slot);
    return slot;
}

} // namespace

// Kinds and actions are written as numbers: they are what other programs compare with.
TEST(GlobalEventObserverTest, announcesEveryOperation) {
    using texts = std::array<std::wstring, 3>;
    const std::wstring path = L"c.well2";
    const NORLEX_wellDescription none{};
    const NORLEX_wellDescription well{L"object", L"field", L"name", 7};
    const NORLEX_wellDescription well2{L"object2", L"field2", L"name2", 7};
    const NORLEX_propDescription empty;
    const NORLEX_propDescription prop(L"GR", L"logs");
    const NORLEX_propDescription prop2(L"GK", L"curves");
    auto& o = observer();

    struct {
        const char* where;
        std::function<void()> announce;
        int kind;
        int action;
        NORLEX_wellDescription well;
        NORLEX_propDescription property;
        texts params;
        NORLEX_propDescription newProperty;
        unsigned int scope;
    } const cases[] = {
        // clang-format off
        {"createWell", [&] { o.createWell(path, well); }, 1, 1, well, empty, {}, empty, 0},
        {"deleteWell", [&] { o.deleteWell(path, well); }, 1, 2, well, empty, {}, empty, 0},
        {"renameWell", [&] { o.renameWell(path, well, well2); }, 1, 3, well, empty, {L"object2", L"field2", L"name2"}, empty, 0},
        {"updateWell", [&] { o.updateWell(path, well); }, 1, 4, well, empty, {}, empty, 0},
        {"createProperty", [&] { o.createProperty(path, well, prop); }, 2, 1, well, prop, {}, empty, 0},
        {"deleteProperty", [&] { o.deleteProperty(path, well, prop); }, 2, 2, well, prop, {}, empty, 0},
        {"deleteProperty, no well", [&] { o.deleteProperty(path, prop); }, 2, 2, none, prop, {}, empty, 0},
        {"renameProperty", [&] { o.renameProperty(path, well, prop, prop2); }, 2, 3, well, prop, {}, prop2, 0},
        {"updateDataProperty", [&] { o.updateDataProperty(9, path, well, prop); }, 2, 4, well, prop, {}, empty, 9},
        {"updateDataAll", [&] { o.updateDataAll(9, path, prop); }, 7, 4, none, prop, {}, empty, 9},
        {"updateDataAll, no scope", [&] { o.updateDataAll(path, prop); }, 7, 4, none, prop, {}, empty, 0},
        {"updateWellMeta", [&] { o.updateWellMeta(path, well, L"a"); }, 4, 4, well, empty, {L"a"}, empty, 0},
        {"removeWellMeta", [&] { o.removeWellMeta(path, well, L"a"); }, 4, 2, well, empty, {L"a"}, empty, 0},
        {"updateWellMetaAll", [&] { o.updateWellMetaAll(path, L"a"); }, 7, 4, none, empty, {L"a"}, empty, 0},
        {"updateDictionary", [&] { o.updateDictionary(path, prop, L"a", L"b"); }, 9, 4, none, prop, {L"a", L"b"}, empty, 0},
        {"updateDictionaryData", [&] { o.updateDictionaryData(path, L"a"); }, 9, 4, none, empty, {L"a"}, empty, 0},
        {"updatePropTemplateField", [&] { o.updatePropTemplateField(path, L"a", L"b"); }, 11, 4, none, empty, {L"a", L"b"}, empty, 0},
        {"createZone", [&] { o.createZone(path, L"a"); }, 10, 1, none, empty, {L"a"}, empty, 0},
        {"updateZone", [&] { o.updateZone(path, L"a"); }, 10, 4, none, empty, {L"a"}, empty, 0},
        {"renameZone", [&] { o.renameZone(path, L"a", L"b"); }, 10, 3, none, empty, {L"a", L"b"}, empty, 0},
        {"deleteZone", [&] { o.deleteZone(path, L"a"); }, 10, 2, none, empty, {L"a"}, empty, 0},
        {"createCorrBorder", [&] { o.createCorrBorder(path, L"a"); }, 13, 1, none, empty, {L"a"}, empty, 0},
        {"renameCorrBorder", [&] { o.renameCorrBorder(path, L"a", L"b"); }, 13, 3, none, empty, {L"a", L"b"}, empty, 0},
        {"deleteCorrBorder", [&] { o.deleteCorrBorder(path, L"a"); }, 13, 2, none, empty, {L"a"}, empty, 0},
        {"updateGlobal", [&] { o.updateGlobal(9, path); }, 6, 4, none, empty, {}, empty, 9},
        {"deleteWellsGlobal", [&] { o.deleteWellsGlobal(9, path); }, 6, 2, none, empty, {}, empty, 9},
        {"renamePropertyGlobal", [&] { o.renamePropertyGlobal(9, path, prop, prop2); }, 8, 3, none, prop, {}, prop2, 9},
        {"createWellStatisticTable", [&] { o.createWellStatisticTable(path, L"a"); }, 12, 1, none, empty, {L"a"}, empty, 0},
        {"updateWellStatisticTable", [&] { o.updateWellStatisticTable(path, L"a"); }, 12, 4, none, empty, {L"a"}, empty, 0},
        {"deleteWellStatisticTable", [&] { o.deleteWellStatisticTable(path, L"a"); }, 12, 2, none, empty, {L"a"}, empty, 0},
        {"updateFilter", [&] { o.updateFilter(path, L"a"); }, 5, 4, none, empty, {L"a"}, empty, 0},
        {"renameFilter", [&] { o.renameFilter(path, L"a", L"b"); }, 5, 3, none, empty, {L"a", L"b"}, empty, 0},
        {"deleteFilter", [&] { o.deleteFilter(path, L"a"); }, 5, 2, none, empty, {L"a"}, empty, 0},
        // clang-format on
    };
    for (const auto& c : cases) {
        const listener one;
        c.announce();
        ASSERT_EQ(one.heard.size(), 1U) << c.where;
        const auto& m = one.heard[0];
        EXPECT_EQ(m.container, path) << c.where;
        EXPECT_EQ(m.kind, c.kind) << c.where;
        EXPECT_EQ(m.action, c.action) << c.where;
        EXPECT_TRUE(m.well == c.well && m.well.wellId == c.well.wellId) << c.where;
        EXPECT_TRUE(m.property == c.property) << c.where;
        EXPECT_EQ(m.params, c.params) << c.where;
        EXPECT_TRUE(m.newProperty == c.newProperty) << c.where;
        EXPECT_EQ(m.scope, c.scope) << c.where;
    }
}

TEST(GlobalEventObserverTest, deliversInOrderToEveryLivingSubscriber) {
    std::wstring order;
    auto first = subscribed([&](eventMsgDescription m) {
        order += L"1 " + m.container + L";";
        m.container = L"changed"; // a copy of its own: the next subscriber does not see this
    });
    auto second = subscribed([&](eventMsgDescription m) { order += L"2 " + m.container + L";"; });
    observer().subscribe(first); // already subscribed: keeps its place, is called once
    observer().subscribe(nullptr);
    observer().updateGlobal(0, L"a");
    EXPECT_EQ(order, L"1 a;2 a;");

    order.clear();
    first.reset(); // destroyed without having unsubscribed
    observer().updateGlobal(0, L"b");
    EXPECT_EQ(order, L"2 b;");

    order.clear();
    observer().unsubscribe(second);
    observer().updateGlobal(0, L"c");
    EXPECT_EQ(order, L"");
}

// Two callbacks that are members of one object share its owner and are still two subscribers.
TEST(GlobalEventObserverTest, tellsCallbacksOfOneOwnerApart) {
    struct pair {
        callback a, b;
    };
    int calls = 0;
    const auto owner = std::make_shared<pair>();
    owner->a = [&](eventMsgDescription) { calls += 1; };
    owner->b = [&](eventMsgDescription) { calls += 10; };
    const std::shared_ptr<callback> a(owner, &owner->a), b(owner, &owner->b);
    observer().subscribe(a);
    observer().subscribe(b);
    observer().updateGlobal(0, L"");
    EXPECT_EQ(calls, 11);
    observer().unsubscribe(a);
    observer().updateGlobal(0, L"");
    EXPECT_EQ(calls, 21);
}

// The deleter lives until the last handle on the subscriber is gone, the observer's included.
TEST(GlobalEventObserverTest, forgetsDestroyedSubscribers) {
    struct {
        const char* where;
        std::function<void()> prune;
    } const cases[] = {
        {"a post", [] { observer().updateGlobal(0, L""); }},
        {"a subscription", [] { const listener other; }},
        {"an unsubscribe", [] { observer().unsubscribe(nullptr); }},
    };
    for (const auto& c : cases) {
        const auto token = std::make_shared<int>();
        std::shared_ptr<callback> slot(new callback([](eventMsgDescription) {}),
                                       [token](callback* p) { delete p; });
        observer().subscribe(slot);
        slot.reset();
        EXPECT_EQ(token.use_count(), 2) << c.where;
        c.prune();
        EXPECT_EQ(token.use_count(), 1) << c.where;
    }
}

TEST(GlobalEventObserverTest, survivesChangesDuringADelivery) {
    std::wstring order;
    std::shared_ptr<callback> itself, added, dropped, destroyed;
    itself = subscribed([&, state = std::make_shared<std::wstring>(L"self;")](eventMsgDescription) {
        if (added)
            return;
        added = subscribed([&](eventMsgDescription) { order += L"added;"; });
        observer().unsubscribe(dropped);
        destroyed.reset();
        observer().createZone(L"", L"");
        itself.reset(); // its own last reference but the delivery's
        order += *state;
    });
    dropped = subscribed([&](eventMsgDescription) { order += L"dropped;"; });
    destroyed = subscribed([&](eventMsgDescription) { order += L"destroyed;"; });

    // The inner post, begun after the changes, reaches the added one; the outer one keeps to its
    // snapshot: the dropped one is still alive, the destroyed one is not.
    observer().updateGlobal(0, L"");
    EXPECT_EQ(order, L"added;self;dropped;");
    order.clear();
    observer().updateGlobal(0, L"");
    EXPECT_EQ(order, L"added;");
}

TEST(GlobalEventObserverTest, throwsForASlotThatHoldsNoFunction) {
    const auto slot = std::make_shared<callback>();
    observer().subscribe(slot);
    EXPECT_THROW(observer().updateGlobal(0, L""), std::bad_function_call);
    observer().unsubscribe(slot);
    const listener after; // the lock is free again
    observer().updateGlobal(0, L"");
    EXPECT_EQ(after.heard.size(), 1U);
}

// Posting threads beside threads whose subscribers come and go. Every post reaches the subscriber
// that stays, and none reaches one whose last reference is gone.
TEST(GlobalEventObserverTest, servesManyThreads) {
    constexpr int threads = 3, rounds = 2000;
    std::atomic<int> stayed = 0;
    std::atomic<int> calledLate = 0;
    std::atomic<int> missed = 0;
    const auto stays = subscribed([&](eventMsgDescription) { ++stayed; });
    std::latch start(2 * threads);
    const auto post = [&] {
        start.arrive_and_wait();
        for (int i = 0; i < rounds; ++i)
            observer().updateGlobal(1, L"a");
    };
    const auto comeAndGo = [&] {
        start.arrive_and_wait();
        for (int i = 0; i < rounds; ++i) {
            const auto calls = std::make_shared<std::atomic<int>>(0);
            auto slot = subscribed([calls](eventMsgDescription) { ++*calls; });
            observer().updateGlobal(2, L"b");
            missed += *calls == 0;
            if (i % 2 == 0)
                observer().unsubscribe(slot);
            const std::weak_ptr<callback> watch = slot;
            slot.reset();
            while (!watch.expired()) // a delivery of another thread may still be inside it
                std::this_thread::yield();
            const int before = *calls;
            observer().updateGlobal(3, L"c");
            calledLate += *calls != before;
        }
    };
    std::vector<std::thread> running;
    for (int i = 0; i < threads; ++i) {
        running.emplace_back(post);
        running.emplace_back(comeAndGo);
    }
    for (auto& thread : running)
        thread.join();
    EXPECT_EQ(stayed, threads * rounds * 3);
    EXPECT_EQ(missed, 0);
    EXPECT_EQ(calledLate, 0);
}
