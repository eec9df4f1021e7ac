// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVABSTRACTTABLEMODEL_H
#define KV_KVABSTRACTTABLEMODEL_H

#include "kvcore_export.h"

#include <QAbstractTableModel>
#include <QJsonArray>
#include <QStringList>
#include <QVector>

/**
 * A flat table of rows of column values with buffered edits.
 *
 * The columns are fixed at construction by their keys, which name the
 * members of a row's JSON object (toJsonArray(), insertFromJsonArray()), so
 * the keys must stay stable once files exist. Values are kept as given;
 * the display and edit roles show the same value.
 *
 * setData(), insertRows() and removeRows() change the working rows only;
 * submit() makes them the stored rows and revert() goes back to the stored
 * rows. Rows read by insertFromJsonArray() count as stored.
 *
 * Subclasses give header titles and may override itemIsValid(): invalid
 * cells are not refused, only shown (ItemIsValidRole false and a light red
 * background), so that a user can see and fix them.
 */
class KVCORE_EXPORT KvAbstractTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum ModelOption {
        NoOptions = 0x0,
        ReadOnly = 0x1, ///< no cell is editable through views
    };
    Q_DECLARE_FLAGS(ModelOptions, ModelOption)

    enum Roles { ItemIsValidRole = Qt::UserRole + 1 };

    explicit KvAbstractTableModel(const QStringList &columnKeys, ModelOptions options = NoOptions,
                                  QObject *parent = nullptr);
    ~KvAbstractTableModel() override;

    QStringList columnKeys() const;
    ModelOptions modelOptions() const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Emits dataChanged() for the one cell, and nothing when the value is unchanged.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Inserts rows of null values.
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    /// The validity hook; every cell is valid unless a subclass says otherwise.
    virtual bool itemIsValid(const QModelIndex &index) const;

    /// The rows whose value in column equals value (edit role, exact match), in row order.
    QList<int> findRows(int column, const QVariant &value) const;
    /// Copies every column of the source's row into the target's row.
    bool copy(const QModelIndex &source, const QModelIndex &target);

    /// True after an edit, insertion or removal since the last submit(), revert() or load.
    bool isModified() const;

    /// One object per working row, keyed by columnKeys(); null values become JSON null.
    QJsonArray toJsonArray() const;
    /**
     * Appends one row per object of array (other elements are skipped;
     * missing members give null values) and stores the whole table, so
     * that a table loaded from a file is not modified. Returns the number
     * of rows appended.
     */
    int insertFromJsonArray(const QJsonArray &array);

public Q_SLOTS:
    /// Stores the working rows; always succeeds.
    bool submit() override;
    /// Drops every edit since the last submit() or load.
    void revert() override;

private:
    bool isCell(const QModelIndex &index) const;

    QStringList m_keys;
    ModelOptions m_options;
    QVector<QVector<QVariant>> m_rows;
    QVector<QVector<QVariant>> m_stored;
    bool m_modified = false;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(KvAbstractTableModel::ModelOptions)

#endif
