// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SLEEPER_H
#define NVR_SLEEPER_H

#include <QThread>

/// Gives access to the thread-sleep functions; adds nothing else.
class Sleeper : public QThread
{
public:
    using QThread::msleep;
    using QThread::sleep;
    using QThread::usleep;
};

#endif
