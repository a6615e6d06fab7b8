#include "platform/strconv.h"

#include <unicode/locid.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

namespace ts::strconv {

namespace {

constexpr char32_t noText = 0xFFFD; // stands for what is no text
constexpr bool wideIsUtf16 = sizeof(wchar_t) == 2;

constexpr bool isSurrogate(char32_t point) {
    return point >= 0xD800 && point <= 0xDFFF;
}

constexpr char32_t joined(char32_t high, char32_t low) {
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

constexpr bool isPair(char32_t high, char32_t low) {
    return high >= 0xD800 && high < 0xDC00 && low >= 0xDC00 && low < 0xE000;
}

constexpr bool isAscii(wchar_t unit) {
    return static_cast<char32_t>(unit) < 0x80;
}

// The code point at `at`, which moves behind it; a surrogate or a value above U+10FFFF where the
// text is broken.
char32_t takeWide(std::wstring_view text, std::size_t& at) {
    const auto first = static_cast<char32_t>(text[at++]);
    if constexpr (wideIsUtf16) {
        if (at < text.size() && isPair(first, static_cast<char32_t>(text[at])))
            return joined(first, static_cast<char32_t>(text[at++]));
    }
    return first;
}

constexpr bool isScalar(char32_t point) {
    return point <= 0x10FFFF && !isSurrogate(point);
}

void putWide(std::wstring& text, char32_t point) {
    if constexpr (wideIsUtf16) {
        if (point >= 0x10000) {
            text += static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10));
            point = 0xDC00 + (point & 0x3FF);
        }
    }
    text += static_cast<wchar_t>(point);
}

void putUtf8(std::string& bytes, char32_t point) {
    const auto tail = [&](unsigned shift) {
        bytes += static_cast<char>(0x80 | ((point >> shift) & 0x3F));
    };
    if (point < 0x80) {
        bytes += static_cast<char>(point);
    } else if (point < 0x800) {
        bytes += static_cast<char>(0xC0 | (point >> 6));
        tail(0);
    } else if (point < 0x10000) {
        bytes += static_cast<char>(0xE0 | (point >> 12));
        tail(6), tail(0);
    } else {
        bytes += static_cast<char>(0xF0 | (point >> 18));
        tail(12), tail(6), tail(0);
    }
}

// How many bytes from `at` are ASCII, eight at a time.
std::size_t asciiRun(std::string_view bytes, std::size_t at) {
    const std::size_t begin = at;
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    for (std::uint64_t eight = 0; at + sizeof eight <= bytes.size(); at += sizeof eight) {
        std::memcpy(&eight, bytes.data() + at, sizeof eight);
        if ((eight & highBits) != 0)
            break;
    }
    while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80)
        ++at;
    return at - begin;
}

struct utf8Point {
    char32_t point = noText;
    std::size_t length = 1;
    bool whole = false; // false: `length` bytes are no character, and end before the next one
};

// The range that the second byte must lie in: it keeps out overlong forms, surrogates and values
// above U+10FFFF.
std::pair<unsigned, unsigned> secondByte(unsigned lead) {
    switch (lead) {
    case 0xE0:
        return {0xA0, 0xBF};
    case 0xED:
        return {0x80, 0x9F};
    case 0xF0:
        return {0x90, 0xBF};
    case 0xF4:
        return {0x80, 0x8F};
    default:
        return {0x80, 0xBF};
    }
}

// The character at the start of `bytes`, which begins with a byte of 0x80 or more. A broken
// sequence is as long as its well-formed beginning, as the Unicode standard recommends.
utf8Point takeUtf8(std::string_view bytes) {
    const auto at = [&](std::size_t i) {
        return static_cast<unsigned>(static_cast<unsigned char>(bytes[i]));
    };
    const unsigned lead = at(0);
    const std::size_t length = lead < 0xC2   ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0)
        return {};
    char32_t point = lead & (0x7FU >> length);
    auto [low, high] = secondByte(lead);
    for (std::size_t i = 1; i < length; ++i) {
        if (i == bytes.size() || at(i) < low || at(i) > high)
            return {noText, i, false};
        point = (point << 6) | (at(i) & 0x3F);
        low = 0x80, high = 0xBF;
    }
    return {point, length, true};
}

} // namespace

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        std::size_t end = at;
        while (end < text.size() && isAscii(text[end]))
            ++end;
        if (end > at) {
            const std::size_t old = bytes.size();
            bytes.resize(old + (end - at));
            std::transform(text.begin() + static_cast<std::ptrdiff_t>(at),
                           text.begin() + static_cast<std::ptrdiff_t>(end),
                           bytes.begin() + static_cast<std::ptrdiff_t>(old),
                           [](wchar_t unit) { return static_cast<char>(unit); });
            at = end;
            continue;
        }
        const char32_t point = takeWide(text, at);
        putUtf8(bytes, isScalar(point) ? point : noText);
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    std::size_t at = 0;
    while (at < bytes.size()) {
        if (const std::size_t run = asciiRun(bytes, at)) {
            text.append(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                        bytes.begin() + static_cast<std::ptrdiff_t>(at + run));
            at += run;
            continue;
        }
        const utf8Point found = takeUtf8(bytes.substr(at));
        putWide(text, found.point);
        at += found.length;
    }
    return text;
}

bool isText(std::wstring_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (!isScalar(takeWide(text, at)))
            return false;
    }
    return true;
}

bool isUtf8(std::string_view bytes) {
    std::size_t at = 0;
    while ((at += asciiRun(bytes, at)) < bytes.size()) {
        const utf8Point found = takeUtf8(bytes.substr(at));
        if (!found.whole)
            return false;
        at += found.length;
    }
    return true;
}

