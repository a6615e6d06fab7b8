#include "platform/strconv.h"
#include "platform/strconv_points.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace ts::strconv {

namespace {

struct encodingName {
    encodings encoding;
    const char* name; // ours, and ICU's name of the converter
    const char* synonyms;
};

// Synonyms are looked up in lower case, without "-", "_" and blanks.
constexpr std::array encodingNames{
    encodingName{detect, "detect", " detect auto "},
    encodingName{utf8, "utf-8", " utf8 65001 cp65001 ascii usascii "},
    encodingName{utf16le, "utf-16le", " utf16le utf16 unicode 1200 ucs2 ucs2le "},
    encodingName{utf16be, "utf-16be", " utf16be 1201 ucs2be "},
    encodingName{utf32le, "utf-32le", " utf32le utf32 12000 ucs4 ucs4le "},
    encodingName{utf32be, "utf-32be", " utf32be 12001 ucs4be "},
    encodingName{cp866, "cp866", " cp866 866 ibm866 dos oem "},
    encodingName{koi8r, "koi8-r", " koi8r koi8 20866 cp20866 "},
    encodingName{windows1251, "windows-1251", " windows1251 1251 cp1251 win1251 win ansi "},
    encodingName{iso8859_1, "iso-8859-1", " iso88591 latin1 l1 28591 cp28591 "},
    encodingName{iso8859_5, "iso-8859-5", " iso88595 cyrillic 28595 cp28595 "},
};

const encodingName* entryOf(encodings encoding) {
    const auto* const found = std::find_if(encodingNames.begin(),
                                           encodingNames.end(),
                                           [&](const auto& e) { return e.encoding == encoding; });
    return found == encodingNames.end() ? nullptr : found;
}

// The characters of a single-byte encoding, both ways.
struct codePage {
    std::array<char16_t, 256> characters{};
    std::array<char, 0x460> letters{}; // bytes of the characters of Latin and Cyrillic; 0: none
    std::vector<std::pair<char16_t, char>> signs; // the others, sorted
};

void addCharacter(codePage& page, char16_t character, char byte) {
    if (character < page.letters.size())
        page.letters[character] = byte;
    else if (character != noText)
        page.signs.emplace_back(character, byte);
}

codePage makeCodePage(const char* converterName) {
    codePage page;
    UErrorCode status = U_ZERO_ERROR;
    UConverter* const converter = ucnv_open(converterName, &status);
    for (std::size_t byte = 0; byte < page.characters.size(); ++byte) {
        const char source = static_cast<char>(byte);
        char16_t character = noText;
        if (U_SUCCESS(status))
            ucnv_toUChars(converter, &character, 1, &source, 1, &status);
        if (status == U_STRING_NOT_TERMINATED_WARNING)
            status = U_ZERO_ERROR;
        // ICU's table of CP866 swaps three control characters, as a teletype's does.
        if (byte < 0x80)
            character = static_cast<char16_t>(byte);
        page.characters[byte] = character;
        addCharacter(page, character, source);
    }
    ucnv_close(converter);
    std::sort(page.signs.begin(), page.signs.end());
    return page;
}

const codePage& pageOf(encodings encoding) {
    static const codePage pages[] = {makeCodePage("ibm-866"),
                                     makeCodePage("koi8-r"),
                                     makeCodePage("windows-1251"),
                                     makeCodePage("iso-8859-1"),
                                     makeCodePage("iso-8859-5")};
    return pages[encoding - cp866];
}

// How the units of UTF-16 and UTF-32 lie in bytes.
struct unitForm {
    std::size_t size;
    bool bigEndian;
};

std::optional<unitForm> unitsOf(encodings encoding) {
    switch (encoding) {
    case utf16le:
        return unitForm{2, false};
    case utf16be:
        return unitForm{2, true};
    case utf32le:
        return unitForm{4, false};
    case utf32be:
        return unitForm{4, true};
    default:
        return std::nullopt;
    }
}

char32_t readUnit(std::string_view bytes, std::size_t at, unitForm form) {
    char32_t unit = 0;
    for (std::size_t i = 0; i < form.size; ++i) {
        const std::size_t from = form.bigEndian ? i : form.size - 1 - i;
        unit = (unit << 8) | static_cast<unsigned char>(bytes[at + from]);
    }
    return unit;
}

void writeUnit(std::string& bytes, char32_t unit, unitForm form) {
    for (std::size_t i = 0; i < form.size; ++i) {
        const std::size_t place = form.bigEndian ? form.size - 1 - i : i;
        bytes += static_cast<char>((unit >> (8 * place)) & 0xFF);
    }
}

std::wstring decodeUnits(std::string_view bytes, unitForm form) {
    std::wstring text(bytes.size() / form.size * (wideIsUtf16 ? 2 : 1) + 1, L'\0');
    wchar_t* to = text.data();
    std::size_t at = 0;
    for (; at + form.size <= bytes.size(); at += form.size) {
        char32_t point = readUnit(bytes, at, form);
        if (form.size == 2 && isSurrogate(point) && at + 4 <= bytes.size()) {
            if (const char32_t low = readUnit(bytes, at + 2, form); isPair(point, low)) {
                point = joined(point, low);
                at += 2;
            }
        }
        to = putWide(to, isScalar(point) ? point : noText);
    }
    if (at < bytes.size())
        to = putWide(to, noText); // a part of a unit at the end
    text.resize(static_cast<std::size_t>(to - text.data()));
    return text;
}

std::string encodeUnits(std::wstring_view text, unitForm form) {
    std::string bytes;
    bytes.reserve(text.size() * form.size);
    for (std::size_t at = 0; at < text.size();) {
        char32_t point = takeWide(text, at);
        if (!isScalar(point))
            point = noText;
        if (form.size == 2 && point >= 0x10000) {
            writeUnit(bytes, 0xD800 + ((point - 0x10000) >> 10), form);
            point = 0xDC00 + (point & 0x3FF);
        }
        writeUnit(bytes, point, form);
    }
    return bytes;
}

char byteOf(const codePage& page, char32_t point) {
    if (point < page.letters.size())
        return page.letters[point] != '\0' || point == 0 ? page.letters[point] : '?';
    const auto found = std::lower_bound(
        page.signs.begin(), page.signs.end(), point, [](const auto& entry, char32_t p) {
            return entry.first < p;
        });
    return found != page.signs.end() && found->first == point ? found->second : '?';
}

} // namespace

