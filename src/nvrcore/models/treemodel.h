// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TREEMODEL_H
#define NVR_TREEMODEL_H

#include "nvrcore_export.h"

#include <QAbstractItemModel>

class CTreeItem;

/**
 * A read-mostly tree of CTreeItems for views. The root node, which the
 * owner installs with setRootItem(), holds the column titles; its children
 * are the top-level rows. Without a root the model is empty. To rebuild the
 * tree, call refresh() and then append the new nodes to the root.
 */
class NVRCORE_EXPORT TreeModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    explicit TreeModel(QObject *parent = nullptr);
    ~TreeModel() override;

    /// Takes ownership of root and drops the previous one, inside a reset.
    void setRootItem(CTreeItem *root);
    CTreeItem *rootItem() const { return m_rootItem; }

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /// The node of a valid index, else the root.
    CTreeItem *getItem(const QModelIndex &index) const;
    /// Deletes every node below the root inside a reset.
    void refresh();

private:
    CTreeItem *m_rootItem = nullptr;
};

#endif
