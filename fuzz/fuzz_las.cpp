// Any bytes as a LAS file: refused with a reason, or read so that its parts agree.
#include "NORLEX_lasfileExt.h"
#include "NORLEX_lastError.h"
#include "platform/files.h"

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <system_error>

namespace {

// In memory where the machine has such a place.
std::wstring scratchFile() {
    std::error_code code;
    const std::filesystem::path memory = "/dev/shm";
    const auto folder = std::filesystem::is_directory(memory, code)
                            ? memory
                            : std::filesystem::temp_directory_path(code);
    return files::wide(folder / ("fuzz_las." + std::to_string(::getpid())));
}

void require(bool holds) {
    if (!holds)
        std::abort();
}

void checkCurve(const NORLEX_lasfileExt& file, const NORLEX_lasCurve& curve) {
    require(curve.getPointsCount() == file.getRowCount());
    require(curve.getCount() <= file.getRowCount());
    for (const auto& [value, depth] : curve.getPoints())
        require(std::isfinite(value) && std::isfinite(depth));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::wstring path = scratchFile();
    {
        const auto file = files::openWrite(path);
        require(file && files::put(file.get(), {reinterpret_cast<const char*>(data), size}));
    }
    const NORLEX_lasfileExt header(path, true);
    NORLEX_lasfileExt whole(path, false);
    require(header.isOK() == whole.isOK());
    require(whole.isOK() || !NORLEX_lastError().empty());
    require(header.getNumCurves() == whole.getNumCurves());
    require(whole.getSkippedLines().size() <= whole.getSkippedCount());
    for (std::size_t i = 0; i < whole.getNumCurves(); ++i) {
        require(header.getCurveByIndex(i)->getPointsCount() == 0);
        checkCurve(whole, *whole.getCurveByIndex(i));
    }
    whole.calcStatistic(false);
    static_cast<void>(files::removeFile(path));
    return 0;
}
