// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "testappdir.h"

#include "kvcore.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace {
const QStringList &dataFolders()
{
    static const QStringList folders = {QStringLiteral("nevradat"), QStringLiteral("tmp")};
    return folders;
}
}

void TestAppDir::prepare(const QString &organization)
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(organization);
    KvCore::setApplicationDirPath(QString());
    // A run that was killed left its options behind; they must not leak into this one.
    QDir(filePath(organization)).removeRecursively();
    clearData();
}

void TestAppDir::cleanup()
{
    for (const QString &folder : dataFolders())
        QDir(filePath(folder)).removeRecursively();
    QDir(filePath(QCoreApplication::organizationName())).removeRecursively();
}

QString TestAppDir::path()
{
    return KvCore::applicationDirPath();
}

QString TestAppDir::filePath(const QString &relative)
{
    return QDir(path()).filePath(relative);
}

void TestAppDir::clearData()
{
    for (const QString &folder : dataFolders()) {
        QDir dir(filePath(folder));
        dir.removeRecursively();
        QDir(path()).mkpath(folder);
    }
}
