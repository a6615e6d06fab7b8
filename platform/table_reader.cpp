#include "tableReader.h"

#include "platform/last_error.h"
#include "platform/textio.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace tableRW {

namespace {

constexpr char quote = '"';
constexpr char noQuote = '\0';
constexpr std::string_view separators = ";\t,"; // the likelier, the earlier

// How many of the lines hold the separator outside quotes.
std::size_t linesWith(std::string_view lines, char separator) {
    std::size_t count = 0;
    bool isQuoted = false;
    bool isFound = false;
    for (const char c : lines) {
        if (c == quote)
            isQuoted = !isQuoted;
        isFound = isFound || (c == separator && !isQuoted);
        if (c == '\n') {
            count += isFound ? 1U : 0U;
            isFound = isQuoted = false;
        }
    }
    return count + (isFound ? 1U : 0U);
}

// A table of one column has no separator: any will do. The comma comes last, for it stands inside
// numbers too.
char findSeparator(std::string_view block) {
    constexpr std::size_t sampleSize = std::size_t{1} << 14;
    const std::string_view sample = block.substr(0, sampleSize);
    const std::array counts{linesWith(sample, separators[0]),
                            linesWith(sample, separators[1]),
                            linesWith(sample, separators[2])};
    const std::size_t most = *std::max_element(counts.begin(), counts.end());
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] * 2 >= most)
            return separators[i];
    }
    return separators.front();
}

bool hasQuotedCell(std::string_view line, char separator) {
    bool isAtBegin = true;
    for (const char c : line) {
        if (isAtBegin && c == quote)
            return true;
        isAtBegin = c == separator || (isAtBegin && (c == ' ' || c == '\t'));
    }
    return false;
}

} // namespace

struct tableReader::state {
    state() { csv_init(&parser, CSV_STRICT); }
    ~state() { csv_free(&parser); }
    state(const state&) = delete;
    state& operator=(const state&) = delete;

    bool parse(std::string_view line);
    bool readRow();
    bool refuseRow(const std::wstring& why);

    std::wstring path;
    ts::textio io;
    csv_parser parser{};
    std::vector<std::wstring> cells;
    std::uint64_t row = 0;
    std::uint64_t line = 0;
    std::size_t openBytes = 0; // of the row that is being read
    bool isRowEnded = false;
    bool isBroken = false;
};

bool tableReader::state::refuseRow(const std::wstring& why) {
    isBroken = true;
    return refuse(L"line " + std::to_wstring(line) + L" of \"" + path + L"\" is no table row: "
                  + why);
}

bool tableReader::state::parse(std::string_view text) {
    const auto takeCell = [](void* bytes, std::size_t size, void* self) {
        auto& s = *static_cast<state*>(self);
        s.cells.push_back(s.io.wide({static_cast<const char*>(bytes), size}));
    };
    const auto takeEnd = [](int, void* self) { static_cast<state*>(self)->isRowEnded = true; };
    const std::size_t taken =
        csv_parse(&parser, text.data(), text.size(), +takeCell, +takeEnd, this);
    if (taken == text.size())
        return true;
    return refuseRow(L"a quote stands inside a cell or before its end; inside a quoted cell it is "
                     L"written twice");
}

// Reads lines until a row has ended. False at the end of the file or at a broken row.
bool tableReader::state::readRow() {
    const char separator = static_cast<char>(csv_get_delim(&parser));
    bool isOpen = false;
    std::string_view text;
    cells.clear();
    isRowEnded = false;
    while (!isRowEnded && io.next(text)) {
        if (!isOpen) {
            line = io.lineNumber();
            openBytes = 0;
            csv_set_quote(
                &parser,
                static_cast<unsigned char>(hasQuotedCell(text, separator) ? quote : noQuote));
        }
        openBytes += text.size() + 1;
        if (openBytes > ts::textio::maxLine)
            return refuseRow(L"it is longer than 1 MB, or a quote is not closed");
        if (!parse(text) || !parse("\n"))
            return false;
        isOpen = !isRowEnded && (isOpen || hasQuotedCell(text, separator));
    }
    if (io.isLineTooLong()) {
        line = io.lineNumber() + 1;
        return refuseRow(L"it is longer than 1 MB");
    }
    if (isOpen)
        return refuseRow(L"a quote is not closed before the end of the file");
    return isRowEnded;
}

tableReader::tableReader() = default;
tableReader::~tableReader() = default;

bool tableReader::open(const std::wstring& path, const tableOptions& options) {
    m_state.reset();
    if (options.separator != 0 && separators.find(options.separator) == std::string_view::npos)
        return refuse(std::wstring(L"the separator of a table cannot be \"")
                      + static_cast<wchar_t>(options.separator)
                      + L"\": it is \";\", \",\" or a tab");
    auto fresh = std::make_unique<state>();
    fresh->path = path;
    if (!fresh->io.open(path, options.encoding))
        return false;
    const char separator =
        options.separator != 0 ? options.separator : findSeparator(fresh->io.block());
    csv_set_delim(&fresh->parser, static_cast<unsigned char>(separator));
    m_state = std::move(fresh);
    return true;
}

ts::strconv::encodings tableReader::encoding() const {
    return m_state ? m_state->io.encoding() : ts::strconv::utf8;
}

char tableReader::separator() const {
    return m_state ? static_cast<char>(csv_get_delim(&m_state->parser)) : separators.front();
}

bool tableReader::next(std::vector<std::wstring>& cells) {
    cells.clear();
    if (!m_state || m_state->isBroken || !m_state->readRow())
        return false;
    ++m_state->row;
    cells.swap(m_state->cells);
    return true;
}

bool tableReader::isBroken() const {
    return m_state && m_state->isBroken;
}

std::uint64_t tableReader::rowNumber() const {
    return m_state ? m_state->row : 0;
}

std::uint64_t tableReader::lineNumber() const {
    return m_state ? m_state->line : 0;
}

std::uint64_t tableReader::bytesLeft() const {
    return m_state ? m_state->io.bytesLeft() : 0;
}

} // namespace tableRW
