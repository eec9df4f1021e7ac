// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_SHIPPEDLIBRARIES_H
#define NVR_TEST_SHIPPEDLIBRARIES_H

#include "classes/rtsfile.h"
#include "models/audiosystemsmodel.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nvrlibraries.h"
#include "testappdir.h"

#include <QDir>
#include <QFile>

/// The libraries as the host ships them, for tests of the editors over them.
namespace ShippedLibraries {

/// Copies the data files found in source (the host's nevradat folder) into the test's data folder.
inline bool install(const QString &source)
{
    const QDir shipped(source);
    for (const QString &name : shipped.entryList(QDir::Files)) {
        if (!QFile::copy(shipped.filePath(name), TestAppDir::filePath(QStringLiteral("nevradat/") + name)))
            return false;
    }
    return true;
}

/// Forgets every library object and the data folder, so that the next test starts afresh.
inline void forget()
{
    AudioSystemsModel::destroyInstance();
    LowImpedanceIntercomsModel::destroyInstance();
    MusicSystemsModel::destroyInstance();
    NvrLibraries::destroyAll();
    RtsFile::destroyInstance();
    TestAppDir::clearData();
}

}

#endif
