// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_BENCH_PROCESSTIMING_H
#define NVR_BENCH_PROCESSTIMING_H

#include <QString>
#include <QTextStream>
#include <QVector>

#include <algorithm>

/// Whole-process times of one kind of run, printed as median, minimum and maximum.
class ProcessTiming
{
public:
    /// The rounds asked for in argv[1], or fallback without it; 0 after a usage line when it is not a positive number.
    static int rounds(int argc, char *argv[], int fallback)
    {
        const int rounds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : fallback;
        if (rounds <= 0)
            QTextStream(stderr) << "usage: " << argv[0] << " [rounds > 0]\n";
        return qMax(rounds, 0);
    }

    void add(double ms) { m_ms << ms; }

    double median() const
    {
        QVector<double> sorted = m_ms;
        std::sort(sorted.begin(), sorted.end());
        const int n = sorted.size();
        return n == 0 ? 0 : n % 2 ? sorted[n / 2] : (sorted[n / 2 - 1] + sorted[n / 2]) / 2;
    }

    void print(QTextStream &out, const char *name) const
    {
        const auto [min, max] = std::minmax_element(m_ms.cbegin(), m_ms.cend());
        out << qSetFieldWidth(34) << Qt::left << name << qSetFieldWidth(0) << "median " << median() << " ms, min "
            << *min << " ms, max " << *max << " ms\n";
    }

private:
    QVector<double> m_ms;
};

#endif
