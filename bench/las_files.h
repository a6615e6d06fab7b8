// What the measures on LAS files share.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

inline constexpr std::size_t curvesOfLarge = 20;

// A LAS 2.0 file of `rows` depth steps of 0.1 m: fixed columns, about 4 % nulls, the same bytes
// each time. `well` names it.
[[nodiscard]] bool
makeLas(const std::string& path, const std::string& well, std::size_t rows, std::size_t curves);

struct wholeFile {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
    [[nodiscard]] std::string_view text() const { return {bytes.get(), size}; }
};
[[nodiscard]] wholeFile readWhole(const std::string& path);
[[nodiscard]] double sizeOf(const std::string& path);

// MB/s of the library's reader; empty when it does not read all of the large file.
[[nodiscard]] std::vector<double> readRate(const std::string& path, std::size_t rows);

} // namespace bench
