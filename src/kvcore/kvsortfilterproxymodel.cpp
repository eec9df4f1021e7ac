// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvsortfilterproxymodel.h"

#include <algorithm>

KvSortFilterProxyModel::KvSortFilterProxyModel(QObject *parent) : QSortFilterProxyModel(parent)
{
}

KvSortFilterProxyModel::~KvSortFilterProxyModel() = default;

QList<int> KvSortFilterProxyModel::searchColumns() const
{
    return m_searchColumns;
}

void KvSortFilterProxyModel::setSearchColumns(const QList<int> &columns)
{
    if (columns == m_searchColumns)
        return;
    m_searchColumns = columns;
    if (!m_searchString.isEmpty())
        invalidateFilter();
}

QString KvSortFilterProxyModel::searchString() const
{
    return m_searchString;
}

bool KvSortFilterProxyModel::isSearchCaseSensitive() const
{
    return m_searchCase == Qt::CaseSensitive;
}

void KvSortFilterProxyModel::setSearchString(const QString &text, bool caseSensitive)
{
    const Qt::CaseSensitivity searchCase = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    if (text == m_searchString && searchCase == m_searchCase)
        return;
    m_searchString = text;
    m_searchCase = searchCase;
    invalidateFilter();
}

bool KvSortFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    if (!QSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent))
        return false;
    const QAbstractItemModel *source = sourceModel();
    if (m_searchString.isEmpty() || !source)
        return true;
    const int columnCount = source->columnCount(sourceParent);
    QList<int> columns = m_searchColumns;
    if (columns.isEmpty()) {
        for (int column = 0; column < columnCount; ++column)
            columns.append(column);
    }
    return std::any_of(columns.cbegin(), columns.cend(), [&](int column) {
        return column >= 0 && column < columnCount
               && source->index(sourceRow, column, sourceParent)
                      .data(Qt::DisplayRole)
                      .toString()
                      .contains(m_searchString, m_searchCase);
    });
}
