// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_TESTAPPDIR_H
#define NVR_TEST_TESTAPPDIR_H

#include <QString>
#include <QStringList>

/**
 * The application directory of one test executable (its own build folder,
 * so tests can run in parallel). prepare() gives it empty "nevradat" and
 * "tmp" folders, isolates QSettings from the user's own, and names the
 * organisation; cleanup() removes what prepare() made. Call them from
 * initTestCase() and cleanupTestCase().
 */
class TestAppDir
{
public:
    static void prepare(const QString &organization = QStringLiteral("nvrtests"));
    static void cleanup();
    static QString path();
    /// <application directory>/<relative>
    static QString filePath(const QString &relative);
    /// Empties nevradat and tmp again between test functions.
    static void clearData();
};

#endif
