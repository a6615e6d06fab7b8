// What the blocks of a LAS file cannot say of its logs, as lines of the ~Other block.
//
//   NULL ROWS ARE NO SAMPLES                 logs of different depths share the table
//   CURVE 3 GK_1 ROWS 1-20 35 40-77          but in these rows, from 1, a null is a sample
//   CURVE 3 GK_1 NAME GK.1                   the log's name, which cannot be a mnemonic
//   WELL NAME 12%3A3                         the well's name, which cannot be a value
//   FIELD NAME A%3AB                         the field's
//
// The number counts the curves behind the depth column from 1; a line whose number and mnemonic do
// not name one curve of the file is of an edited file and says nothing. In a name, characters that
// could end a block stand as %XX of their UTF-8 bytes.
#pragma once

#include "NORLEX_lasDescription.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace exactNotes {

// Rows of a curve, as ranges of first and last row from 0.
class row_ranges {
public:
    void add(std::uint32_t row); // rows only grow
    void add(std::uint32_t first, std::uint32_t last);
    // For rows asked after in growing order.
    [[nodiscard]] bool contains(std::uint32_t row);
    [[nodiscard]] bool isEmpty() const { return m_ranges.empty(); }

    struct range {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
    };
    [[nodiscard]] const std::vector<range>& ranges() const { return m_ranges; }

private:
    std::vector<range> m_ranges;
    std::size_t m_at = 0;
};

struct curve {
    std::wstring mnemonic;
    std::wstring name;  // empty: the mnemonic
    row_ranges missing; // samples without a value
};

struct notes {
    bool nullsAreNoSamples = false;
    std::wstring wellName; // empty: as the header says
    std::wstring fieldName;
    std::vector<curve> curves; // of the file, in its order
};

// Refused, with the last error set, where they would make a header that readers do not take: logs
// of different depths, each with more gaps than a million.
[[nodiscard]] bool lines(const notes& of, std::vector<std::wstring>& out);

// `mnemonics` are those of the file's curves.
[[nodiscard]] notes read(const std::vector<std::wstring>& otherLines,
                         const std::vector<std::wstring>& mnemonics);

// The name as a mnemonic that every reader takes back: blanks and what divides the parts of an
// entry become "_"; never empty.
[[nodiscard]] std::wstring mnemonicOf(std::wstring_view name);

} // namespace exactNotes
