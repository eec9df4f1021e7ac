// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "comboboxdelegate.h"

#include <QComboBox>

ComboBoxDelegate::ComboBoxDelegate(QObject *parent) : QStyledItemDelegate(parent)
{
}

ComboBoxDelegate::~ComboBoxDelegate() = default;

void ComboBoxDelegate::setComboItems(int column, const QStringList &items)
{
    m_items.insert(column, items);
}

QStringList ComboBoxDelegate::comboItems(int column) const
{
    return m_items.value(column);
}

QWidget *ComboBoxDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    if (!index.isValid() || !m_items.contains(index.column()))
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto *combo = new QComboBox(parent);
    combo->setObjectName(QStringLiteral("comboBoxEditor"));
    combo->installEventFilter(const_cast<ComboBoxDelegate *>(this));
    combo->addItems(m_items.value(index.column()));
    return combo;
}

void ComboBoxDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *combo = qobject_cast<QComboBox *>(editor);
    if (combo && m_items.contains(index.column()))
        combo->setCurrentIndex(index.data(Qt::EditRole).toInt()); // a value off the list selects nothing
    else
        QStyledItemDelegate::setEditorData(editor, index);
}

void ComboBoxDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    auto *combo = qobject_cast<QComboBox *>(editor);
    if (combo && m_items.contains(index.column())) {
        // Nothing selected (a value off the list, not changed by the user): the cell keeps its value.
        if (combo->currentIndex() >= 0)
            model->setData(index, combo->currentIndex(), Qt::EditRole);
    }
    else
        QStyledItemDelegate::setModelData(editor, model, index);
}
