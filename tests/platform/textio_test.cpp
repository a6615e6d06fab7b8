#include "platform/strconv.h"
#include "platform/textio.h"
#include "tests/support/temp_folder.h"

#include "NORLEX_lastError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace ts::strconv;
using namespace std::string_literals;
using lines = std::vector<std::string>;

namespace {

constexpr std::size_t maxLine = ts::textio::maxLine;

class Textio : public ::testing::Test {
protected:
    bool open(std::string_view bytes, encodings encoding = detect) {
        return io.open(folder.write(L"text", bytes), encoding);
    }

    lines readLines() {
        lines found;
        for (std::string_view line; io.next(line);)
            found.emplace_back(line);
        return found;
    }

    // As a bulk reader takes them: `share` of a block at a time, in whole lines.
    lines readBlocks(std::size_t share) {
        lines found;
        for (std::string_view block = io.block(); !block.empty(); block = io.block()) {
            std::size_t taken = 0;
            std::uint64_t count = 0;
            while (taken < block.size() && (taken == 0 || taken < block.size() / share)) {
                const std::size_t end = std::min(block.find('\n', taken), block.size());
                std::string line(block.substr(taken, end - taken));
                while (!line.empty() && line.back() == '\r')
                    line.pop_back();
                found.push_back(line);
                taken = std::min(end + 1, block.size());
                ++count;
            }
            io.consume(taken, count);
        }
        return found;
    }

    temp_folder folder;
    ts::textio io;
};

// Lines of every length up to 300, some 3 MB in all, so that buffers end everywhere in a line.
lines manyLines(const std::string& letter) {
    lines many;
    for (std::size_t i = 0; i < 20000 / letter.size(); ++i) {
        std::string line = std::to_string(i);
        for (std::size_t k = i * 7 % 300; k > 0; --k)
            line += letter;
        many.push_back(line);
    }
    return many;
}

std::string join(const lines& all, const std::string& end) {
    std::string text;
    for (const std::string& line : all)
        text += line + end;
    return text;
}

} // namespace

TEST_F(Textio, endsLinesAtEveryKindOfEnd) {
    const std::string utf16 = "\xFE\xFF\0a\0\r\0b\0\r"s;
    const std::string halfUnit = "\0\0\xFE\xFF\0\0\0a\0\0"s;
    const std::string zero = "a\0b"s;
    const struct {
        const char* where;
        std::string bytes;
        std::string lines; // each followed by a bar
    } cases[] = {
        {"empty file", "", ""},
        {"LF", "a\n\nb\n", "a||b|"},
        {"CR LF, the last without", "a\r\n\r\nb", "a||b|"},
        {"CR alone", "a\r\rb\r", "a||b|"},
        {"CR alone, the last without", "a\rb", "a|b|"},
        {"CR CR LF, as text mode doubles it", "a\r\r\nb\r\r\n", "a|b|"},
        {"CR inside a file of LF is a character", "a\rb\nc\n", "a\rb|c|"},
        {"one line, no end", "a", "a|"},
        {"NUL is a character", zero + "\n", zero + "|"},
        {"mark taken off", "\xEF\xBB\xBF~A\n", "~A|"},
        {"mark alone", "\xEF\xBB\xBF", ""},
        {"UTF-16 with CR alone", utf16, "a|b|"},
        {"UTF-32 with half a unit at the end", halfUnit, "a\xEF\xBF\xBD|"},
    };
    for (const auto& c : cases) {
        const auto count = std::count(c.lines.begin(), c.lines.end(), '|');
        ASSERT_TRUE(open(c.bytes)) << c.where;
        EXPECT_EQ(join(readLines(), "|"), c.lines) << c.where;
        EXPECT_EQ(static_cast<std::ptrdiff_t>(io.lineNumber()), count) << c.where;
        EXPECT_FALSE(io.isLineTooLong()) << c.where;
        EXPECT_EQ(io.bytesLeft(), 0U) << c.where;
        ASSERT_TRUE(io.rewind());
        EXPECT_EQ(join(readBlocks(1), "|"), c.lines) << c.where;
        EXPECT_EQ(static_cast<std::ptrdiff_t>(io.lineNumber()), count) << c.where;
    }
}

// A line feed may come late in a file that ends its lines with CR, even right behind a CR that the
// buffer's end cut off: it then makes no line of its own.
TEST_F(Textio, readsLongFilesAlikeWhateverTheFormAndTheWay) {
    const lines russian = manyLines(toUtf8(L"ж"));
    const lines pairs = manyLines(toUtf8(L"\U0001F6E2"));
    const struct {
        const char* where;
        encodings encoding;
        const char* end;
        const lines& expected;
    } cases[] = {
        {"LF", utf8, "\n", russian},
        {"CR LF", utf8, "\r\n", russian},
        {"CR", utf8, "\r", russian},
        {"two bytes", utf16le, "\r\n", russian},
        {"surrogate pairs", utf16be, "\n", pairs},
        {"surrogate pairs, CR", utf16le, "\r", pairs},
        {"four bytes, CR", utf32be, "\r", pairs},
    };
    for (const auto& c : cases) {
        const std::wstring text = L"\uFEFF" + fromUtf8(join(c.expected, c.end));
        ASSERT_TRUE(open(encode(text, c.encoding))) << c.where;
        EXPECT_TRUE(readLines() == c.expected) << c.where;
        for (const std::size_t share : {1U, 2U, 5U}) {
            ASSERT_TRUE(io.rewind());
            EXPECT_TRUE(readBlocks(share) == c.expected) << c.where << ", share " << share;
            EXPECT_EQ(io.lineNumber(), c.expected.size()) << c.where;
        }
    }
    // Every place of CR LF near the end of the first buffer.
    for (std::size_t before = 0; before < 4; ++before) {
        std::string text(maxLine + (std::size_t{1} << 18) - 2 + before, '\r');
        text[0] = 'a';
        ASSERT_TRUE(open(text + "\nb\r"));
        EXPECT_EQ(readLines().size(), text.size()) << before;
    }
}

