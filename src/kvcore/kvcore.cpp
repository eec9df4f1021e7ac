// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvcore.h"

#include <QCoreApplication>

namespace {
QString &applicationDirBase()
{
    static QString base;
    return base;
}
}

QString KvCore::dateTimeToString(const QDateTime &dateTime)
{
    return dateTime.toLocalTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

QString KvCore::applicationDirPath()
{
    const QString &base = applicationDirBase();
    return base.isEmpty() ? QCoreApplication::applicationDirPath() : base;
}

void KvCore::setApplicationDirPath(const QString &path)
{
    applicationDirBase() = path;
}
