#include "NORLEX_lasfileExt.h"

#include "exchange/las_header.h"
#include "exchange/las_mnemonics.h"
#include "exchange/las_sections.h"
#include "exchange/las_values.h"
#include "platform/last_error.h"
#include "platform/textio.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace {

constexpr std::size_t longestList = 1000; // of skipped lines

bool isUnicodeOfSeveralBytes(ts::strconv::encodings encoding) {
    using namespace ts::strconv;
    return encoding == utf16le || encoding == utf16be || encoding == utf32le || encoding == utf32be;
}

// Refuses what is plainly no log by its first bytes.
bool looksLikeText(const ts::textio& reader, const std::wstring& path) {
    const auto head = reader.head();
    if (head.empty())
        return refuse(L"cannot read " + path
                      + L": it is empty; a LAS file begins with \"~Version\"");
    if (head.starts_with("LASF"))
        return refuse(L"cannot read " + path
                      + L": it is a point cloud of a laser scanner, which has the same file name "
                        L"extension; a well log in LAS format is a text");
    if (!isUnicodeOfSeveralBytes(reader.encoding()) && head.find('\0') != std::string_view::npos)
        return refuse(L"cannot read " + path
                      + L": it holds zero bytes, so it is no text; a LAS file is a text");
    return true;
}

} // namespace

NORLEX_lasfileExt::NORLEX_lasfileExt(const std::wstring& path,
                                     bool headerOnly,
                                     ts::strconv::encodings encoding) {
    try {
        m_ok = read(path, headerOnly, encoding);
    } catch (const std::bad_alloc&) {
        // No size that the file tells is trusted, yet a log may be larger than the memory.
        m_curves.clear();
        m_rows = 0;
        refuse(L"cannot read " + path + L": there is not enough memory for its curves");
    }
}

bool NORLEX_lasfileExt::read(const std::wstring& path,
                             bool headerOnly,
                             ts::strconv::encodings encoding) {
    ts::textio reader;
    if (!reader.open(path, encoding))
        return false;
    m_encoding = reader.encoding();
    las_header header(*this, reader);
    if (!looksLikeText(reader, path) || !header.read(path))
        return false;
    if (!headerOnly) {
        const double depthStep = m_step;
        if (m_step == 0.0)
            m_step = 1.0;
        if (header.hasData()) {
            las_values(*this, reader, header.declaredDelimiter(), depthStep).read();
            header.readAfterData();
        }
    }
    collectPosition();
    return true;
}

void NORLEX_lasfileExt::collectPosition() {
    for (const auto* entries : {&m_wellEntries, &m_metaEntries})
        std::ranges::copy_if(*entries,
                             std::back_inserter(m_positionEntries),
                             [](const auto& entry) { return isPosition(entry.mnemonic); });
}

bool NORLEX_lasfileExt::countSkipped() {
    return m_skippedCount++ < longestList;
}

bool NORLEX_lasfileExt::isOK() const {
    return m_ok;
}

int NORLEX_lasfileExt::getVersion() const {
    return m_version;
}

bool NORLEX_lasfileExt::isVersion2() const {
    return m_version2;
}

const std::wstring& NORLEX_lasfileExt::getVersionText() const {
    return m_versionText;
}

bool NORLEX_lasfileExt::isWrap() const {
    return m_wrap;
}

double NORLEX_lasfileExt::getStart() const {
    return m_start;
}

double NORLEX_lasfileExt::getStop() const {
    return m_stop;
}

double NORLEX_lasfileExt::getStep() const {
    return m_step;
}

double NORLEX_lasfileExt::getNodata() const {
    return m_nullValue;
}

ts::strconv::encodings NORLEX_lasfileExt::getEncoding() const {
    return m_encoding;
}

std::size_t NORLEX_lasfileExt::getNumCurves() const {
    return m_curves.size();
}

void NORLEX_lasfileExt::getCurveNames(std::vector<std::wstring>& names) const {
    names.clear();
    for (const auto& curve : m_curves)
        names.push_back(curve.getName());
}

NORLEX_lasCurve* NORLEX_lasfileExt::getCurveByIndex(std::size_t index) {
    return index < m_curves.size() ? &m_curves[index] : nullptr;
}

const NORLEX_lasCurve* NORLEX_lasfileExt::getCurveByIndex(std::size_t index) const {
    return index < m_curves.size() ? &m_curves[index] : nullptr;
}

NORLEX_lasCurve* NORLEX_lasfileExt::getCurveByName(const std::wstring& name) {
    const auto found = std::ranges::find(m_curves, name, &NORLEX_lasCurve::getName);
    return found == m_curves.end() ? nullptr : &*found;
}

const lasDescription& NORLEX_lasfileExt::getDepthDescription() const {
    return m_depth;
}

const std::vector<lasDescription>& NORLEX_lasfileExt::getWellInf() const {
    return m_wellEntries;
}

std::wstring NORLEX_lasfileExt::getWellInf(const std::wstring& mnemonic) const {
    const auto found = std::ranges::find_if(m_wellEntries, [&](const auto& entry) {
        return lasSections::sameWithoutCase(entry.mnemonic, mnemonic);
    });
    return found == m_wellEntries.end() ? std::wstring{} : found->value;
}

std::wstring NORLEX_lasfileExt::getWellName() const {
    return getWellInf(L"WELL");
}

const std::vector<lasDescription>& NORLEX_lasfileExt::getPosition() const {
    return m_positionEntries;
}

const std::vector<lasDescription>& NORLEX_lasfileExt::getMeta() const {
    return m_metaEntries;
}

std::size_t NORLEX_lasfileExt::getMetaCount() const {
    return m_metaEntries.size();
}

const std::vector<std::wstring>& NORLEX_lasfileExt::getOtherInf() const {
    return m_otherInformation;
}

bool NORLEX_lasfileExt::isPosition(const std::wstring& mnemonic) {
    return lasMnemonics::positionMeaning(mnemonic) != nullptr;
}

bool NORLEX_lasfileExt::getPositionComment(const std::wstring& mnemonic, std::wstring& comment) {
    const wchar_t* const meaning = lasMnemonics::positionMeaning(mnemonic);
    if (meaning == nullptr)
        return false;
    comment = meaning;
    return true;
}

void NORLEX_lasfileExt::calcStatistic(bool recount) {
    for (auto& curve : m_curves)
        curve.calcStatistic(recount);
}

std::size_t NORLEX_lasfileExt::getRowCount() const {
    return m_rows;
}

const std::vector<NORLEX_lasSkippedLine>& NORLEX_lasfileExt::getSkippedLines() const {
    return m_skipped;
}

std::uint64_t NORLEX_lasfileExt::getSkippedCount() const {
    return m_skippedCount;
}
