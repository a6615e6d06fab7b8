#include "platform/textio.h"

#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/strconv.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace ts {

namespace {

constexpr std::size_t headSize = std::size_t{1} << 16;
constexpr std::size_t chunkSize = std::size_t{1} << 16;

// A chunk of UTF-16 may grow by a half when it becomes UTF-8.
constexpr std::size_t roomForChunk = 2 * chunkSize;

// Room for a line of the greatest length, its end, and one more chunk.
constexpr std::size_t bufferSize = textio::maxLine + 2 * roomForChunk;

std::size_t unitSize(strconv::encodings encoding) {
    switch (encoding) {
    case strconv::utf16le:
    case strconv::utf16be:
        return 2;
    case strconv::utf32le:
    case strconv::utf32be:
        return 4;
    default:
        return 1;
    }
}

// Whether a unit of UTF-16 is the first half of a character.
bool isHalf(std::string_view unit, strconv::encodings encoding) {
    const auto high = static_cast<unsigned char>(unit[encoding == strconv::utf16be ? 0 : 1]);
    return high >= 0xD8 && high < 0xDC;
}

// The sample up to its last line end, so that no character is cut.
std::string_view wholeLines(std::string_view sample) {
    const std::size_t end = sample.find_last_of("\r\n");
    return end == std::string_view::npos ? sample : sample.substr(0, end + 1);
}

// A carriage return ends a line where the first 64 KB have some and no line feed at all.
// Elsewhere it is a part of the line, or of its end when it stands before the line feed.
bool isCarriageReturnEnd(std::string_view sample) {
    return sample.find('\n') == std::string_view::npos
           && sample.substr(0, sample.size() - (sample.empty() ? 0 : 1)).find('\r')
                  != std::string_view::npos;
}

} // namespace

struct textio::state {
    files::handle file;
    std::uint64_t size = 0;
    std::string head;
    strconv::encodings encoding = strconv::utf8;
    std::size_t markLength = 0;
    bool carriageReturnEnds = false;

    // Line ends in the buffer are line feeds, whatever they are in the file.
    std::unique_ptr<char[]> buffer = std::make_unique_for_overwrite<char[]>(bufferSize);
    std::size_t begin = 0;   // of what was not yet read
    std::size_t scanned = 0; // no line feed between begin and here
    std::size_t end = 0;
    std::string carried;          // bytes of a unit or character that the chunk cut
    std::uint64_t bytesTaken = 0; // from the file
    std::uint64_t linesRead = 0;
    bool lastWasReturn = false;
    bool isAtEnd = false;
    bool isTooLong = false;

    bool start();
    void decide(strconv::encodings asked);
    bool fill();
    std::size_t readRaw(char* to, std::size_t room);
    void appendRaw(std::size_t room);
    void appendUnits();
    void append(std::string_view bytes);
    void markLines(std::size_t from);
    bool findLine(std::size_t& lineEnd);
    bool isShort(std::size_t lineEnd);
    [[nodiscard]] std::string_view lineWithoutEnd(std::size_t lineEnd) const;
};

bool textio::state::start() {
    begin = scanned = end = 0;
    bytesTaken = markLength;
    linesRead = 0;
    carried.clear();
    lastWasReturn = isAtEnd = isTooLong = false;
    if (std::fseek(file.get(), static_cast<long>(markLength), SEEK_SET) == 0)
        return true;
    isAtEnd = true;
    return refuse(L"the file cannot be read from its start again");
}

void textio::state::decide(strconv::encodings asked) {
    const strconv::mark mark = strconv::findMark(head);
    markLength = mark.length;
    const std::string_view sample = std::string_view(head).substr(markLength);
    if (mark.length != 0)
        encoding = mark.encoding;
    else
        encoding = asked != strconv::detect ? asked : strconv::detectEncoding(wholeLines(sample));
    const bool isRaw = unitSize(encoding) == 1;
    carriageReturnEnds = isCarriageReturnEnd(
        isRaw ? std::string(sample) : strconv::toUtf8(strconv::decode(sample, encoding)));
}

std::size_t textio::state::readRaw(char* to, std::size_t room) {
    const std::size_t count = std::fread(to, 1, room, file.get());
    bytesTaken += count;
    isAtEnd = count < room;
    if (std::ferror(file.get()) != 0)
        refuse(L"a text file cannot be read further than " + std::to_wstring(bytesTaken)
               + L" bytes");
    return count;
}

// Makes the line ends of bytes that were just put at `from` line feeds. The carriage return that
// ends a chunk becomes one at once; a line feed that the next chunk begins with belongs to it.
void textio::state::markLines(std::size_t from) {
    if (!carriageReturnEnds || from == end)
        return;
    char* const bytes = buffer.get();
    if (lastWasReturn && bytes[from] == '\n') {
        std::memmove(bytes + from, bytes + from + 1, end - from - 1);
        --end;
    }
    lastWasReturn = end > from && bytes[end - 1] == '\r';
    for (std::size_t i = from; i < end; ++i) {
        if (bytes[i] == '\r' && (i + 1 == end || bytes[i + 1] != '\n'))
            bytes[i] = '\n';
    }
}

void textio::state::appendRaw(std::size_t room) {
    const std::size_t from = end;
    end += readRaw(buffer.get() + end, room);
    markLines(from);
}

