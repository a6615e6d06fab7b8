// Any file as a table, and as lines: the first byte chooses the options.
#include "fuzz/require.h"
#include "platform/files.h"
#include "platform/strconv.h"
#include "platform/textio.h"
#include "tableReader.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

// Lines one by one and lines in blocks are the same lines.
void readLines(const std::wstring& path, ts::strconv::encodings encoding) {
    ts::textio io;
    require(io.open(path, encoding));
    std::uint64_t lines = 0;
    for (std::string_view line; io.next(line); ++lines)
        require(line.size() <= ts::textio::maxLine && line.find('\n') == std::string_view::npos);
    require(io.lineNumber() == lines);
    const bool isTooLong = io.isLineTooLong();
    require(io.rewind());
    std::uint64_t inBlocks = 0;
    for (std::string_view block = io.block(); !block.empty(); block = io.block()) {
        const std::size_t end = block.find('\n');
        io.consume(end == std::string_view::npos ? block.size() : end + 1, 1);
        ++inBlocks;
    }
    require(inBlocks == lines && io.isLineTooLong() == isTooLong);
}

void readTable(const std::wstring& path, const tableRW::tableOptions& options) {
    tableRW::tableReader reader;
    require(reader.open(path, options));
    std::vector<std::wstring> cells;
    std::uint64_t rows = 0;
    for (; reader.next(cells); ++rows) {
        require(!cells.empty());
        for (const std::wstring& cell : cells)
            require(ts::strconv::isText(cell));
    }
    require(reader.rowNumber() == rows && reader.lineNumber() >= rows);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::wstring path = files::wide(
        std::filesystem::temp_directory_path() / ("welldb_fuzz_table." + std::to_string(getpid())));
    if (size == 0)
        return 0;
    {
        const files::handle file = files::openWrite(path);
        require(file
                && files::put(file.get(), {reinterpret_cast<const char*>(data) + 1, size - 1}));
    }
    constexpr char separators[] = {0, ';', ',', '\t'};
    const auto encoding = static_cast<ts::strconv::encodings>(data[0] % 11);
    readLines(path, encoding);
    readTable(path, {encoding, separators[data[0] / 11 % 4]});
    static_cast<void>(files::removeFile(path));
    return 0;
}
