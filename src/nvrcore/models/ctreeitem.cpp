// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "ctreeitem.h"

#include <QStringList>

CTreeItem::CTreeItem(const QList<QVariant> &data, CTreeItem *parent) : m_itemData(data), m_parentItem(parent)
{
}

CTreeItem::~CTreeItem()
{
    qDeleteAll(m_childItems);
}

CTreeItem *CTreeItem::child(int row)
{
    return row >= 0 && row < m_childItems.size() ? m_childItems.at(row) : nullptr;
}

int CTreeItem::childCount() const
{
    return m_childItems.size();
}

int CTreeItem::columnCount() const
{
    return m_itemData.size();
}

CTreeItem *CTreeItem::parent()
{
    return m_parentItem;
}

int CTreeItem::row() const
{
    return m_parentItem ? m_parentItem->m_childItems.indexOf(const_cast<CTreeItem *>(this)) : 0;
}

QVariant CTreeItem::data(int column) const
{
    return m_itemData.value(column);
}

void CTreeItem::setData(int column, const QVariant &value)
{
    if (column >= 0 && column < m_itemData.size())
        m_itemData[column] = value;
}

void CTreeItem::appendChild(CTreeItem *child)
{
    child->m_parentItem = this;
    m_childItems.append(child);
}

void CTreeItem::insertChild(int position, CTreeItem *child)
{
    child->m_parentItem = this;
    m_childItems.insert(qBound(0, position, m_childItems.size()), child);
}

void CTreeItem::remove(int row)
{
    if (row >= 0 && row < m_childItems.size())
        delete m_childItems.takeAt(row);
}

void CTreeItem::deleteChildren()
{
    qDeleteAll(m_childItems);
    m_childItems.clear();
}

void CTreeItem::deleteChildren(const int &position, const int &count)
{
    if (count < 1 || position < 0)
        return;
    for (int i = 0; i < count && position < m_childItems.size(); ++i)
        delete m_childItems.takeAt(position);
}

QString CTreeItem::toString(int depth)
{
    QStringList values;
    values.reserve(m_itemData.size());
    for (const QVariant &value : qAsConst(m_itemData))
        values.append(value.toString());
    const QString indent(2 * qMax(depth, 0), QLatin1Char(' '));
    QString text = indent + values.join(QLatin1String(" | ")) + QLatin1Char('\n');
    for (CTreeItem *child : qAsConst(m_childItems))
        text += child->toString(depth + 1);
    return text;
}