std::wstring decode(std::string_view bytes, encodings encoding) {
    if (encoding == detect) {
        const mark found = findMark(bytes);
        bytes.remove_prefix(found.length);
        return decode(bytes, found.length != 0 ? found.encoding : detectEncoding(bytes));
    }
    if (const auto form = unitsOf(encoding))
        return decodeUnits(bytes, *form);
    if (encoding < cp866 || encoding > iso8859_5)
        return fromUtf8(bytes);
    const codePage& page = pageOf(encoding);
    std::wstring text(bytes.size(), L'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), [&](char byte) {
        return static_cast<wchar_t>(page.characters[static_cast<unsigned char>(byte)]);
    });
    return text;
}

std::string encode(std::wstring_view text, encodings encoding) {
    if (const auto form = unitsOf(encoding))
        return encodeUnits(text, *form);
    if (encoding < cp866 || encoding > iso8859_5)
        return toUtf8(text);
    const codePage& page = pageOf(encoding);
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t point = takeWide(text, at);
        bytes += byteOf(page, point);
    }
    return bytes;
}

std::string name(encodings encoding) {
    const encodingName* const entry = entryOf(encoding);
    return entry != nullptr ? entry->name : std::string();
}

std::optional<encodings> byName(std::string_view name) {
    std::string key = " ";
    for (const char c : name) {
        if (c != '-' && c != '_' && c != ' ')
            key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    key += ' ';
    for (const encodingName& entry : encodingNames) {
        if (key.size() > 2 && std::string_view(entry.synonyms).find(key) != std::string_view::npos)
            return entry.encoding;
    }
    return std::nullopt;
}

} // namespace ts::strconv
