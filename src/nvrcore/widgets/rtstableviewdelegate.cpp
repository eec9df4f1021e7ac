// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtstableviewdelegate.h"

#include "models/rtstablemodel.h"

#include <QComboBox>

RtsTableViewDelegate::RtsTableViewDelegate(QObject *parent) : QStyledItemDelegate(parent)
{
}

RtsTableViewDelegate::~RtsTableViewDelegate() = default;

QWidget *RtsTableViewDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                            const QModelIndex &index) const
{
    if (!index.isValid() || index.column() != RtsTableModel::TypeColumn)
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto *combo = new QComboBox(parent);
    combo->installEventFilter(const_cast<RtsTableViewDelegate *>(this));
    combo->addItems(index.data(RtsTableModel::TypeNamesRole).toStringList());
    return combo;
}

void RtsTableViewDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *combo = qobject_cast<QComboBox *>(editor);
    if (combo && index.column() == RtsTableModel::TypeColumn)
        combo->setCurrentIndex(index.data(Qt::EditRole).toInt());
    else
        QStyledItemDelegate::setEditorData(editor, index);
}

void RtsTableViewDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    auto *combo = qobject_cast<QComboBox *>(editor);
    if (combo && index.column() == RtsTableModel::TypeColumn)
        model->setData(index, combo->currentIndex(), Qt::EditRole);
    else
        QStyledItemDelegate::setModelData(editor, model, index);
}
