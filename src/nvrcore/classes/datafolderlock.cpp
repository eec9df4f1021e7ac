// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "datafolderlock.h"

#include "kvcore.h"
#include "logger.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QSysInfo>

namespace {
/// The name the system gives the running process pid; empty where it does not tell.
QString runningProgramName(qint64 pid)
{
    QFile comm(QStringLiteral("/proc/%1/comm").arg(pid));
    if (!comm.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromLocal8Bit(comm.readAll()).trimmed();
}

QString tr(const char *text)
{
    return QCoreApplication::translate("DataFolderLock", text);
}
}

DataFolderLock::DataFolderLock(const QString &folder) : m_folder(QDir::cleanPath(folder))
{
}

DataFolderLock::~DataFolderLock() = default;

QString DataFolderLock::applicationDataFolder()
{
    return KvCore::applicationDirPath() + QStringLiteral("/nevradat");
}

QString DataFolderLock::lockFileName() const
{
    return m_folder + QStringLiteral("/.lock");
}

bool DataFolderLock::tryLock()
{
    if (isLocked())
        return true;
    m_heldElsewhere = false;
    m_ownerPid = 0;
    m_ownerName.clear();
    m_ownerHost.clear();
    m_error.clear();
    const QString shownFolder = QDir::toNativeSeparators(m_folder);
    if (!QDir().mkpath(m_folder)) {
        m_error = tr("Cannot create the data folder %1.").arg(shownFolder);
        LOG_ERROR(m_error);
        return false;
    }
    auto lock = std::make_unique<QLockFile>(lockFileName());
    // A holder that still runs keeps the folder however long it runs; only a dead one's lock is stale.
    lock->setStaleLockTime(0);
    if (lock->tryLock(0)) {
        m_lock = std::move(lock);
        LOG_INFO(QStringLiteral("Locked the data folder %1").arg(shownFolder));
        return true;
    }
    if (lock->error() != QLockFile::LockFailedError) {
        m_error = tr("Cannot lock the data folder %1: the lock file %2 cannot be written.")
                      .arg(shownFolder, QDir::toNativeSeparators(lockFileName()));
        LOG_ERROR(m_error);
        return false;
    }
    m_heldElsewhere = true;
    QString application;
    lock->getLockInfo(&m_ownerPid, &m_ownerHost, &application);
    const bool here = m_ownerHost.isEmpty() || m_ownerHost == QSysInfo::machineHostName();
    m_ownerName = here && m_ownerPid > 0 ? runningProgramName(m_ownerPid) : QString();
    if (m_ownerName.isEmpty())
        m_ownerName = application;
    const QString program = m_ownerName.isEmpty() ? tr("another program") : m_ownerName;
    m_error = here ? tr("The data folder %1 is in use by %2 (process %3).").arg(shownFolder, program).arg(m_ownerPid)
                   : tr("The data folder %1 is in use by %2 (process %3 on %4).")
                         .arg(shownFolder, program)
                         .arg(m_ownerPid)
                         .arg(m_ownerHost);
    LOG_WARNING(m_error);
    return false;
}

bool DataFolderLock::isLocked() const
{
    return m_lock && m_lock->isLocked();
}

void DataFolderLock::unlock()
{
    m_lock.reset();
}
