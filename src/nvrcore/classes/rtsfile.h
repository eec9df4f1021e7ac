// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTSFILE_H
#define NVR_RTSFILE_H

#include "nvrcore_export.h"

#include "models/rt.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <QString>

class KvIniFile;

/**
 * The radio library's files: "radiosbase.dat" (the shipped records, ids 0
 * to 199) and "radiosuser.dat" (the user's records and the next user id) in
 * the data folder, both INI files with one group "Rts". It loads them into
 * the RtsTableModel singleton, writes them back, and knows whether the model
 * holds unsaved changes (which the editors report with setModified()).
 *
 * When either file is missing, the base file is rebuilt from the built-in
 * default table; an existing user file survives that, while edits to base
 * records (their include-in-receivers flag) do not. Malformed files load as
 * far as they go: missing keys read as empty records, counts of 0 and id 0.
 *
 * One instance per process, created and loaded by the first instance() and
 * freed (together with the model) by destroyInstance().
 */
class NVRCORE_EXPORT RtsFile : public QObject
{
    Q_OBJECT
public:
    static RtsFile *instance();
    static void destroyInstance();

    QString baseFileName() const;
    QString userFileName() const;
    bool isModified() const;
    void setModified(const bool &modified);

    /// Appends one record to the model (no check of the id or the values).
    void appendNew(const int &id, const QString &manufacturer, const QString &model, const Rt::RtType &type,
                   const QString &rxLevel, const QString &rxDescription, const QString &txLevel,
                   const QString &txDescription, const int &includeInRxList);

    /// Writes the base records under the keys of their rows; leaves the modified flag alone.
    bool saveBaseFile();
    /// Writes the user records and the next user id, and clears the modified flag.
    bool saveFiles();
    bool saveUserFile();
    /// Offers to save unsaved changes; false when the user cancels (or saving fails).
    bool askToSave();
    void openFiles();
    /// Rebuilds the base file from the default table and reloads.
    void newFile();

Q_SIGNALS:
    void modifiedChanged(const bool &modified);

private:
    explicit RtsFile(QObject *parent = nullptr);
    ~RtsFile() override;

    /// The records under keys 0 to count - 1 of the current group; a missing key gives an empty record.
    static QList<QStringList> readRecords(const KvIniFile &file, int count);
    /// A record that a damaged file's missing key made: it holds no text at all.
    static bool isEmptyRecord(const QStringList &record);
    void appendDefaultTable();

    QString m_baseFileName;
    QString m_userFileName;
    bool m_modified = false;
    // Set while newFile() runs, so that files that cannot be written do not rebuild forever.
    bool m_rebuilding = false;
};

#endif
