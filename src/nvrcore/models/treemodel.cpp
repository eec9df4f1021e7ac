// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "treemodel.h"

#include "ctreeitem.h"

#include <QDebug>

TreeModel::TreeModel(QObject *parent) : QAbstractItemModel(parent)
{
    setObjectName(QStringLiteral("TreeModel"));
}

TreeModel::~TreeModel()
{
    qDebug("TreeModel::~TreeModel()");
    delete m_rootItem;
}

void TreeModel::setRootItem(CTreeItem *root)
{
    beginResetModel();
    delete m_rootItem;
    m_rootItem = root;
    endResetModel();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    CTreeItem *child = getItem(parent)->child(row);
    return child ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex TreeModel::parent(const QModelIndex &index) const
{
    if (!index.isValid())
        return QModelIndex();
    CTreeItem *parentItem = static_cast<CTreeItem *>(index.internalPointer())->parent();
    if (!parentItem || parentItem == m_rootItem)
        return QModelIndex();
    return createIndex(parentItem->row(), 0, parentItem);
}

int TreeModel::rowCount(const QModelIndex &parent) const
{
    if (parent.column() > 0)
        return 0;
    const CTreeItem *item = getItem(parent);
    return item ? item->childCount() : 0;
}

int TreeModel::columnCount(const QModelIndex &parent) const
{
    const CTreeItem *item = getItem(parent);
    return item ? item->columnCount() : 0;
}

QVariant TreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return QVariant();
    return getItem(index)->data(index.column());
}

QVariant TreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && m_rootItem)
        return m_rootItem->data(section);
    return QVariant();
}

bool TreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    getItem(index)->setData(index.column(), value);
    Q_EMIT dataChanged(index, index);
    return true;
}

CTreeItem *TreeModel::getItem(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<CTreeItem *>(index.internalPointer()) : m_rootItem;
}

void TreeModel::refresh()
{
    beginResetModel();
    if (m_rootItem)
        m_rootItem->deleteChildren();
    endResetModel();
}
