// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_CTREEITEM_H
#define NVR_CTREEITEM_H

#include "nvrcore_export.h"

#include <QList>
#include <QVariant>

/**
 * One node of a TreeModel: the values of its columns and its children,
 * which it owns. A node added with appendChild() or insertChild() takes the
 * adding node as its parent. Out-of-range rows and columns are ignored.
 */
class NVRCORE_EXPORT CTreeItem
{
public:
    explicit CTreeItem(const QList<QVariant> &data, CTreeItem *parent = nullptr);
    ~CTreeItem();
    CTreeItem(const CTreeItem &) = delete;
    CTreeItem &operator=(const CTreeItem &) = delete;

    /// Null when row is out of range.
    CTreeItem *child(int row);
    int childCount() const;
    int columnCount() const;
    CTreeItem *parent();
    /// The position among the parent's children: 0 without a parent, -1 when the parent does not list it.
    int row() const;

    QVariant data(int column) const;
    /// Replaces an existing column value; does not add columns.
    void setData(int column, const QVariant &value);

    void appendChild(CTreeItem *child);
    void insertChild(int position, CTreeItem *child);
    /// Deletes the child at row.
    void remove(int row);
    void deleteChildren();
    void deleteChildren(const int &position, const int &count);

    /// The node and its descendants, one per line, indented by two blanks a level from depth on.
    QString toString(int depth);

private:
    QList<QVariant> m_itemData;
    QList<CTreeItem *> m_childItems;
    CTreeItem *m_parentItem;
};

#endif
