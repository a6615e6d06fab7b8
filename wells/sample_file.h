// The binary file that holds the samples of a log.
//
// Little-endian, no padding (docs/formats.md draws it):
//   0 int32 -2 | 4 int32 0 | 8 double smallest | 16 double largest | 24 double half the range
//   32 double missing mark | 40 six doubles 0 | 88 uint32 N | 92 double missing mark
//   100 N samples of three doubles: measured depth, absolute depth, value
// The older format, told by a first number that is not negative: uint32 N, then N samples.
#pragma once

#include "NORLEX_depthRange.h"
#include "NORLEX_logSample.h"

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <vector>

namespace sampleFile {

struct header {
    bool hasRange = false; // false for the older format
    double smallest = NORLEX_missingValue;
    double largest = -NORLEX_missingValue;
    std::uint32_t count = 0;
    std::uint32_t firstSample = 0; // offset in bytes
};

// Each answers false and sets the last error when the file is missing, is no sample file, or is
// shorter than its sample count says; memory is taken only after that check.
[[nodiscard]] bool readHeader(const std::wstring& path, header& out);
[[nodiscard]] bool read(const std::wstring& path, std::vector<NORLEX_logSample>& samples);
// A file without samples has no range, which is no error.
[[nodiscard]] bool readRange(const std::wstring& path, header& out, NORLEX_depthRange& range);

// For transaction_files::write: `file` is new and empty. A value that is not finite is written as
// missing.
[[nodiscard]] bool write(std::FILE* file, std::span<const NORLEX_logSample> samples);

// The same file from columns, without gathering the samples first: depths shared by many logs.
[[nodiscard]] bool write(std::FILE* file,
                         std::span<const double> depths,
                         std::span<const double> depthsAbs,
                         std::span<const double> values);

} // namespace sampleFile
