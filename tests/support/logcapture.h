// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_LOGCAPTURE_H
#define NVR_TEST_LOGCAPTURE_H

#include "captureappender.h"

#include <QStringList>

/**
 * Captures the application log for as long as it lives, so that a test can
 * assert the exact texts, levels, sources and functions of the records.
 */
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    QList<LogRecord> records() const { return m_appender.records(); }
    QStringList messages() const { return m_appender.messages(); }
    QStringList messages(LogRecord::Level level) const { return m_appender.messages(level); }
    /// The records whose text is exactly message.
    QList<LogRecord> find(const QString &message) const;
    bool contains(LogRecord::Level level, const QString &message) const;
    void clear() { m_appender.clear(); }

private:
    CaptureAppender m_appender;
};

#endif
