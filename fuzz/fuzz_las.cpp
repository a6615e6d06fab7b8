// Any bytes as a LAS file: refused with a reason, or read so that its parts agree, and stored so
// that an exact export holds the same samples. Read as it finds the encoding, and in the one that
// the last byte names.
#include "NORLEX_lasImport.h"
#include "NORLEX_lastError.h"
#include "NORLEX_well.h"
#include "NORLEX_wellContainer.h"
#include "fuzz/require.h"
#include "fuzz/scratch.h"
#include "odbc_database.h"
#include "platform/strconv.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int encodingCount = ts::strconv::iso8859_5 + 1;

const scratchFolder& folder() {
    static const scratchFolder made("fuzz_las");
    return made;
}

void checkCurve(const NORLEX_lasfileExt& file, const NORLEX_lasCurve& curve) {
    require(curve.getPointsCount() == file.getRowCount());
    require(curve.getCount() <= file.getRowCount());
    for (const auto& [value, depth] : curve.getPoints())
        require(std::isfinite(value) && std::isfinite(depth));
}

// The same of both readers: what stands before the data.
void checkHeader(const NORLEX_lasfileExt& header, const NORLEX_lasfileExt& whole) {
    require(header.isOK() == whole.isOK() && header.getEncoding() == whole.getEncoding());
    require(header.getNumCurves() == whole.getNumCurves());
    require(header.getVersion() == whole.getVersion() && header.isWrap() == whole.isWrap());
    require(header.getWellName() == whole.getWellName() && header.getRowCount() == 0);
    require(header.getWellInf().size() <= whole.getWellInf().size());
    require(header.getMetaCount() <= whole.getMetaCount());
}

void readFile(const std::wstring& path, ts::strconv::encodings encoding) {
    const NORLEX_lasfileExt header(path, true, encoding);
    NORLEX_lasfileExt whole(path, false, encoding);
    checkHeader(header, whole);
    require(whole.isOK() || !NORLEX_lastError().empty());
    require(whole.getEncoding() != ts::strconv::detect || !whole.isOK());
    require(whole.getSkippedLines().size() <= whole.getSkippedCount());
    for (std::size_t i = 0; i < whole.getNumCurves(); ++i) {
        require(header.getCurveByIndex(i)->getPointsCount() == 0);
        require(header.getCurveByIndex(i)->getName() == whole.getCurveByIndex(i)->getName());
        checkCurve(whole, *whole.getCurveByIndex(i));
    }
    whole.calcStatistic(false);
}

NORLEX_wellContainer& container() {
    static const auto opened = [] {
        const auto place = NORLEX_wellContainer::makeDescription(folder() / L"las.well2");
        require(NORLEX_wellContainer::create(place));
        return std::make_unique<NORLEX_wellContainer>(place);
    }();
    require(opened->isOK());
    return *opened;
}

bool isSame(const std::vector<NORLEX_logSample>& a, const std::vector<NORLEX_logSample>& b) {
    const auto bits = [](double x) { return std::bit_cast<std::uint64_t>(x); };
    bool same = a.size() == b.size();
    for (std::size_t i = 0; same && i < a.size(); ++i)
        same = bits(a[i].depth) == bits(b[i].depth) && bits(a[i].depthAbs) == bits(b[i].depthAbs)
               && bits(a[i].value) == bits(b[i].value);
    return same;
}

NORLEX_lasImportResult import(const std::wstring& path, const std::wstring& group) {
    NORLEX_lasImportOptions options;
    options.group = group;
    return NORLEX_lasImport(container().getBaseLink(), options).importFile(path);
}

// What the logs of the group hold, exported and read back into another group.
void checkExport(const NORLEX_wellDescription& imported) {
    NORLEX_well well(container().getBaseLink(), imported);
    std::vector<std::wstring> names;
    well.getPropertyForGroup(L"A", names);
    std::vector<std::unique_ptr<NORLEX_wellProperty>> logs;
    std::vector<NORLEX_wellProperty*> list;
    list.reserve(names.size());
    for (const auto& name : names)
        list.push_back(logs.emplace_back(well.openProperty({name, L"A"})).get());
    const std::wstring path = folder() / L"exported.las";
    require(well.exportLASExact(path, list));
    const auto again = import(path, L"B");
    require(again.ok && again.well == imported && again.skippedCount == 0
            && again.created == list.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::vector<NORLEX_logSample> before, after;
        const auto readBack = well.openProperty({names[i], L"B"});
        require(list[i]->getSamples(before) && readBack && readBack->getSamples(after));
        require(isSame(before, after));
    }
}

// In a transaction that is taken back, so that every input finds an empty container.
void store(const std::wstring& path) {
    require(container().beginTransaction());
    const auto taken = import(path, L"A");
    require(taken.ok ? taken.created > 0 : !taken.error.empty() && taken.created == 0);
    if (taken.ok)
        checkExport(taken.well);
    container().rollbackTransaction();
    require(container().getWellCount() == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::wstring path = folder() / L"file.las";
    {
        const auto file = files::openWrite(path);
        require(file && files::put(file.get(), {reinterpret_cast<const char*>(data), size}));
    }
    readFile(path, ts::strconv::detect);
    if (const int chosen = size == 0 ? 0 : data[size - 1] % encodingCount; chosen != 0)
        readFile(path, static_cast<ts::strconv::encodings>(chosen));
    store(path);
    return 0;
}
