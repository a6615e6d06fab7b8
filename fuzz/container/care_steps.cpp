// The container as a whole: transactions, reopening, archives, copies, indexes.
#include "fuzz/container/steps.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "tests/support/content_snapshot.h"

namespace fuzzContainer {

namespace {

outcome begin(world& at, choices&) {
    at.begin();
    return outcome::asked;
}

outcome end(world& at, choices&) {
    return at.end();
}

outcome rollback(world& at, choices&) {
    at.rollback();
    return outcome::asked;
}

outcome reopen(world& at, choices&) {
    while (at.isInTransaction())
        at.rollback();
    const auto before = contentSnapshot::take(at.container());
    at.close();
    at.open();
    const auto after = contentSnapshot::take(at.container());
    require(before == after, contentSnapshot::differences(before, after).c_str());
    return outcome::done; // the marker of the last change of files goes with the connection
}

// In place of itself, and with the keys that it had.
outcome restore(world& at, choices&) {
    const auto archive = at.scratch(L"backup.zip");
    require(files::removeFile(archive), "an old archive cannot be removed");
    if (!at.container().backup(archive))
        return outcome::refused;
    require(!at.isInTransaction(), "a backup in a transaction");
    const auto before = contentSnapshot::take(at.container());
    const auto place = at.container().getContDescription();
    at.close();
    require(NORLEX_wellContainer::restore(archive, place, true), "a backup cannot be restored");
    at.open();
    const auto after = contentSnapshot::take(at.container());
    require(before == after, contentSnapshot::differences(before, after).c_str());
    return outcome::done;
}

outcome copyTo(world& at, choices&) {
    const auto place = NORLEX_wellContainer::makeDescription(at.scratch(L"copy.well2"));
    require(files::removeFile(place.path) && files::removeTree(place.fileContainerPath),
            "an old copy cannot be removed");
    if (!at.container().copyTo(place))
        return outcome::refused;
    NORLEX_wellContainer copy(place);
    std::vector<NORLEX_checkFinding> findings;
    require(copy.isOK() && copy.check(findings) && findings.empty(), "a copy is not sound");
    require(copy.getWellCount() == at.container().getWellCount()
                && copy.getPropertyCount() == at.container().getPropertyCount()
                && copy.getTemplateCount() == at.container().getTemplateCount(),
            "a copy counts otherwise");
    return outcome::asked;
}

outcome indexes(world& at, choices& by) {
    switch (by.below(4)) {
    case 0: {
        const bool done = at.container().createSearchIndexes();
        require(!done || at.container().hasSearchIndexes(), "search indexes are not there");
        return of(done);
    }
    case 1: {
        const bool done = at.container().dropSearchIndexes();
        require(!done || !at.container().hasSearchIndexes(), "search indexes are there");
        return of(done);
    }
    case 2:
        return of(at.container().updateStatistics());
    default:
        return of(at.container().beginBatchLoad() && at.container().endBatchLoad());
    }
}

outcome setProjection(world& at, choices& by) {
    const auto text = by.text();
    const bool done = at.container().setProjection(text);
    require(!done || at.container().getProjection() == text, "a projection reads otherwise");
    return of(done);
}

outcome repair(world& at, choices&) {
    const auto archive = at.scratch(L"repair.zip");
    require(files::removeFile(archive), "an old archive cannot be removed");
    std::vector<NORLEX_checkFinding> removed;
    const bool done = at.container().repair(archive, removed);
    require(removed.empty(), "a repair of what is sound");
    return of(done);
}

outcome hold(world& at, choices& by) {
    if (at.isInTransaction())
        return outcome::asked; // what is read in it may be rolled back
    const auto well = by.well(at.db());
    const NORLEX_well opened(at.db(), well);
    at.hold(well, by.property(opened));
    return outcome::asked;
}

constexpr step steps[] = {{L"care.begin", begin},
                          {L"care.end", end},
                          {L"care.rollback", rollback},
                          {L"care.reopen", reopen},
                          {L"care.restore", restore},
                          {L"care.copyTo", copyTo},
                          {L"care.indexes", indexes},
                          {L"care.setProjection", setProjection},
                          {L"care.repair", repair},
                          {L"care.hold", hold}};

} // namespace

std::span<const step> careSteps() {
    return steps;
}

} // namespace fuzzContainer
