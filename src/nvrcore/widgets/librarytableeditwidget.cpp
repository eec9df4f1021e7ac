// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "librarytableeditwidget.h"

#include "widgets/librarytableview.h"

#include <QPushButton>

LibraryTableEditWidget::LibraryTableEditWidget(QWidget *parent) : TableEditWidget(parent)
{
}

LibraryTableEditWidget::~LibraryTableEditWidget() = default;

QAbstractItemModel *LibraryTableEditWidget::libraryModel() const
{
    return m_view ? m_view->model() : nullptr;
}

void LibraryTableEditWidget::setLibrary(LibraryTableView *view, QAbstractItemModel *model, const QString &newToolTip)
{
    m_view = view;
    view->setModel(model);
    setView(view);
    newButton->setToolTip(newToolTip);
}
