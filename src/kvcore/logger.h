// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_LOGGER_H
#define KV_LOGGER_H

#include "kvcore_export.h"
#include "logrecord.h"

#include <QMutex>
#include <QVector>

class AbstractAppender;

/**
 * The process-wide application logger. It hands every record to each
 * registered appender; with no appender, records are dropped. Appenders are
 * not owned: whoever registers one removes it before deleting it.
 */
class KVCORE_EXPORT Logger
{
public:
    using LogLevel = LogRecord::Level;
    static constexpr LogLevel Trace = LogRecord::Trace;
    static constexpr LogLevel Debug = LogRecord::Debug;
    static constexpr LogLevel Info = LogRecord::Info;
    static constexpr LogLevel Warning = LogRecord::Warning;
    static constexpr LogLevel Error = LogRecord::Error;
    static constexpr LogLevel Fatal = LogRecord::Fatal;

    Logger() = default;
    Logger(const Logger &) = delete;
    Logger &operator=(const Logger &) = delete;

    void registerAppender(AbstractAppender *appender);
    void removeAppender(AbstractAppender *appender);
    QVector<AbstractAppender *> appenders() const;

    void write(const LogRecord &record);
    void write(LogLevel level, const char *file, int line, const char *function, const QString &message);

private:
    mutable QMutex m_mutex;
    QVector<AbstractAppender *> m_appenders;
};

/// The logger of the process; created on first use, never deleted.
KVCORE_EXPORT Logger *cuteLoggerInstance();

#include "cutemessagelogger.h"

#define LOG_TRACE CuteMessageLogger(cuteLoggerInstance(), Logger::Trace, __FILE__, __LINE__, Q_FUNC_INFO).write
#define LOG_DEBUG CuteMessageLogger(cuteLoggerInstance(), Logger::Debug, __FILE__, __LINE__, Q_FUNC_INFO).write
#define LOG_INFO CuteMessageLogger(cuteLoggerInstance(), Logger::Info, __FILE__, __LINE__, Q_FUNC_INFO).write
#define LOG_WARNING CuteMessageLogger(cuteLoggerInstance(), Logger::Warning, __FILE__, __LINE__, Q_FUNC_INFO).write
#define LOG_ERROR CuteMessageLogger(cuteLoggerInstance(), Logger::Error, __FILE__, __LINE__, Q_FUNC_INFO).write
#define LOG_FATAL CuteMessageLogger(cuteLoggerInstance(), Logger::Fatal, __FILE__, __LINE__, Q_FUNC_INFO).write

#endif
