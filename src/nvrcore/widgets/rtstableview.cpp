// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtstableview.h"

#include "models/rtssortfilterproxymodel.h"
#include "models/rtstablemodel.h"

#include <QHeaderView>

RtsTableView::RtsTableView(QWidget *parent) : KvTableView(parent), m_proxy(new RtsSortFilterProxyModel(this))
{
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setStretchLastSection(true);
    // Row numbers mean nothing in a sorted list.
    verticalHeader()->hide();
    horizontalHeader()->setSortIndicator(RtsTableModel::ManufacturerColumn, Qt::AscendingOrder);
    KvTableView::setModel(m_proxy);
    setSortingEnabled(true);
}

RtsTableView::~RtsTableView() = default;

void RtsTableView::setModel(QAbstractItemModel *model)
{
    m_proxy->setSourceModel(model);
    hideComputedColumns();
    sortByColumn(horizontalHeader()->sortIndicatorSection(), horizontalHeader()->sortIndicatorOrder());
    resizeColumnsToContents();
}

void RtsTableView::restoreState()
{
    KvTableView::restoreState();
    hideComputedColumns();
}

RtsSortFilterProxyModel *RtsTableView::proxyModel() const
{
    return m_proxy;
}

void RtsTableView::hideComputedColumns()
{
    hideColumn(RtsTableModel::IdColumn);
    hideColumn(RtsTableModel::SelectStringColumn);
}
