// A sum of doubles that keeps what each addition rounds away.
//
// A. Neumaier, Rundungsfehleranalyse einiger Verfahren zur Summation endlicher Summen, Zeitschrift
// für Angewandte Mathematik und Mechanik 54 (1974), 39-51. The error is about one rounding of the
// result, however many values there are.
#pragma once

#include <cmath>

class compensatedSum {
public:
    void add(double value) {
        const double sum = m_sum + value;
        m_lost +=
            std::abs(m_sum) >= std::abs(value) ? (m_sum - sum) + value : (value - sum) + m_sum;
        m_sum = sum;
    }
    [[nodiscard]] double value() const { return m_sum + m_lost; }

private:
    double m_sum = 0.0;
    double m_lost = 0.0;
};
