// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PORTLOCK_H
#define NVR_PORTLOCK_H

#include "nvrcore_export.h"

#include <QString>

#include <memory>

class QLockFile;

/**
 * One owner per serial device. Two programs talking to one product at once
 * garble both conversations, so a device is taken with a QLockFile in the
 * temporary folder and, where /run/lock can be written, with the
 * "LCK..<device>" file (the process id as ten digits and a newline) that
 * other serial programs honour. A lock left by a process that is gone is
 * taken over.
 */
class NVRCORE_EXPORT PortLock
{
public:
    PortLock();
    ~PortLock();
    PortLock(const PortLock &) = delete;
    PortLock &operator=(const PortLock &) = delete;

    /**
     * Takes the device (a path; links are followed) for this process. False
     * when another process holds it; holder() then says which.
     */
    bool lock(const QString &device);
    void unlock();
    bool isLocked() const;
    /// "process <pid> (<program>)" of the holder found by the last failed lock(); the program where the system tells.
    QString holder() const;

    /// Where the lock conventions put the lock of a device.
    static QString lockFilePath(const QString &device);
    static QString deviceLockPath(const QString &device);

private:
    bool lockDeviceFile(const QString &path);

    std::unique_ptr<QLockFile> m_lockFile;
    QString m_deviceLock;
    QString m_holder;
};

#endif
