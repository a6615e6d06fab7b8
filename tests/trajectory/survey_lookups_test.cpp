// Look-ups of a survey against plain scans over its stations.
#include "tests/trajectory/survey_fixture.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

// The described look-ups as plain scans over the stations of a survey.
class scannedSurvey {
public:
    explicit scannedSurvey(const NORLEX_inclinometry& incl) : m_incl(incl) {}

    double getAbs(double depth) {
        if (depth < 0.0)
            return m_incl.getAltitude();
        m_active = byDepth(depth);
        return isAt(depth) ? abs(m_active)
                           : (at(m_active) - depth) * cosine(m_active) + abs(m_active);
    }

    double getReal(double absDepth) {
        m_active = byAbsDepth(absDepth);
        return abs(m_active) == absDepth
                   ? at(m_active)
                   : (abs(m_active) - absDepth) / cosine(m_active) + at(m_active);
    }

private:
    double at(std::size_t i) const { return m_incl.getDepthData(i); }
    double abs(std::size_t i) const { return m_incl.getAbsDepthData(i); }
    bool isAt(double depth) const { return at(m_active) == depth; }
    double cosine(std::size_t i) const {
        return std::cos(m_incl.getAngleData(i) * std::acos(-1.0) / 180.0);
    }

    std::size_t byDepth(double depth) const {
        const std::size_t k = m_active;
        if (at(k) == depth)
            return k;
        for (std::size_t i = at(k) > depth ? 0 : k + 1; i < m_incl.getDataCount(); ++i)
            if (at(i) > depth)
                return i == 0 ? 0 : i - 1;
        return m_incl.getDataCount() - 1;
    }

    std::size_t byAbsDepth(double absDepth) const {
        const std::size_t k = m_active;
        if (abs(k) == absDepth)
            return k;
        for (std::size_t i = absDepth > abs(k) ? 0 : k + 1; i < m_incl.getDataCount(); ++i)
            if (absDepth > abs(i))
                return i == 0 ? 0 : i - 1;
        return m_incl.getDataCount() - 1;
    }

    const NORLEX_inclinometry& m_incl;
    std::size_t m_active = 0;
};

} // namespace

// The angles make level, rising and vertical intervals; depths repeat, and some lie above the
// head, where the survey follows the synthetic station. Both directions share the active station.
TEST_F(SurveyTest, looksUpWhatAScanWouldFind) {
    constexpr double angles[] = {0, 0, 10, 60, 90, 90, 120, 180};
    constexpr double steps[] = {0, 0.01, 1, 1, 10, 25};
    for (unsigned int seed = 0; seed < 1500; ++seed) {
        std::mt19937 r(seed);
        const auto pick = [&r](std::size_t end) {
            return std::uniform_int_distribution<std::size_t>(0, end - 1)(r);
        };
        std::vector<inclData> rows(pick(25));
        double depth = seed % 5 == 0 ? -12.0 : 0.0;
        for (auto& row : rows) {
            depth += steps[pick(std::size(steps))];
            row = station(depth, angles[pick(std::size(angles))], 0);
        }
        auto incl = survey(rows);
        scannedSurvey scanned(incl);
        for (int i = 0; i < 120; ++i) {
            const std::size_t s = pick(incl.getDataCount());
            const double beside = i % 3 == 0 ? 0.0 : static_cast<double>(pick(40)) - 20.0;
            // Long runs down and up the hole, then look-ups anywhere.
            const double ordered = (i < 40 ? i : 80 - i) * depth / 40;
            const double measured = i < 80 ? ordered : incl.getDepthData(s) + beside;
            const double absolute = i < 80 ? 100 - ordered : incl.getAbsDepthData(s) + beside;
            ASSERT_EQ(incl.getAbs(measured), scanned.getAbs(measured)) << seed << ' ' << i;
            if (i % 2 == 0)
                continue;
            ASSERT_EQ(incl.getReal(absolute), scanned.getReal(absolute)) << seed << ' ' << i;
        }
    }
}
