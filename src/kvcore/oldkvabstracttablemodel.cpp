// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "oldkvabstracttablemodel.h"

#include "kvabstractdataobject.h"

bool OldKvAbstractTableModel::isRecordIndex(const QModelIndex &index) const
{
    return index.isValid() && index.model() == this && index.row() < m_rows.size()
           && index.column() < m_columnCount;
}

OldKvAbstractTableModel::OldKvAbstractTableModel(QObject *parent) : QAbstractTableModel(parent)
{
}

OldKvAbstractTableModel::~OldKvAbstractTableModel()
{
    qDeleteAll(m_rows);
    qDeleteAll(m_committed);
}

int OldKvAbstractTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int OldKvAbstractTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columnCount;
}

QVariant OldKvAbstractTableModel::data(const QModelIndex &index, int role) const
{
    if (!isRecordIndex(index))
        return QVariant();
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return QVariant();
    return m_rows.at(index.row())->data(index.column());
}

bool OldKvAbstractTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!isRecordIndex(index))
        return false;
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return false;
    KvAbstractDataObject *object = m_rows.at(index.row());
    if (index.column() >= object->fieldCount())
        return false;

    const QVariant before = object->data(index.column());
    object->setData(index.column(), value);
    if (object->data(index.column()) == before)
        return true;
    if (!m_pending) {
        beginEdit();
        // The copy for revert was taken after the change: give it the old value back.
        m_committed.at(index.row())->setData(index.column(), before);
    }
    emitChanged(index);
    return true;
}

Qt::ItemFlags OldKvAbstractTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags result = QAbstractTableModel::flags(index);
    if (!isRecordIndex(index))
        return result;
    if (index.column() < m_rows.at(index.row())->fieldCount())
        result |= Qt::ItemIsEditable;
    return result;
}

bool OldKvAbstractTableModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || row > m_rows.size() || count < 1)
        return false;
    beginEdit();
    beginInsertRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        m_rows.insert(row + i, newDataObject());
    endInsertRows();
    return true;
}

bool OldKvAbstractTableModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || count < 1 || row + count > m_rows.size())
        return false;
    beginEdit();
    beginRemoveRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        delete m_rows.takeAt(row);
    endRemoveRows();
    return true;
}

KvAbstractDataObject *OldKvAbstractTableModel::dataObjectAtRow(int row) const
{
    return m_rows.value(row, nullptr);
}

void OldKvAbstractTableModel::insertFromStrings(const QStringList &strings)
{
    insertFromStringsList({strings});
}

void OldKvAbstractTableModel::insertFromStringsList(const QList<QStringList> &stringsList)
{
    if (stringsList.isEmpty())
        return;
    const int first = m_rows.size();
    beginInsertRows(QModelIndex(), first, first + stringsList.size() - 1);
    for (const QStringList &strings : stringsList) {
        KvAbstractDataObject *object = newDataObject();
        object->fromStringList(strings);
        m_rows.append(object);
        // Loaded rows are not edits: a revert must keep them.
        if (m_pending)
            m_committed.append(newDataObject(object));
    }
    endInsertRows();
}

void OldKvAbstractTableModel::clear()
{
    beginResetModel();
    qDeleteAll(m_rows);
    m_rows.clear();
    qDeleteAll(m_committed);
    m_committed.clear();
    m_pending = false;
    endResetModel();
}

bool OldKvAbstractTableModel::hasPendingEdits() const
{
    return m_pending;
}

bool OldKvAbstractTableModel::submit()
{
    qDeleteAll(m_committed);
    m_committed.clear();
    m_pending = false;
    return true;
}

void OldKvAbstractTableModel::revert()
{
    if (!m_pending)
        return;
    beginResetModel();
    qDeleteAll(m_rows);
    m_rows = m_committed;
    m_committed.clear();
    m_pending = false;
    endResetModel();
}

void OldKvAbstractTableModel::setColumnCount(int count)
{
    m_columnCount = count;
}

void OldKvAbstractTableModel::beginEdit()
{
    if (m_pending)
        return;
    m_committed.reserve(m_rows.size());
    for (const KvAbstractDataObject *object : qAsConst(m_rows))
        m_committed.append(newDataObject(object));
    m_pending = true;
}

void OldKvAbstractTableModel::emitChanged(const QModelIndex &changed)
{
    Q_EMIT dataChanged(changed, changed);
    const int firstComputed = m_rows.at(changed.row())->fieldCount();
    if (firstComputed < m_columnCount)
        Q_EMIT dataChanged(index(changed.row(), firstComputed), index(changed.row(), m_columnCount - 1),
                           {Qt::DisplayRole});
}
