#include "platform/strconv.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace ts::strconv;
using namespace std::string_literals;

// The broken ones are the examples of the Unicode standard (tables 3-8 to 3-11): one U+FFFD, here
// "?", for each longest beginning of a character, one for each byte that begins none.
TEST(Strconv, readsUtf8AndReplacesWhatIsNone) {
    const std::string zero = "a\0b"s;
    const std::wstring wideZero = L"a\0b"s;
    const struct {
        const char* where;
        std::string bytes;
        std::wstring text;
        bool isWhole;
    } cases[] = {
        {"empty", "", L"", true},
        {"2 bytes", "a\xD0\x96\xC2\x80\xDF\xBF", L"a\u0416\u0080\u07FF", true},
        {"3 bytes", "\xE2\x84\x96\xE0\xA0\x80\xEF\xBF\xBE", L"\u2116\u0800\uFFFE", true},
        {"4 bytes", "\xF0\x90\x80\x80\xF0\x9F\x9B\xA2", L"\U00010000\U0001F6E2", true},
        {"last", "\xF4\x8F\xBF\xBF", L"\U0010FFFF", true},
        {"much ASCII", "0123456789abcdefg\xC2\xB0", L"0123456789abcdefg\u00B0", true},
        {"NUL inside", zero, wideZero, true},
        {"overlong", "\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", L"????????A", false},
        {"surrogates", "\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", L"????????A", false},
        {"too high", "\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42", L"?????A??B", false},
        {"cut characters", "\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", L"????A", false},
        {"cut at the end", "ab\xE2\x84", L"ab?", false},
    };
    for (const auto& c : cases) {
        std::wstring shown = fromUtf8(c.bytes);
        std::replace(shown.begin(), shown.end(), L'\uFFFD', L'?');
        EXPECT_EQ(shown, c.text) << c.where;
        EXPECT_EQ(isUtf8(c.bytes), c.isWhole) << c.where;
        EXPECT_EQ(toUtf8(fromUtf8(c.bytes)) == c.bytes, c.isWhole) << c.where;
    }
}

TEST(Strconv, wideTextThatIsNoneIsToldAndReplaced) {
    const std::wstring lone{L'a', static_cast<wchar_t>(0xD800), L'b'};
    EXPECT_FALSE(isText(lone));
    EXPECT_EQ(encode(lone, utf8), "a\xEF\xBF\xBD\x62");
    EXPECT_EQ(encode(lone, utf16be), "\0a\xFF\xFD\0b"s);
    EXPECT_FALSE(isText(std::wstring(1, static_cast<wchar_t>(0xDFFF))));
    EXPECT_TRUE(isText(L"\uD7FF\uE000\U0010FFFF"));
    if constexpr (sizeof(wchar_t) == 4) {
        EXPECT_FALSE(isText(std::wstring(1, static_cast<wchar_t>(0x110000))));
    }
}

// Bytes from the code charts of the encodings.
TEST(Strconv, encodesAndDecodes) {
    const std::wstring text = L"A\u0416\u044F\u0401\u2116\u00B0"; // A Ж я Ё № °
    const struct {
        encodings encoding;
        std::string bytes;
        std::wstring back;
    } cases[] = {
        {windows1251, "A\xC6\xFF\xA8\xB9\xB0", text},
        {cp866, "A\x86\xEF\xF0\xFC\xF8", text},
        {koi8r, "A\xF6\xD1\xB3?\x9C", L"A\u0416\u044F\u0401?\u00B0"},
        {iso8859_5, "A\xB6\xEF\xA1\xF0?", L"A\u0416\u044F\u0401\u2116?"},
        {iso8859_1, "A????\xB0", L"A????\u00B0"},
        {utf8, "A\xD0\x96\xD1\x8F\xD0\x81\xE2\x84\x96\xC2\xB0", text},
        {utf16le, "A\0\x16\x04\x4F\x04\x01\x04\x16\x21\xB0\0"s, text},
        {utf16be, "\0A\x04\x16\x04\x4F\x04\x01\x21\x16\0\xB0"s, text},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(encode(text, c.encoding), c.bytes) << name(c.encoding);
        EXPECT_EQ(decode(c.bytes, c.encoding), c.back) << name(c.encoding);
    }
    EXPECT_EQ(encode(L"\U0001F6E2", utf16le), "\x3D\xD8\xE2\xDE");
    EXPECT_EQ(encode(L"\U0001F6E2", utf32be), "\0\x01\xF6\xE2"s);
    EXPECT_EQ(encode(L"\U0001F6E2", windows1251), "?"); // one character, one mark
    EXPECT_EQ(decode("\x98", windows1251), L"\u0098");  // the one byte without a character
    EXPECT_EQ(decode("\xD8\x3D\0a\xDE"s, utf16be), L"\uFFFDa\uFFFD"); // half a pair, half a unit
}

