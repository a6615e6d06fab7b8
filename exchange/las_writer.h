// Writes the lines of a LAS file in one encoding through a buffer.
#pragma once

#include "NORLEX_lasDescription.h"
#include "ts_strconv.h"

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

// Every line ends in a line feed. A write that fails makes isOK() false from then on; nothing more
// is written. `file` is borrowed.
class las_writer {
public:
    las_writer(std::FILE* file, ts::strconv::encodings encoding);

    void line(std::wstring_view text);

    // One line an entry, "mnemonic.unit value : description", the values right-aligned on the
    // longest of them; nothing else is padded. A line break inside an entry becomes a blank.
    void block(const std::vector<lasDescription>& entries);

    // Pieces of a data line.
    void fixed(double value, int decimals);
    void shortest(double value); // the shortest text that reads back as the same double
    void ascii(std::string_view text);
    void endLine();

    [[nodiscard]] bool flush(); // and tells whether everything was written
    [[nodiscard]] bool isOK() const { return m_ok; }

private:
    char* room(std::size_t bytes); // so many bytes at the buffer's end, to be taken by take()
    void take(const char* end);

    std::FILE* m_file;
    ts::strconv::encodings m_encoding;
    std::vector<char> m_buffer;
    std::size_t m_used = 0;
    bool m_ok = true;
};

// Appends the entries of `more` whose mnemonics `entries` does not have yet.
void addNewEntries(std::vector<lasDescription>& entries, const std::vector<lasDescription>& more);
