// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_TESTFILES_H
#define NVR_TEST_TESTFILES_H

#include <QByteArray>
#include <QFile>
#include <QSettings>
#include <QString>
#include <QVariant>

/// Whole-file reads and writes for setting up and checking files in tests.
namespace TestFiles {

/// The file's bytes; empty when it cannot be read.
inline QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Replaces the file's content; false when not every byte was written.
inline bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size()
        && file.flush();
}

/// One value of an INI file, key given as "Group/key".
inline QVariant iniValue(const QString &path, const QString &key)
{
    return QSettings(path, QSettings::IniFormat).value(key);
}

}

#endif
