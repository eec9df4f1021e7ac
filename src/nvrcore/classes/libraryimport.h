// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYIMPORT_H
#define NVR_LIBRARYIMPORT_H

#include "nvrcore_export.h"

#include <QCoreApplication>
#include <QList>
#include <QStringList>

class QAbstractItemModel;

/**
 * Merges the user records of another installation's library file into a
 * loaded library and saves the library at once: the radios' and headsets'
 * user file, or one of the equipment libraries' CSV file.
 *
 * Each merged record gets a fresh user id of this library. A record whose
 * identifying columns (company or manufacturer, and model) equal a record
 * already here, ignoring letter case and surrounding blanks, is skipped, as
 * is a second copy within the file; factory records of the other file are
 * ignored. A file that is not such a library is refused with the reason and
 * the library is left as it was. Records that no longer fit (the library is
 * full) are counted and named in the summary.
 *
 * The same class serves the editors' Import action and the command-line
 * tool, so both merge alike.
 */
class NVRCORE_EXPORT LibraryImport
{
    Q_DECLARE_TR_FUNCTIONS(LibraryImport)
public:
    /// target is a library model: an equipment CSV library, the radio table or the headsets.
    explicit LibraryImport(QAbstractItemModel *target);

    /// Whether target is a library this class can merge into.
    bool isSupported() const;
    /// Merges fileName and saves; false (with errorString()) when nothing was merged or saving failed.
    bool importFile(const QString &fileName);

    int imported() const { return m_imported; }
    int skipped() const { return m_skipped; }
    /// Records left out because the library was full.
    int notFitting() const { return m_notFitting; }
    QString errorString() const { return m_error; }
    /// "imported 3, skipped 2 already present"
    QString summary() const;

private:
    enum Kind { Unsupported, Csv, Radios, HeadSets };

    /// The other file's user records, each as the library's column texts; false when it is not such a file.
    bool readCsv(const QString &fileName, QList<QStringList> &records);
    bool readIni(const QString &fileName, const QString &group, QList<QStringList> &records);
    /// The identifying key of a record (the two name columns), folded for comparison.
    static QString key(const QString &company, const QString &model);
    QStringList existingKeys() const;
    /// Appends the record with a new user id; false when the library is full.
    bool append(QStringList record);
    bool save();

    QAbstractItemModel *m_target = nullptr;
    Kind m_kind = Unsupported;
    int m_imported = 0;
    int m_skipped = 0;
    int m_notFitting = 0;
    QString m_error;
};

#endif
