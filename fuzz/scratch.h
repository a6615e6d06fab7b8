// A folder of this process for what a target writes, in memory where the machine has such a place.
#pragma once

#include "platform/files.h"

#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

class scratchFolder {
public:
    explicit scratchFolder(const std::string& target) {
        std::error_code code;
        const std::filesystem::path memory = "/dev/shm";
        m_path = (std::filesystem::is_directory(memory, code)
                      ? memory
                      : std::filesystem::temp_directory_path(code))
                 / (target + "." + std::to_string(::getpid()));
        std::filesystem::create_directories(m_path, code);
    }
    ~scratchFolder() {
        std::error_code code;
        std::filesystem::remove_all(m_path, code);
    }
    scratchFolder(const scratchFolder&) = delete;
    scratchFolder& operator=(const scratchFolder&) = delete;

    [[nodiscard]] std::wstring operator/(const std::wstring& name) const {
        return files::wide(m_path) + L"/" + name;
    }

private:
    std::filesystem::path m_path;
};
