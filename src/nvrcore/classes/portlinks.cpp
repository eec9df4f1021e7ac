// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "portlinks.h"

#include "kvcore.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

QString PortLinks::linkDirectory()
{
    return QDir(KvCore::applicationDirPath()).filePath(QStringLiteral("ports"));
}

QString PortLinks::resolve(const QString &name)
{
    const QFileInfo link(linkPath(name));
    if (link.filePath().isEmpty() || !link.exists())
        return name;
    return link.canonicalFilePath();
}

QString PortLinks::linkPath(const QString &name)
{
    static const QRegularExpression comName(QStringLiteral("^(?:\\\\\\\\\\.\\\\)?(COM\\d+)$"));
    const QRegularExpressionMatch match = comName.match(name);
    return match.hasMatch() ? QDir(linkDirectory()).filePath(match.captured(1)) : QString();
}

QList<QPair<QString, QString>> PortLinks::links()
{
    static const QRegularExpression comName(QStringLiteral("^COM(\\d+)$"));
    QList<QPair<QString, QString>> found;
    const QFileInfoList entries = QDir(linkDirectory()).entryInfoList(QDir::Files | QDir::System);
    for (const QFileInfo &entry : entries) {
        if (comName.match(entry.fileName()).hasMatch() && entry.exists())
            found.append({entry.fileName(), entry.canonicalFilePath()});
    }
    std::sort(found.begin(), found.end(), [](const auto &a, const auto &b) {
        return a.first.mid(3).toInt() < b.first.mid(3).toInt();
    });
    return found;
}
