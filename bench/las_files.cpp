#include "bench/las_files.h"

#include "platform/numbers.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

namespace bench {

namespace {

constexpr double top = 100.0;
constexpr double step = 0.1;
constexpr double nullValue = -999.25;

constexpr std::array<const char*, 20> mnemonics{"GR", "DT",   "RHOB", "NPHI", "ILD", "ILM", "SFLU",
                                                "SP", "CALI", "PEF",  "DRHO", "RT",  "RXO", "MSFL",
                                                "U",  "TH",   "K",    "DTS",  "BS",  "TENS"};

std::string mnemonic(std::size_t curve) {
    std::string name = mnemonics[curve % mnemonics.size()];
    if (curve >= mnemonics.size())
        name += std::to_string(curve / mnemonics.size() + 1);
    return name;
}

std::string header(const std::string& well, std::size_t rows, std::size_t curves) {
    const double stop = top + step * static_cast<double>(rows - 1);
    std::string out = "~Version Information\n"
                      " VERS.                 2.0 : CWLS LOG ASCII STANDARD - VERSION 2.0\n"
                      " WRAP.                  NO : ONE LINE PER DEPTH STEP\n"
                      "~Well Information\n"
                      " STRT.M "
                      + numbers::fixed(top, 4)
                      + " : START DEPTH\n"
                        " STOP.M "
                      + numbers::fixed(stop, 4)
                      + " : STOP DEPTH\n"
                        " STEP.M "
                      + numbers::fixed(step, 4)
                      + " : STEP\n"
                        " NULL. -999.25 : NULL VALUE\n"
                        " COMP. SYNTHETIC : COMPANY\n"
                        " WELL. "
                      + well
                      + " : WELL\n"
                        " FLD. TEST : FIELD\n"
                        "~Curve Information\n"
                        " DEPT.M : 1 DEPTH\n";
    for (std::size_t i = 0; i < curves; ++i)
        out += " " + mnemonic(i) + ".API : " + std::to_string(i + 2) + " " + mnemonic(i) + "\n";
    return out + "~ASCII\n";
}

// Right-aligned in `width`, four decimals.
char* put(char* out, double value, std::ptrdiff_t width) {
    std::array<char, 32> text{};
    const char* end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 4)
            .ptr;
    for (std::ptrdiff_t length = end - text.data(); length < width; ++length)
        *out++ = ' ';
    for (const char* c = text.data(); c != end; ++c)
        *out++ = *c;
    return out;
}

} // namespace

bool makeLas(const std::string& path,
             const std::string& well,
             std::size_t rows,
             std::size_t curves) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    const std::string head = header(well, rows, curves);
    bool good = std::fwrite(head.data(), 1, head.size(), file) == head.size();
    std::mt19937 random(20240229);
    std::vector<double> values(curves);
    for (std::size_t i = 0; i < curves; ++i)
        values[i] = 50.0 + 7.0 * static_cast<double>(i);
    std::vector<char> line(32 * (curves + 1));
    for (std::size_t row = 0; good && row < rows; ++row) {
        char* out = put(line.data(), top + step * static_cast<double>(row), 10);
        for (std::size_t i = 0; i < curves; ++i) {
            values[i] += static_cast<double>(random()) / 4294967296.0 - 0.5;
            *out++ = ' ';
            out = put(out, (row * 31 + i * 17) % 25 == 0 ? nullValue : values[i], 9);
        }
        *out++ = '\n';
        const auto length = static_cast<std::size_t>(out - line.data());
        good = std::fwrite(line.data(), 1, length, file) == length;
    }
    return std::fclose(file) == 0 && good;
}

wholeFile readWhole(const std::string& path) {
    wholeFile file;
    file.size = static_cast<std::size_t>(sizeOf(path));
    file.bytes = std::make_unique_for_overwrite<char[]>(file.size);
    std::FILE* in = std::fopen(path.c_str(), "rb");
    file.size = in == nullptr ? 0 : std::fread(file.bytes.get(), 1, file.size, in);
    if (in != nullptr)
        std::fclose(in);
    return file;
}

double sizeOf(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return error ? 0.0 : static_cast<double>(size);
}

} // namespace bench
