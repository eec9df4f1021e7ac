// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "portlock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
const QString runLockDirectory = QStringLiteral("/run/lock");

// "/dev/ttyUSB0" -> "ttyUSB0", "/dev/pts/3" -> "pts_3": one file name per device.
QString deviceKey(const QString &device)
{
    const QFileInfo info(device);
    QString path = info.exists() ? info.canonicalFilePath() : QDir::cleanPath(info.absoluteFilePath());
    if (path.startsWith(QLatin1String("/dev/")))
        path = path.mid(5);
    else if (path.startsWith(QLatin1Char('/')))
        path = path.mid(1);
    return path.replace(QLatin1Char('/'), QLatin1Char('_'));
}

QString describe(qint64 pid)
{
    QFile comm(QStringLiteral("/proc/%1/comm").arg(pid));
    QString program;
    if (comm.open(QIODevice::ReadOnly))
        program = QString::fromLocal8Bit(comm.readAll()).trimmed();
    return program.isEmpty() ? QStringLiteral("process %1").arg(pid)
                             : QStringLiteral("process %1 (%2)").arg(pid).arg(program);
}

bool processAlive(qint64 pid)
{
    return pid > 0 && (::kill(pid_t(pid), 0) == 0 || errno == EPERM);
}
}

PortLock::PortLock() = default;

PortLock::~PortLock()
{
    unlock();
}

QString PortLock::lockFilePath(const QString &device)
{
    return QDir::temp().filePath(QStringLiteral("nvrcore-%1.lock").arg(deviceKey(device)));
}

QString PortLock::deviceLockPath(const QString &device)
{
    return QDir(runLockDirectory).filePath(QStringLiteral("LCK..%1").arg(deviceKey(device)));
}

bool PortLock::lock(const QString &device)
{
    unlock();
    m_holder.clear();
    auto lockFile = std::make_unique<QLockFile>(lockFilePath(device));
    // Only a dead holder makes a lock stale: a session may keep its port for days.
    lockFile->setStaleLockTime(0);
    if (!lockFile->tryLock(0)) {
        qint64 pid = 0;
        QString host, program;
        if (lockFile->error() == QLockFile::LockFailedError && lockFile->getLockInfo(&pid, &host, &program))
            m_holder = describe(pid);
        else
            m_holder = QStringLiteral("an unknown process (%1 cannot be written)").arg(lockFilePath(device));
        return false;
    }
    const QFileInfo runLock(runLockDirectory);
    if (runLock.isDir() && runLock.isWritable() && !lockDeviceFile(deviceLockPath(device))) {
        lockFile->unlock();
        return false;
    }
    m_lockFile = std::move(lockFile);
    return true;
}

bool PortLock::lockDeviceFile(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    for (int attempt = 0; attempt < 2; ++attempt) {
        const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL, 0644);
        if (fd >= 0) {
            const QByteArray pid = QByteArray::number(qint64(::getpid())).rightJustified(10, ' ') + '\n';
            const bool written = ::write(fd, pid.constData(), size_t(pid.size())) == pid.size();
            ::close(fd);
            if (!written) {
                QFile::remove(path);
                return true; // the convention could not be kept here; the lock file still guards us
            }
            m_deviceLock = path;
            return true;
        }
        if (errno != EEXIST)
            return true;
        QFile existing(path);
        const qint64 pid = existing.open(QIODevice::ReadOnly) ? existing.readAll().trimmed().toLongLong() : 0;
        if (processAlive(pid)) {
            m_holder = describe(pid);
            return false;
        }
        QFile::remove(path); // left by a process that is gone
    }
    return true;
}

void PortLock::unlock()
{
    if (!m_deviceLock.isEmpty()) {
        QFile::remove(m_deviceLock);
        m_deviceLock.clear();
    }
    if (m_lockFile)
        m_lockFile->unlock();
    m_lockFile.reset();
}

bool PortLock::isLocked() const
{
    return m_lockFile != nullptr;
}

QString PortLock::holder() const
{
    return m_holder;
}
