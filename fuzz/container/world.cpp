#include "fuzz/container/world.h"

#include "NORLEX_lastError.h"
#include "fuzz/container/prepared.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/strconv.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace fuzzContainer {

namespace {

std::wstring steps; // of this input

bool isPrintedAtOnce() {
    static const bool wanted = std::getenv("WELLDB_FUZZ_STEPS") != nullptr;
    return wanted;
}

std::string shown(const NORLEX_checkFinding& finding) {
    return ts::strconv::toUtf8(finding.kind + L" of " + finding.place + L": "
                               + std::to_wstring(finding.count) + L", the first is "
                               + finding.example);
}

std::string readFile(const std::wstring& path, std::size_t most) {
    std::string bytes(std::min<std::size_t>(files::size(path).value_or(0), most), '\0');
    const auto file = files::openRead(path);
    if (file)
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    return bytes;
}

// The journal of actions, and what an open connection notes of its changes of files.
bool isContent(const std::wstring& path) {
    return path.find(L".pending") == std::wstring::npos
           && !files::nameOf(path).starts_with(L"journal.db");
}

std::string firstDifference(const content& a, const content& b) {
    for (const auto& [path, bytes] : a)
        if (const auto other = b.find(path); other == b.end() || other->second != bytes)
            return ts::strconv::toUtf8(path);
    return "a file that was not there";
}

} // namespace

void fail(const std::string& what) {
    std::fprintf(stderr,
                 "%s\n%s\nlast error: %s\n",
                 isPrintedAtOnce() ? "" : ts::strconv::toUtf8(steps).c_str(),
                 what.c_str(),
                 ts::strconv::toUtf8(NORLEX_lastError()).c_str());
    std::abort();
}

void world::tell(const std::wstring& line) {
    steps += line;
    if (isPrintedAtOnce())
        std::fprintf(stderr, "%s", ts::strconv::toUtf8(line).c_str());
}

void world::beginStep(const std::wstring& name) {
    tell(L"\n" + name + L" ");
    refuse({});
}

world::world(bool isEmpty) {
    steps.clear();
    prepared::copyTo(path(), isEmpty);
    open();
    m_before = takeContent();
}

world::~world() = default;

std::wstring world::path() const {
    return prepared::folder() / L"work/w.well2";
}

std::wstring world::scratch(const std::wstring& name) const {
    return prepared::folder() / L"work/" + name;
}

void world::close() {
    letGo();
    m_container.reset();
}

void world::open() {
    // Made once: it reads the file.
    static const auto place = NORLEX_wellContainer::makeDescription(path());
    m_container = std::make_unique<NORLEX_wellContainer>(place);
    require(m_container->isOK(), "the container cannot be opened");
}

content world::takeContent() const {
    // The engine counts the changes of a database in the header of the file.
    constexpr std::size_t headerSize = 100;
    content out;
    out[path()] = readFile(path(), headerSize);
    for (const auto& file : files::listTree(m_container->getFileContainerPath()))
        if (isContent(file))
            out[file] = readFile(file, std::string::npos);
    return out;
}

void world::begin() {
    if (container().beginTransaction())
        ++m_level;
    else
        require(m_isDoomed, "a transaction cannot be begun");
}

outcome world::end() {
    if (m_level == 0)
        return outcome::asked;
    --m_level;
    const bool done = container().endTransaction();
    require(done != m_isDoomed,
            m_isDoomed ? "a doomed level was committed" : "a sound level was not committed");
    m_isDoomed = false;
    return done ? outcome::done : outcome::refused;
}

void world::rollback() {
    if (m_level == 0)
        return;
    --m_level;
    container().rollbackTransaction();
    m_isDoomed = false;
    if (m_level == 0)
        checkUnchanged();
}

void world::checkUnchanged() {
    const content now = takeContent();
    if (now != m_before)
        fail("changed by what was refused or rolled back: " + firstDifference(m_before, now));
}

void world::check(outcome last) {
    require(last != outcome::refused || !NORLEX_lastError().empty(), "refused without a reason");
    std::vector<NORLEX_checkFinding> findings;
    if (!container().check(findings)) {
        require(isInTransaction() && (m_isDoomed || last == outcome::refused),
                "the check cannot be made");
        m_isDoomed = true;
        return;
    }
    if (!findings.empty())
        fail(shown(findings.front()));
    if (isInTransaction())
        return;
    if (last == outcome::done)
        m_before = takeContent();
    else
        checkUnchanged();
    checkHeld();
}

} // namespace fuzzContainer
