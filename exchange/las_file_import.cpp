#include "exchange/las_file_import.h"

#include "NORLEX_well.h"
#include "exchange/las_import_well.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/progress.h"
#include "platform/transaction.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/query.h"
#include "wells/well_records.h"

#include <memory>
#include <utility>

namespace {

constexpr std::size_t mostListed = 1000; // skipped lines

} // namespace

las_file_import::las_file_import(odbc_database& db,
                                 const NORLEX_lasImportOptions& options,
                                 const std::wstring& path,
                                 NORLEX_lasImportResult& result,
                                 NORLEX_lasfileExt file,
                                 wellIndex* letters,
                                 const curveTypes& types)
    : m_db(db), m_options(options), m_path(path), m_result(result), m_file(std::move(file)),
      m_letters(letters), m_types(types) {}

bool las_file_import::run() {
    if (!m_file.isOK() || !readFile())
        return false;
    if (m_options.dryRun)
        return check();
    // Inside a transaction of the caller's, the samples may be read before that is committed.
    m_writesLater = !m_db.in_transaction();
    transaction whole(&m_db);
    return whole.isOpen() && write() && whole.commit();
}

bool las_file_import::readFile() {
    const std::size_t rows = m_file.getRowCount();
    m_result.curves = m_file.getNumCurves();
    m_result.rows = rows;
    m_result.skipped = m_file.getSkippedLines();
    m_result.skippedCount = m_file.getSkippedCount();
    if (m_result.curves == 0)
        return refuse(L"cannot import " + m_path + L": it has no curve besides the depth");
    if (rows == 0)
        return refuse(L"cannot import " + m_path
                      + L": it has no data rows; a header alone makes no logs");
    for (std::size_t i = 0; i < m_result.curves; ++i)
        if (m_file.getCurveByIndex(i)->getPointsCount() != rows)
            return refuse(L"cannot import " + m_path + L": curve "
                          + m_file.getCurveByIndex(i)->getName()
                          + L" has not one value for each depth");
    std::vector<std::wstring> mnemonics;
    m_file.getCurveNames(mnemonics);
    m_notes = exactNotes::read(m_file.getOtherInf(), mnemonics);
    m_result.well = lasImportWell::describe(m_file, m_path, m_options, m_notes);
    if (m_result.well.name.empty())
        return refuse(L"cannot import " + m_path
                      + L": nothing in it names the well, of what the options say to look for");
    m_targets = lasImportLogs::targets(m_file, m_options.group, m_notes);
    m_depths = lasImportSamples::sorted(m_file.getCurveByIndex(0)->getPoints(),
                                        lasImportLogs::metresInDepth(m_file));
    addSkipped();
    if (m_depths.depths.empty())
        return refuse(L"cannot import " + m_path + L": none of its rows has a depth");
    return true;
}

void las_file_import::addSkipped() {
    if (m_depths.skipped == 0)
        return;
    m_result.skippedCount += m_depths.skipped;
    if (m_result.skipped.size() < mostListed)
        m_result.skipped.push_back(
            {0,
             std::to_wstring(m_depths.skipped) + L" rows have no depth, the first is row "
                 + std::to_wstring(std::uint64_t{m_depths.firstSkipped} + 1) + L" of the data"});
}

// What write() would refuse before it writes anything.
bool las_file_import::check() {
    if (!matchWell())
        return false;
    m_result.well.wellId = NORLEX_well::getID(&m_db, m_result.well);
    m_result.wellCreated = m_result.well.wellId == 0;
    if (!names::areStorable(m_result.well))
        return false;
    for (const auto& target : m_targets)
        if (!names::areStorable(target.description))
            return false;
    if (!m_result.wellCreated) {
        const logRecords::maker logs(m_db, m_result.well.wellId);
        if (!logs.isOK() || !sortExisting(logs))
            return false;
    }
    for (const auto& target : m_targets)
        m_result.created += target.action == lasImportLogs::what::leave ? 0U : 1U;
    return true;
}

bool las_file_import::write() {
    if (!openWell())
        return false;
    auto logs =
        std::make_unique<logRecords::maker>(m_db, m_result.well.wellId, m_result.wellCreated);
    if (!logs->isOK() || !sortExisting(*logs))
        return false;
    if (m_options.onExisting == NORLEX_onExisting::replace && m_result.existing > 0) {
        if (!removeExisting())
            return false;
        logs =
            std::make_unique<logRecords::maker>(m_db, m_result.well.wellId, m_result.wellCreated);
    }
    if (!writeLogs(*logs))
        return false;
    if (!m_result.wellCreated && m_result.created > 0)
        announce::afterCommit(m_db, [well = m_result.well](auto& observer, const auto& container) {
            observer.updateWell(container, well);
        });
    return true;
}

