// Reads one LAS file (CWLS Log ASCII Standard, versions 1.2 and 2.0) into memory.
//
// Format: https://www.cwls.org/wp-content/uploads/2017/02/Las2_Update_Feb2017.pdf
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_lasCurve.h"
#include "NORLEX_lasDescription.h"
#include "ts_strconv.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// A line of a file that was not taken, and why.
struct NORLEX_lasSkippedLine {
    std::uint64_t line = 0; // from 1
    std::wstring reason;
};

// Nothing is validated against the standard. Depths and values are as written, in the file's own
// units and order, the null value included.
class NORLEX_API NORLEX_lasfileExt {
public:
    // Reads the file; isOK() tells whether it could be opened and is a log at all, and the last
    // error why not. With `headerOnly` nothing past the header is read, and no curve has points.
    NORLEX_lasfileExt(const std::wstring& path,
                      bool headerOnly,
                      ts::strconv::encodings encoding = ts::strconv::detect);
    NORLEX_lasfileExt(const NORLEX_lasfileExt&) = default;
    NORLEX_lasfileExt(NORLEX_lasfileExt&&) noexcept = default;
    NORLEX_lasfileExt& operator=(const NORLEX_lasfileExt&) = default;
    NORLEX_lasfileExt& operator=(NORLEX_lasfileExt&&) noexcept = default;
    virtual ~NORLEX_lasfileExt() = default;

    [[nodiscard]] bool isOK() const;
    [[nodiscard]] int getVersion() const;
    [[nodiscard]] bool isVersion2() const;
    [[nodiscard]] const std::wstring& getVersionText() const; // as written
    [[nodiscard]] bool isWrap() const;                        // the value is exactly "YES"
    [[nodiscard]] double getStart() const;
    [[nodiscard]] double getStop() const;
    [[nodiscard]] double getStep() const; // after a full read, 1.0 where the file says 0
    [[nodiscard]] double getNodata() const;
    [[nodiscard]] ts::strconv::encodings getEncoding() const; // the one that was used

    // Curves in file order, the depth column left out. A name that stands twice in the file,
    // compared without case, is followed by "_2", "_3", … from its second occurrence on.
    [[nodiscard]] std::size_t getNumCurves() const;
    void getCurveNames(std::vector<std::wstring>& names) const;
    [[nodiscard]] NORLEX_lasCurve* getCurveByIndex(std::size_t index); // null past the end
    [[nodiscard]] const NORLEX_lasCurve* getCurveByIndex(std::size_t index) const;
    [[nodiscard]] NORLEX_lasCurve* getCurveByName(const std::wstring& name); // null when absent
    [[nodiscard]] const lasDescription& getDepthDescription() const;         // of the depth column

    [[nodiscard]] const std::vector<lasDescription>& getWellInf() const;       // the ~W block
    [[nodiscard]] std::wstring getWellInf(const std::wstring& mnemonic) const; // value of one entry
    // The value of WELL. Version 1.2 has a label there and the name in the entry's description.
    [[nodiscard]] std::wstring getWellName() const;
    [[nodiscard]] const std::vector<lasDescription>& getPosition() const; // of ~W and ~P
    [[nodiscard]] const std::vector<lasDescription>& getMeta() const;     // the ~P block
    [[nodiscard]] std::size_t getMetaCount() const;
    [[nodiscard]] const std::vector<std::wstring>& getOtherInf() const; // the ~O block

    // Whether a mnemonic names a coordinate or an elevation, and what it means.
    [[nodiscard]] static bool isPosition(const std::wstring& mnemonic);
    static bool getPositionComment(const std::wstring& mnemonic, std::wstring& comment);

    void calcStatistic(bool recount); // of every curve

    // Depth steps read, and the lines that held something that was not taken. The list keeps the
    // first 1000; the count is of all. A section that is passed over counts once, by its title.
    [[nodiscard]] std::size_t getRowCount() const;
    [[nodiscard]] const std::vector<NORLEX_lasSkippedLine>& getSkippedLines() const;
    [[nodiscard]] std::uint64_t getSkippedCount() const;

private:
    friend class las_header; // fill the object while they read
    friend class las_values;

    [[nodiscard]] bool
    read(const std::wstring& path, bool headerOnly, ts::strconv::encodings encoding);
    void collectPosition();
    bool countSkipped(); // whether the list of skipped lines has room for one more

    bool m_ok = false;
    int m_version = 2;
    bool m_version2 = true;
    std::wstring m_versionText;
    bool m_wrap = false;
    double m_start = 0.0;
    double m_stop = 0.0;
    double m_step = 0.0;
    double m_nullValue = -999999.0;
    ts::strconv::encodings m_encoding = ts::strconv::detect;
    lasDescription m_depth;
    std::vector<lasDescription> m_wellEntries;
    std::vector<lasDescription> m_positionEntries;
    std::vector<lasDescription> m_metaEntries;
    std::vector<std::wstring> m_otherInformation;
    std::vector<NORLEX_lasCurve> m_curves;
    std::size_t m_rows = 0;
    std::vector<NORLEX_lasSkippedLine> m_skipped;
    std::uint64_t m_skippedCount = 0;
};