TEST_F(Textio, refusesALineOfMoreThanTheLimit) {
    const struct {
        const char* where;
        std::string bytes;
        std::size_t lines;
        bool isTooLong;
    } cases[] = {
        {"the limit, LF", std::string(maxLine, 'x') + "\nab\n", 2, false},
        {"the limit, CR LF", std::string(maxLine, 'x') + "\r\nab\r\n", 2, false},
        {"the limit, end of file", "ab\n" + std::string(maxLine, 'x'), 2, false},
        {"one more, LF", "ab\n" + std::string(maxLine + 1, 'x') + "\nab\n", 1, true},
        {"one more, end of file", "ab\n" + std::string(maxLine + 1, 'x'), 1, true},
        {"junk", "ab\n" + std::string(5 * maxLine, '\xFF'), 1, true},
        {"junk in UTF-16", "\xFF\xFE" + std::string(5 * maxLine, 'x'), 0, true},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(open(c.bytes)) << c.where;
        EXPECT_EQ(readLines().size(), c.lines) << c.where;
        EXPECT_EQ(io.isLineTooLong(), c.isTooLong) << c.where;
        EXPECT_EQ(io.bytesLeft() == 0, !c.isTooLong) << c.where;
        std::string_view line;
        EXPECT_FALSE(io.next(line)); // and stays so
        EXPECT_TRUE(io.block().empty());
        ASSERT_TRUE(io.rewind());
        EXPECT_FALSE(io.isLineTooLong());
        EXPECT_EQ(readBlocks(100000).size(), c.lines) << c.where;
        EXPECT_EQ(io.isLineTooLong(), c.isTooLong) << c.where;
    }
}

TEST_F(Textio, readsLinesAndBlocksInTurn) {
    ASSERT_TRUE(open("h1\nh2\n1 2\n3 4\nend"));
    std::string_view line;
    ASSERT_TRUE(io.next(line) && io.next(line));
    EXPECT_EQ(line, "h2");
    EXPECT_EQ(io.block(), "1 2\n3 4\nend");
    EXPECT_EQ(io.bytesLeft(), 11U);
    io.consume(4, 1);
    EXPECT_EQ(io.bytesLeft(), 7U);
    ASSERT_TRUE(io.next(line));
    EXPECT_EQ(line, "3 4");
    EXPECT_EQ(io.lineNumber(), 4U);
    EXPECT_EQ(io.block(), "end");
    io.consume(3, 1);
    EXPECT_TRUE(io.block().empty());
    EXPECT_FALSE(io.next(line));
    EXPECT_EQ(io.lineNumber(), 5U);
}

TEST_F(Textio, takesTheEncodingFromMarkCallerOrBytes) {
    const std::wstring depth = L"Глубина";
    const std::string word = encode(depth, cp866);
    const std::wstring koi8 = decode(word, koi8r); // what the caller wants, right or wrong
    const std::string marked = "\xEF\xBB\xBF" + toUtf8(depth);
    const std::string wide = encode(L"Depth, м", utf16le);
    const std::string shortWide = encode(L"м", utf16be);
    const struct {
        const char* where;
        std::string bytes;
        encodings asked;
        encodings used;
        std::wstring text;
    } cases[] = {
        {"bytes", word, detect, cp866, depth},
        {"caller", word, koi8r, koi8r, koi8},
        {"a mark outranks the caller", marked, windows1251, utf8, depth},
        {"UTF-16 without a mark", wide, detect, utf16le, L"Depth, м"},
        {"UTF-16 of the caller", shortWide, utf16be, utf16be, L"м"},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(open(c.bytes, c.asked)) << c.where;
        EXPECT_EQ(name(io.encoding()), name(c.used)) << c.where;
        EXPECT_EQ(io.fileSize(), c.bytes.size()) << c.where;
        EXPECT_EQ(io.head(), c.bytes) << c.where; // the raw bytes
        std::string_view line;
        ASSERT_TRUE(io.next(line)) << c.where;
        EXPECT_EQ(io.wide(line), c.text) << c.where;
    }
    // The sample ends inside a letter of a UTF-8 text that has no line end near it.
    ASSERT_TRUE(open("a\n" + std::string(65533, '.') + toUtf8(L"ж")));
    EXPECT_EQ(name(io.encoding()), "utf-8");
    EXPECT_EQ(io.head().size(), 65536U);
}

TEST_F(Textio, refusesWhatCannotBeRead) {
    EXPECT_FALSE(io.open(folder / L"none.las", detect));
    EXPECT_NE(NORLEX_lastError().find(L"none.las"), std::wstring::npos);
    EXPECT_FALSE(io.open(folder.path(), detect));
    EXPECT_FALSE(io.isOpen());
    std::string_view line;
    EXPECT_FALSE(io.next(line));
    EXPECT_TRUE(io.block().empty());
    EXPECT_FALSE(io.rewind());
    EXPECT_FALSE(io.isLineTooLong());
}
