// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYTABLE_H
#define NVR_LIBRARYTABLE_H

#include <QStringList>

class QAbstractItemModel;

/**
 * The libraries the tool can export, by the name a user types (the stem of
 * the library's data file). Each entry knows how to load its library and
 * how to free it again; adding a library is one entry in the table.
 */
class LibraryTable
{
public:
    struct Entry
    {
        const char *name;
        /// Loads the library from the data directory and returns its table.
        QAbstractItemModel *(*open)();
        void (*close)();
    };

    static QStringList names();
    /// nullptr for an unknown name.
    static const Entry *find(const QString &name);

    /// Header line and one line per row, cells quoted where CSV needs it.
    static QByteArray toCsv(const QAbstractItemModel &model);
    /// An array with one object per row, keyed by the column titles.
    static QByteArray toJson(const QAbstractItemModel &model);
};

#endif
