// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "ptypair.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

PtyPair::PtyPair() = default;

PtyPair::~PtyPair()
{
    closePeer();
    stop();
}

QString PtyPair::portA() const
{
    return m_dir.filePath(QStringLiteral("ttyA"));
}

QString PtyPair::portB() const
{
    return m_dir.filePath(QStringLiteral("ttyB"));
}

QString PtyPair::deviceA() const
{
    return QFileInfo(portA()).symLinkTarget();
}

QString PtyPair::deviceB() const
{
    return QFileInfo(portB()).symLinkTarget();
}

bool PtyPair::start(int timeoutMs)
{
    if (!m_dir.isValid()) {
        m_error = QStringLiteral("no temporary folder");
        return false;
    }
    const auto end = [](const QString &link) {
        return QStringLiteral("pty,raw,echo=0,link=%1").arg(link);
    };
    m_socat.setStandardOutputFile(QProcess::nullDevice());
    m_socat.setStandardErrorFile(QProcess::nullDevice());
    m_socat.start(QStringLiteral("socat"), {end(portA()), end(portB())});
    if (!m_socat.waitForStarted(timeoutMs)) {
        m_error = QStringLiteral("socat did not start (is the 'socat' package installed?): ") + m_socat.errorString();
        return false;
    }
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < timeoutMs) {
        if (QFileInfo::exists(portA()) && QFileInfo::exists(portB()))
            return true;
        if (m_socat.state() != QProcess::Running)
            break;
        QThread::msleep(10);
    }
    m_error = QStringLiteral("socat made no pseudo-terminals");
    stop();
    return false;
}

void PtyPair::stop()
{
    if (m_socat.state() != QProcess::NotRunning) {
        m_socat.kill();
        m_socat.waitForFinished(3000);
    }
    // Gone with the device, as an adapter's names go when it is pulled. Left
    // behind, a link would lead to whichever pseudo-terminal gets its number next.
    QFile::remove(portA());
    QFile::remove(portB());
}

bool PtyPair::waitQueuedAtA(int count, int timeoutMs) const
{
    // The input queue belongs to the terminal, so a second descriptor sees it too.
    const int fd = ::open(QFile::encodeName(portA()).constData(), O_RDONLY | O_NOCTTY | O_NONBLOCK);
    if (fd < 0)
        return false;
    QElapsedTimer clock;
    clock.start();
    int queued = 0;
    while ((::ioctl(fd, FIONREAD, &queued) != 0 || queued < count) && clock.elapsed() < timeoutMs)
        QThread::msleep(2);
    ::close(fd);
    return queued >= count;
}

qint64 processCpuMs(qint64 pid)
{
    QFile stat(pid == 0 ? QStringLiteral("/proc/self/stat") : QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return 0;
    // The fields after the parenthesised program name, which may hold blanks.
    const QByteArray line = stat.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    if (fields.size() < 13)
        return 0;
    const qint64 ticks = fields.at(11).toLongLong() + fields.at(12).toLongLong();
    return ticks * 1000 / ::sysconf(_SC_CLK_TCK);
}

bool PtyPair::openPeer()
{
    closePeer();
    m_peer = ::open(QFile::encodeName(portB()).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (m_peer < 0)
        return false;
    termios tio{};
    if (::tcgetattr(m_peer, &tio) == 0) {
        ::cfmakeraw(&tio);
        ::tcsetattr(m_peer, TCSANOW, &tio);
    }
    return true;
}

void PtyPair::closePeer()
{
    if (m_peer >= 0)
        ::close(m_peer);
    m_peer = -1;
}

bool PtyPair::peerWrite(const QByteArray &bytes)
{
    if (m_peer < 0)
        return false;
    qsizetype done = 0;
    QElapsedTimer clock;
    clock.start();
    while (done < bytes.size() && clock.elapsed() < 5000) {
        const ssize_t n = ::write(m_peer, bytes.constData() + done, size_t(bytes.size() - done));
        if (n > 0)
            done += n;
        else if (n < 0 && errno != EAGAIN && errno != EINTR)
            return false;
        else
            QThread::msleep(1);
    }
    return done == bytes.size();
}

QByteArray PtyPair::peerRead(int count, int timeoutMs)
{
    QByteArray got;
    if (m_peer < 0)
        return got;
    QElapsedTimer clock;
    clock.start();
    while (got.size() < count) {
        const qint64 left = timeoutMs - clock.elapsed();
        if (left <= 0)
            break;
        pollfd pfd{m_peer, POLLIN, 0};
        if (::poll(&pfd, 1, int(left)) <= 0)
            break;
        char buffer[4096];
        const ssize_t n = ::read(m_peer, buffer, sizeof buffer);
        if (n > 0)
            got.append(buffer, int(n));
        else if (n == 0 || (errno != EAGAIN && errno != EINTR))
            break;
    }
    return got;
}
