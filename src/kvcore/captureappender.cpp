// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "captureappender.h"

void CaptureAppender::append(const LogRecord &record)
{
    m_records.append(record);
}

QStringList CaptureAppender::messages() const
{
    QStringList texts;
    for (const LogRecord &record : m_records)
        texts.append(record.message);
    return texts;
}

QStringList CaptureAppender::messages(LogRecord::Level level) const
{
    QStringList texts;
    for (const LogRecord &record : m_records) {
        if (record.level == level)
            texts.append(record.message);
    }
    return texts;
}
