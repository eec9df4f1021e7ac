// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvfileutils.h"

#include <QFileInfo>

bool KvFileUtils::fileExists(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && info.isFile();
}
