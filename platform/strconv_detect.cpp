#include "platform/strconv.h"
#include "platform/strconv_words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace ts::strconv {

mark findMark(std::string_view bytes) {
    using namespace std::string_view_literals;
    // The mark of UTF-32 LE begins as that of UTF-16 LE does, so it is looked for first.
    constexpr std::array<std::pair<encodings, std::string_view>, 5> marks{
        {{utf32le, "\xFF\xFE\0\0"sv},
         {utf32be, "\0\0\xFE\xFF"sv},
         {utf8, "\xEF\xBB\xBF"sv},
         {utf16le, "\xFF\xFE"sv},
         {utf16be, "\xFE\xFF"sv}}};
    for (const auto& [encoding, sign] : marks) {
        if (bytes.substr(0, sign.size()) == sign)
            return {encoding, sign.size()};
    }
    return {};
}

namespace {

// Every cost here is in bits: the negative binary logarithm of how probable the thing is in a
// text of the encoding. The encoding that makes the whole sample cheapest is the likeliest one.
using bits = double;

constexpr std::size_t letterCount = 33; // а … я, and 0 for the end of a word
constexpr std::size_t wordEnd = 0;
constexpr std::size_t noLetter = letterCount;

// 1 … 32 for а … я in either case, ё counting as е.
std::size_t letterOf(wchar_t c) {
    const auto point = static_cast<std::uint32_t>(c);
    if (point >= 0x410 && point <= 0x44F)
        return (point - 0x410) % 32 + 1;
    return point == 0x401 || point == 0x451 ? 6 : noLetter;
}

bool isUpper(wchar_t c) {
    const auto point = static_cast<std::uint32_t>(c);
    return point >= 0x400 && point < 0x430;
}

bool isVowel(std::size_t letter) {
    constexpr std::wstring_view vowels = L"аеиоуыэюя";
    return vowels.find(static_cast<wchar_t>(0x42F + letter)) != std::wstring_view::npos;
}

// What a letter costs after the letter before it.
class pairTable {
public:
    pairTable() {
        std::array<double, letterCount> single{};
        std::array<std::array<double, letterCount>, letterCount> pairs{};
        std::size_t before = wordEnd;
        for (const wchar_t c : russianWords) {
            const std::size_t found = letterOf(c);
            const std::size_t letter = found == noLetter ? wordEnd : found;
            ++single[letter];
            ++pairs[before][letter];
            before = letter;
        }
        // A pair that the words lack is as probable as its second letter makes it, to the extent
        // of `unseen` occurrences of the first.
        constexpr double unseen = 12;
        const auto total = static_cast<double>(russianWords.size() + letterCount);
        for (std::size_t a = 0; a < letterCount; ++a) {
            for (std::size_t b = 0; b < letterCount; ++b) {
                const double alone = (single[b] + 1) / total;
                m_cost[a][b] = -std::log2((pairs[a][b] + unseen * alone) / (single[a] + unseen));
            }
        }
    }

