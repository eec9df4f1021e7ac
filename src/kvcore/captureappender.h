// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_CAPTUREAPPENDER_H
#define KV_CAPTUREAPPENDER_H

#include "abstractappender.h"

#include <QList>
#include <QStringList>

/// Keeps the records in memory, so that tests can check the exact log texts.
class KVCORE_EXPORT CaptureAppender : public AbstractAppender
{
public:
    void append(const LogRecord &record) override;

    QList<LogRecord> records() const { return m_records; }
    /// The texts of the records, optionally only those of one level.
    QStringList messages() const;
    QStringList messages(LogRecord::Level level) const;
    void clear() { m_records.clear(); }

private:
    QList<LogRecord> m_records;
};

#endif
