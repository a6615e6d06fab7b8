#include "tests/faults/every_fault.h"

#include "NORLEX_lastError.h"
#include "platform/archive.h"
#include "platform/last_error.h"
#include "platform/strconv.h"
#include "platform/transaction_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <system_error>

namespace failing {

namespace {

namespace fs = std::filesystem;
using contentSnapshot::detail;

// All of the first ones; of a long operation, which repeats itself, some of the others.
constexpr std::size_t allOf = 50;
constexpr std::size_t stride = 13;
constexpr std::size_t mostCalls = 3000;

std::string lastError() {
    return ts::strconv::toUtf8(NORLEX_lastError());
}

// Asked once for a path: it reads the file, which takes a fifth of a run.
const NORLEX_contDescription& description(const std::wstring& path) {
    static std::map<std::wstring, NORLEX_contDescription> known;
    const auto found = known.find(path);
    return found != known.end()
               ? found->second
               : known.emplace(path, NORLEX_wellContainer::makeDescription(path)).first->second;
}

void copyInto(const fs::path& from, const fs::path& to) {
    std::error_code code;
    for (fs::directory_iterator i(to, code), end; !code && i != end; i.increment(code))
        fs::remove_all(i->path(), code);
    fs::copy(from, to, fs::copy_options::recursive, code);
    ASSERT_FALSE(code) << code.message();
}

// One of an older version: all of its tables, and its files.
void addOldContainer(const NORLEX_contDescription& old, contentSnapshot::content& all) {
    odbc_database db;
    db.set_file_container_path(old.fileContainerPath);
    ASSERT_TRUE(db.connect(files::native(old.path).native()));
    ASSERT_TRUE(db.files().recover()) << lastError(); // as opening does
    const std::wstring name = files::nameOf(old.path) + L" ";
    const auto tables = db.query(L"SELECT name FROM sqlite_master WHERE type = 'table'");
    while (tables && tables->next()) {
        auto& lines = all[name + tables->get_text(0)];
        const auto rows = db.query(L"SELECT * FROM " + tables->get_text(0));
        while (rows && rows->next())
            lines.push_back(contentSnapshot::rowOf(*rows, detail::exact));
    }
    for (const auto& path : files::listTree(old.fileContainerPath))
        all[name + path].push_back(disk::read(path));
}

// The names in an archive; the checksum of each is met.
std::vector<std::string> archived(const std::wstring& path) {
    std::vector<std::string> names;
    const temp_folder unpacked;
    archive_reader reader;
    EXPECT_TRUE(reader.open(path)) << lastError();
    for (const auto& name : reader.names()) {
        EXPECT_TRUE(reader.extract(name, unpacked.path() + L"/")) << lastError();
        names.push_back(ts::strconv::toUtf8(name));
    }
    return names;
}

// Where moving is what failed, the operation told under which name a container is now.
void putBack(const temp_folder& folder) {
    for (const auto& name : disk::tree(folder.path())) {
        const auto at = name.find(L".replaced~");
        if (at == std::wstring::npos || name.find(L'/') != std::wstring::npos)
            continue;
        const std::wstring place = folder / name.substr(0, at);
        EXPECT_NE(NORLEX_lastError().find(folder / name), std::wstring::npos) << lastError();
        EXPECT_TRUE(files::removeTree(place) && files::removeTree(place + L"-journal")
                    && files::move(folder / name, place))
            << lastError();
    }
}

} // namespace

everyFault::everyFault(const temp_folder& folder, faultSource& faults)
    : m_folder(folder), m_faults(faults) {
    copyInto(files::native(folder.path()), files::native(m_kept.path()));
}

bool everyFault::stays(const std::wstring& name) const {
    return std::ranges::any_of(m_mayStay,
                               [&](const std::wstring& ending) { return name.ends_with(ending); });
}

void everyFault::begin() const {
    copyInto(files::native(m_kept.path()), files::native(m_folder.path()));
}

// What a container holds, its tables and files by their names behind that of its own.
void everyFault::addContainer(const std::wstring& path,
                              detail wanted,
                              contentSnapshot::content& all) const {
    NORLEX_wellContainer container(description(path));
    ASSERT_TRUE(container.isOK()) << lastError();
    const std::wstring name = files::nameOf(path) + L" ";
    for (auto& [part, lines] : contentSnapshot::take(container, wanted))
        if (wanted == detail::exact
            || part != L"journal") // may be missing: no part of what is done
            all[name + part] = std::move(lines);
    std::vector<NORLEX_checkFinding> findings;
    EXPECT_TRUE(container.check(findings)) << lastError();
    auto& lines = all[name + L"findings"];
    for (const auto& one : findings)
        if (one.kind != L"sample file without a log" || !stays(one.example))
            lines.push_back(ts::strconv::toUtf8(one.kind + L": " + one.place + L" " + one.example));
}

// Containers are opened first, since that removes what they and their engine have left.
contentSnapshot::content everyFault::look(detail wanted) const {
    contentSnapshot::content all;
    std::set<std::wstring> containers;
    for (const auto& path : files::list(m_folder.path())) {
        if (files::extensionOf(path) != L".well2")
            continue;
        const int version = NORLEX_wellContainer::storedVersion(description(path));
        if (version == 0)
            continue;
        if (version == NORLEX_wellContainer::currentVersion)
            addContainer(path, wanted, all);
        else
            addOldContainer(description(path), all);
        containers.insert(path);
    }
    for (const auto& path : files::list(m_folder.path()))
        if (!containers.contains(path)) {
            all[path];
            if (wanted == detail::exact)
                all[path].push_back(disk::read(path));
            else if (files::extensionOf(path) == L".zip")
                all[path] = archived(path);
        }
    return all;
}

// Where removing or moving is what failed, files beside the container may be there that should not.
contentSnapshot::content everyFault::withoutStrays(contentSnapshot::content all,
                                                   const contentSnapshot::content& known) const {
    std::erase_if(all, [&](const auto& part) {
        const std::wstring& name = part.first;
        return !known.contains(name)
               && (stays(name) || (m_faults.leavesFiles() && !name.starts_with(L"wells.well2 ")));
    });
    return all;
}

void everyFault::expectFiles(const disk::list& expected) const {
    if (m_faults.leavesFiles())
        return;
    const auto now = disk::tree(m_folder.path());
    const auto mayBe = [&](const std::wstring& name) {
        return std::ranges::binary_search(expected, name) || files::nameOf(name) == L"journal.db"
               || stays(name);
    };
    for (const auto& name : now) {
        const bool isFolder = std::ranges::any_of(now, [&](const std::wstring& file) {
            return file.starts_with(name + L"/") && stays(file);
        });
        EXPECT_TRUE(isFolder || mayBe(name)) << ts::strconv::toUtf8(name) << " is there";
    }
}

void everyFault::expectDone(bool isRefused) const {
    EXPECT_EQ(contentSnapshot::differences(m_after, withoutStrays(look(detail::shape), m_after)),
              "");
    expectFiles(m_filesAfter);
    // The commit failed, and nobody can tell behind which of its calls.
    EXPECT_TRUE(!isRefused || m_faults.fault().ends_with(".well2-journal")) << "refused, but done";
}

void everyFault::inside(const std::string& name,
                        const std::function<bool(NORLEX_wellContainer&)>& run) {
    outside(name, [this, run] {
        bool done = false;
        std::wstring why;
        {
            NORLEX_wellContainer container(description(m_folder / L"wells.well2"));
            done = container.isOK() && run(container);
            why = NORLEX_lastError();
        }
        return done || refuse(why); // closing may have found another reason
    });
}

void everyFault::outside(const std::string& name, const std::function<bool()>& run) {
    begin();
    m_before = look(detail::exact);
    m_filesBefore = disk::tree(m_folder.path());
    ASSERT_TRUE(run()) << name << ": " << lastError();
    m_after = look(detail::shape);
    m_filesAfter = disk::tree(m_folder.path());
    const std::size_t runs = m_runs;
    for (std::size_t manner = 0; manner < m_faults.manners(); ++manner)
        for (std::size_t n = 1; !isThrough(name, run, manner, n); n += n < allOf ? 1 : stride) {
            if (testing::Test::HasFatalFailure())
                return;
            ASSERT_LT(n, mostCalls) << name;
        }
    EXPECT_GT(m_runs, runs) << name << " has no call that may fail";
}

// Whether the operation came to its end before its n-th call.
bool everyFault::isThrough(const std::string& name,
                           const std::function<bool()>& run,
                           std::size_t manner,
                           std::size_t n) {
    begin();
    refuse(L"");
    m_faults.failAt(manner, n);
    const bool done = run();
    m_faults.stop();
    const std::string at = name + (name.empty() ? "" : ", ") + m_faults.nameOf(manner)
                           + " from call " + std::to_string(n) + ": " + m_faults.fault();
    if (m_faults.fault().empty()) {
        EXPECT_TRUE(done) << at << lastError();
        return true;
    }
    ++m_runs;
    if (!done) {
        EXPECT_NE(NORLEX_lastError().find(m_faults.told(m_folder.path())), std::wstring::npos)
            << at << ": " << lastError();
    }
    SCOPED_TRACE(at + (done ? " (done)" : " (refused: " + lastError() + ")"));
    expectEnd(run, done);
    return false;
}

void everyFault::expectEnd(const std::function<bool()>& run, bool done) {
    if (!done && m_faults.leavesFiles())
        putBack(m_folder);
    if (done) {
        expectDone(false);
        return;
    }
    const auto now = look(detail::exact);
    const auto known = withoutStrays(now, m_before);
    if (known != m_before && withoutStrays(look(detail::shape), m_after) == m_after) {
        expectDone(true);
        return;
    }
    EXPECT_EQ(contentSnapshot::differences(m_before, known), "");
    expectFiles(m_filesBefore);
    if (m_faults.leavesFiles() && known.size() < now.size())
        return; // what is in the way has to be removed by hand
    EXPECT_TRUE(run()) << lastError();
    expectDone(false);
}

} // namespace failing
