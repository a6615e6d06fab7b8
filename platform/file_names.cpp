#include "platform/files.h"
#include "platform/strconv.h"

#include <algorithm>
#include <array>

namespace files {

namespace {

// Bytes that are no UTF-8 are carried by these code points, which no text holds.
constexpr unsigned escapeBase = 0xDC00;

bool isSeparator(wchar_t c) {
    return c == L'/' || c == L'\\';
}

bool isEscaped(wchar_t c) {
    const auto code = static_cast<unsigned>(c);
    return code >= escapeBase + 0x80 && code <= escapeBase + 0xFF;
}

// Names of devices, with or without an extension, and the container's own journal.
bool isReserved(std::wstring_view name) {
    static constexpr std::array<std::wstring_view, 6> plain = {
        L"con", L"prn", L"aux", L"nul", L"conin$", L"conout$"};
    const std::wstring lowered = ts::strconv::lower(name);
    if (lowered == L"journal.db")
        return true;
    std::wstring_view stem = std::wstring_view(lowered).substr(0, lowered.find(L'.'));
    while (!stem.empty() && stem.back() == L' ')
        stem.remove_suffix(1);
    if (std::find(plain.begin(), plain.end(), stem) != plain.end())
        return true;
    const bool numbered = stem.starts_with(L"com") || stem.starts_with(L"lpt");
    return numbered && stem.size() == 4
           && std::wstring_view(L"0123456789\u00b9\u00b2\u00b3").find(stem[3])
                  != std::wstring_view::npos;
}

void appendEscaped(std::wstring& out, wchar_t c) {
    static constexpr std::wstring_view digits = L"0123456789ABCDEF";
    for (const char byte : ts::strconv::toUtf8(std::wstring_view(&c, 1))) {
        const auto value = static_cast<unsigned char>(byte);
        out += L'%';
        out += digits[value >> 4];
        out += digits[value & 15];
    }
}

// Length of the well-formed UTF-8 sequence at the start of `bytes`; 0 when there is none.
std::size_t sequenceLength(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    return length <= bytes.size() && ts::strconv::isUtf8(bytes.substr(0, length)) ? length : 0;
}

int hexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    return c >= L'A' && c <= L'F' ? c - L'A' + 10 : -1;
}

} // namespace

std::filesystem::path native(std::wstring_view path) {
    std::string bytes;
    std::size_t plainFrom = 0;
    const auto flush = [&](std::size_t end) {
        bytes += ts::strconv::toUtf8(path.substr(plainFrom, end - plainFrom));
    };
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (!isEscaped(path[i]))
            continue;
        flush(i);
        bytes += static_cast<char>(static_cast<unsigned>(path[i]) - escapeBase);
        plainFrom = i + 1;
    }
    flush(path.size());
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return {bytes};
}

std::wstring wide(const std::filesystem::path& path) {
    const std::string& bytes = path.native();
    if (ts::strconv::isUtf8(bytes))
        return ts::strconv::fromUtf8(bytes);
    std::wstring out;
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const std::size_t length = sequenceLength(rest);
        if (length == 0)
            out += static_cast<wchar_t>(escapeBase + static_cast<unsigned char>(rest.front()));
        else
            out += ts::strconv::fromUtf8(rest.substr(0, length));
        rest.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return out;
}

std::wstring fileName(std::wstring_view name) {
    if (name.empty())
        return L"%";
    const bool reserved = isReserved(name);
    std::wstring out;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const wchar_t c = name[i];
        // A leading dot would hide the folder, or name ".", ".." or the container's ".pending".
        const bool atStart = i == 0 && (reserved || c == L'.');
        const bool atEnd = i + 1 == name.size() && (c == L' ' || c == L'.');
        const bool control = static_cast<unsigned>(c) < 0x20 || c == 0x7F;
        if (atStart || atEnd || control
            || std::wstring_view(L"<>:\"/\\|?*%").find(c) != std::wstring_view::npos)
            appendEscaped(out, c);
        else
            out += c;
    }
    return out;
}

std::wstring nameOfFile(std::wstring_view fileName) {
    if (fileName == L"%")
        return {};
    std::string bytes;
    for (std::size_t i = 0; i < fileName.size(); ++i) {
        const bool escaped = fileName[i] == L'%' && i + 2 < fileName.size();
        const int high = escaped ? hexDigit(fileName[i + 1]) : -1;
        const int low = escaped ? hexDigit(fileName[i + 2]) : -1;
        if (high < 0 || low < 0) {
            bytes += ts::strconv::toUtf8(fileName.substr(i, 1));
            continue;
        }
        bytes += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return ts::strconv::fromUtf8(bytes);
}

std::wstring folderOf(std::wstring_view path) {
    const auto last = std::find_if(path.rbegin(), path.rend(), isSeparator);
    return std::wstring(path.substr(0, static_cast<std::size_t>(path.rend() - last)));
}

std::wstring nameOf(std::wstring_view path) {
    return std::wstring(path.substr(folderOf(path).size()));
}

std::wstring extensionOf(std::wstring_view path) {
    const std::wstring name = nameOf(path);
    const auto dot = name.rfind(L'.');
    return dot == std::wstring::npos ? std::wstring() : name.substr(dot);
}

} // namespace files
