// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvprocess.h"

#include "logger.h"

#include <QDeadlineTimer>

KvProcess::KvProcess(QObject *parent) : QProcess(parent)
{
}

KvProcess::~KvProcess() = default;

bool KvProcess::exec(const QString &commandLine)
{
    m_commandLine = commandLine;
    const QStringList arguments = QProcess::splitCommand(commandLine);
    if (arguments.isEmpty()) {
        LOG_ERROR(QStringLiteral("Empty command line"));
        return false;
    }
    const QString program = arguments.first();

    // One deadline for starting and running, so the time-out bounds the whole call.
    const QDeadlineTimer deadline(m_timeoutMs < 0 ? QDeadlineTimer::Forever : QDeadlineTimer(m_timeoutMs));
    const auto remainingMs = [&deadline] { return deadline.isForever() ? -1 : int(deadline.remainingTime()); };
    start(program, arguments.mid(1), QIODevice::ReadOnly);
    if (!waitForStarted(remainingMs())) {
        LOG_ERROR(QStringLiteral("Could not start %1: %2").arg(program, errorString()));
        // A start that only timed out may still be under way: never leave it behind.
        if (state() != QProcess::NotRunning) {
            kill();
            waitForFinished(-1);
        }
        return false;
    }
    if (!waitForFinished(remainingMs())) {
        kill();
        waitForFinished(-1);
        LOG_ERROR(QStringLiteral("%1 did not end within %2 ms and was stopped")
                      .arg(program, QString::number(m_timeoutMs)));
        return false;
    }
    if (exitStatus() != QProcess::NormalExit) {
        LOG_ERROR(QStringLiteral("%1 crashed").arg(program));
        return false;
    }
    if (exitCode() != 0) {
        const QString errors = QString::fromLocal8Bit(readAllStandardError()).trimmed();
        LOG_ERROR(QStringLiteral("%1 returned %2: %3").arg(program, QString::number(exitCode()), errors));
        return false;
    }
    return true;
}

QString KvProcess::commandLine() const
{
    return m_commandLine;
}

int KvProcess::timeoutMs() const
{
    return m_timeoutMs;
}

void KvProcess::setTimeoutMs(int milliseconds)
{
    m_timeoutMs = milliseconds;
}
