// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "logger.h"

#include "abstractappender.h"

#include <QMutexLocker>

#include <algorithm>

void Logger::registerAppender(AbstractAppender *appender)
{
    QMutexLocker lock(&m_mutex);
    if (appender && !m_appenders.contains(appender))
        m_appenders.append(appender);
}

void Logger::removeAppender(AbstractAppender *appender)
{
    QMutexLocker lock(&m_mutex);
    m_appenders.removeAll(appender);
}

QVector<AbstractAppender *> Logger::appenders() const
{
    QMutexLocker lock(&m_mutex);
    return m_appenders;
}

void Logger::write(const LogRecord &record)
{
    QMutexLocker lock(&m_mutex);
    for (AbstractAppender *appender : std::as_const(m_appenders)) {
        if (record.level >= appender->detailsLevel())
            appender->append(record);
    }
}

void Logger::write(LogLevel level, const char *file, int line, const char *function, const QString &message)
{
    // The record's time asks the C library for the time zone, which reads
    // the zone file again on every call: far dearer than the message, so no
    // record is built when no appender would take it.
    {
        QMutexLocker lock(&m_mutex);
        if (std::none_of(m_appenders.cbegin(), m_appenders.cend(),
                         [level](const AbstractAppender *appender) { return level >= appender->detailsLevel(); }))
            return;
    }
    LogRecord record;
    record.time = QDateTime::currentDateTime();
    record.level = level;
    record.file = LogRecord::sourcePath(file);
    record.line = line;
    record.function = QString::fromUtf8(function ? function : "");
    record.message = message;
    write(record);
}

Logger *cuteLoggerInstance()
{
    static Logger *logger = new Logger;
    return logger;
}
