// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_COMBOBOXDELEGATE_H
#define NVR_COMBOBOXDELEGATE_H

#include "nvrcore_export.h"

#include <QHash>
#include <QStringList>
#include <QStyledItemDelegate>

/**
 * Edits chosen columns with a drop-down list whose positions are the values
 * stored: the list selects the item the cell's value indexes (values past
 * the list select its last item, as the libraries display them) and writes
 * the chosen position back as an integer, which the model may refuse. Other
 * columns are edited as usual. Subclasses set the lists of their columns.
 */
class NVRCORE_EXPORT ComboBoxDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit ComboBoxDelegate(QObject *parent = nullptr);
    ~ComboBoxDelegate() override;

    void setComboItems(int column, const QStringList &items);
    /// The items of column's list; empty for a column edited as usual.
    QStringList comboItems(int column) const;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

private:
    QHash<int, QStringList> m_items;
};

#endif
