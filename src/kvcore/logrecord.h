// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_LOGRECORD_H
#define KV_LOGRECORD_H

#include "kvcore_export.h"

#include <QDateTime>
#include <QString>

/**
 * One record of the application log: when, how severe, where it was written
 * (source path from "src/" without extension, line, full function signature)
 * and the text.
 */
struct KVCORE_EXPORT LogRecord
{
    enum Level { Trace, Debug, Info, Warning, Error, Fatal };

    QDateTime time;
    Level level = Info;
    QString file;
    int line = 0;
    QString function;
    QString message;

    /// "src/nvrcore/classes/serialport" for ".../src/nvrcore/classes/serialport.cpp".
    static QString sourcePath(const char *file);
    static QString levelToString(Level level);
    /// One line: time, level, source:line, <function> and the text.
    QString toString() const;
};

#endif
