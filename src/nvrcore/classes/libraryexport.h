// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYEXPORT_H
#define NVR_LIBRARYEXPORT_H

#include "nvrcore_export.h"

#include <QByteArray>
#include <QList>

class QAbstractItemModel;
class QString;

/**
 * A library's table as CSV or JSON, with the stored values (not the texts a
 * view shows) so that scripts and spreadsheets get what the file holds.
 * rows limits the output to those rows, in the order given; empty means all.
 */
class NVRCORE_EXPORT LibraryExport
{
public:
    /// Header line and one line per row, cells quoted where CSV needs it.
    static QByteArray toCsv(const QAbstractItemModel &model, const QList<int> &rows = {});
    /// An array with one object per row, keyed by the column titles.
    static QByteArray toJson(const QAbstractItemModel &model, const QList<int> &rows = {});
    /// JSON for a file name ending in ".json" (any letter case), CSV otherwise.
    static QByteArray forFile(const QString &fileName, const QAbstractItemModel &model, const QList<int> &rows = {});
};

#endif
