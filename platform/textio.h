// Reads text files of any encoding in lines, in bounded memory.
#pragma once

#include "ts_strconv.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ts {

// A file as a run of bytes that are ASCII-compatible: single-byte encodings and UTF-8 come as they
// are in the file, UTF-16 and UTF-32 come as UTF-8, a byte-order mark is taken off.
class textio {
public:
    textio();
    ~textio();
    textio(const textio&) = delete;
    textio& operator=(const textio&) = delete;

    // `encoding` detect: from the mark, else from the first 64 KB. A mark outranks every other
    // `encoding` too: it says for certain what the caller can only suppose. False when the file
    // cannot be opened; last error says why.
    [[nodiscard]] bool open(const std::wstring& path, strconv::encodings encoding);
    [[nodiscard]] bool isOpen() const;

    [[nodiscard]] strconv::encodings encoding() const; // the one in use, never detect
    [[nodiscard]] std::uint64_t fileSize() const;      // bytes in the file
    [[nodiscard]] std::string_view head() const;       // raw bytes from its start, up to 64 KB

    // The next line without its end: LF or CR LF, or CR in a file whose first 64 KB have no LF at
    // all. False at the end of the file, or when a line is longer than `maxLine` bytes:
    // isLineTooLong() tells the two apart. The view is good until the next call.
    [[nodiscard]] bool next(std::string_view& line);
    [[nodiscard]] bool isLineTooLong() const;
    [[nodiscard]] std::uint64_t lineNumber() const; // of the line last read, from 1
    static constexpr std::size_t maxLine = std::size_t{1} << 20;

    // The bytes of a line as wide text.
    [[nodiscard]] std::wstring wide(std::string_view line) const;

    // Whole lines that are buffered after the line last read, at least one where the file has
    // one, for a reader that parses in bulk: it tells by consume() how many bytes and lines it
    // took. Every line ends with LF here, whatever the file has, and CR may stand before it; the
    // last line of the file may lack its end. Empty at the end of the file.
    [[nodiscard]] std::string_view block();
    void consume(std::size_t bytes, std::uint64_t lines);

    // Bytes of the file that lie behind what was read so far, for progress and for reserving.
    [[nodiscard]] std::uint64_t bytesLeft() const;

    [[nodiscard]] bool rewind();

private:
    struct state;
    std::unique_ptr<state> m_state;
};

} // namespace ts
