// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "sessionlog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>

bool SessionLog::open(const QString &folder, const QString &portName, const QDateTime &start)
{
    close();
    if (!QDir().mkpath(folder)) {
        m_error = QCoreApplication::translate("SessionLog", "Cannot make the log folder %1.")
                      .arg(QDir::toNativeSeparators(folder));
        return false;
    }
    const QString name = QStringLiteral("%1-%2.log").arg(portName, start.toString(QStringLiteral("yyyyMMdd-HHmmss")));
    m_file.setFileName(QDir(folder).filePath(name));
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) {
        m_error = QCoreApplication::translate("SessionLog", "Cannot write the session log %1: %2")
                      .arg(QDir::toNativeSeparators(m_file.fileName()), m_file.errorString());
        return false;
    }
    m_error.clear();
    return true;
}

void SessionLog::close()
{
    m_file.close();
}

void SessionLog::write(SerialTraffic::Direction direction, const QByteArray &bytes, const QDateTime &time)
{
    writeLine(SerialTraffic::hexLine(direction, bytes), time);
}

void SessionLog::note(const QString &text, const QDateTime &time)
{
    writeLine("-- " + text.toUtf8(), time);
}

void SessionLog::writeLine(const QByteArray &line, const QDateTime &time)
{
    if (!m_file.isOpen())
        return;
    m_file.write(time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz ")).toLatin1() + line + '\n');
    if (!m_file.flush() && m_error.isEmpty())
        m_error = m_file.errorString();
}
