// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "logrecord.h"

QString LogRecord::sourcePath(const char *file)
{
    QString path = QString::fromUtf8(file ? file : "");
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    // Keep the path from the project's top folder on: src/, apps/, tests/ or bench/.
    int root = -1;
    for (const char *top : {"/src/", "/apps/", "/tests/", "/bench/"})
        root = qMax(root, int(path.lastIndexOf(QLatin1String(top))));
    if (root >= 0)
        path = path.mid(root + 1);
    else
        path = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot > path.lastIndexOf(QLatin1Char('/')))
        path.truncate(dot);
    return path;
}

QString LogRecord::levelToString(Level level)
{
    switch (level) {
    case Trace: return QStringLiteral("Trace");
    case Debug: return QStringLiteral("Debug");
    case Info: return QStringLiteral("Info");
    case Warning: return QStringLiteral("Warning");
    case Error: return QStringLiteral("Error");
    case Fatal: return QStringLiteral("Fatal");
    }
    return QString();
}

QString LogRecord::toString() const
{
    return QStringLiteral("%1 [%2] %3:%4 <%5> %6")
        .arg(time.toString(QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz")),
             levelToString(level).leftJustified(7), file, QString::number(line), function, message);
}