// Every byte that has a character comes back as itself; ASCII stays ASCII, control characters too.
TEST(Strconv, everyByteOfASingleByteEncodingComesBack) {
    for (const encodings encoding : {cp866, koi8r, windows1251, iso8859_1, iso8859_5}) {
        for (int byte = 0; byte < 256; ++byte) {
            const std::string one(1, static_cast<char>(byte));
            const std::wstring text = decode(one, encoding);
            if (text != L"\uFFFD") {
                EXPECT_EQ(encode(text, encoding), one) << name(encoding) << ' ' << byte;
            }
            if (byte < 0x80) {
                EXPECT_EQ(text, std::wstring(1, static_cast<wchar_t>(byte)));
            }
        }
    }
}

TEST(Strconv, findsMarks) {
    const struct {
        std::string bytes;
        encodings encoding;
        std::size_t length;
    } cases[] = {
        {"\xEF\xBB\xBF~V", utf8, 3},
        {"\xFF\xFE~\0"s, utf16le, 2},
        {"\xFE\xFF\0~"s, utf16be, 2},
        {"\xFF\xFE\0\0~\0\0\0"s, utf32le, 4}, // begins as UTF-16 LE does
        {"\0\0\xFE\xFF\0\0\0~"s, utf32be, 4},
        {"\xEF\xBB", detect, 0},
        {"~V", detect, 0},
        {"", detect, 0},
    };
    for (const auto& c : cases) {
        const mark found = findMark(c.bytes);
        EXPECT_EQ(found.encoding, c.encoding) << name(c.encoding);
        EXPECT_EQ(found.length, c.length) << name(c.encoding);
    }
}

namespace {

// A log header with one foreign text in it, as far as a short file goes.
std::string headerWith(const std::string& bytes) {
    return "~Version\n VERS. 2.0 : CWLS\n~Well\n STRT.M 0.2 : START\n WELL.  " + bytes
           + "  : WELL\n~A\n 0.2 -999.25\n";
}

} // namespace

// One or two words are all the Cyrillic that many files hold.
TEST(Strconv, detectsCyrillicFromAFewWords) {
    const wchar_t* const texts[] = {
        L"Примерная",
        L"Глубина",
        L"Скважина",
        L"Каротаж",
        L"ООО",
        L"Месторождение",
        L"Самотлор",
        L"Приразломное",
        L"Верхнечонское",
        L"Кошильское",
        L"Усинская",
        L"Баженовская свита",
        L"Бурмашина",
        L"Фамилия мастера",
        L"Оценка качества",
        L"ГОСТ 1234-56",
        L"Курган-12",
        L"Жёлтый мыс",
        L"Тевлинско-Русскинское",
    };
    for (const std::wstring text : texts) {
        for (const std::wstring& spelt : {text, upper(text)}) {
            for (const encodings encoding : {windows1251, cp866, koi8r, iso8859_5}) {
                EXPECT_EQ(name(detectEncoding(headerWith(encode(spelt, encoding)))), name(encoding))
                    << toUtf8(spelt);
            }
        }
    }
}

// In the wrong encoding these are letters of mixed case, which is all that tells it.
TEST(Strconv, detectsShortWordsByTheirCase) {
    for (const std::wstring word : {L"Цех", L"Щука", L"Нет"}) {
        for (const encodings encoding : {windows1251, cp866, koi8r}) {
            EXPECT_EQ(name(detectEncoding(headerWith(encode(word, encoding)))), name(encoding))
                << toUtf8(word);
        }
    }
}

