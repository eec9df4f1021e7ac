// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVFILEUTILS_H
#define KV_KVFILEUTILS_H

#include "kvcore_export.h"

#include <QString>

class KVCORE_EXPORT KvFileUtils
{
public:
    /// True for an existing regular file (a folder of that name is not one).
    static bool fileExists(const QString &path);
};

#endif
