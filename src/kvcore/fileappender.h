// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_FILEAPPENDER_H
#define KV_FILEAPPENDER_H

#include "abstractappender.h"

#include <QFile>

/**
 * Appends each record as one UTF-8 line to a file, opened on the first
 * record and flushed after each. A file that cannot be opened drops the
 * records silently: logging must never stop the application.
 */
class KVCORE_EXPORT FileAppender : public AbstractAppender
{
public:
    explicit FileAppender(const QString &fileName);
    ~FileAppender() override;

    QString fileName() const;
    void append(const LogRecord &record) override;

private:
    QFile m_file;
};

#endif
