// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYFILEACTIONS_H
#define NVR_LIBRARYFILEACTIONS_H

#include "nvrcore_export.h"

#include <QCoreApplication>
#include <QList>

class QAbstractItemModel;
class QWidget;

/**
 * The editors' Import and Export: a file dialog, the work (LibraryImport,
 * LibraryExport) and one message box with the outcome. Kept apart from the
 * editor frame so that the frame stays about its buttons and table.
 */
class NVRCORE_EXPORT LibraryFileActions
{
    Q_DECLARE_TR_FUNCTIONS(LibraryFileActions)
public:
    /// Asks for another installation's library file and merges its user records into model; true when merged.
    static bool importInto(QWidget *parent, QAbstractItemModel *model, const QString &libraryName);
    /// Asks for a file and writes rows of model (all when empty) as JSON or CSV by its suffix; true when written.
    static bool exportFrom(QWidget *parent, const QAbstractItemModel &model, const QList<int> &rows,
                           const QString &libraryName);
};

#endif
