// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzzsupport.h"

#include "kvcore.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdlib>

namespace {
QTemporaryDir *s_appDir = nullptr;
}

void FuzzSupport::init()
{
    if (s_appDir)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*=false");
    // QSettings asks for a file's local modification time on every open; without TZ the C library
    // looks at the zone file each time.
    qputenv("TZ", "UTC");
    // The application and its folder live until the process ends: libFuzzer
    // leaves through exit(), and the folder goes with an atexit handler.
    static int argc = 1;
    static char name[] = "nvrfuzz";
    static char *argv[] = {name, nullptr};
    new QApplication(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("NvrFuzz"));
    const QFileInfo shm(QStringLiteral("/dev/shm"));
    s_appDir = shm.isDir() && shm.isWritable() ? new QTemporaryDir(shm.filePath() + QStringLiteral("/nvrfuzz-XXXXXX"))
                                               : new QTemporaryDir;
    std::atexit([] { delete s_appDir; });
    KvCore::setApplicationDirPath(s_appDir->path());
    QDir dir(s_appDir->path());
    dir.mkpath(QStringLiteral("nevradat"));
    dir.mkpath(QStringLiteral("tmp"));
    // Libraries that follow the working directory look there too. libFuzzer
    // reads corpus files by the names it was given, after this: they must be
    // absolute, as run-fuzzers passes them.
    QDir::setCurrent(s_appDir->path());
}

QString FuzzSupport::filePath(const QString &relative)
{
    return QDir(s_appDir->path()).filePath(relative);
}

void FuzzSupport::writeFile(const QString &path, const QByteArray &bytes)
{
    // Unbuffered: one write, without a buffer allocated for it each time.
    QFile file(path);
    if (!file.open(QFile::WriteOnly | QFile::Truncate | QFile::Unbuffered) || file.write(bytes) != bytes.size())
        std::abort();
}

QByteArray FuzzSupport::bytes(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size));
}

QVector<int> FuzzSupport::sampleRows(int first, int end)
{
    constexpr int fromEachEnd = 32;
    QVector<int> rows;
    for (int row = first; row < end; ++row) {
        if (row == first + fromEachEnd && end - first > 2 * fromEachEnd)
            row = end - fromEachEnd;
        rows.append(row);
    }
    return rows;
}

bool FuzzSupport::declaresTooMany(const QString &path, const QString &key)
{
    // More entries than an input of libFuzzer's default length (4096 bytes) can hold.
    constexpr int maximumCount = 1024;
    return QSettings(path, QSettings::IniFormat).value(key).toInt() > maximumCount;
}
