// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTSTABLEMODEL_H
#define NVR_RTSTABLEMODEL_H

#include "nvrcore_export.h"

#include "models/rt.h"
#include "oldkvabstracttablemodel.h"

/**
 * The radio library while the application runs: one RtDataObject per row,
 * columns 0 to 8 for its fields and column 9 for a one-line description
 * ("select string") that lists of radios show.
 *
 * Ids 0 to 9 are generic default records, 10 to 199 library records (both
 * "base" records, read-only but for the include-in-receivers flag of a
 * transceiver), 200 and up the user's records. New rows are user records
 * that take their id from a counter; revert() gives the counter back what
 * it was at the last submit(). The list holds at most 255 rows.
 *
 * The process uses one instance (instance()), which RtsFile loads and saves.
 */
class NVRCORE_EXPORT RtsTableModel : public OldKvAbstractTableModel
{
    Q_OBJECT
public:
    enum Column {
        IdColumn = 0,
        ManufacturerColumn,
        ModelColumn,
        TypeColumn,
        RxLevelColumn,
        RxDescriptionColumn,
        TxLevelColumn,
        TxDescriptionColumn,
        IncludeInRxListColumn,
        SelectStringColumn,
        ColumnCount
    };
    /// The role under which every cell lists the type names for editors' drop-down lists.
    static constexpr int TypeNamesRole = Qt::UserRole + 2;
    static constexpr int FirstUserRtId = 200;
    static constexpr int MaximumRowCount = 255;

    explicit RtsTableModel(QObject *parent = nullptr);
    ~RtsTableModel() override;

    static RtsTableModel *instance();
    static void destroyInstance();

    int rtId(const QModelIndex &index) const;
    bool isBaseRt(const QModelIndex &index) const;
    int baseRtsCount() const;
    int userRtsCount() const;
    Rt::RtType rtType(const QModelIndex &index) const;
    /// Receivers always are; other radios when their flag is set.
    bool includeInRxList(const QModelIndex &index) const;
    QString rtName(const QModelIndex &index) const;
    QString rtModel(const QModelIndex &index) const;
    double rxLevel(const QModelIndex &index) const;
    double txLevel(const QModelIndex &index) const;

    int nextUserRtId() const;
    /// Sets the counter and the value revert() returns to; no lower bound, deliberately.
    void setNextUserRtId(const int &id);

    /// The id's row in column 0; the retired ids 56 and 57 find 23 and 24.
    QModelIndex locateRtId(const unsigned &id) const;
    /// The record's index in column 1; invalid when none matches exactly.
    QModelIndex locateRt(const QString &manufacturer, const QString &model) const;

    /// A user record "New Rt" / "Model", a transceiver of 1.00 / 0.100 Vrms, with the next user id.
    KvAbstractDataObject *newDataObject() override;
    KvAbstractDataObject *newDataObject(const KvAbstractDataObject *other) override;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// A new type sets the include flag for a receiver, keeps it for a transceiver, clears it otherwise.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Refuses, with a warning box, while the list holds exactly 255 rows.
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    void clear() override;

public Q_SLOTS:
    bool submit() override;
    void revert() override;

private:
    QVariant displayData(const QModelIndex &index) const;
    QString field(int row, int column) const;

    int m_nextUserRtId = 0;
    int m_savedNextUserRtId = 0;
};

#endif
