// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_BENCH_BESTSECONDS_H
#define NVR_BENCH_BESTSECONDS_H

#include <QElapsedTimer>
#include <QtGlobal>

/// The fastest of `repeats` runs of work, in seconds: the run least disturbed by the rest of the machine.
template<typename Work>
double bestSeconds(int repeats, Work work)
{
    double best = 1e9;
    for (int i = 0; i < repeats; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        best = qMin(best, timer.nsecsElapsed() / 1e9);
    }
    return best;
}

#endif
