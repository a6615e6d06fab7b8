#include "exchange/las_values.h"

#include "NORLEX_lasfileExt.h"
#include "exchange/las_number.h"
#include "exchange/las_sections.h"
#include "exchange/las_wrapping.h"
#include "platform/numbers.h"
#include "platform/textio.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using lasFields::delimiter;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// Rows are added some at a time, so that what is cleared is written while it is in the cache.
constexpr std::size_t mostRowsAtATime = 512;
constexpr std::size_t pointsAtATime = std::size_t{1} << 15;

constexpr std::size_t rowsAtATime(std::size_t columns) {
    return std::clamp<std::size_t>(pointsAtATime / (columns + 1), 1, mostRowsAtATime);
}

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

unsigned bytesPerCharacter(ts::strconv::encodings encoding) {
    switch (encoding) {
    case ts::strconv::utf16le:
    case ts::strconv::utf16be:
        return 2;
    case ts::strconv::utf32le:
    case ts::strconv::utf32be:
        return 4;
    default:
        return 1;
    }
}

bool isComment(std::string_view line) {
    return line.empty() || line.front() == '#';
}

} // namespace

las_values::las_values(NORLEX_lasfileExt& file,
                       ts::textio& reader,
                       delimiter declared,
                       double depthStep)
    : m_file(file), m_reader(reader), m_declared(declared), m_delimiter(declared),
      m_depthStep(depthStep), m_row(file.m_curves.size() + 1), m_columns(file.m_curves.size()),
      m_extremes(file.m_curves.size(),
                 {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(), 0}) {}

void las_values::read() {
    const auto first = m_reader.block();
    m_delimiter = lasFields::choose(first, m_row.size(), m_declared);
    estimateRows(first);
    if (m_file.m_wrap)
        readWrapped();
    else
        readUnwrapped();
    if (m_reader.isLineTooLong())
        skip(m_reader.lineNumber() + 1, L"it is longer than 1 MB; what follows is not read");
    finish();
}

// `takeLines(at, end)` answers behind the lines it took, and stops at one that begins with "~".
template <typename TakeLines>
void las_values::readBlocks(TakeLines takeLines) {
    std::string lastLine;
    for (bool isTitle = false; !isTitle;) {
        auto block = m_reader.block();
        if (block.empty())
            return;
        const auto whole = block.rfind('\n') + 1; // 0 when there is none
        const bool isCut = whole == 0;
        if (isCut) {
            // the last line of the file, without its end
            lastLine = std::string{block} + '\n';
            block = lastLine;
        } else {
            block = block.substr(0, whole);
        }
        const std::uint64_t before = m_reader.lineNumber();
        m_line = before + 1;
        const char* const end = block.data() + block.size();
        const char* const at = takeLines(block.data(), end);
        isTitle = at != end;
        const auto taken = static_cast<std::size_t>(at - block.data());
        m_reader.consume(isCut && taken > 0 ? taken - 1 : taken, m_line - 1 - before);
    }
}

void las_values::readUnwrapped() {
    readBlocks([this](const char* at, const char* end) {
        return m_delimiter == delimiter::comma ? takeRows<','>(at, end) : takeRows<' '>(at, end);
    });
}

template <char separator>
const char* las_values::takeRows(const char* at, const char* end) {
    while (at != end) {
        if (const char* const behind = takeRow<separator>(at)) {
            store();
            at = behind;
        } else {
            std::string_view rest{at, static_cast<std::size_t>(end - at)};
            const auto line = lasFields::takeLine(rest);
            const auto trimmed = numbers::trimmed(line);
            if (lasSections::isTitle(trimmed))
                return at;
            if (!isComment(trimmed))
                takeOddLine(line);
            at = rest.data();
        }
        ++m_line;
    }
    return at;
}

// A line of as many plain numbers as there should be fields goes into m_row; the answer is behind
// the line. Null for any other.
template <char separator>
const char* las_values::takeRow(const char* at) {
    double* const row = m_row.data();
    const std::size_t width = m_row.size();
    for (std::size_t i = 0; i < width; ++i) {
        while (isBlank(*at))
            ++at;
        at = lasNumber::read(at, row[i]);
        if (at == nullptr)
            return nullptr;
        if constexpr (separator == ' ') {
            if (!isBlank(*at) && *at != '\n')
                return nullptr;
        } else {
            while (isBlank(*at))
                ++at;
            if (i + 1 < width && *at++ != separator)
                return nullptr;
        }
    }
    while (isBlank(*at))
        ++at;
    return *at == '\n' ? at + 1 : nullptr;
}

void las_values::takeOddLine(std::string_view line) {
    splitLine(line);
    if (m_fields.size() != m_row.size())
        return skip(m_line, std::to_wstring(m_fields.size()) + L" fields, " + fieldsNeeded());
    m_badText.clear();
    std::ranges::transform(m_fields, m_row.begin(), [this](auto field) { return toNumber(field); });
    storeChecked(m_line);
}

// A row whose depth is no number is skipped; values that are none become the null value.
void las_values::storeChecked(std::uint64_t line) {
    const auto isBad = [](double value) { return std::isnan(value); };
    if (isBad(m_row.front()))
        return skip(line, L"depth \"" + m_badText + L"\" is no number");
    if (std::ranges::any_of(m_row, isBad)) {
        skip(line, badValueReason());
        std::ranges::replace_if(m_row, isBad, m_file.m_nullValue);
    }
    store();
}