    [[nodiscard]] bits cost(std::size_t before, std::size_t letter) const {
        return m_cost[before][letter];
    }

private:
    std::array<std::array<bits, letterCount>, letterCount> m_cost{};
};

bool isAsciiLetter(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

bool isHigh(wchar_t c) {
    return static_cast<std::uint32_t>(c) >= 0x80;
}

// Signs that technical texts do use.
bool isUsualSign(wchar_t c) {
    constexpr std::wstring_view signs = L"\u00A0°±µ²³·§©®½×«»№–—…•„“”‘’™";
    return signs.find(c) != std::wstring_view::npos;
}

bits signCost(wchar_t c, wchar_t before) {
    constexpr bits unknownByte = 30, control = 20, usual = 8, besideAnother = 12, rare = 14;
    const auto point = static_cast<std::uint32_t>(c);
    if (point == 0xFFFD)
        return unknownByte;
    if (point < 0xA0)
        return control;
    if (!isUsualSign(c))
        return rare;
    return isHigh(before) && letterOf(before) == noLetter ? besideAnother : usual;
}

bool isBox(wchar_t c) {
    const auto point = static_cast<std::uint32_t>(c);
    return point >= 0x2500 && point < 0x2600;
}

// Reads a text that was decoded as Cyrillic, character by character, and adds up what it costs.
class cyrillicCost {
public:
    explicit cyrillicCost(const pairTable& pairs) : m_pairs(pairs) {}

    bits of(std::wstring_view text) {
        for (const wchar_t c : text) {
            if (const std::size_t letter = letterOf(c); letter != noLetter)
                takeLetter(c, letter);
            else
                takeOther(c);
            m_before = c;
        }
        if (m_length > 0)
            endWord();
        return m_total;
    }

private:
    void takeLetter(wchar_t c, std::size_t letter) {
        m_total += m_pairs.cost(m_letter, letter) + caseCost(isUpper(c));
        if (isAsciiLetter(m_before))
            m_total += mixedScripts;
        if (letter == m_letter && ++m_repeats > 2)
            m_total += 4; // four of a letter
        if (letter != m_letter)
            m_repeats = 0;
        if (c == L'Ё' || c == L'ё')
            m_total += 6; // most texts write е
        m_hasVowel = m_hasVowel || isVowel(letter);
        m_letter = letter;
        ++m_length;
    }

    // Words are small, Capitalised or ALL CAPITALS.
    bits caseCost(bool upper) {
        constexpr bits mixedCase = 8;
        bits cost = 1;
        if (m_length == 0) {
            m_firstUpper = upper;
        } else if (m_length == 1) {
            m_restUpper = upper;
            cost = upper && !m_firstUpper ? mixedCase : 1;
        } else {
            cost = upper != m_restUpper ? mixedCase : 0;
        }
        return cost;
    }

    void takeOther(wchar_t c) {
        if (m_length > 0) {
            endWord();
            if (isAsciiLetter(c))
                m_total += mixedScripts;
        }
        if (isHigh(c))
            m_total += c == m_before && isBox(c) ? ruleCost() : signCost(c, m_before);
        if (c != m_before)
            m_repeats = 0;
    }

    // Lines are ruled with box-drawing characters; the longer, the surer it is such a line.
    bits ruleCost() { return ++m_repeats > 5 ? 1 : 6; }

    void endWord() {
        m_total += m_pairs.cost(m_letter, wordEnd);
        if (m_length > 2 && !m_hasVowel && !m_restUpper)
            m_total += 8; // only abbreviations, in capitals, lack a vowel
        m_letter = wordEnd;
        m_length = 0;
        m_repeats = 0;
        m_hasVowel = false;
    }

    static constexpr bits mixedScripts = 10;

    const pairTable& m_pairs;
    bits m_total = 0;
    wchar_t m_before = 0;
    std::size_t m_letter = wordEnd;
    std::size_t m_length = 0;
    std::size_t m_repeats = 0;
    bool m_firstUpper = false;
    bool m_restUpper = false;
    bool m_hasVowel = false;
};

bool isLatinLetter(wchar_t c) {
    return static_cast<std::uint32_t>(c) >= 0xC0 && c != L'×' && c != L'÷';
}

// Western texts have single accented letters among ASCII ones, and single signs.
bits latinCost(wchar_t before, wchar_t c, wchar_t after) {
    constexpr bits control = 20, usual = 4, rare = 9, amongAscii = 6, alone = 13,
                   besideAnother = 12;
    const auto point = static_cast<std::uint32_t>(c);
    if (point < 0xA0)
        return control;
    if (isHigh(before) || isHigh(after))
        return besideAnother;
    if (!isLatinLetter(c))
        return isUsualSign(c) || c == L'º' ? usual : rare;
    if (isAsciiLetter(before) || isAsciiLetter(after) || c == L'Ø' || c == L'ø')
        return amongAscii;
    return alone;
}

bits latinCost(std::wstring_view text) {
    bits total = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isHigh(text[i]))
            total += latinCost(
                i > 0 ? text[i - 1] : L' ', text[i], i + 1 < text.size() ? text[i + 1] : L' ');
    }
    return total;
}