void textio::state::appendUnits() {
    std::string chunk(chunkSize, '\0');
    std::copy(carried.begin(), carried.end(), chunk.begin());
    chunk.resize(carried.size()
                 + readRaw(chunk.data() + carried.size(), chunkSize - carried.size()));
    const std::size_t unit = unitSize(encoding);
    std::size_t whole = chunk.size() - chunk.size() % unit;
    if (unit == 2 && whole >= 2 && isHalf(std::string_view(chunk).substr(whole - 2, 2), encoding))
        whole -= 2;
    if (isAtEnd)
        whole = chunk.size();
    carried = chunk.substr(whole);
    append(strconv::toUtf8(strconv::decode(std::string_view(chunk).substr(0, whole), encoding)));
}

void textio::state::append(std::string_view bytes) {
    const std::size_t from = end;
    std::copy(bytes.begin(), bytes.end(), buffer.get() + end);
    end += bytes.size();
    markLines(from);
}

// Reads on, behind what is buffered, which moves to the front. False when there is nothing more,
// or no room, for which more than a longest line must be buffered.
bool textio::state::fill() {
    if (isAtEnd)
        return false;
    if (begin > 0) {
        std::memmove(buffer.get(), buffer.get() + begin, end - begin);
        scanned -= begin;
        end -= begin;
        begin = 0;
    }
    if (bufferSize - end < roomForChunk)
        return false;
    if (unitSize(encoding) == 1) {
        appendRaw(bufferSize - end);
    } else {
        while (!isAtEnd && bufferSize - end >= roomForChunk)
            appendUnits();
    }
    return true;
}

// Finds the line feed that ends the line at `begin`, or the end of the file.
bool textio::state::findLine(std::size_t& lineEnd) {
    do {
        const char* const from = buffer.get() + scanned;
        if (const void* const found = std::memchr(from, '\n', end - scanned)) {
            lineEnd = scanned + static_cast<std::size_t>(static_cast<const char*>(found) - from);
            return isShort(lineEnd);
        }
        scanned = end;
    } while (fill());
    lineEnd = end;
    return end > begin && isShort(lineEnd);
}

bool textio::state::isShort(std::size_t lineEnd) {
    const bool isWhole = lineEnd < end || isAtEnd;
    isTooLong = !isWhole || lineWithoutEnd(lineEnd).size() > maxLine;
    return !isTooLong;
}

std::string_view textio::state::lineWithoutEnd(std::size_t lineEnd) const {
    std::string_view line{buffer.get() + begin, lineEnd - begin};
    while (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

textio::textio() = default;
textio::~textio() = default;

bool textio::open(const std::wstring& path, strconv::encodings encoding) {
    m_state.reset();
    auto fresh = std::make_unique<state>();
    fresh->file = files::openRead(path);
    if (!fresh->file)
        return false;
    std::setvbuf(fresh->file.get(), nullptr, _IONBF, 0); // the buffer here is the only one
    fresh->size = files::size(path).value_or(0);
    fresh->head.resize(headSize);
    fresh->head.resize(std::fread(fresh->head.data(), 1, headSize, fresh->file.get()));
    if (std::ferror(fresh->file.get()) != 0)
        return refuse(L"\"" + path + L"\" cannot be read; a text file is needed");
    fresh->decide(encoding);
    if (!fresh->start())
        return false;
    m_state = std::move(fresh);
    return true;
}

bool textio::isOpen() const {
    return m_state != nullptr;
}

strconv::encodings textio::encoding() const {
    return m_state ? m_state->encoding : strconv::utf8;
}

std::uint64_t textio::fileSize() const {
    return m_state ? m_state->size : 0;
}

std::string_view textio::head() const {
    return m_state ? std::string_view(m_state->head) : std::string_view();
}

bool textio::next(std::string_view& line) {
    line = {};
    std::size_t lineEnd = 0;
    if (!m_state || m_state->isTooLong || !m_state->findLine(lineEnd))
        return false;
    state& s = *m_state;
    line = s.lineWithoutEnd(lineEnd);
    s.begin = s.scanned = std::min(lineEnd + 1, s.end);
    ++s.linesRead;
    return true;
}

bool textio::isLineTooLong() const {
    return m_state && m_state->isTooLong;
}

std::uint64_t textio::lineNumber() const {
    return m_state ? m_state->linesRead : 0;
}

std::wstring textio::wide(std::string_view line) const {
    const strconv::encodings used = encoding();
    return strconv::decode(line, unitSize(used) == 1 ? used : strconv::utf8);
}

std::string_view textio::block() {
    std::size_t lineEnd = 0;
    if (!m_state || m_state->isTooLong || !m_state->findLine(lineEnd))
        return {};
    state& s = *m_state;
    s.scanned = lineEnd;
    const std::string_view all{s.buffer.get() + s.begin, s.end - s.begin};
    if (s.isAtEnd && all.size() <= maxLine)
        return all;
    // No further than a longest line: a longer one is then always met at the front, and refused.
    const std::size_t last = all.rfind('\n', maxLine);
    const std::size_t first = lineEnd - s.begin;
    return all.substr(0, last == std::string_view::npos ? first + 1 : last + 1);
}

void textio::consume(std::size_t bytes, std::uint64_t lines) {
    if (!m_state)
        return;
    state& s = *m_state;
    s.begin = std::min(s.begin + bytes, s.end);
    s.scanned = std::max(s.scanned, s.begin);
    s.linesRead += lines;
}

std::uint64_t textio::bytesLeft() const {
    if (!m_state)
        return 0;
    const state& s = *m_state;
    const std::uint64_t unread = s.size > s.bytesTaken ? s.size - s.bytesTaken : 0;
    return std::min(s.size, unread + (s.end - s.begin) * unitSize(s.encoding));
}

bool textio::rewind() {
    return m_state && m_state->start();
}

} // namespace ts
