// One curve of a LAS file: its samples, header entries and statistics.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_lasDescription.h"
#include "Tts_vtx_d2.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// A point is (x = sample value, y = its depth), in file order, null values included.
class NORLEX_API NORLEX_lasCurve {
public:
    NORLEX_lasCurve(std::wstring name, std::size_t pointsToReserve);
    NORLEX_lasCurve(const NORLEX_lasCurve&) = default;
    NORLEX_lasCurve(NORLEX_lasCurve&&) noexcept = default;
    NORLEX_lasCurve& operator=(const NORLEX_lasCurve&) = default;
    NORLEX_lasCurve& operator=(NORLEX_lasCurve&&) noexcept = default;
    virtual ~NORLEX_lasCurve() = default;

    void addPoint(const Tts_vtx_d2& point);
    [[nodiscard]] Tts_vtx_d2 getPointByIndex(std::size_t index) const; // (0, 0) past the end
    [[nodiscard]] std::size_t getPointsCount() const;
    [[nodiscard]] std::span<const Tts_vtx_d2> getPoints() const;

    [[nodiscard]] const std::wstring& getName() const;
    [[nodiscard]] const std::wstring& getUnits() const;
    void setUnits(const std::wstring& units);
    [[nodiscard]] const std::wstring& getComment() const;
    void setComment(const std::wstring& comment);

    void addCurveDesc(const std::wstring& mnemonic,
                      const std::wstring& unit,
                      const std::wstring& value,
                      const std::wstring& description);
    [[nodiscard]] std::size_t getCurvesCount() const; // number of descriptions
    [[nodiscard]] lasDescription getCurveDescByIndex(std::size_t index) const;

    // Counts again when `recount`: the count is not reset first, so recounts add up. The mid is
    // the range divided by the count, and the deviation is about it over all points, nulls
    // included: both are required so. Without any value, both ends are the null value.
    void calcStatistic(bool recount);
    [[nodiscard]] double getMinimum() const;
    [[nodiscard]] double getMaximum() const;
    [[nodiscard]] double getMid() const;
    [[nodiscard]] double getStdDev() const;
    [[nodiscard]] std::size_t getCount() const; // values that differ from null by 0.00001 or more

    // Depth of the first and of the last sample; 0.0 without samples.
    [[nodiscard]] double getTop() const;
    [[nodiscard]] double getBot() const;

    [[nodiscard]] double getNodata() const;
    void setNodata(double nullValue);

private:
    friend class las_values; // fills the points and their running statistics while it reads

    static constexpr double nullTolerance = 0.00001; // values closer to null are null

    std::vector<Tts_vtx_d2> m_points;
    std::wstring m_name;
    std::wstring m_units;
    std::wstring m_comment;
    std::vector<lasDescription> m_descriptions;
    double m_minimum;
    double m_maximum;
    double m_mid = 0.0;
    double m_stdDev = 0.0;
    std::size_t m_count = 0;
    double m_nullValue = -999999.0;
};