encodings likeliestSingleByte(std::string_view sample) {
    static const pairTable pairs;
    // How rare the encodings themselves are among files of this trade.
    constexpr std::array<std::pair<encodings, bits>, 4> cyrillic{
        {{windows1251, 3}, {cp866, 4}, {koi8r, 5}, {iso8859_5, 8}}};
    encodings best = iso8859_1;
    bits least = latinCost(decode(sample, iso8859_1));
    for (const auto& [encoding, rarity] : cyrillic) {
        const bits cost = rarity + cyrillicCost(pairs).of(decode(sample, encoding));
        if (cost < least) {
            least = cost;
            best = encoding;
        }
    }
    return best;
}

// Zero bytes at each place of a group of four.
std::array<std::size_t, 4> countZeros(std::string_view sample) {
    std::array<std::size_t, 4> zeros{};
    for (std::size_t i = 0; i < sample.size(); ++i)
        zeros[i % 4] += sample[i] == '\0' ? 1U : 0U;
    return zeros;
}

// UTF-32 has zeros in the two high bytes of nearly every unit; UTF-16 has one in the high byte of
// every digit, blank and Latin letter, and hardly any in low bytes.
encodings wideByZeros(std::string_view sample) {
    const auto zeros = countZeros(sample);
    const std::size_t units = sample.size() / 4;
    if (units == 0)
        return detect;
    const std::size_t few = units / 50;
    const auto most = [&](std::size_t count) { return count + few >= units && count > 0; };
    if (most(zeros[0]) && most(zeros[1]) && zeros[3] <= few)
        return utf32be;
    if (most(zeros[2]) && most(zeros[3]) && zeros[0] <= few)
        return utf32le;
    const std::size_t even = zeros[0] + zeros[2];
    const std::size_t odd = zeros[1] + zeros[3];
    const std::size_t many = std::max<std::size_t>(units / 4, 1); // of twice as many
    if (even > many && odd <= few)
        return utf16be;
    if (odd > many && even <= few)
        return utf16le;
    return detect;
}

// How long the part of the last character is that the end of a sample cuts off.
std::size_t cutTail(std::string_view sample) {
    std::size_t length = 0;
    while (length < 3 && length < sample.size()
           && (static_cast<unsigned char>(sample[sample.size() - 1 - length]) & 0xC0) == 0x80)
        ++length;
    if (length == sample.size())
        return 0;
    const auto lead = static_cast<unsigned char>(sample[sample.size() - 1 - length]);
    const std::size_t needed = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    return length < needed ? length + 1 : 0;
}

// Whether well-formed UTF-8 is meant as such. Two or three letters of a single-byte encoding may
// happen to be well formed, but then they make a character of a script that nobody uses here.
bool isMeantAsUtf8(std::string_view bytes) {
    constexpr std::size_t enough = 3;
    std::size_t odd = 0;
    for (const wchar_t c : fromUtf8(bytes)) {
        const auto point = static_cast<std::uint32_t>(c);
        const bool isUsual =
            point < 0x530 || (point >= 0x2000 && point < 0x2700) || point >= 0x3000;
        if (point >= 0x80 && (isUsual || ++odd == enough))
            return true;
    }
    return odd == 0;
}

// Without a branch, so that many bytes are looked at at once.
bool hasHigh(std::string_view bytes) {
    unsigned all = 0;
    for (const char c : bytes)
        all |= static_cast<unsigned char>(c);
    return all >= 0x80;
}

} // namespace

encodings detectEncoding(std::string_view sample) {
    if (sample.find('\0') != std::string_view::npos) {
        if (const encodings wide = wideByZeros(sample); wide != detect)
            return wide;
    }
    if (!hasHigh(sample))
        return utf8;
    const std::string_view whole = sample.substr(0, sample.size() - cutTail(sample));
    if (isUtf8(whole) && isMeantAsUtf8(whole) && (whole.size() == sample.size() || hasHigh(whole)))
        return utf8;
    return likeliestSingleByte(sample);
}

} // namespace ts::strconv
