// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "librarytableeditwidget.h"

#include "widgets/librarytableview.h"

#include <QPushButton>
#include <QSortFilterProxyModel>

LibraryTableEditWidget::LibraryTableEditWidget(QWidget *parent) : TableEditWidget(parent)
{
}

LibraryTableEditWidget::~LibraryTableEditWidget() = default;

QAbstractItemModel *LibraryTableEditWidget::libraryModel() const
{
    if (!m_view)
        return nullptr;
    const auto *proxy = qobject_cast<const QSortFilterProxyModel *>(m_view->model());
    return proxy ? proxy->sourceModel() : m_view->model();
}

void LibraryTableEditWidget::setLibrary(LibraryTableView *view, QAbstractItemModel *model, const QString &newToolTip)
{
    m_view = view;
    view->setModel(model);
    setView(view);
    newButton->setToolTip(newToolTip);
}
