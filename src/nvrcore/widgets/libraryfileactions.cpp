// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "libraryfileactions.h"

#include "classes/libraryexport.h"
#include "classes/libraryimport.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSaveFile>

namespace {

QString s_lastFolder;

QString startFolder()
{
    return s_lastFolder.isEmpty() ? QDir::homePath() : s_lastFolder;
}

void remember(const QString &fileName)
{
    s_lastFolder = QFileInfo(fileName).absolutePath();
}

}

bool LibraryFileActions::importInto(QWidget *parent, QAbstractItemModel *model, const QString &libraryName)
{
    LibraryImport merge(model);
    const QString title = tr("Import %1").arg(libraryName);
    if (!merge.isSupported()) {
        QMessageBox::warning(parent, title, tr("%1 has no user records to import.").arg(libraryName));
        return false;
    }
    const QString fileName = QFileDialog::getOpenFileName(
        parent, title, startFolder(), tr("Library files (*.csv *.dat);;All files (*)"));
    if (fileName.isEmpty())
        return false;
    remember(fileName);
    if (!merge.importFile(fileName)) {
        QMessageBox::warning(parent, title, tr("Nothing was imported.\n%1").arg(merge.errorString()));
        return false;
    }
    QMessageBox::information(parent, title, tr("%1: %2.").arg(libraryName, merge.summary()));
    return merge.imported() > 0;
}

bool LibraryFileActions::exportFrom(QWidget *parent, const QAbstractItemModel &model, const QList<int> &rows,
                                    const QString &libraryName)
{
    const QString title = rows.isEmpty() ? tr("Export %1").arg(libraryName)
                                         : rows.size() == 1 ? tr("Export the Selected Record")
                                                            : tr("Export %1 Selected Records").arg(rows.size());
    const QString fileName = QFileDialog::getSaveFileName(parent, title, startFolder(),
                                                          tr("CSV files (*.csv);;JSON files (*.json)"));
    if (fileName.isEmpty())
        return false;
    remember(fileName);
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(LibraryExport::forFile(fileName, model, rows)) < 0
        || !file.commit()) {
        QMessageBox::warning(parent, title, tr("Could not write %1: %2").arg(fileName, file.errorString()));
        return false;
    }
    return true;
}
