// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVCORE_H
#define KV_KVCORE_H

#include "kvcore_export.h"

#include <QDateTime>
#include <QString>

/**
 * Small application-wide helpers: the kind of edit a form is opened for,
 * date formatting, and the application directory that every data path
 * (data folder, work files, tools, options file) is built on.
 */
class KVCORE_EXPORT KvCore
{
public:
    enum EditTypes { EditRecord = 0, NewRecord = 1, CopyRecord = 2 };

    /// Local time as "yyyy-MM-dd hh:mm:ss".
    static QString dateTimeToString(const QDateTime &dateTime);

    /**
     * The folder the application's data lives under: the program's folder,
     * unless the host chose another base with setApplicationDirPath() (an
     * installed host whose program folder is read-only).
     */
    static QString applicationDirPath();
    /// An empty path returns to the program's folder.
    static void setApplicationDirPath(const QString &path);
};

#endif
