// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVPROCESS_H
#define KV_KVPROCESS_H

#include "kvcore_export.h"

#include <QProcess>
#include <QString>

/**
 * Runs one command line to its end and says whether it succeeded: the
 * program started, exited normally and returned 0 within the time-out
 * (30 s unless set). The line is split like a shell would split it, so a
 * path with blanks must be in double quotes. Standard output arrives through
 * readyReadStandardOutput() while the program runs; a subclass connects to
 * it. Failures are logged with the program's error output; success is not.
 *
 * exec() blocks the calling thread until the program ends or times out; a
 * program that outlives the time-out is killed.
 */
class KVCORE_EXPORT KvProcess : public QProcess
{
    Q_OBJECT
public:
    static constexpr int DefaultTimeoutMs = 30000;

    explicit KvProcess(QObject *parent = nullptr);
    ~KvProcess() override;

    bool exec(const QString &commandLine);

    /// Why the latest exec() failed, in the words it logged; empty after a success.
    QString lastError() const;
    /// The program's error output when the latest exec() failed on its exit code.
    QString errorOutput() const;
    /// The line given to the latest exec(), as given.
    QString commandLine() const;
    int timeoutMs() const;
    void setTimeoutMs(int milliseconds);

private:
    bool failed(const QString &reason);

    QString m_commandLine;
    QString m_lastError;
    QString m_errorOutput;
    int m_timeoutMs = DefaultTimeoutMs;
};

#endif
