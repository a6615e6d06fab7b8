#include "exchange/exact_notes.h"

#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/strconv.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace exactNotes {

namespace {

constexpr std::wstring_view nullsLine = L"NULL ROWS ARE NO SAMPLES";
constexpr std::wstring_view rowsWord = L"ROWS";
constexpr std::wstring_view nameWord = L"NAME";
constexpr std::wstring_view curveWord = L"CURVE";
constexpr std::wstring_view wellWord = L"WELL";
constexpr std::wstring_view fieldWord = L"FIELD";
constexpr std::size_t rangesInLine = 50;
constexpr std::size_t mostRanges = 1'000'000; // their lines stay below 16 MB

std::wstring joined(std::wstring_view a, std::wstring_view b) {
    std::wstring out(a);
    out += L' ';
    return out += b;
}

// "~" would begin a block for a reader that looks for it anywhere in a line.
std::wstring escapedName(std::wstring_view name) {
    std::wstring out = files::fileName(name);
    for (auto at = out.find(L'~'); at != std::wstring::npos; at = out.find(L'~', at))
        out.replace(at, 1, L"%7E");
    return out;
}

std::wstring text(const row_ranges::range& range) {
    std::wstring first = std::to_wstring(std::uint64_t{range.first} + 1);
    if (range.first == range.last)
        return first;
    return first + L'-' + std::to_wstring(std::uint64_t{range.last} + 1);
}

void addRowLines(std::vector<std::wstring>& out, const std::wstring& start, const curve& of) {
    const auto& ranges = of.missing.ranges();
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        if (i % rangesInLine == 0)
            out.push_back(joined(start, rowsWord));
        out.back() += L' ' + text(ranges[i]);
    }
}

std::wstring_view nextWord(std::wstring_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(L' '), rest.size()));
    const auto word = rest.substr(0, rest.find(L' '));
    rest.remove_prefix(word.size());
    return word;
}

std::optional<std::uint32_t> positive(std::wstring_view digits) {
    const std::string narrow = ts::strconv::toUtf8(digits);
    std::uint32_t number = 0;
    const char* const end = narrow.data() + narrow.size();
    const auto parsed = std::from_chars(narrow.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end || number == 0)
        return std::nullopt;
    return number;
}

void readRows(std::wstring_view rest, row_ranges& rows) {
    for (auto word = nextWord(rest); !word.empty(); word = nextWord(rest)) {
        const auto dash = std::min(word.find(L'-'), word.size());
        const auto first = positive(word.substr(0, dash));
        const auto last = dash == word.size() ? first : positive(word.substr(dash + 1));
        if (first && last && *first <= *last)
            rows.add(*first - 1, *last - 1);
    }
}

// The rest of a line as a name, if the line says NAME.
std::wstring readName(std::wstring_view rest) {
    const bool isName = nextWord(rest) == nameWord && !rest.empty();
    return isName ? files::nameOfFile(rest.substr(1)) : std::wstring();
}

void readCurve(std::wstring_view line, notes& out) {
    const auto number = positive(nextWord(line));
    if (!number || *number > out.curves.size())
        return;
    curve& its = out.curves[*number - 1];
    if (nextWord(line) != its.mnemonic)
        return;
    std::wstring_view rest = line;
    if (nextWord(rest) == rowsWord)
        readRows(rest, its.missing);
    else if (auto name = readName(line); !name.empty())
        its.name = std::move(name);
}

void readLine(std::wstring_view line, notes& out) {
    std::wstring_view rest = line;
    const auto word = nextWord(rest);
    if (line == nullsLine)
        out.nullsAreNoSamples = true;
    else if (word == curveWord)
        readCurve(rest, out);
    else if (word == wellWord)
        out.wellName = readName(rest);
    else if (word == fieldWord)
        out.fieldName = readName(rest);
}

} // namespace

void row_ranges::add(std::uint32_t row) {
    if (!m_ranges.empty() && m_ranges.back().last + 1 == row)
        m_ranges.back().last = row;
    else
        m_ranges.push_back({row, row});
}

void row_ranges::add(std::uint32_t first, std::uint32_t last) {
    m_ranges.push_back({first, last});
}

bool row_ranges::contains(std::uint32_t row) {
    while (m_at < m_ranges.size() && m_ranges[m_at].last < row)
        ++m_at;
    return m_at < m_ranges.size() && m_ranges[m_at].first <= row;
}

bool lines(const notes& of, std::vector<std::wstring>& out) {
    std::size_t ranges = 0;
    for (const auto& one : of.curves)
        ranges += one.missing.ranges().size();
    if (ranges > mostRanges)
        return refuse(
            L"logs of different depths have " + std::to_wstring(ranges)
            + L" gaps, too many for one table; write the logs of each depth column into a "
              L"file of their own");
    if (!of.wellName.empty())
        out.push_back(joined(joined(wellWord, nameWord), escapedName(of.wellName)));
    if (!of.fieldName.empty())
        out.push_back(joined(joined(fieldWord, nameWord), escapedName(of.fieldName)));
    if (of.nullsAreNoSamples)
        out.emplace_back(nullsLine);
    for (std::size_t i = 0; i < of.curves.size(); ++i) {
        const curve& one = of.curves[i];
        const std::wstring start = joined(joined(curveWord, std::to_wstring(i + 1)), one.mnemonic);
        if (!one.name.empty())
            out.push_back(joined(joined(start, nameWord), escapedName(one.name)));
        addRowLines(out, start, one);
    }
    return true;
}

notes read(const std::vector<std::wstring>& otherLines,
           const std::vector<std::wstring>& mnemonics) {
    notes out;
    for (const auto& mnemonic : mnemonics)
        out.curves.push_back({mnemonic, {}, {}});
    for (const auto& line : otherLines)
        readLine(numbers::trimmed(line), out);
    return out;
}

std::wstring mnemonicOf(std::wstring_view name) {
    std::wstring out(name);
    for (wchar_t& c : out)
        if (static_cast<unsigned>(c) <= 0x20
            || std::wstring_view(L".:~\x7F\u00A0").find(c) != std::wstring_view::npos)
            c = L'_';
    if (out.starts_with(L'#'))
        out.front() = L'_';
    return out.empty() ? L"_" : out;
}

} // namespace exactNotes
