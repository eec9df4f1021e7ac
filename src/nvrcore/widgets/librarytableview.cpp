// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "librarytableview.h"

#include "kvsortfilterproxymodel.h"
#include "widgets/numberdelegate.h"

#include <QHeaderView>

LibraryTableView::LibraryTableView(QWidget *parent) : KvTableView(parent), m_proxy(new KvSortFilterProxyModel(this))
{
    m_proxy->setNaturalSort(true);
    horizontalHeader()->setSortIndicatorShown(true);
    // No column chosen yet: the library's own order.
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    setEditTriggers(QAbstractItemView::DoubleClicked);
    horizontalHeader()->setStretchLastSection(true);
    // The id column numbers the records; row numbers would only compete with it.
    verticalHeader()->hide();
}

LibraryTableView::~LibraryTableView() = default;

void LibraryTableView::setModel(QAbstractItemModel *model)
{
    disconnect(m_resetConnection);
    m_proxy->setSourceModel(model);
    KvTableView::setModel(model ? m_proxy : nullptr);
    if (!model)
        return;
    // A reset that changes the columns (reverting a library whose file has gone) shows them all again.
    m_resetConnection = connect(model, &QAbstractItemModel::modelReset, this, &LibraryTableView::hideComputedColumns);
    resizeColumnsToContents();
    // A saved layout, when known, wins over the sizes just measured.
    restoreState();
}

void LibraryTableView::restoreState()
{
    KvTableView::restoreState();
    hideComputedColumns();
}

void LibraryTableView::setHiddenColumns(const QList<int> &columns)
{
    for (int column : qAsConst(m_hiddenColumns))
        showColumn(column);
    m_hiddenColumns = columns;
    hideComputedColumns();
}

void LibraryTableView::setNumberColumn(int column, double minimum, double maximum, bool whole)
{
    QAbstractItemDelegate *previous = itemDelegateForColumn(column);
    setItemDelegateForColumn(column, new NumberDelegate(minimum, maximum, whole, this));
    delete previous;
}

void LibraryTableView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    // The plain view submits the whole model on Enter and reverts it on Escape.
    if (hint == QAbstractItemDelegate::SubmitModelCache || hint == QAbstractItemDelegate::RevertModelCache)
        hint = QAbstractItemDelegate::NoHint;
    KvTableView::closeEditor(editor, hint);
}

void LibraryTableView::hideComputedColumns()
{
    for (int column : qAsConst(m_hiddenColumns))
        hideColumn(column);
}
