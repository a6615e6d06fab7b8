// A file that goes with the scope.
#pragma once

#include <string>

class temporaryFile {
public:
    explicit temporaryFile(bool isNeeded); // or else there is none
    ~temporaryFile();
    temporaryFile(const temporaryFile&) = delete;
    temporaryFile& operator=(const temporaryFile&) = delete;

    [[nodiscard]] std::wstring path() const;
    [[nodiscard]] bool copyToOutput() const; // its bytes, to standard output

private:
    std::string m_folder; // empty: there is none
};
