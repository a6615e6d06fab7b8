// A container in a folder of its own, seen through the public headers and the file system.
#pragma once

#include "NORLEX_lasImport.h"
#include "NORLEX_lastError.h"
#include "NORLEX_well.h"
#include "NORLEX_wellContainer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace apiTest {

namespace fs = std::filesystem;

// Test names and paths are ASCII.
inline std::wstring wide(const std::string& text) {
    return {text.begin(), text.end()};
}
inline std::string narrow(const std::wstring& text) {
    std::string out;
    for (const wchar_t c : text)
        out += c < 0x80 ? static_cast<char>(c) : '?';
    return out;
}

class temporary_folder {
public:
    temporary_folder() {
        std::error_code code;
        std::string pattern = (fs::temp_directory_path(code) / "welldb-api.XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr)
            m_path = pattern;
    }
    ~temporary_folder() {
        std::error_code code;
        if (!m_path.empty())
            fs::remove_all(m_path, code);
    }
    temporary_folder(const temporary_folder&) = delete;
    temporary_folder& operator=(const temporary_folder&) = delete;
    [[nodiscard]] const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

inline constexpr std::size_t curvesOfFile = 3;

// A file of curves C1 … C3 whose values are the row number times the curve's number.
inline void writeLas(const fs::path& path, const std::string& well, std::size_t rows) {
    std::ofstream out(path);
    out << "~Version\nVERS. 2.0 : v\nWRAP. NO : w\n~Well\nNULL. -999.25 : n\nWELL. " << well
        << " : n\nFLD. F : f\nCOMP. Some company : c\n~Param\nBHT.DEGC 85 : t\n"
           "~Curve\nDEPT.M : d\nC1.A : 1\nC2.B : 2\nC3.C : 3\n~ASCII\n";
    for (std::size_t row = 1; row <= rows; ++row)
        out << row << ' ' << row << ' ' << 2 * row << ' ' << 3 * row << '\n';
}

inline std::unique_ptr<NORLEX_wellContainer> openContainer(const fs::path& path) {
    auto container = std::make_unique<NORLEX_wellContainer>(
        NORLEX_wellContainer::makeDescription(wide(path.string())));
    EXPECT_TRUE(container->isOK()) << narrow(NORLEX_lastError());
    return container;
}

inline std::unique_ptr<NORLEX_wellContainer> newContainer(const fs::path& path) {
    EXPECT_TRUE(
        NORLEX_wellContainer::create(NORLEX_wellContainer::makeDescription(wide(path.string()))))
        << narrow(NORLEX_lastError());
    return openContainer(path);
}

inline fs::path fileFolder(const NORLEX_wellContainer& container) {
    std::string path = narrow(container.getFileContainerPath());
    while (!path.empty() && (path.back() == '\\' || path.back() == '/'))
        path.pop_back();
    return path;
}

// What lies below the file directory. A living connection keeps a journal of its file changes in
// ".pending", which says at its end that no transaction is open.
struct stored {
    std::size_t samples = 0;
    std::size_t emptyFolders = 0; // of wells
    std::size_t pending = 0;      // everything in ".pending"
    std::size_t unfinished = 0;   // of that, all but such journals
};
inline bool isClosedJournal(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string lines(std::istreambuf_iterator<char>(file), {});
    return path.extension() == ".changes" && (lines.empty() || lines.ends_with("\nE\n"));
}
inline stored filesOf(const fs::path& folder) {
    stored out;
    std::error_code code;
    for (fs::recursive_directory_iterator it(folder, code), end; !code && it != end;
         it.increment(code)) {
        std::error_code gone;
        const fs::path& path = it->path();
        if (path.string().find("/.pending/") != std::string::npos) {
            ++out.pending;
            out.unfinished += it->is_regular_file(gone) && !isClosedJournal(path) ? 1U : 0U;
        } else if (path.extension() == ".wpdb") {
            ++out.samples;
        } else if (path.filename() != ".pending" && it->is_directory(gone)
                   && fs::is_empty(path, gone)) {
            ++out.emptyFolders;
        }
    }
    return out;
}

// A well with all logs of a file, every sample of them readable and right.
inline void expectWhole(odbc_database* db, const NORLEX_wellDescription& named, std::size_t rows) {
    NORLEX_well well(db, named);
    ASSERT_TRUE(well.isOK());
    std::vector<NORLEX_propDescription> logs;
    well.getPropertyList(logs);
    ASSERT_EQ(logs.size(), curvesOfFile) << narrow(named.workObject + L"/" + named.name);
    for (std::size_t i = 0; i < logs.size(); ++i) {
        std::vector<NORLEX_logSample> samples;
        const auto log = well.openProperty(logs[i]);
        ASSERT_TRUE(log && log->getSamples(samples)) << narrow(NORLEX_lastError());
        ASSERT_EQ(samples.size(), rows);
        for (std::size_t row = 0; row < rows; ++row)
            ASSERT_EQ(samples[row].value, static_cast<double>((i + 1) * (row + 1)));
        EXPECT_EQ(log->getAttributeWellList().size(), 4U);
    }
}

} // namespace apiTest
