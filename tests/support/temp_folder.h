// A fresh folder that goes with the scope.
#pragma once

#include "platform/files.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

class temp_folder {
public:
    temp_folder() {
        std::error_code code;
        std::string pattern =
            (std::filesystem::temp_directory_path(code) / "welldb.XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr)
            m_path = pattern;
    }
    ~temp_folder() {
        std::error_code code;
        if (!m_path.empty())
            std::filesystem::remove_all(m_path, code);
    }
    temp_folder(const temp_folder&) = delete;
    temp_folder& operator=(const temp_folder&) = delete;

    // Without a separator at its end.
    [[nodiscard]] std::wstring path() const { return files::wide(m_path); }
    [[nodiscard]] std::wstring operator/(std::wstring_view name) const {
        return path() + L"/" + std::wstring(name);
    }

    // Writes bytes into a file of the folder and answers its path; folders are made as needed.
    std::wstring write(std::wstring_view name, std::string_view bytes) const {
        const std::wstring target = *this / name;
        if (const auto file =
                files::makeFolder(files::folderOf(target)) ? files::openWrite(target) : nullptr)
            static_cast<void>(files::put(file.get(), bytes));
        return target;
    }
    [[nodiscard]] static std::string read(const std::wstring& path) {
        std::string bytes;
        const auto file = files::openRead(path);
        char buffer[4096];
        for (std::size_t got = 1; file && got > 0;) {
            got = std::fread(buffer, 1, sizeof buffer, file.get());
            bytes.append(buffer, got);
        }
        return bytes;
    }

private:
    std::filesystem::path m_path;
};
