#include "cli/temporary_file.h"

#include "cli/output.h"
#include "cli/text.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace {

constexpr const char* fileName = "/table";

} // namespace

// A folder of its own: what is written beside the file is nobody else's.
temporaryFile::temporaryFile(bool isNeeded) {
    std::error_code code;
    std::string pattern = (std::filesystem::temp_directory_path(code) / "welldb.XXXXXX").string();
    if (isNeeded && !code && mkdtemp(pattern.data()) != nullptr)
        m_folder = pattern;
}

temporaryFile::~temporaryFile() {
    std::error_code ignored;
    if (!m_folder.empty())
        std::filesystem::remove_all(m_folder, ignored);
}

std::wstring temporaryFile::path() const {
    return m_folder.empty() ? std::wstring() : text::wide(m_folder + fileName);
}

bool temporaryFile::copyToOutput() const {
    std::FILE* const file = std::fopen((m_folder + fileName).c_str(), "rb");
    if (file == nullptr)
        return false;
    std::array<char, 65536> buffer{};
    for (std::size_t got = 1; got > 0 && !output::isEnded();) {
        got = std::fread(buffer.data(), 1, buffer.size(), file);
        output::write({buffer.data(), got});
    }
    const bool isWhole = std::ferror(file) == 0;
    return std::fclose(file) == 0 && isWhole;
}
