// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_HEADSETSMODEL_H
#define NVR_HEADSETSMODEL_H

#include "nvrcore_export.h"

#include <QAbstractTableModel>
#include <QVector>

class KvIniFile;

/**
 * The library of pilot headsets: manufacturer, model, the level the phones
 * need, their impedance and the level the microphone delivers, each with a
 * description, plus a computed summary column for selection lists.
 *
 * Records with ids below 200 are the factory ("base") headsets, kept in
 * nevradat/headsetsbase.dat and read-only; ids from 200 are the user's, kept
 * in nevradat/headsetsuser.dat together with the next user id, which only
 * grows (ids of removed records are not given out again). Both are INI files
 * with one group "HeadSets". Base records must precede user records in the
 * table, which reading and rebuilding guarantee.
 *
 * Edits of user records are checked (manufacturer plus model unique, levels
 * numeric and in range) and refusals are shown in warning boxes. submit()
 * saves the user file, submitAll() both files, revert() re-reads them.
 *
 * The constructor does not read: call readData(). Reading without a base
 * file rebuilds it from the built-in factory table (createNew()); the user's
 * records survive that. Malformed files load as far as they go.
 */
class NVRCORE_EXPORT HeadSetsModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column {
        IdColumn,
        ManufacturerColumn,
        ModelColumn,
        PhonesLevelColumn,
        PhonesImpedanceColumn,
        PhonesDescriptionColumn,
        MicLevelColumn,
        MicDescriptionColumn,
        SelectStringColumn,
        ColumnCount
    };

    explicit HeadSetsModel(QObject *parent = nullptr);
    ~HeadSetsModel() override;

    QString baseFileName() const { return m_baseFileName; }
    QString userFileName() const { return m_userFileName; }
    bool isModified() const { return m_modified; }
    /// The id the next new record gets.
    int nextId() const { return m_autoIncId; }
    /// For records appended with appendNew() under user ids: the id the next new record gets.
    void setNextId(int id) { m_autoIncId = id; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;

    /// The row's id; 0 for an invalid index.
    int id(const QModelIndex &index) const;
    bool isBase(const QModelIndex &index) const;
    int baseCount() const;
    int userCount() const;
    QString name(const QModelIndex &index) const;
    QString model(const QModelIndex &index) const;
    double phonesLevel(const QModelIndex &index) const;
    int phonesImpedance(const QModelIndex &index) const;
    double micLevel(const QModelIndex &index) const;

    /// The column-0 index of the record with this id, or an invalid index.
    QModelIndex locate(const unsigned int &id) const;
    /// The column-1 index of the record with exactly this manufacturer and model, or an invalid index.
    QModelIndex locate(const QString &name, const QString &model) const;

    /// Appends a record as it is (no checks); leaves the modified state alone.
    void appendNew(const int &id, const QString &name, const QString &model, const QString &phonesLevel,
                   const QString &phonesImpedance, const QString &phonesDescription, const QString &micLevel,
                   const QString &micDescription);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// The column titles, for either orientation.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Appends one new user record with the default values, whatever row is asked for.
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    void clear();
    void readData();
    /// Rebuilds the base file from the factory table, keeping the user file's records.
    virtual void createNew();
    /// Writes the base file, then the user file (submit()).
    bool submitAll();
    /**
     * Asks whether to save unsaved changes: true when there are none, when
     * saved, or when discarded (the edits then stay in memory); false on Cancel.
     */
    bool askToSave(const bool &canCancel);

public Q_SLOTS:
    /// Writes the user file and clears the modified state; base records are never written here.
    bool submit() override;
    /// Re-reads both files, dropping unsaved changes.
    void revert() override;

private:
    struct HeadSet
    {
        int id = 0;
        QString name;
        QString model;
        QString phonesLevel;
        QString phonesImpedance;
        QString phonesDescription;
        QString micLevel;
        QString micDescription;
    };

    static HeadSet fromList(const QStringList &list);
    static QStringList toList(const HeadSet &headSet);
    /// The member that holds the text of column; null for the id and the summary.
    static QString HeadSet::*textField(int column);
    /// The records under keys 0 to count - 1 of the open group; missing keys are skipped.
    static QVector<HeadSet> readRecords(const KvIniFile &settings);
    /// Shows why an edit is refused and returns false.
    static bool refuse(const QString &title, const QString &text);
    bool check(const QModelIndex &index, const QString &text) const;
    QString selectString(const HeadSet &headSet) const;

    QVector<HeadSet> m_headSets;
    QString m_baseFileName;
    QString m_userFileName;
    QString m_group;
    QString m_newName;
    QString m_newModel;
    QString m_newPhonesLevel;
    QString m_newPhonesImpedance;
    QString m_newMicLevel;
    bool m_modified = false;
    int m_autoIncId = 200;
    // Set while createNew() runs, so that a base file that cannot be written does not rebuild forever.
    bool m_rebuilding = false;
};

#endif
