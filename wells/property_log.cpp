// Logs: their creation, samples and statistics.
#include "NORLEX_inclinometry.h"
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "platform/transaction_files.h"
#include "store/well_path.h"
#include "wells/announce.h"
#include "wells/log_records.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_state.h"
#include "wells/query.h"
#include "wells/sample_file.h"
#include "wells/well_records.h"

#include <cmath>
#include <limits>

namespace {

// Values that are not finite are stored as missing; depths and numbers are not mended.
bool areStorable(const NORLEX_propDescription& prop, const std::vector<NORLEX_logSample>& samples) {
    if (samples.size() > std::numeric_limits<std::uint32_t>::max())
        return refuse(L"the log " + names::shown(prop) + L" has " + std::to_wstring(samples.size())
                      + L" samples; 4294967295 or fewer are expected");
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (!std::isfinite(samples[i].depth) || !std::isfinite(samples[i].depthAbs))
            return refuse(L"sample " + std::to_wstring(i + 1) + L" of the log " + names::shown(prop)
                          + L" has a depth that is not finite; a number is expected");
    return true;
}

} // namespace

bool NORLEX_wellProperty::createLAS(odbc_database* db,
                                    std::uint32_t wellId,
                                    const NORLEX_propDescription& prop,
                                    const std::wstring& description,
                                    const std::vector<double>& depthsAbs,
                                    const std::vector<double>& values,
                                    NORLEX_inclinometry* incl) {
    if (depthsAbs.size() != values.size())
        return refuse(L"the log " + names::shown(prop) + L" has "
                      + std::to_wstring(depthsAbs.size()) + L" depths and "
                      + std::to_wstring(values.size()) + L" values; equal numbers are expected");
    if (incl == nullptr)
        return refuse(L"the log " + names::shown(prop)
                      + L" has no survey to convert its depths with; the well's is expected");
    std::vector<NORLEX_logSample> samples;
    samples.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        samples.push_back({incl->getReal(depthsAbs[i]), depthsAbs[i], values[i]});
    return createLAS(db, wellId, prop, description, samples);
}

bool NORLEX_wellProperty::createLAS(odbc_database* db,
                                    std::uint32_t wellId,
                                    const NORLEX_propDescription& prop,
                                    const std::vector<double>& depthsAbs,
                                    const std::vector<double>& values,
                                    NORLEX_inclinometry* incl) {
    return createLAS(db, wellId, prop, L"create by formula", depthsAbs, values, incl);
}

bool NORLEX_wellProperty::createLAS(odbc_database* db,
                                    std::uint32_t wellId,
                                    const NORLEX_propDescription& prop,
                                    const std::wstring& description,
                                    const std::vector<NORLEX_logSample>& samples) {
    if (!query::isOpen(db) || !areStorable(prop, samples))
        return false;
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    logRecords::maker logs(*db, wellId);
    return logs.isOK()
           && logs.create({prop,
                           description,
                           {},
                           [&](std::FILE* file) { return sampleFile::write(file, samples); }})
           && edit.commit();
}

// By the present names: the well or the property may have been renamed since this object was made.
std::wstring NORLEX_wellProperty::samplePath() const {
    return samplePathOf(NORLEX_getWellPath(m_db, m_state->wellId), getDescr(m_db, m_state->id));
}

bool NORLEX_wellProperty::isLog() const {
    refresh();
    if (!m_state->ok)
        return refuse(L"the property is not open");
    return m_state->type == NORLEX_dataTypeLog
           || refuse(L"the property " + names::shown(m_state->descr) + L" is no log");
}

bool NORLEX_wellProperty::loadSamples() {
    if (!m_state->samplesLoaded)
        m_state->samplesLoaded = sampleFile::read(samplePath(), m_state->samples);
    return m_state->samplesLoaded;
}

bool NORLEX_wellProperty::getSamples(std::vector<NORLEX_logSample>& samples) {
    samples.clear();
    if (!isLog())
        return false;
    if (!m_state->samplesLoaded) // straight into the caller's memory
        return sampleFile::read(samplePath(), samples);
    samples = m_state->samples;
    return true;
}

bool NORLEX_wellProperty::setSamples(std::vector<NORLEX_logSample> samples) {
    if (!isLog() || !areStorable(m_state->descr, samples))
        return false;
    for (auto& sample : samples)
        if (!std::isfinite(sample.value))
            sample.value = NORLEX_missingValue;
    m_state->samples = std::move(samples);
    m_state->samplesLoaded = true;
    m_state->samplesEdited = true;
    return true;
}

// What was written is read from the file again: another object may change it in the meantime.
bool NORLEX_wellProperty::storeSamples(bool announce) {
    transaction edit(m_db);
    if (!edit.isOpen()
        || !m_db->files().write(
            samplePath(),
            [&](std::FILE* file) { return sampleFile::write(file, m_state->samples); })
        || !propertyRecords::touch(*m_db, m_state->id))
        return false;
    if (announce)
        announceData();
    if (!edit.commit())
        return false;
    dropSamples();
    return true;
}

void NORLEX_wellProperty::dropSamples() {
    m_state->samples = {};
    m_state->samplesLoaded = false;
    m_state->samplesEdited = false;
}

bool NORLEX_wellProperty::getRange(double& smallest, double& largest) {
    sampleFile::header head;
    if (!isLog() || !sampleFile::readHeader(samplePath(), head))
        return false;
    if (!head.hasRange || !(head.smallest <= head.largest)) // without a value they are turned over
        return refuse(L"the sample file of " + names::shown(m_state->descr) + L" holds no range");
    smallest = head.smallest;
    largest = head.largest;
    return true;
}

double NORLEX_wellProperty::getMinValue() {
    double smallest = 0.0;
    double largest = 0.0;
    return getRange(smallest, largest) ? smallest : 0.0;
}

double NORLEX_wellProperty::getMaxValue() {
    double smallest = 0.0;
    double largest = 0.0;
    return getRange(smallest, largest) ? largest : 0.0;
}
