// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SESSIONLOG_H
#define NVR_SESSIONLOG_H

#include "nvrcore_export.h"
#include "serialtraffic.h"

#include <QFile>
#include <QString>

class QDateTime;

/**
 * The record of one terminal session: <port>-<yyyyMMdd-HHmmss>.log in a
 * folder, one line per chunk of traffic with the date, the time to the
 * millisecond, the direction and the bytes in hex and as text, and a line
 * for each change of the connection. Every line reaches the file as it is
 * written, so that a crash or a pulled cable loses nothing already seen.
 */
class NVRCORE_EXPORT SessionLog
{
public:
    /// Starts a new file for portName in folder (made when missing); false with errorString() set.
    bool open(const QString &folder, const QString &portName, const QDateTime &start);
    void close();
    bool isOpen() const { return m_file.isOpen(); }
    QString fileName() const { return m_file.fileName(); }
    QString errorString() const { return m_error; }

    void write(SerialTraffic::Direction direction, const QByteArray &bytes, const QDateTime &time);
    /// A line of the session's own, such as "COM1 connected".
    void note(const QString &text, const QDateTime &time);

private:
    void writeLine(const QByteArray &line, const QDateTime &time);

    QFile m_file;
    QString m_error;
};

#endif