TEST(Strconv, detectsTheOtherEncodings) {
    const std::wstring rule(40, L'\u2550');
    const struct {
        const char* where;
        std::wstring text;
        encodings encoding;
    } cases[] = {
        {"ASCII", L"Well 7", utf8},
        {"UTF-8", L"Скважина", utf8},
        {"UTF-8 with one sign", L"ohm·m", utf8},
        {"degrees", L"12\u00B0 C", iso8859_1},
        {"microseconds", L"\u00B5s/ft", iso8859_1},
        {"accents inside words", L"Soci\u00E9t\u00E9 G\u00E9n\u00E9rale", iso8859_1},
        {"accent first", L"\u00C5sgard", iso8859_1},
        {"accent in capitals", L"S\u00C3O PAULO", iso8859_1},
        {"degrees among Cyrillic", L"Угол, °; Азимут", windows1251},
        {"rules around Cyrillic", rule + L"\nСкважина\n" + rule, cp866},
        {"letters that are UTF-8 by chance", L"скв. 101", cp866},
        {"UTF-16 LE", L"Глубина 1", utf16le},
        {"UTF-16 BE", L"Глубина 1", utf16be},
        {"UTF-32 LE", L"Глубина 1", utf32le},
        {"UTF-32 BE", L"Глубина 1", utf32be},
    };
    for (const auto& c : cases) {
        const bool isWide = c.encoding >= utf16le && c.encoding <= utf32be;
        const std::string sample = isWide ? encode(L"~Version\n" + c.text + L"\n", c.encoding)
                                          : headerWith(encode(c.text, c.encoding));
        EXPECT_EQ(name(detectEncoding(sample)), name(c.encoding)) << c.where;
    }
    EXPECT_EQ(detectEncoding(""), utf8);
    EXPECT_EQ(detectEncoding(headerWith("Well\0 7"s)), utf8);
    EXPECT_EQ(detectEncoding(toUtf8(L"глубина, м").substr(0, 17)), utf8); // cut inside the last one
    EXPECT_EQ(decode("\xEF\xBB\xBF\xD0\x96", detect), L"\u0416");         // without the mark
    EXPECT_EQ(decode(encode(L"Глубина", koi8r), detect), L"Глубина");
}

TEST(Strconv, knowsEncodingsByName) {
    for (const encodings encoding : {detect,
                                     utf8,
                                     utf16le,
                                     utf16be,
                                     utf32le,
                                     utf32be,
                                     cp866,
                                     koi8r,
                                     windows1251,
                                     iso8859_1,
                                     iso8859_5})
        EXPECT_EQ(byName(name(encoding)), encoding) << name(encoding);
    EXPECT_EQ(byName("CP1251"), windows1251);
    EXPECT_EQ(byName("1251"), windows1251);
    EXPECT_EQ(byName("KOI8R"), koi8r);
    EXPECT_EQ(byName("Latin1"), iso8859_1);
    EXPECT_EQ(byName("ISO_8859-5"), iso8859_5);
    EXPECT_FALSE(byName(""));
    EXPECT_FALSE(byName("5"));
    EXPECT_FALSE(byName("cp1252"));
    EXPECT_EQ(name(windows1251), "windows-1251");
}

TEST(Strconv, changesCaseInAnyScript) {
    const struct {
        const wchar_t* text;
        const wchar_t* lower;
        const wchar_t* upper;
    } cases[] = {
        {L"Well-7 [@`{]", L"well-7 [@`{]", L"WELL-7 [@`{]"},
        {L"Скв. Ёлка", L"скв. ёлка", L"СКВ. ЁЛКА"},
        {L"Straße", L"straße", L"STRASSE"},
        {L"I", L"i", L"I"}, // whatever language the machine speaks
        {L"\U00010400", L"\U00010428", L"\U00010400"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(lower(c.text), c.lower);
        EXPECT_EQ(upper(c.text), c.upper);
        EXPECT_EQ(lowerUtf8(toUtf8(c.text)), toUtf8(c.lower));
        EXPECT_EQ(upperUtf8(toUtf8(c.text)), toUtf8(c.upper));
    }
}
