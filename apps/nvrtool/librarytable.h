// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYTABLE_H
#define NVR_LIBRARYTABLE_H

#include <QStringList>

class QAbstractItemModel;

/**
 * The libraries the tool can export, by the name a user types (the stem of
 * the library's data file). Each entry knows the files it reads, how to load
 * its library and how to free it again; adding a library is one entry in the
 * table.
 *
 * Some libraries make up and write their files when they are missing; the
 * tool only reads, so problem() must be empty before open() is called.
 */
class LibraryTable
{
public:
    struct Entry
    {
        const char *name;
        /// The files in the data directory that must be there (up to two; nullptr for none).
        const char *files[2];
        /// Loads the library from the data directory and returns its table.
        QAbstractItemModel *(*open)();
        void (*close)();
    };

    static QStringList names();
    /// nullptr for an unknown name.
    static const Entry *find(const QString &name);
    /// Why the library cannot be read from dataDirectory without writing to it; empty when it can.
    static QString problem(const Entry &library, const QString &dataDirectory);
};

#endif
