// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvabstractviewwidget.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

KvAbstractViewWidget::KvAbstractViewWidget(QWidget *parent) : QWidget(parent)
{
}

KvAbstractViewWidget::~KvAbstractViewWidget() = default;

void KvAbstractViewWidget::setCurrentIndex(const QModelIndex &index)
{
    QAbstractItemView *itemView = view();
    if (!itemView || !itemView->selectionModel())
        return;
    if (!index.isValid()) {
        itemView->selectionModel()->clear();
        return;
    }
    itemView->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect
                                                           | QItemSelectionModel::Rows);
    itemView->scrollTo(index);
}

void KvAbstractViewWidget::readSettings(const QString &group)
{
    Q_UNUSED(group)
}

void KvAbstractViewWidget::saveSettings(const QString &group)
{
    Q_UNUSED(group)
}
