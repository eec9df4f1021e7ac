// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_DATAFOLDERLOCK_H
#define NVR_DATAFOLDERLOCK_H

#include "nvrcore_export.h"

#include <QString>

#include <memory>

class QLockFile;

/**
 * Keeps a data folder to one writing program at a time. Two programs that
 * both load the libraries and save them would each write their own copy,
 * and the later save would drop what the earlier one added; so every
 * program that writes libraries holds this lock (a QLockFile named ".lock"
 * in the folder) for as long as it may write.
 *
 * A lock left behind by a process that no longer runs is taken over; a
 * long-running holder is never taken for stale. After a failed tryLock(),
 * ownerPid(), ownerName() and errorString() say who holds the folder, the
 * name taken from the running process where the system tells it (/proc),
 * else from the lock file.
 *
 * Not copyable; the lock is let go by unlock() or the destructor.
 */
class NVRCORE_EXPORT DataFolderLock
{
public:
    explicit DataFolderLock(const QString &folder);
    ~DataFolderLock();
    DataFolderLock(const DataFolderLock &) = delete;
    DataFolderLock &operator=(const DataFolderLock &) = delete;

    /// <application directory>/nevradat, the folder the libraries are read from.
    static QString applicationDataFolder();

    QString folder() const { return m_folder; }
    QString lockFileName() const;

    /// One attempt, without waiting; creates the folder when it is missing.
    bool tryLock();
    bool isLocked() const;
    void unlock();

    /// True after a failed tryLock() when another process holds the folder (not a file-system failure).
    bool isHeldElsewhere() const { return m_heldElsewhere; }
    /// The holder's process id; 0 when unknown.
    qint64 ownerPid() const { return m_ownerPid; }
    /// The holder's program name; empty when unknown.
    QString ownerName() const { return m_ownerName; }
    /// Why the last tryLock() failed, in one sentence for the user; empty after success.
    QString errorString() const { return m_error; }

private:
    QString m_folder;
    std::unique_ptr<QLockFile> m_lock;
    bool m_heldElsewhere = false;
    qint64 m_ownerPid = 0;
    QString m_ownerName;
    QString m_ownerHost;
    QString m_error;
};

#endif