namespace {

struct encodingName {
    encodings encoding;
    const char* name; // ours, and ICU's name of the converter
    const char* synonyms;
};

// Synonyms are looked up in lower case, without "-", "_" and blanks.
constexpr std::array encodingNames{
    encodingName{detect,      "detect",       " detect auto "                             },
    encodingName{utf8,        "utf-8",        " utf8 65001 cp65001 ascii usascii "        },
    encodingName{utf16le,     "utf-16le",     " utf16le utf16 unicode 1200 ucs2 ucs2le "  },
    encodingName{utf16be,     "utf-16be",     " utf16be 1201 ucs2be "                     },
    encodingName{utf32le,     "utf-32le",     " utf32le utf32 12000 ucs4 ucs4le "         },
    encodingName{utf32be,     "utf-32be",     " utf32be 12001 ucs4be "                    },
    encodingName{cp866,       "cp866",        " cp866 866 ibm866 dos oem "                },
    encodingName{koi8r,       "koi8-r",       " koi8r koi8 20866 cp20866 "                },
    encodingName{windows1251, "windows-1251", " windows1251 1251 cp1251 win1251 win ansi "},
    encodingName{iso8859_1,   "iso-8859-1",   " iso88591 latin1 l1 28591 cp28591 "        },
    encodingName{iso8859_5,   "iso-8859-5",   " iso88595 cyrillic 28595 cp28595 "         },
};

const encodingName* entryOf(encodings encoding) {
    const auto* const found = std::find_if(encodingNames.begin(),
                                           encodingNames.end(),
                                           [&](const auto& e) { return e.encoding == encoding; });
    return found == encodingNames.end() ? nullptr : found;
}

// The characters of a single-byte encoding, both ways.
struct codePage {
    std::array<char16_t, 256> characters{};       // noText: the byte has none
    std::vector<std::pair<char16_t, char>> bytes; // beyond ASCII, sorted
};

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
        page.characters[byte] = byte < 0x80 ? static_cast<char16_t>(byte) : character;
        if (byte >= 0x80 && character != noText)
            page.bytes.emplace_back(character, source);
    }
    ucnv_close(converter);
    std::sort(page.bytes.begin(), page.bytes.end());
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
    std::wstring text;
    text.reserve(bytes.size() / form.size);
    std::size_t at = 0;
    for (; at + form.size <= bytes.size(); at += form.size) {
        char32_t point = readUnit(bytes, at, form);
        if (form.size == 2 && at + 4 <= bytes.size()) {
            if (const char32_t low = readUnit(bytes, at + 2, form); isPair(point, low)) {
                point = joined(point, low);
                at += 2;
            }
        }
        putWide(text, isScalar(point) ? point : noText);
    }
    if (at < bytes.size())
        putWide(text, noText); // a part of a unit at the end
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
    const auto found = std::lower_bound(
        page.bytes.begin(), page.bytes.end(), point, [](const auto& entry, char32_t p) {
            return entry.first < p;
        });
    return found != page.bytes.end() && found->first == point ? found->second : '?';
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
        bytes += point < 0x80 ? static_cast<char>(point) : byteOf(page, point);
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

namespace {

// ICU counts in 32 bits; a longer text keeps its case.
constexpr std::size_t longestCased = std::numeric_limits<std::int32_t>::max() / 4;

icu::UnicodeString toIcu(std::wstring_view text) {
    const auto length = static_cast<std::int32_t>(text.size());
    if constexpr (wideIsUtf16)
        return {reinterpret_cast<const char16_t*>(text.data()), length};
    else
        return icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()), length);
}

std::wstring fromIcu(const icu::UnicodeString& text) {
    std::wstring wide;
    wide.reserve(static_cast<std::size_t>(text.length()));
    for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1))
        putWide(wide, static_cast<char32_t>(text.char32At(at)));
    return wide;
}

using caseMapping = icu::UnicodeString& (icu::UnicodeString::*)(const icu::Locale&);

template <class Text, class Character>
Text mapAscii(const Text& text, Character first) {
    Text result(text);
    for (auto& c : result) {
        if (c >= first && c < first + 26)
            c = static_cast<Character>(c ^ 0x20);
    }
    return result;
}

std::wstring mapCase(std::wstring_view text, wchar_t first, caseMapping mapping) {
    if (text.size() > longestCased || std::all_of(text.begin(), text.end(), isAscii))
        return mapAscii(std::wstring(text), first);
    icu::UnicodeString mapped = toIcu(text);
    return fromIcu((mapped.*mapping)(icu::Locale::getRoot()));
}

std::string mapCase(std::string_view text, char first, caseMapping mapping) {
    if (text.size() > longestCased || asciiRun(text, 0) == text.size())
        return mapAscii(std::string(text), first);
    icu::UnicodeString mapped = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    std::string result;
    (mapped.*mapping)(icu::Locale::getRoot()).toUTF8String(result);
    return result;
}

constexpr caseMapping toLower = &icu::UnicodeString::toLower;
constexpr caseMapping toUpper = &icu::UnicodeString::toUpper;

} // namespace

std::wstring lower(std::wstring_view text) {
    return mapCase(text, L'A', toLower);
}

std::wstring upper(std::wstring_view text) {
    return mapCase(text, L'a', toUpper);
}

std::string lowerUtf8(std::string_view text) {
    return mapCase(text, 'A', toLower);
}

std::string upperUtf8(std::string_view text) {
    return mapCase(text, 'a', toUpper);
}

} // namespace ts::strconv
