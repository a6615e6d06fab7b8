// Reads what stands around the data of a LAS file: its sections of entries and of text.
#pragma once

#include "NORLEX_lasDescription.h"
#include "exchange/las_fields.h"
#include "exchange/las_sections.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class NORLEX_lasfileExt;

namespace ts {
class textio;
}

class las_header {
public:
    // Both are borrowed.
    las_header(NORLEX_lasfileExt& file, ts::textio& reader);

    // Reads up to the line that begins the data, which is the line last read when there is one,
    // and fills the file. False, with the reason, for what is no log.
    [[nodiscard]] bool read(const std::wstring& path);
    [[nodiscard]] bool hasData() const;

    // What the DLM entry of version 3.0 says separates the fields.
    [[nodiscard]] lasFields::delimiter declaredDelimiter() const;

    // The sections behind the data, of which parameters and other information are taken.
    void readAfterData();

    // The mnemonic ends at the first ".", the unit at the first blank behind it, the value at the
    // first ":", where the description begins. A line without "." before its ":" has neither unit
    // nor value; a line with neither is an empty record.
    [[nodiscard]] static lasDescription parceDescription(std::wstring_view line);

    static constexpr std::size_t largestHeader = std::size_t{16} << 20;
    static constexpr std::size_t mostLines = std::size_t{1} << 20;
    static constexpr std::size_t furthestTitle = std::size_t{1} << 20; // of the first section
    static constexpr std::size_t mostCurves = 65536;

private:
    struct headerLine {
        std::uint64_t number = 0;
        std::size_t begin = 0; // in m_text
        std::size_t length = 0;
    };
    [[nodiscard]] bool readLines(const std::wstring& path);
    [[nodiscard]] bool checkCurves(const std::wstring& path) const;
    [[nodiscard]] std::string_view text(const headerLine& line) const;
    [[nodiscard]] std::string_view getStringByID(char tag, std::string_view mnemonic) const;
    void takeVersion();
    void takeLine(std::uint64_t number, std::string_view line);
    void takeTitle(std::uint64_t number, std::string_view title);
    void takeEntry(std::uint64_t number, std::string_view line);
    void takeWellEntry(const lasDescription& entry);
    void takeCurves();
    void closeUnread();

    NORLEX_lasfileExt& m_file;
    ts::textio& m_reader;
    std::string m_text; // all lines, one behind the other
    std::vector<headerLine> m_lines;
    bool m_hasData = false;
    bool m_afterData = false;
    lasSections::kind m_section = lasSections::kind::none;
    std::vector<lasDescription> m_curveEntries; // the depth column first
    std::wstring m_delimiterName;
    // The section being passed over.
    std::uint64_t m_unreadLine = 0;
    std::wstring m_unreadTitle;
    std::uint64_t m_unreadCount = 0;
};
