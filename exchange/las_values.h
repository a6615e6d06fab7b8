// Reads the data section of a LAS file into its curves.
#pragma once

#include "Tts_vtx_d2.h"
#include "exchange/las_fields.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class NORLEX_lasfileExt;

namespace ts {
class textio;
}

// Memory is taken for as many rows as the rest of the file can hold by the length of the fields at
// its start, never by what the header claims, and only as rows arrive.
class las_values {
public:
    // Both are borrowed. `depthStep` is the header's, 0 where unknown.
    las_values(NORLEX_lasfileExt& file,
               ts::textio& reader,
               lasFields::delimiter declared,
               double depthStep);

    // Reads to the end of the file, or up to the line that begins another section, which is left
    // to be read next.
    void read();

private:
    // A curve's statistics while it is read.
    struct extremes {
        double minimum;
        double maximum;
        std::size_t count;
    };
    template <typename TakeLines>
    void readBlocks(TakeLines takeLines);
    void readUnwrapped();
    void readWrapped();
    template <char separator>
    const char* takeRows(const char* at, const char* end);
    template <char separator>
    const char* takeRow(const char* at);
    void takeOddLine(std::string_view line);
    void splitLine(std::string_view line);
    double toNumber(std::string_view field);
    void storeChecked(std::uint64_t line);
    void store();
    void makeRoom();
    void estimateRows(std::string_view block);
    void finish();
    void skip(std::uint64_t line, std::wstring reason);
    [[nodiscard]] std::wstring badValueReason() const; // of m_row, which has one
    [[nodiscard]] std::wstring fieldsNeeded() const;

    NORLEX_lasfileExt& m_file;
    ts::textio& m_reader;
    lasFields::delimiter m_declared;
    lasFields::delimiter m_delimiter;
    double m_depthStep;
    std::uint64_t m_line = 0; // the one being taken
    std::vector<std::string_view> m_fields;
    std::wstring m_badText; // the first field of a line, or wrapped step, that is no number

    std::vector<double> m_row; // depth, then a value for each curve
    std::vector<Tts_vtx_d2*> m_columns;
    std::vector<extremes> m_extremes;
    std::size_t m_rows = 0;
    std::size_t m_room = 0;     // rows that the columns have now
    std::size_t m_expected = 0; // rows that the file can hold
};