// Puts the names of the well that is meant in the place of those that the file gives, where they
// differ in more than letters and digits.
bool las_file_import::matchWell() {
    if (m_letters == nullptr || NORLEX_well::isExist(&m_db, m_result.well))
        return true;
    const std::wstring letters = lettersOf(m_result.well.name);
    std::wstring reason;
    const std::uint32_t wellId = m_letters->find(letters, reason);
    if (wellId == 0 && m_letters->has(letters))
        return refuse(L"cannot import " + m_path + L": " + reason
                      + L" by their letters and digits, the file's well is "
                      + names::shown(m_result.well));
    // Another program may have renamed or removed it since.
    if (const auto well = wellRecords::read(m_db, wellId))
        m_result.well = *well;
    return true;
}

// Finds or makes the well, and computes the absolute depths with its survey. Creation looks for the
// well itself, so it is tried first: a look-up reads the whole table.
bool las_file_import::openWell() {
    if (!matchWell())
        return false;
    m_result.wellCreated = NORLEX_well::create(&m_db, m_result.well);
    m_result.well.wellId =
        m_result.wellCreated
            ? static_cast<std::uint32_t>(query::counter(&m_db, L"SELECT max(w_id) FROM well_base"))
            : NORLEX_well::getID(&m_db, m_result.well);
    if (m_result.well.wellId == 0)
        return false;
    refuse({}); // that the well exists is no failure
    NORLEX_well well(&m_db, m_result.well.wellId);
    if (!well.isOK())
        return false;
    if (m_result.wellCreated) {
        const auto head = lasImportWell::positionOf(m_file);
        const auto altitude = lasImportWell::altitudeOf(m_file);
        if ((head && !well.setPosition(head->x, head->y))
            || (altitude && !well.setAltitude(*altitude)))
            return false;
    }
    lasImportSamples::addAbsolute(m_depths, *well.getIncl());
    return true;
}

// Decides about every log that the well has already.
bool las_file_import::sortExisting(const logRecords::maker& logs) {
    using enum lasImportLogs::what;
    const lasImportLogs::target* first = nullptr;
    for (auto& target : m_targets) {
        if (!logs.isTaken(target.description))
            continue;
        target.action = m_options.onExisting == NORLEX_onExisting::skip ? leave : replace;
        first = first == nullptr ? &target : first;
        ++m_result.existing;
    }
    if (first == nullptr || m_options.onExisting != NORLEX_onExisting::fail)
        return true;
    return refuse(L"cannot import " + m_path + L": the well " + names::shown(m_result.well)
                  + L" has " + std::to_wstring(m_result.existing) + L" of its "
                  + std::to_wstring(m_targets.size()) + L" logs already, the first is "
                  + names::shown(first->description)
                  + L"; skip them, replace them, or choose another group");
}

bool las_file_import::removeExisting() {
    for (const auto& target : m_targets)
        if (target.action == lasImportLogs::what::replace
            && !NORLEX_wellProperty::removeSilent(&m_db, m_result.well.wellId, target.description))
            return false;
    return true;
}

// The samples are written while the next rows are made. A curve's points go with it: they are most
// of the memory of a large file.
bool las_file_import::writeLogs(logRecords::maker& logs) {
    const std::int64_t before = lasImportLogs::largestLogKey(m_db);
    const bool nullsAreNoSamples = m_notes.nullsAreNoSamples && m_depths.rows.empty();
    const auto writer = std::make_shared<const lasImportSamples::sample_writer>(std::move(m_depths),
                                                                                nullsAreNoSamples);
    progress steps(m_path, m_targets.size());
    for (std::size_t i = 0; i < m_targets.size(); ++i) {
        if (steps.isStopped())
            return refuse(L"the import of " + m_path + L" was stopped");
        NORLEX_lasCurve& taken = *m_file.getCurveByIndex(i);
        const auto curve = std::make_shared<NORLEX_lasCurve>(taken.getName(), 0);
        std::swap(*curve, taken);
        if (m_targets[i].action == lasImportLogs::what::leave)
            continue;
        const auto& missing = m_notes.curves[i].missing;
        if (!logs.create({m_targets[i].description,
                          curve->getComment(),
                          lasImportLogs::ownAttributes(*curve, m_types),
                          [writer, curve, missing](std::FILE* file) {
                              return writer->write(file, *curve, missing);
                          },
                          m_writesLater}))
            return false;
        ++m_result.created;
        steps.advance(i + 1);
    }
    return lasImportLogs::addCommonAttributes(m_db, m_result.well.wellId, before, m_file);
}
