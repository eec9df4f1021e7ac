// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "productstableview.h"

#include "kvsortfilterproxymodel.h"

#include <QHeaderView>

ProductsTableView::ProductsTableView(QWidget *parent) : KvTableView(parent), m_proxy(new KvSortFilterProxyModel(this))
{
    setObjectName(QStringLiteral("ProductsTableView"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    // Row numbers mean nothing in a sorted list.
    verticalHeader()->hide();
    // Product numbers sort as people read them ("KX155" before "KX1967").
    m_proxy->setNaturalSort(true);
    KvTableView::setModel(m_proxy);
    setSortingEnabled(true);
}

ProductsTableView::~ProductsTableView() = default;

void ProductsTableView::setModel(QAbstractItemModel *model)
{
    m_proxy->setSourceModel(model);
    sortByColumn(horizontalHeader()->sortIndicatorSection(), horizontalHeader()->sortIndicatorOrder());
    resizeColumnsToContents();
}

KvSortFilterProxyModel *ProductsTableView::proxyModel() const
{
    return m_proxy;
}
