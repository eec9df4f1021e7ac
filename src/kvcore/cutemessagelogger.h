// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_CUTEMESSAGELOGGER_H
#define KV_CUTEMESSAGELOGGER_H

#include "kvcore_export.h"
#include "logger.h"

#include <QDebug>
#include <QString>

/**
 * Takes one log record from where it is written (the LOG_* macros) to the
 * logger: either whole through write(text), or piecewise through the stream
 * that write() returns, in which case the record is written when this object
 * goes away at the end of the statement.
 */
class KVCORE_EXPORT CuteMessageLogger
{
public:
    CuteMessageLogger(Logger *logger, Logger::LogLevel level, const char *file, int line, const char *function);
    ~CuteMessageLogger();
    CuteMessageLogger(const CuteMessageLogger &) = delete;
    CuteMessageLogger &operator=(const CuteMessageLogger &) = delete;

    void write(const QString &message);
    void write(const char *message);
    QDebug write();

private:
    Logger *m_logger;
    Logger::LogLevel m_level;
    const char *m_file;
    int m_line;
    const char *m_function;
    QString m_streamed;
    bool m_streaming = false;
};

#endif
