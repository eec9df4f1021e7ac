// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "logcapture.h"

#include "logger.h"

LogCapture::LogCapture()
{
    cuteLoggerInstance()->registerAppender(&m_appender);
}

LogCapture::~LogCapture()
{
    cuteLoggerInstance()->removeAppender(&m_appender);
}

QList<LogRecord> LogCapture::find(const QString &message) const
{
    QList<LogRecord> found;
    for (const LogRecord &record : m_appender.records()) {
        if (record.message == message)
            found.append(record);
    }
    return found;
}

bool LogCapture::contains(LogRecord::Level level, const QString &message) const
{
    return m_appender.messages(level).contains(message);
}
