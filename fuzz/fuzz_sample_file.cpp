// Any bytes as a sample file: read whole or refused, and what was read is written and read alike.
#include "fuzz/require.h"
#include "fuzz/scratch.h"
#include "platform/files.h"
#include "wells/sample_file.h"

#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const scratchFolder folder("fuzz_sample_file");
    static const std::wstring path = folder / L"input";
    {
        const auto file = files::openWrite(path);
        require(file && files::put(file.get(), {reinterpret_cast<const char*>(data), size}));
    }
    std::vector<NORLEX_logSample> samples;
    sampleFile::header head;
    NORLEX_depthRange range;
    const bool isRead = sampleFile::read(path, samples);
    require(isRead == sampleFile::readHeader(path, head));
    require(samples.size() == (isRead ? head.count : 0));
    require(sampleFile::readRange(path, head, range) == (isRead && !samples.empty()));
    if (isRead) {
        {
            const auto file = files::openWrite(path);
            require(file && sampleFile::write(file.get(), samples));
        }
        std::vector<NORLEX_logSample> again;
        require(sampleFile::read(path, again) && again.size() == samples.size());
        for (std::size_t i = 0; i < again.size(); ++i)
            require(std::memcmp(&again[i], &samples[i], 2 * sizeof(double)) == 0);
    }
    static_cast<void>(files::removeFile(path));
    return 0;
}
