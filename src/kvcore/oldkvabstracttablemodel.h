// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_OLDKVABSTRACTTABLEMODEL_H
#define KV_OLDKVABSTRACTTABLEMODEL_H

#include "kvcore_export.h"

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>

class KvAbstractDataObject;

/**
 * A table model with one KvAbstractDataObject per row, column n showing
 * field n (display and edit role). Columns beyond the fields are left to
 * subclasses for computed values; setColumnCount() says how many there are.
 *
 * Edits are buffered: setData(), insertRows() and removeRows() change the
 * rows at once (views show them), and submit() keeps them while revert()
 * returns to the rows of the last submit. Loading with insertFromStrings(),
 * insertFromStringsList() and clear() is not an edit: revert keeps it.
 * An edit signals dataChanged() for its cell and, since they may depend on
 * any field, for the row's computed columns; setting a field to its current
 * value signals nothing. Cells are signalled one by one, not as a whole
 * row, because a QDataWidgetMapper refills every widget a signal covers and
 * would overwrite what a form has not written yet.
 *
 * Subclasses make their records in newDataObject(), which insertRows() and
 * the loaders call for each new row, and clone them in
 * newDataObject(other), which the edit buffer uses.
 */
class KVCORE_EXPORT OldKvAbstractTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit OldKvAbstractTableModel(QObject *parent = nullptr);
    ~OldKvAbstractTableModel() override;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Display and edit role store into the field of the column; false for other roles and computed columns.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    /// Cells of fields are editable, computed cells are not.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    /// The record of row; null beyond the rows.
    KvAbstractDataObject *dataObjectAtRow(int row) const;
    /// Appends one record made by newDataObject() and filled from strings.
    void insertFromStrings(const QStringList &strings);
    /// Appends one record per entry, in order.
    void insertFromStringsList(const QList<QStringList> &stringsList);
    /// Removes every row and drops buffered edits.
    virtual void clear();
    /// True while there are edits that neither submit() nor revert() has settled.
    bool hasPendingEdits() const;

    /// A new record for a new row.
    virtual KvAbstractDataObject *newDataObject() = 0;
    /// A new record of the same kind with the values of other.
    virtual KvAbstractDataObject *newDataObject(const KvAbstractDataObject *other) = 0;

public Q_SLOTS:
    bool submit() override;
    void revert() override;

protected:
    void setColumnCount(int count);

private:
    bool isRecordIndex(const QModelIndex &index) const;
    void beginEdit();
    void emitChanged(const QModelIndex &changed);

    QList<KvAbstractDataObject *> m_rows;
    // Copies of the rows as they were at the last submit; held only while edits are pending.
    QList<KvAbstractDataObject *> m_committed;
    bool m_pending = false;
    int m_columnCount = 0;
};

#endif
