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
    m_lastError.clear();
    m_errorOutput.clear();
    const QStringList arguments = QProcess::splitCommand(commandLine);
    if (arguments.isEmpty())
        return failed(QStringLiteral("Empty command line"));
    const QString program = arguments.first();

    // One deadline for starting and running, so the time-out bounds the whole call.
    const QDeadlineTimer deadline(m_timeoutMs < 0 ? QDeadlineTimer::Forever : QDeadlineTimer(m_timeoutMs));
    const auto remainingMs = [&deadline] { return deadline.isForever() ? -1 : int(deadline.remainingTime()); };
    start(program, arguments.mid(1), QIODevice::ReadOnly);
    if (!waitForStarted(remainingMs())) {
        const QString reason = QStringLiteral("Could not start %1: %2").arg(program, errorString());
        // A start that only timed out may still be under way: never leave it behind.
        if (state() != QProcess::NotRunning) {
            kill();
            waitForFinished(-1);
        }
        return failed(reason);
    }
    if (!waitForFinished(remainingMs())) {
        kill();
        waitForFinished(-1);
        return failed(QStringLiteral("%1 did not end within %2 ms and was stopped")
                          .arg(program, QString::number(m_timeoutMs)));
    }
    if (exitStatus() != QProcess::NormalExit)
        return failed(QStringLiteral("%1 crashed").arg(program));
    if (exitCode() != 0) {
        m_errorOutput = QString::fromLocal8Bit(readAllStandardError()).trimmed();
        return failed(QStringLiteral("%1 returned %2: %3").arg(program, QString::number(exitCode()), m_errorOutput));
    }
    return true;
}

bool KvProcess::failed(const QString &reason)
{
    m_lastError = reason;
    LOG_ERROR(reason);
    return false;
}

QString KvProcess::lastError() const
{
    return m_lastError;
}

QString KvProcess::errorOutput() const
{
    return m_errorOutput;
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
