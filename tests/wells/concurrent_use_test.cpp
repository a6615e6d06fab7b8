// Several programs on one container at once: four write, two read.
#include "NORLEX_well.h"
#include "platform/sql_text.h"
#include "tests/support/container_fixture.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <map>

using namespace sqlText;

namespace {

constexpr int writers = 4;
constexpr int readers = 2;
constexpr int points = 20;                          // of each property
constexpr std::chrono::seconds busyTimeOut{10};     // nobody waits longer for another
constexpr std::chrono::milliseconds allowance{500}; // of a busy machine

using clockType = std::chrono::steady_clock;

// How long they work: a few seconds, or what WELLDB_TEST_SECONDS says.
std::chrono::seconds duration() {
    const std::string asked = testEngine::variable("WELLDB_TEST_SECONDS");
    return std::chrono::seconds(asked.empty() ? 3 : std::atoi(asked.c_str()));
}

std::int64_t number(odbc_database& db, const std::wstring& query) {
    const auto rows = db.query(query);
    return rows && rows->next() ? rows->get_counter(0) : -1;
}

std::wstring nameOf(int writer) {
    return L"writer-" + std::to_wstring(writer);
}

// A property with a field and its points; each value is the writer's name. Keys are read back.
bool writeProperty(odbc_database& db, int writer, int count) {
    const std::wstring own = nameOf(writer);
    if (!db.begin_transaction())
        return false;
    bool good = db.exec(sql(L"INSERT INTO property (w_id, bt_id, name, p_group) VALUES (1, 1, ",
                            quoted(own + L"/" + std::to_wstring(count)),
                            L", ",
                            quoted(own),
                            L")"));
    const std::int64_t property = number(db, L"SELECT max(pr_id) FROM property");
    good = good
           && db.exec(sql(L"INSERT INTO field (pr_id, name, type, is_base) VALUES (",
                          key(property),
                          L", ",
                          quoted(own),
                          L", 'NORLEX_fieldTypeString', 1)"));
    const std::int64_t field = number(db, L"SELECT max(f_id) FROM field");
    for (int i = 0; good && i < points; ++i) {
        good = db.exec(L"INSERT INTO point_data (depth, depth_abs, type) VALUES (1, 2, 0)");
        const std::int64_t point = number(db, L"SELECT max(obj_id) FROM point_data");
        good = good
               && db.exec(sql(L"INSERT INTO val (f_id, value, obj_id) VALUES (",
                              key(field),
                              L", ",
                              quoted(own),
                              L", ",
                              key(point),
                              L")"));
    }
    return db.end_transaction() && good;
}

// Every property there is must be whole. False for one that is not.
bool readAll(odbc_database& db) {
    const auto rows = db.query(
        L"SELECT property.p_group, count(val.value), min(val.value), max(val.value), count(distinct point_data.obj_id), min(field.name), max(field.name) FROM property LEFT JOIN field ON field.pr_id = property.pr_id LEFT JOIN val ON val.f_id = field.f_id LEFT JOIN point_data ON point_data.obj_id = val.obj_id GROUP BY property.pr_id, property.p_group");
    if (!rows) {
        std::fprintf(stderr, "a reader: %ls\n", db.last_error().c_str());
        return false;
    }
    bool good = true;
    while (rows->next()) {
        const std::wstring group = rows->get_text(0);
        for (const int column : {2, 3, 5, 6})
            good = good && rows->get_text(column) == group;
        good = good && rows->get_int(1) == points && rows->get_int(4) == points;
    }
    return good;
}

class ConcurrentUseTest : public ContainerTest {
protected:
    // Runs `step` again and again in a process with a connection of its own; its exit code tells
    // whether all went well, `done` gets the number of steps.
    template <typename Step>
    pid_t start(const Step& step, int pipe) const {
        const pid_t child = fork();
        if (child != 0)
            return child;
        const NORLEX_wellContainer own(
            NORLEX_wellContainer::makeDescription(folder / L"wells.well2"));
        bool good = own.isOK();
        int count = 0;
        auto longest = clockType::duration::zero();
        for (const auto end = clockType::now() + duration(); good && clockType::now() < end;) {
            const auto begun = clockType::now();
            good = step(*own.getBaseLink(), count);
            count += good ? 1 : 0;
            longest = std::max(longest, clockType::now() - begun);
        }
        if (!good)
            std::fprintf(stderr, "after %d steps: %s\n", count, lastError().c_str());
        if (longest > busyTimeOut + allowance)
            std::fprintf(
                stderr, "a step took %.1f s\n", std::chrono::duration<double>(longest).count());
        good = good && longest <= busyTimeOut + allowance;
        _exit(::write(pipe, &count, sizeof count) == sizeof count && good ? 0 : 1);
    }
    static int resultOf(pid_t child) {
        int status = 0;
        return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

} // namespace

TEST_F(ConcurrentUseTest, nothingIsLostMixedUpOrHalfRead) {
    ASSERT_TRUE(db()->exec(L"INSERT INTO well_base (w_id, name) VALUES (1, 'W')"));
    container.reset();
    std::map<pid_t, std::pair<int, int>> children; // the writer's number or -1, the pipe
    const auto add = [&](int writer, const auto& step) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        children[start(step, ends[1])] = {writer, ends[0]};
        ::close(ends[1]);
    };
    for (int i = 0; i < writers; ++i)
        add(i, [i](odbc_database& db, int count) { return writeProperty(db, i, count); });
    for (int i = 0; i < readers; ++i)
        add(-1, [](odbc_database& db, int) { return readAll(db); });
    std::map<int, int> written;
    int reads = 0;
    for (const auto& [child, what] : children) {
        EXPECT_EQ(resultOf(child), 0) << (what.first < 0 ? "a reader" : "a writer");
        int count = 0;
        ASSERT_EQ(::read(what.second, &count, sizeof count), ssize_t{sizeof count});
        ::close(what.second);
        (what.first < 0 ? reads : written[what.first]) += count;
    }
    reopen();
    EXPECT_GT(reads, 0);
    for (const auto& [writer, count] : written) {
        EXPECT_GT(count, 0) << "writer " << writer << " never had its turn";
        EXPECT_EQ(
            number(*db(),
                   L"SELECT count(*) FROM property WHERE p_group = " + quoted(nameOf(writer))),
            count);
    }
    EXPECT_TRUE(readAll(*db()));
}
