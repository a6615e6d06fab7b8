#include "cli/encodings.h"

namespace {

struct entry {
    ts::strconv::encodings encoding;
    std::string_view name;
    std::string_view spellings; // simplified, each between blanks
};

constexpr entry entries[] = {
    {ts::strconv::detect, "detect", " detect auto "},
    {ts::strconv::utf8, "utf-8", " utf8 "},
    {ts::strconv::utf16le, "utf-16le", " utf16le utf16 "},
    {ts::strconv::utf16be, "utf-16be", " utf16be "},
    {ts::strconv::utf32le, "utf-32le", " utf32le utf32 "},
    {ts::strconv::utf32be, "utf-32be", " utf32be "},
    {ts::strconv::cp866, "cp866", " cp866 866 ibm866 "},
    {ts::strconv::koi8r, "koi8-r", " koi8r koi8 "},
    {ts::strconv::windows1251, "windows-1251", " windows1251 cp1251 1251 "},
    {ts::strconv::iso8859_1, "iso-8859-1", " iso88591 latin1 ascii "},
    {ts::strconv::iso8859_5, "iso-8859-5", " iso88595 "},
};

// Small Latin letters and digits only.
std::string simplified(std::string_view name) {
    std::string out;
    for (const char c : name) {
        if (c >= 'A' && c <= 'Z')
            out += static_cast<char>(c - 'A' + 'a');
        else if (c != '-' && c != '_')
            out += c;
    }
    return out;
}

} // namespace

namespace encodings {

std::optional<ts::strconv::encodings> byName(std::string_view name) {
    const std::string word = simplified(name);
    if (word.empty() || word.find(' ') != std::string::npos)
        return std::nullopt;
    for (const auto& e : entries)
        if (e.spellings.find(" " + word + " ") != std::string_view::npos)
            return e.encoding;
    return std::nullopt;
}

std::string_view name(ts::strconv::encodings encoding) {
    for (const auto& e : entries)
        if (e.encoding == encoding)
            return e.name;
    return "";
}

std::string list() {
    std::string out;
    for (const auto& e : entries)
        out += (out.empty() ? "" : ", ") + std::string(e.name);
    return out;
}

} // namespace encodings