std::wstring las_values::fieldsNeeded() const {
    return m_columns.empty() ? std::wstring{L"but the file names no curves"}
                             : L"a depth step has " + std::to_wstring(m_row.size());
}

// Tabs separate empty fields only where the header says that tabs separate, and a line does not
// split right without them. One before the first field is no separator.
void las_values::splitLine(std::string_view line) {
    if (m_delimiter == delimiter::tab) {
        lasFields::split(line, delimiter::blank, m_fields);
        if (m_file.m_wrap || m_fields.size() == m_row.size())
            return;
    }
    lasFields::split(line, m_delimiter, m_fields);
    if (m_delimiter == delimiter::tab && m_fields.size() == m_row.size() + 1
        && m_fields.front().empty())
        m_fields.erase(m_fields.begin());
}

// NaN when the field is no number. An empty one, between two commas, is an absent value.
double las_values::toNumber(std::string_view field) {
    if (field.empty())
        return m_file.m_nullValue;
    if (const auto value = lasNumber::whole(field, m_delimiter != delimiter::comma))
        return *value;
    if (m_badText.empty())
        m_badText = m_reader.wide(field.substr(0, 40));
    return notANumber;
}

std::wstring las_values::badValueReason() const {
    const auto isBad = [](double value) { return std::isnan(value); };
    const auto first = std::ranges::find_if(m_row, isBad);
    const auto count = std::ranges::count_if(m_row, isBad);
    const auto curve = static_cast<std::size_t>(first - m_row.begin()) - 1;
    return L"value \"" + m_badText + L"\" of curve " + m_file.m_curves[curve].getName()
           + L" is no number"
           + (count > 1 ? L", nor are " + std::to_wstring(count - 1) + L" more of the line"
                        : std::wstring{});
}

void las_values::readWrapped() {
    las_wrapping wrapping(
        m_row.size(),
        m_depthStep,
        [this](std::uint64_t line, std::span<const double> step) {
            std::ranges::copy(step, m_row.begin());
            storeChecked(line);
            m_badText.clear();
        },
        [this](std::uint64_t line, std::wstring reason) {
            skip(line, std::move(reason));
            m_badText.clear();
        });
    std::vector<double> values;
    readBlocks([&](const char* at, const char* end) {
        std::string_view block{at, static_cast<std::size_t>(end - at)};
        for (; !block.empty(); ++m_line) {
            const char* const begin = block.data();
            const auto line = numbers::trimmed(lasFields::takeLine(block));
            if (lasSections::isTitle(line))
                return begin;
            if (isComment(line))
                continue;
            splitLine(line);
            values.clear();
            for (const auto field : m_fields)
                values.push_back(toNumber(field));
            wrapping.take(m_line, values);
        }
        return end;
    });
    wrapping.finish();
}

void las_values::store() {
    if (m_rows == m_room)
        makeRoom();
    const double depth = m_row.front();
    const double null = m_file.m_nullValue;
    const double* const values = m_row.data() + 1;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const double value = values[i];
        m_columns[i][m_rows] = {value, depth};
        auto& [minimum, maximum, count] = m_extremes[i];
        if (std::abs(value - null) >= NORLEX_lasCurve::nullTolerance) {
            minimum = std::min(minimum, value);
            maximum = std::max(maximum, value);
            ++count;
        }
    }
    ++m_rows;
}

void las_values::makeRoom() {
    const std::size_t more = rowsAtATime(m_columns.size());
    if (m_rows >= m_expected)
        m_expected = m_rows + m_rows / 8 + more;
    m_room = std::min(m_rows + more, m_expected);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        auto& points = m_file.m_curves[i].m_points;
        points.reserve(m_expected);
        points.resize(m_room);
        m_columns[i] = points.data();
    }
}

// Rows the rest of the file can hold: a field is at least one byte and what separates it.
void las_values::estimateRows(std::string_view block) {
    constexpr std::size_t sampleSize = std::size_t{1} << 16;
    const auto sample = block.substr(0, sampleSize);
    std::size_t fields = 0;
    unsigned before = 0; // whether the byte before ends a field, too
    for (const char c : sample) {
        const unsigned isEnd = unsigned{isBlank(c)} | unsigned{c == '\n'} | unsigned{c == ','};
        fields += isEnd & ~before;
        before = isEnd;
    }
    const std::uint64_t bytes = m_reader.bytesLeft() / bytesPerCharacter(m_reader.encoding());
    const double perField =
        fields == 0
            ? 2.0
            : std::max(2.0, static_cast<double>(sample.size()) / static_cast<double>(fields));
    const double rows = static_cast<double>(bytes) / (perField * static_cast<double>(m_row.size()));
    constexpr double margin = 1.02; // later fields may be shorter than the first ones
    m_expected = static_cast<std::size_t>(rows * margin) + 1;
}

void las_values::finish() {
    m_file.m_rows = m_rows;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        auto& curve = m_file.m_curves[i];
        curve.m_points.resize(m_rows);
        // What was reserved and never written takes no memory; much of it is given back all the
        // same, because a host may hold many files.
        if (curve.m_points.capacity() > m_rows + m_rows / 8)
            curve.m_points.shrink_to_fit();
        curve.m_minimum = m_extremes[i].minimum;
        curve.m_maximum = m_extremes[i].maximum;
        curve.m_count = m_extremes[i].count;
    }
}

void las_values::skip(std::uint64_t line, std::wstring reason) {
    if (m_file.countSkipped())
        m_file.m_skipped.push_back({line, std::move(reason)});
}
